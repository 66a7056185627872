// A frame that lies over the sheet: the form behind it is shaded and out of reach until the frame closes. It
// is a part of the form's window, no window of its own. It knows nothing of what it shows.
#pragma once

#include <QPointer>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace vandrel {

class OverlayFrame : public QWidget {
    Q_OBJECT

  public:
    OverlayFrame(QWidget* form, const QString& name, const QString& title);

    void setTitle(const QString& title);
    QString title() const;
    void setKeysHint(const QString& hint);
    void cover();   // shows the frame over the whole form
    void uncover(); // hides it; the focus is the caller's business

    // The field that gets the focus when the frame closes without saying otherwise.
    QPointer<QWidget> returnTo;

  Q_SIGNALS:
    void closeAsked(); // Esc, a click on the shade, the close button

  protected:
    QVBoxLayout* body() const { return m_body; }
    void setPanelSize(int width, int height); // 0: as large as its content
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override; // Tab stays inside

  private:
    QWidget* m_panel;
    QLabel* m_title;
    QLabel* m_hint;
    QVBoxLayout* m_body;
};

} // namespace vandrel

// The picture of the main window and the two text links that stand on it: paint only, no data.
#pragma once

#include <QIcon>
#include <QPushButton>
#include <QWidget>

namespace vandrel {

class MainPicture : public QWidget {
    Q_OBJECT

  public:
    explicit MainPicture(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// A text that acts as a button: white, lit while the pointer is over it. It goes back to white when the
// picture or the toolbar get the pointer, which the window tells it.
class TextLink : public QPushButton {
    Q_OBJECT

  public:
    explicit TextLink(const QString& text, QWidget* parent = nullptr);
    void setLit(bool lit);

  protected:
    void enterEvent(QEnterEvent* event) override;
};

// Drawn icons of the toolbar by index 1 to 6.
QIcon toolIcon(int index);

} // namespace vandrel

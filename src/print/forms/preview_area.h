// The preview's scroll area: one page on a grey ground, drawn at the zoom's own resolution and kept as one
// picture. Knows nothing of documents; what draws a page is given to it.
#pragma once

#include "print/page_target.h"
#include "print/preview_scaling.h"

#include <QImage>
#include <QWidget>

#include <functional>

class QScrollBar;

namespace vandrel {

class PreviewArea : public QWidget {
    Q_OBJECT

  public:
    // Draws the page that is shown, in twips of the paper; must not throw.
    using Draw = std::function<void(PageTarget&)>;

    explicit PreviewArea(Draw draw, QWidget* parent = nullptr);

    // Another page, or the same one anew; it is drawn when the screen wants it. paper in twips.
    void showPage(const PaperSize& paper);
    // A percentage, or one of the two other zooms. Both bars go back to their beginnings.
    void setZoom(float zoom);
    // While frozen nothing is drawn anew: the page stays as it was last seen.
    void setFrozen(bool frozen);

    const preview::Scaling& scaling() const { return m_scaling; }
    QScrollBar* horizontalBar() const { return m_horizontal; }
    QScrollBar* verticalBar() const { return m_vertical; }
    // Upper left corner of the page, in pixels of the area.
    QPointF pageCorner() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; // arrows, Home and End move the page
    void wheelEvent(QWheelEvent* event) override;

  private:
    void rescale();
    void placeBars();
    void drawPicture();

    Draw m_draw;
    PaperSize m_paper{11906, 16838};
    float m_zoom = 100;
    preview::Scaling m_scaling;
    QScrollBar *m_horizontal, *m_vertical;
    QImage m_picture;        // of the page at m_scaling's factor; null: not drawn yet, or too large to keep
    bool m_drawnAnew = true; // the picture does not show the page as it is now
    bool m_frozen = false;
};

} // namespace vandrel

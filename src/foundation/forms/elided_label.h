// A label for data in a narrow place: a long text ends in three dots instead of pushing its neighbours away,
// and the pointer over it shows it whole. Its text is never mark-up.
#pragma once

#include <QLabel>

namespace vandrel {

class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent = nullptr);
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vandrel

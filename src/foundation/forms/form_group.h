// A framed group of rows: a label, then the fields beside it. Labels of one column of groups are equally
// wide.
#pragma once

#include <QGroupBox>

class QGridLayout;
class QHBoxLayout;
class QLabel;

namespace vandrel {

class FormGroup : public QGroupBox {
    Q_OBJECT

  public:
    FormGroup(const QString& title, int labelWidth, QWidget* parent = nullptr);

    // Appends a row and gives the place for its fields; the label is kept for those that change it.
    QHBoxLayout* addRow(const QString& label);
    // The same without a label: the fields use the whole width.
    QHBoxLayout* addWideRow();
    void spread(); // rows farther apart, where there is room
    QLabel* lastLabel() const { return m_lastLabel; }
    static QLabel* plainLabel(const QString& text);

  private:
    QGridLayout* m_grid;
    QLabel* m_lastLabel = nullptr;
    int m_rows = 0;
};

} // namespace vandrel

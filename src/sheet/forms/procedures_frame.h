// The procedures of the sheet: its lines in a grid, the name of the current one, and the fields that add a
// line. A line is in the data file as soon as it is added.
#pragma once

#include "sheet/forms/visit_frames.h"

#include <vector>

class QPushButton;
class QTableWidget;

namespace vandrel {

class ProceduresFrame : public FormGroup {
    Q_OBJECT

  public:
    ProceduresFrame(SheetDesk& desk, const OpenDictionary& dictionary, QWidget* parent);

    // Shows the lines stored under the key, also those that an unstored sheet left behind.
    void showSheet(const QString& key);
    // The character for the next lines; written into the field at once.
    void setDefaultCharacter(const QString& character);
    void takeProcedure(const QString& code, const QString& name);

    // In the order of Tab.
    QList<QWidget*> asideWidgets() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fillGrid(int currentRow);
    void addLine();
    void deleteLine();
    bool codeKey(int key);
    void showName(const QString& name);
    void currentLineChanged(int row);

    SheetDesk& m_desk;
    QTableWidget* m_grid;
    QLabel* m_name;
    QPushButton* m_add;
    QPushButton* m_delete;
    QString m_key;
    QString m_character;
    std::vector<qint64> m_rowids;
    bool m_filling = false;
};

} // namespace vandrel

// The searchable dictionary list behind F1: procedures, diagnoses, citizenship. It gives code and name of the
// chosen row and remembers who asked; it writes nothing itself.
#pragma once

#include "foundation/forms/work_form.h"
#include "sheet/dictionary_list.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;

namespace vandrel {

class DictionaryModel;

class tetad_kieg1 : public WorkForm {
    Q_OBJECT

  public:
    // Table codes of the callers.
    static constexpr int procedures = 1;
    static constexpr int firstDiagnosis = 2; // to 6, one for each slot
    static constexpr int citizenship = 7;

    tetad_kieg1(Workstation& station, QWidget* opener);
    ~tetad_kieg1() override;

    // Reads the dictionary, clears the search and shows the list. Faults of the data file pass through, and
    // the list is then not shown.
    void openFor(int tableCode);
    // Who gets the focus back: 1 to 5 the diagnoses, 6 citizenship, 7 the procedure code, 0 nobody.
    int returnMarker() const { return m_marker; }
    void clearMarker() { m_marker = 0; }

  Q_SIGNALS:
    void taken(int tableCode, const QString& code, const QString& name);
    void escaped(int tableCode); // Esc in the grid; the list is closed behind it

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void layOut();
    SearchBy mode() const;
    void setMode();
    void search();
    void searchNext();
    void goTo(int row);
    void take(int row);
    bool searchKey(int key);
    bool gridKey(int key);
    Dictionary dictionary() const;

    QLineEdit* m_search;
    QRadioButton* m_byCode;
    QRadioButton* m_byName;
    QPushButton* m_next;
    QLabel* m_result;
    QTableView* m_grid;
    DictionaryModel* m_model;
    int m_table = 0;
    int m_marker = 0;
    bool m_found = false; // the current row is a match of the search text
};

} // namespace vandrel

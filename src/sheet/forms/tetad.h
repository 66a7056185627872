// The sheet's screen: one visit is typed here, stored and, later, corrected. It owns the groups and frames,
// the keys of the form and the road from field to store; rules of a group are the group's.
#pragma once

#include "foundation/forms/field_chain.h"
#include "foundation/forms/work_form.h"
#include "sheet/sheet_field_table.h"

#include <QHash>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace vandrel {

class FormOverlays;
class InstitutionHead;
class NoteFrame;
class OtherDataFrame;
class PatientFrame;
class ProceduresFrame;
class SheetDesk;
class tetad_kieg1;

class tetad : public WorkForm {
    Q_OBJECT

  public:
    tetad(Workstation& station, QWidget* opener);
    ~tetad() override;

    // A new sheet: its fields and the lines already stored under its key, and shows the form. A fault while
    // it is made is shown in a box, and the form is then not there.
    void Uj();
    // The content of the form as it stands; with fields().correction the mode is "Javítás".
    SheetFields fields() const;
    // Puts a sheet on the form, whatever was there before; for a stored one with correction set.
    void setFields(const SheetFields& fields);
    // Shows the form with the focus in the unit field: what follows setFields for a stored sheet.
    void present();

    // "<Ctrl-W> Tárol": the checks, the writing, and what follows.
    void store();

    // The eligibility service's question and check; empty: there is none, and nothing is asked.
    void setEligibilityCheck(const std::function<void()>& check);
    // The sick-pay preparation behind the work-capacity field; empty: there is none.
    void setSickPayPreparation(const std::function<bool()>& preparation);

    tetad_kieg1& dictionary() { return *m_dictionary; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool escapeCloses() const override { return false; } // a typed sheet is not lost by one key

  private:
    void layOut();
    QWidget* makeFoot();
    void makeKeys();
    void orderTabs();

    void activate();
    void placeFocus();
    void focusField(SheetKey key);
    void focusField(const QString& name);
    bool typedCodeSettled();

    void openOtherData();
    void openNote();
    void openDictionary(int tableCode);
    void dictionaryTaken(int tableCode, const QString& code, const QString& name);
    void dictionaryEscaped(int tableCode);
    void dictionaryClosed();

    SheetDesk* m_desk;
    InstitutionHead* m_head = nullptr;
    PatientFrame* m_patient = nullptr;
    ProceduresFrame* m_procedures = nullptr;
    OtherDataFrame* m_other = nullptr;
    NoteFrame* m_note = nullptr;
    FormOverlays* m_overlays = nullptr;
    std::unique_ptr<tetad_kieg1> m_dictionary;
    SheetFields m_rest; // what stands in no field: the key, and the EU sheet's values
    bool m_escapedFromProcedures = false;
    std::optional<ChecksPaused> m_dictionaryOpen; // taking the focus away is no leaving
    std::optional<ChecksPaused> m_closed;         // until the next sheet
};

} // namespace vandrel

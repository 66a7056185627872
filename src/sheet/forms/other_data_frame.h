// The frame of the other data (Ctrl-E): requests, prescription counts and the clinic's own fields. And the
// frame of the free note (Ctrl-N).
#pragma once

#include "foundation/forms/overlay_frame.h"
#include "foundation/workstation.h"
#include "sheet/sheet_field_table.h"
#include "sheet/sheet_settings.h"

#include <array>
#include <functional>

namespace vandrel {

class NoteEdit;
class SheetDesk;

class OtherDataFrame : public OverlayFrame {
    Q_OBJECT

  public:
    OtherDataFrame(SheetDesk& desk, QWidget* form);

    // Captions and limits of the clinic's own fields; a field without a caption is hidden.
    void setUserFields(const std::array<UserField, 5>& fields);
    // Asked when the work-capacity field is left with patient and main diagnosis there; false keeps the
    // focus. Empty: there is no sick-pay to prepare.
    std::function<bool()> prepareSickPay;

  Q_SIGNALS:
    // A field of the sheet is missing and must get the focus.
    void fieldWanted(SheetKey field);

  private:
    bool capacityLeft();
    bool fieldKey(SheetKey field, int key);

    SheetDesk& m_desk;
    std::array<QLabel*, 5> m_userLabels{};
};

class NoteFrame : public OverlayFrame {
    Q_OBJECT

  public:
    NoteFrame(SheetDesk& desk, QWidget* form);
    NoteEdit* note() const { return m_note; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    NoteEdit* m_note;
};

} // namespace vandrel

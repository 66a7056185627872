// The pick-list behind F1: the lines of a code list or a table, and the general enabling switch. It gives the
// first characters of the chosen line; it knows nothing of the field that asked.
#pragma once

#include "foundation/code_lists.h"
#include "foundation/forms/overlay_frame.h"
#include "foundation/workstation.h"

#include <memory>

class QCheckBox;
class QListView;

namespace vandrel {

class PickLineModel;

class PickListFrame : public OverlayFrame {
    Q_OBJECT

  public:
    explicit PickListFrame(QWidget* form);
    ~PickListFrame() override;

    // Fills the list and puts the mark on the line that begins with the code. Faults of the data file pass
    // through.
    void load(Workstation& station, PickMarker marker, const QString& code);
    QWidget* list() const;
    QCheckBox* switchBox() const { return m_switch; }
    PickMarker marker() const { return m_marker; }

  Q_SIGNALS:
    void taken(const QString& code); // the first characters of the line

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void take(const QModelIndex& index);
    void jump(const QString& typed);

    QListView* m_list;
    QCheckBox* m_switch;
    PickLineModel* m_model;
    PickMarker m_marker = PickMarker::none;
    int m_width = 0;
    QString m_typed; // letters typed in quick succession
    qint64 m_typedAt = 0;
};

} // namespace vandrel

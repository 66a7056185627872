// The panel of a form on which a folder is chosen: the button that opens the picker, the chosen path, and the
// room on its volume.
#pragma once

#include "foundation/forms/work_form.h"
#include "foundation/volumes.h"

#include <QGroupBox>

#include <functional>

class QPushButton;

namespace vandrel {

class ValueLabel;

class PathPanel : public QGroupBox {
    Q_OBJECT

  public:
    struct Names {
        QString fajta;                   // what openform picks
        QString button, buttonText;      // objectName and caption
        QString display, displayCaption; // of the path
    };
    // The panel is the form's; the form stays disabled while the picker is open.
    PathPanel(Workstation& station, WorkForm& form, const Names& names);

    QPushButton* button() const { return m_button; }
    // The path as openform gives it; for a report target with its closing separator.
    QString path() const;
    void setPath(const QString& path);

  Q_SIGNALS:
    void chosen();

  private:
    void choose();
    void take(const QString& path, const VolumeTexts& texts);

    Workstation& m_station;
    WorkForm& m_form;
    const QString m_fajta;
    QPushButton* m_button;
    ValueLabel *m_path, *m_drive, *m_total, *m_free;
};

} // namespace vandrel

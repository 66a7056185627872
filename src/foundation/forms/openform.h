// "Megnyitás": picks a folder for its caller out of the mounted volumes and their folders.
#pragma once

#include "foundation/forms/work_form.h"
#include "foundation/volumes.h"

#include <functional>

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace vandrel {

class openform : public WorkForm {
    Q_OBJECT

  public:
    // path is absolute, in the machine's own spelling and without a closing separator (the root has its own).
    using Chosen = std::function<void(const QString& path, const VolumeTexts& texts)>;

    // fajta "1" and "2": a report target, also written to station.reportTarget with a closing separator;
    // "3", "4" and "5" pick sources. chosen is called before the opener is enabled again, and not at all on
    // "Mégse".
    openform(Workstation& station, QWidget* opener, const QString& fajta, Chosen chosen);

    // Whether a fajta picks a report target.
    static bool picksReportTarget(const QString& fajta);

  private:
    bool eventFilter(QObject* watched, QEvent* event) override; // Enter and Backspace in the folder list
    void goTo(const QString& folder);
    void driveChosen(int index);
    void folderChosen();
    void take();

    const QString m_fajta;
    Chosen m_chosen;
    QString m_folder;
    QComboBox* m_drives;
    QListWidget *m_folders, *m_files;
    QLineEdit* m_path;
};

} // namespace vandrel

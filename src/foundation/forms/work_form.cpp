#include "foundation/forms/work_form.h"

#include "foundation/forms/window_helpers.h"

#include <QCloseEvent>

namespace vandrel {

WorkForm::WorkForm(Workstation& station, QWidget* opener)
    : QWidget(nullptr, Qt::Window), m_station(station), m_opener(opener) {}

void WorkForm::open() {
    if (m_opener != nullptr) m_opener->setEnabled(false);
    show();
    centreOnScreen(*this);
    applySeeThrough(*this, m_station.Attunes);
    raise();
    activateWindow();
}

void WorkForm::closeEvent(QCloseEvent* event) {
    event->accept();
    if (m_opener != nullptr) {
        m_opener->setEnabled(true);
        m_opener->activateWindow();
    }
    Q_EMIT closed();
}

} // namespace vandrel

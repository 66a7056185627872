#include "foundation/forms/work_form.h"

#include "foundation/forms/form_parts.h"
#include "foundation/forms/window_helpers.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include <utility>

namespace vandrel {

WorkForm::Run::Run(WorkForm& form) : m_form(form), m_own(!form.m_running) {
    if (!m_own) return;
    form.m_running = true;
    form.m_stopWished = false;
}

WorkForm::Run::~Run() {
    if (m_own) m_form.m_running = false;
}

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

bool WorkForm::takeStopWish() {
    return std::exchange(m_stopWished, false);
}

bool WorkForm::programEnds() const {
    return m_opener != nullptr && !m_opener->isVisible();
}

void WorkForm::closeEvent(QCloseEvent* event) {
    if (m_running) {
        m_stopWished = true;
        closeWished();
    }
    if (m_running || !isEnabled()) {
        event->ignore();
        return;
    }
    event->accept();
    if (m_opener != nullptr) {
        m_opener->setEnabled(true);
        m_opener->activateWindow();
    }
    Q_EMIT closed();
}

void WorkForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && escapeCloses())
        close();
    else if (!pressFocusedButton(*this, *event))
        QWidget::keyPressEvent(event);
}

} // namespace vandrel

#include "foundation/forms/nemform.h"

#include "foundation/forms/form_parts.h"
#include "foundation/forms/window_helpers.h"
#include "foundation/forms/work_form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// The window the user has before him; without a window manager none may be active, then the working form.
QWidget* windowInFront() {
    if (QWidget* active = QApplication::activeWindow()) return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (qobject_cast<WorkForm*>(window) != nullptr && window->isVisible() && window->isEnabled())
            return window;
    return nullptr;
}

} // namespace

nemform::nemform() : QWidget(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::CustomizeWindowHint) {
    setObjectName(u"nemform"_s);
    setWindowTitle(u"Figyelmeztetés"_s);
    setWindowModality(Qt::ApplicationModal);

    m_text = new ValueLabel(u"szoveg"_s, u"Figyelmeztetés"_s);
    m_text->setWordWrap(true);
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    m_text->setMargin(14);
    m_text->setMinimumSize(460, 80);
    m_button = makeButton(u"OK"_s, u"OK"_s);
    connect(m_button, &QPushButton::clicked, this, &nemform::close);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(12);
    column->addWidget(m_text);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_button);
    row->addStretch();
    column->addLayout(row);
}

void nemform::showNote(const QString& text, bool buttonEnabled) {
    QWidget* caller = isVisible() ? m_caller.data() : windowInFront();
    showFor(caller == this ? nullptr : caller, text, buttonEnabled);
}

void nemform::showFor(QWidget* caller, const QString& text, bool buttonEnabled) {
    m_text->setText(text);
    m_button->setEnabled(buttonEnabled);
    if (m_caller != caller && m_caller != nullptr) m_caller->setEnabled(true);
    m_caller = caller;
    if (m_caller != nullptr) m_caller->setEnabled(false);
    adjustSize(); // a longer text must not be cut
    if (!isVisible()) {
        show();
        centreOnScreen(*this);
        raise();
        activateWindow();
    }
    if (buttonEnabled)
        m_button->setFocus();
    else
        setFocus();
}

void nemform::closeEvent(QCloseEvent* event) {
    if (!m_button->isEnabled()) {
        event->ignore();
        return;
    }
    event->accept();
    if (m_caller != nullptr) {
        m_caller->setEnabled(true);
        m_caller->activateWindow();
        m_caller = nullptr;
    }
    Q_EMIT closed();
}

void nemform::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace vandrel

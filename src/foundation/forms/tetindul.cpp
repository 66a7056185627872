#include "foundation/forms/tetindul.h"

#include "foundation/forms/form_parts.h"
#include "foundation/forms/main_picture.h"
#include "foundation/forms/window_helpers.h"
#include "foundation/forms/work_form.h"
#include "foundation/start_checks.h"
#include "platform/format.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr QSize windowSize(1000, 620);

constexpr std::array<std::string_view, 3> offInOldFormat = {"adkez", "leval", "osszemasol"};
constexpr std::array<std::string_view, 7> offWithoutInstitution = {"adkez",    "stati", "leval", "szerviz",
                                                                   "napiment", "nevj",  "kil"};

struct Key {
    std::string_view entry;
    const char* keys;
};
constexpr Key shortcuts[] = {{"adfelv", "Ctrl+N"}, {"admod", "Ctrl+M"}, {"er", "Ctrl+E"}, {"kil", "Ctrl+Q"}};

struct Link {
    const char* text;
    std::string_view actsAs;
};
constexpr Link links[] = {{"Verziókövetés", "nevj"}, {"Frissítés", "prfrissmenu"}};

template<std::size_t Size>
bool contains(const std::array<std::string_view, Size>& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

QString withoutAccess(const QString& caption) {
    return QString(caption).remove('&'_L1).trimmed();
}

QLineEdit* clockBox(const QString& name, const QString& label, int characters, QObject* filter) {
    auto* box = new QLineEdit;
    named(box, name, label);
    box->setReadOnly(true);
    box->setAlignment(Qt::AlignCenter);
    box->setFixedWidth(box->fontMetrics().averageCharWidth() * (characters + 4));
    box->installEventFilter(filter);
    return box;
}

} // namespace

tetindul::tetindul(Workstation& station, Environment environment)
    : m_station(station), m_environment(std::move(environment)) {
    setObjectName(u"tetindul"_s);
    setContextMenuPolicy(Qt::NoContextMenu); // the toolbar cannot be hidden
    buildMenus();
    buildToolbar();
    buildBody();
    refreshStates();
    // A box that closed owes the next change of focus only.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (window != nullptr && window != windowHandle()) m_boxHandsBack = false;
    });
}

void tetindul::buildMenus() {
    std::map<std::string_view, QMenu*> menus;
    for (const MenuEntry& entry : menuMap()) {
        QMenu* parent = entry.parent.empty() ? nullptr : menus.at(entry.parent);
        const QString caption = menuText(entry.caption);
        QAction* action = nullptr;
        if (entry.kind == MenuKind::title) {
            QMenu* menu = parent == nullptr ? menuBar()->addMenu(caption) : parent->addMenu(caption);
            menus[entry.name] = menu;
            action = menu->menuAction();
            menu->setObjectName(menuText(entry.name) + u"_lista"_s);
            menu->setAccessibleName(withoutAccess(caption));
        } else {
            action = parent == nullptr ? menuBar()->addAction(caption) : parent->addAction(caption);
            connect(action, &QAction::triggered, this, [this, name = entry.name] { trigger(name); });
        }
        action->setObjectName(menuText(entry.name));
        action->setMenuRole(QAction::NoRole);
        m_actions[entry.name] = action;
    }
    for (const Key& key : shortcuts)
        m_actions.at(key.entry)->setShortcut(QKeySequence(QString::fromLatin1(key.keys)));
}

void tetindul::buildToolbar() {
    m_toolbar = addToolBar(u"Eszköztár"_s);
    m_toolbar->setObjectName(u"Toolbar1"_s);
    m_toolbar->setMovable(false);
    m_toolbar->setIconSize(QSize(32, 32));
    m_toolbar->setMouseTracking(true);
    m_toolbar->installEventFilter(this);
    int index = 0;
    for (const ToolButton& entry : toolButtons()) {
        ++index;
        auto* button = new QToolButton;
        button->setObjectName(u"Toolbar1_%1"_s.arg(index));
        button->setIcon(toolIcon(index));
        button->setToolTip(menuText(entry.toolTip));
        button->setAccessibleName(menuText(entry.toolTip));
        button->setFocusPolicy(Qt::TabFocus);
        button->setAutoRaise(true);
        button->installEventFilter(this);
        m_toolbar->addWidget(button);
        // Index 5 ("Névjegy") has no action: it has always been so, and it is kept.
        if (entry.actsAs.empty()) continue;
        m_toolButtons[button] = entry.actsAs;
        connect(button, &QToolButton::clicked, this, [this, name = entry.actsAs] { trigger(name); });
    }
}

void tetindul::buildBody() {
    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);

    m_picture = new MainPicture;
    m_picture->installEventFilter(this);
    auto* overPicture = new QVBoxLayout(m_picture);
    overPicture->setContentsMargins(16, 16, 16, 12);
    auto* clockRow = new QHBoxLayout;
    clockRow->addStretch();
    m_date = clockBox(u"datum"_s, u"Dátum"_s, 11, this);
    m_time = clockBox(u"ido"_s, u"Idő"_s, 5, this);
    clockRow->addWidget(m_date);
    clockRow->addWidget(m_time);
    overPicture->addLayout(clockRow);
    overPicture->addStretch();
    auto* linkRow = new QHBoxLayout;
    linkRow->addStretch();
    for (const Link& link : links) {
        auto* text = new TextLink(QString::fromUtf8(link.text));
        text->setObjectName(text->text());
        m_links[text] = link.actsAs;
        connect(text, &TextLink::clicked, this, [this, name = link.actsAs] { trigger(name); });
        linkRow->addWidget(text);
    }
    overPicture->addLayout(linkRow);
    column->addWidget(m_picture, 1);

    m_warningsHead = new QLabel(u" ! Első indítás utáni figyelmeztetések:"_s);
    m_warningsHead->setObjectName(u"figyelmeztetesek_cim"_s);
    m_warningsHead->setMargin(4);
    m_warnings = new QListWidget;
    m_warnings->setObjectName(u"figyelmeztetesek"_s);
    m_warnings->setAccessibleName(m_warningsHead->text().trimmed());
    m_warnings->setMaximumHeight(110);
    column->addWidget(m_warningsHead);
    column->addWidget(m_warnings);
    setCentralWidget(body);
}

void tetindul::setOpener(const QString& menuName, std::function<void()> opener) {
    const MenuEntry* entry = menuEntry(menuName.toStdString());
    Q_ASSERT_X(entry != nullptr && entry->kind != MenuKind::title, "setOpener", "no such menu entry");
    if (entry == nullptr) return;
    m_openers[entry->name] = std::move(opener);
    refreshStates();
}

void tetindul::load() {
    resize(windowSize);
    centreOnScreen(*this);
    setWindowTitle(programTitle + ' '_L1 + programVersion());
    m_oldFormat = !VerzioEllenorzesek(m_station);
    refreshStates();
}

// --- what can be chosen
// ---------------------------------------------------------------------------------------

bool tetindul::reachable(std::string_view entry) const {
    while (!entry.empty()) {
        if (!m_actions.at(entry)->isEnabled()) return false;
        entry = menuEntry(entry)->parent;
    }
    return true;
}

void tetindul::refreshStates() {
    for (const auto& [name, action] : m_actions) {
        const MenuKind kind = menuEntry(name)->kind;
        const bool alive = kind == MenuKind::title || kind == MenuKind::leaving || m_openers.contains(name);
        const bool off = (m_oldFormat && contains(offInOldFormat, name)) ||
                         (m_noInstitution && contains(offWithoutInstitution, name));
        action->setEnabled(alive && !off);
    }
    // Buttons and links act as their entries, so they cannot do what the menu forbids: closing the window is
    // the only way out of a program without an institution.
    for (const auto& [button, entry] : m_toolButtons)
        button->setEnabled(reachable(entry));
    for (const auto& [link, entry] : m_links)
        link->setEnabled(reachable(entry));
}

void tetindul::trigger(std::string_view entry) {
    if (!reachable(entry)) return;
    if (entry == "kil") {
        leave();
        return;
    }
    const auto found = m_openers.find(entry);
    if (found == m_openers.end()) return;
    try {
        found->second();
    } catch (const Fault& fault) {
        // Told here and not left to the event loop: a fault must not pass through the menu's own code.
        m_station.dialogue.tell(fault.text(), u"Hiba"_s);
        // A form that did not come up cannot hand the window back.
        const QWidgetList windows = QApplication::topLevelWidgets();
        const bool formStands = std::ranges::any_of(windows, [](const QWidget* window) {
            return qobject_cast<const WorkForm*>(window) != nullptr && window->isVisible();
        });
        if (!formStands) setEnabled(true);
    }
}

void tetindul::leave() {
    if (!m_station.dialogue.ask(u"Valóban ki akar lépni?"_s, u"Kilép"_s)) return;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (qobject_cast<WorkForm*>(window) != nullptr && window->isVisible()) window->close();
    close();
}

// Closing by any means ends the program at once, without a question, also while another form stands.
void tetindul::closeEvent(QCloseEvent* event) {
    event->accept();
    if (m_ended) return;
    m_ended = true;
    m_environment.endProgram();
}

// --- activation
// -----------------------------------------------------------------------------------------------

// An activation is the window coming to the front: at the start, from another program, or because a form has
// closed. A message box that closes over this window is none, or the institution's question would ask itself
// again for ever; and a disabled window stays behind its form.
bool tetindul::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::WindowActivate:
        if (m_boxHandsBack)
            m_boxHandsBack = false;
        else
            activateLater();
        break;
    case QEvent::WindowUnblocked: // a modal box has closed; the window may be in front already
        m_boxHandsBack = !isActiveWindow() && isEnabled();
        break;
    case QEvent::EnabledChange:
        m_boxHandsBack = false; // from here on it is a form that hands back
        if (isEnabled() && isActiveWindow()) activateLater();
        break;
    default:
        break;
    }
    return QMainWindow::event(event);
}

// From the event queue: a box inside the activation event itself would stop its delivery half-way.
void tetindul::activateLater() {
    if (m_activationDue || m_activating) return;
    m_activationDue = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_activationDue = false;
            if (isVisible() && isEnabled() && isActiveWindow()) activated();
        },
        Qt::QueuedConnection);
}

void tetindul::activated() {
    if (m_activating || m_ended) return;
    const QScopedValueRollback<bool> guard(m_activating, true);
    readAttunes(m_station);
    if (!m_environment.seeThrough(*this, m_station.Attunes)) {
        m_station.Attunes = false;
        clearAttunes(m_station);
    }
    showClock();
    if (m_environment.otherInstanceRuns()) {
        // Both answers end the program, and that is wanted.
        m_station.dialogue.ask(u"A program már fut egy példányban!"_s, u"Figyelmeztetés"_s, Icon::critical);
        close();
        return;
    }
    centreOnScreen(*this);
    // On the first activation the list is still empty and goes for good: what the checks add to it later
    // stays unseen. It has always been so and is kept.
    if (m_warnings->count() == 0) {
        m_warnings->hide();
        m_warningsHead->hide();
    }
    m_warnings->clear();
    checkData();
}

void tetindul::checkData() {
    // The limits of the last activation end here; the check below sets them anew.
    m_noInstitution = false;
    refreshStates();
    QStringList warnings;
    const InstitutionAnswer answer = checkInstitution(m_station, warnings);
    m_warnings->addItems(warnings);
    warnings.clear();
    if (answer == InstitutionAnswer::fillNow) trigger("int");
    if (answer == InstitutionAnswer::fillLater) {
        m_noInstitution = true;
        refreshStates();
    }
    checkFirstStart(m_station, warnings);
    m_warnings->addItems(warnings);
}

void tetindul::showClock() {
    const QDateTime now = m_station.clock.now();
    m_date->setText(format::shortDate(now.date()));
    m_time->setText(format::shortTime(now.time()));
}

void tetindul::keyPressEvent(QKeyEvent* event) {
    if (!pressFocusedButton(*this, *event)) QMainWindow::keyPressEvent(event);
}

bool tetindul::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_date || watched == m_time) {
        bool wanted = event->type() == QEvent::MouseButtonDblClick;
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            wanted = key == Qt::Key_Return || key == Qt::Key_Enter;
        }
        if (wanted && m_clockOpener) {
            m_clockOpener();
            return true;
        }
    } else if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
        // The pointer over the picture or the toolbar puts the lit link out.
        for (const auto& [link, entry] : m_links)
            link->setLit(false);
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace vandrel

// The view's keys, menu and marks. The list does the work; the model is told what has changed.
#include "foundation/forms/record_grid.h"

#include "foundation/forms/record_model.h"

#include <QContextMenuEvent>
#include <QDateTime>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int lineHeight = 23;
constexpr qint64 quickTyping = 1000; // milliseconds between letters of one word

std::optional<QString> askByBox(QWidget* parent, const QString& question, const QString& title) {
    QInputDialog box(parent);
    box.setObjectName(u"adatkeres"_s);
    box.setWindowTitle(title);
    box.setLabelText(question);
    box.setOkButtonText(u"OK"_s);
    box.setCancelButtonText(u"Mégse"_s);
    if (box.exec() != QDialog::Accepted) return std::nullopt;
    return box.textValue();
}

} // namespace

RecordGrid::RecordGrid(Workstation& station, RecordList list, Services services, QWidget* parent)
    : QTableView(parent), m_station(station), m_list(std::move(list)), m_services(services),
      m_model(new RecordModel(*this)), m_ask(askByBox) {
    layOut();
    setModel(m_model);
    int column = 0;
    for (const GridColumn& entry : m_list.columns())
        setColumnWidth(column++, entry.width);
    // A heading selects its column; the button's press counts, also the right one's before its menu.
    connect(horizontalHeader(), &QHeaderView::sectionPressed, this, [this](int section) {
        if (m_services != Services::none) selectColumn(section);
    });
    horizontalHeader()->viewport()->installEventFilter(this);
}

RecordGrid::~RecordGrid() = default;

void RecordGrid::layOut() {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(m_services != Services::none);
}

void RecordGrid::change(const std::function<void(RecordList&)>& work) {
    m_changing = true;
    m_model->begin();
    const auto finish = [this] {
        m_model->end();
        m_changing = false;
        m_model->headingsChanged();
        setCurrentIndex(m_model->index(static_cast<int>(position()), 0)); // invalid where there is no row
    };
    try {
        work(m_list);
    } catch (...) {
        finish();
        throw;
    }
    finish();
    if (position() < 0) Q_EMIT positionChanged(-1);
}

void RecordGrid::goTo(qint64 position) {
    if (position < 0 || position >= count()) return;
    const QModelIndex index = m_model->index(static_cast<int>(position), 0);
    const int sideways = horizontalScrollBar()->value();
    setCurrentIndex(index);
    scrollTo(index, QAbstractItemView::EnsureVisible);
    horizontalScrollBar()->setValue(sideways);
}

bool RecordGrid::goNext() {
    if (position() + 1 >= count()) return false;
    goTo(position() + 1);
    return true;
}

bool RecordGrid::goPrevious() {
    if (position() <= 0) return false;
    goTo(position() - 1);
    return true;
}

void RecordGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (m_changing || !current.isValid()) return;
    m_list.rows().goTo(current.row());
    if (current.row() != previous.row()) Q_EMIT positionChanged(current.row());
}

QString RecordGrid::cellText(qint64 position, int column) const {
    // A fault while a cell is painted cannot be shown then and there; the row says so itself.
    try {
        const std::optional<QStringList>& row = m_list.row(position);
        if (!row) return column == 0 ? u"(törölt sor)"_s : QString();
        return m_cellText ? m_cellText(column, *row) : row->at(column);
    } catch (const Fault& fault) {
        return column == 0 ? fault.text() : QString();
    }
}

void RecordGrid::selectColumn(int column) {
    if (column == m_selectedColumn) return;
    m_selectedColumn = column;
    m_model->headingsChanged();
    viewport()->update();
    if (column >= 0 && currentIndex().isValid()) scrollTo(m_model->index(currentIndex().row(), column));
}

void RecordGrid::guarded(const std::function<void()>& work) {
    try {
        work();
    } catch (const Fault& fault) {
        m_station.dialogue.tell(fault.text(), u"Hiba"_s);
    }
}

void RecordGrid::sortBySelected(SortDirection direction) {
    if (m_selectedColumn < 0) {
        m_station.dialogue.tell(u"Nincs kijelölve oszlop!"_s, u"Figyelmeztetés"_s, Icon::warning);
        return;
    }
    guarded([&] { change([&](RecordList& list) { list.GridSort(m_selectedColumn, direction); }); });
}

void RecordGrid::narrowBySelected(NarrowMode mode) {
    if (m_selectedColumn < 0) {
        m_station.dialogue.tell(u"Jelöljön ki oszlopot!"_s, u"Hiba"_s);
        return;
    }
    const std::optional<QString> answer =
        m_ask(this, u"Kérem az értéket, amire szűkíteni akar!"_s, u"Adatkérés"_s);
    guarded([&] {
        change(
            [&](RecordList& list) { list.GridFilter(m_selectedColumn, mode, answer.value_or(QString())); });
        setFocus(Qt::OtherFocusReason);
        Q_EMIT narrowed();
    });
}

void RecordGrid::sortWholeTable() {
    if (m_selectedColumn < 0) return;
    guarded([&] { change([&](RecordList& list) { list.sortWholeTable(m_selectedColumn); }); });
    Q_EMIT narrowed(); // a narrowing is gone: the count is another one
}

void RecordGrid::openMenu(const QPoint& globalPlace) {
    QMenu menu(this);
    menu.setObjectName(u"racsmenu"_s);
    const auto add = [&](const QString& text, const QString& name, const std::function<void()>& run) {
        QAction* action = menu.addAction(text);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, run);
    };
    add(u"Rendez növekvőbe"_s, u"novekvorendezes"_s, [this] { sortBySelected(SortDirection::ascending); });
    add(u"Rendez csökkenőbe"_s, u"csokkenomenu"_s, [this] { sortBySelected(SortDirection::descending); });
    add(u"Szűkít (rész)"_s, u"szukreszmenu"_s, [this] { narrowBySelected(NarrowMode::part); });
    add(u"Szűkít (teljes)"_s, u"szukteljesmenu"_s, [this] { narrowBySelected(NarrowMode::whole); });
    add(u"Mindent mutat"_s, u"mindmenu"_s, [this] { Q_EMIT showAllAsked(); });
    menu.exec(globalPlace);
}

void RecordGrid::contextMenuEvent(QContextMenuEvent* event) {
    if (m_services == Services::none) {
        QTableView::contextMenuEvent(event);
        return;
    }
    openMenu(event->reason() == QContextMenuEvent::Keyboard ? placeOfFocus() : event->globalPos());
}

// Under the heading of the column that has the focus.
QPoint RecordGrid::placeOfFocus() const {
    const int left = m_selectedColumn >= 0 ? columnViewportPosition(m_selectedColumn) : 0;
    return viewport()->mapToGlobal(QPoint(std::clamp(left, 0, std::max(viewport()->width() - 1, 0)), 2));
}

bool RecordGrid::eventFilter(QObject* watched, QEvent* event) {
    if (watched == horizontalHeader()->viewport() && m_services != Services::none) {
        if (event->type() == QEvent::MouseButtonPress) {
            auto* press = static_cast<QMouseEvent*>(event);
            if (press->button() == Qt::RightButton) {
                const int section = horizontalHeader()->logicalIndexAt(press->position().toPoint());
                if (section >= 0) selectColumn(section);
            }
        } else if (event->type() == QEvent::MouseButtonDblClick) {
            sortWholeTable();
            return true;
        } else if (event->type() == QEvent::ContextMenu) {
            openMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
            return true;
        }
    }
    return QTableView::eventFilter(watched, event);
}

void RecordGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    if (m_services != Services::none) {
        sortWholeTable();
    } else if (const QModelIndex index = indexAt(event->position().toPoint()); index.isValid()) {
        Q_EMIT rowChosen(index.row());
    }
}

bool RecordGrid::viewportEvent(QEvent* event) {
    // What another program has changed meanwhile is seen when the window comes back.
    if (event->type() == QEvent::WindowActivate) {
        m_list.forgetRows();
        viewport()->update();
    }
    return QTableView::viewportEvent(event);
}

void RecordGrid::jump(const QString& typed) {
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (now - m_typedAt > quickTyping) m_typed.clear();
    m_typedAt = now;
    m_typed += typed;
    guarded([this] { goTo(m_list.rowBeginningWith(std::max(m_selectedColumn, 0), m_typed)); });
}

void RecordGrid::keyPressEvent(QKeyEvent* event) {
    const int columns = static_cast<int>(m_list.columns().size());
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (position() >= 0) Q_EMIT rowChosen(position());
        return;
    case Qt::Key_Home:
        goFirst();
        return;
    case Qt::Key_End:
        goLast();
        return;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (m_services == Services::none) break;
        if (event->key() == Qt::Key_Right)
            selectColumn(std::min(m_selectedColumn + 1, columns - 1));
        else
            selectColumn(m_selectedColumn < 0 ? columns - 1 : std::max(m_selectedColumn - 1, 0));
        return;
    case Qt::Key_F10:
    case Qt::Key_Menu: {
        if (m_services == Services::none) break;
        if (event->key() == Qt::Key_F10 && !(event->modifiers() & Qt::ShiftModifier)) break;
        openMenu(placeOfFocus());
        return;
    }
    default:
        if (plain && !event->text().isEmpty() && event->text()[0].isPrint()) {
            jump(event->text());
            return;
        }
        break;
    }
    QTableView::keyPressEvent(event);
}

} // namespace vandrel

// The list, its search and its keys.
#include "sheet/forms/tetad_kieg1.h"

#include "foundation/forms/field_chain.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

class DictionaryModel : public QAbstractTableModel {
  public:
    using QAbstractTableModel::QAbstractTableModel;

    void setList(DictionaryList list) {
        beginResetModel();
        m_list = std::move(list);
        endResetModel();
    }
    const DictionaryList& list() const { return m_list; }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : m_list.count();
    }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 2; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
        const DictionaryList::Entry& entry = m_list.at(index.row());
        return index.column() == 0 ? entry.code : entry.name;
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        return section == 0 ? u"Kód"_s : u"Megnevezés"_s;
    }

  private:
    DictionaryList m_list;
};

namespace {
constexpr int longestCode = 5;
constexpr int longestName = 100;
} // namespace

tetad_kieg1::tetad_kieg1(Workstation& station, QWidget* opener)
    : WorkForm(station, opener), m_search(new QLineEdit), m_byCode(new QRadioButton(u"Kódra"_s)),
      m_byName(new QRadioButton(u"Megnevezésre"_s)), m_next(new QPushButton(u"Következő"_s)),
      m_result(new QLabel), m_grid(new QTableView), m_model(new DictionaryModel(this)) {
    setObjectName(u"tetad_kieg1"_s);
    layOut();
    m_search->installEventFilter(this);
    m_grid->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, [this] { search(); });
    // Behind the button's own handling of the key, which takes the focus to the chosen button.
    connect(
        m_byName, &QRadioButton::toggled, this, [this] { setMode(); }, Qt::QueuedConnection);
    connect(m_next, &QPushButton::clicked, this, [this] { searchNext(); });
    connect(m_grid, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { take(index.row()); });
    // Both without a way through Tab: the hand stays at the search.
    connect(new QShortcut(Qt::Key_F2, this), &QShortcut::activated, this,
            [this] { (m_byName->isChecked() ? m_byCode : m_byName)->setChecked(true); });
    connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this, [this] { searchNext(); });
}

tetad_kieg1::~tetad_kieg1() = default;

void tetad_kieg1::layOut() {
    m_search->setObjectName(u"keres"_s);
    m_search->setAccessibleName(u"Keresés:"_s);
    m_byCode->setObjectName(u"Kodra"_s);
    m_byCode->setAccessibleName(m_byCode->text());
    m_byName->setObjectName(u"Megnevezesre"_s);
    m_byName->setAccessibleName(m_byName->text());
    m_next->setObjectName(u"Kovetkezo"_s);
    m_next->setAccessibleName(m_next->text());
    m_next->setAutoDefault(true);
    m_result->setTextFormat(Qt::PlainText);
    m_grid->setObjectName(u"szotar"_s);
    m_grid->setModel(m_model);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setWordWrap(false);
    m_grid->setTabKeyNavigation(false);
    m_grid->setAlternatingRowColors(true);
    m_grid->verticalHeader()->hide();
    m_grid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_grid->verticalHeader()->setDefaultSectionSize(23);
    m_grid->horizontalHeader()->setStretchLastSection(true);
    m_grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_grid->setColumnWidth(0, 90);

    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    row->addWidget(new QLabel(u"Keresés:"_s));
    row->addWidget(m_search, 1);
    row->addWidget(m_byCode);
    row->addWidget(m_byName);
    row->addWidget(m_next);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(m_result);
    column->addWidget(m_grid, 1);
    auto* hint = new QLabel(
        u"<Enter> Átvesz     <↑> <↓> sorok     <F2> Kódra/Megnevezésre     <F3> Következő     <Esc> Mégsem"_s);
    hint->setTextFormat(Qt::PlainText);
    column->addWidget(hint);
    resize(820, 560);
}

Dictionary tetad_kieg1::dictionary() const {
    if (m_table == procedures) return Dictionary::procedures;
    return m_table == citizenship ? Dictionary::countries : Dictionary::diagnoses;
}

void tetad_kieg1::openFor(int tableCode) {
    m_table = tableCode;
    DictionaryList list(station(), dictionary());
    switch (dictionary()) {
    case Dictionary::procedures:
        m_marker = 7;
        setWindowTitle(u"Beavatkozások"_s);
        break;
    case Dictionary::diagnoses:
        m_marker = tableCode - firstDiagnosis + 1;
        setWindowTitle(u"BNO kódok"_s);
        break;
    case Dictionary::countries:
        m_marker = 6;
        setWindowTitle(u"Állampolgárság"_s);
        break;
    }
    m_grid->setAccessibleName(windowTitle());
    m_model->setList(std::move(list));
    m_byCode->setChecked(true);
    setMode();
    m_search->clear();
    search();
    open();
    m_search->setFocus(Qt::OtherFocusReason);
}

SearchBy tetad_kieg1::mode() const {
    return m_byName->isChecked() ? SearchBy::name : SearchBy::code;
}

void tetad_kieg1::setMode() {
    m_search->setMaxLength(mode() == SearchBy::code ? longestCode : longestName);
    search();
    m_search->setFocus(Qt::OtherFocusReason);
}

void tetad_kieg1::goTo(int row) {
    const QModelIndex index = m_model->index(row, 0);
    m_grid->setCurrentIndex(index);
    m_grid->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

// On each change of the search text, from the top.
void tetad_kieg1::search() {
    const int row = m_model->list().find(mode(), m_search->text(), 0);
    m_found = row >= 0;
    if (m_found) goTo(row);
    m_result->setText(m_found || m_search->text().isEmpty() ? u" "_s : u"Nincs találat."_s);
}

void tetad_kieg1::searchNext() {
    const int current = m_grid->currentIndex().row();
    int row = m_model->list().find(mode(), m_search->text(), current + 1);
    if (row < 0) {
        if (!station().dialogue.ask(u"Nincs több találat, kéri az első találatot?"_s)) return;
        row = m_model->list().find(mode(), m_search->text(), 0);
    }
    m_found = row >= 0;
    if (m_found) goTo(row);
}

void tetad_kieg1::take(int row) {
    if (row < 0 || row >= m_model->list().count()) return;
    const DictionaryList::Entry entry = m_model->list().at(row);
    Q_EMIT taken(m_table, entry.code, entry.name);
    close();
}

bool tetad_kieg1::searchKey(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Without a match the current row has nothing to do with what was typed.
        if (m_found && !m_search->text().isEmpty())
            take(m_grid->currentIndex().row());
        else
            m_grid->setFocus(Qt::TabFocusReason);
        return true;
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_PageDown:
    case Qt::Key_PageUp: {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(m_grid, &press);
        m_grid->setFocus(Qt::TabFocusReason);
        return true;
    }
    case Qt::Key_Escape:
        close(); // nothing changes; only Esc in the grid has effects of its own
        return true;
    default:
        return false;
    }
}

bool tetad_kieg1::gridKey(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        take(m_grid->currentIndex().row());
        return true;
    case Qt::Key_Escape:
        Q_EMIT escaped(m_table);
        close();
        return true;
    default:
        return false;
    }
}

// Esc on a button leaves too, as in the search field.
void tetad_kieg1::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        WorkForm::keyPressEvent(event);
}

bool tetad_kieg1::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* press = static_cast<QKeyEvent*>(event);
        if (watched == m_search && searchKey(press->key())) return true;
        if (watched == m_grid) {
            if (gridKey(press->key())) return true;
            // Letters typed in the grid go on with the search.
            const QString text = press->text();
            const bool plain = !(press->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
            if (plain && !text.isEmpty() && text[0].isPrint()) {
                m_search->setFocus(Qt::OtherFocusReason);
                m_search->setText(m_search->text() + text);
                return true;
            }
        }
    }
    return WorkForm::eventFilter(watched, event);
}

} // namespace vandrel

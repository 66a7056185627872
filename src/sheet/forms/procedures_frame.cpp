// Layout and rules of the procedure block.
#include "sheet/forms/procedures_frame.h"

#include "foundation/look_ups.h"
#include "sheet/forms/sheet_desk.h"
#include "sheet/procedure_lines.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int keyCodeOfF2 = 113;

QPushButton* makeButton(const QString& text, const QString& name) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(text);
    button->setAutoDefault(true); // Enter presses it, like Space
    return button;
}

} // namespace

ProceduresFrame::ProceduresFrame(SheetDesk& desk, const OpenDictionary& dictionary, QWidget* parent)
    : FormGroup(u"Egészségügyi beavatkozások:"_s, 0, parent), m_desk(desk), m_grid(new QTableWidget(0, 4)),
      m_name(SheetDesk::makeDataLabel(u"BEAV_NEV"_s)), m_add(makeButton(u"Felvesz"_s, u"Felvesz"_s)),
      m_delete(makeButton(u"Töröl"_s, u"Torol"_s)) {
    m_grid->setObjectName(u"EUSZOLG"_s);
    m_grid->setAccessibleName(u"Egészségügyi beavatkozások:"_s);
    m_grid->setHorizontalHeaderLabels({u"Kód"_s, u"Mennyiség"_s, u"Jelleg"_s, u"Megnevezés"_s});
    m_grid->horizontalHeader()->setStretchLastSection(true);
    m_grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_grid->horizontalHeader()->setHighlightSections(false);
    m_grid->setColumnWidth(0, 76);
    m_grid->setColumnWidth(1, 84);
    m_grid->setColumnWidth(2, 54);
    m_grid->verticalHeader()->hide();
    m_grid->verticalHeader()->setDefaultSectionSize(22);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setTabKeyNavigation(false);
    m_grid->setWordWrap(false);
    m_grid->setAlternatingRowColors(true);
    m_grid->setMinimumHeight(96);
    m_grid->installEventFilter(this);
    addWideRow()->addWidget(m_grid, 1);
    m_name->setAccessibleName(u"A beavatkozás neve"_s);
    QFont bold = m_name->font();
    bold.setBold(true);
    m_name->setFont(bold);
    addWideRow()->addWidget(m_name, 1);

    QHBoxLayout* row = addWideRow();
    row->addWidget(plainLabel(u"Kód:"_s));
    row->addWidget(desk.input(SheetKey::BEAV));
    row->addWidget(plainLabel(u"Mennyiség:"_s));
    row->addWidget(desk.input(SheetKey::MENNY));
    row->addWidget(plainLabel(u"Jelleg:"_s));
    row->addWidget(desk.input(SheetKey::BeavJelleg));
    row->addWidget(desk.makeMeaning(SheetKey::BeavJelleg), 1);
    row->addWidget(m_add);
    row->addWidget(m_delete);

    connect(m_add, &QPushButton::clicked, this, [this] { addLine(); });
    connect(m_delete, &QPushButton::clicked, this, [this] { deleteLine(); });
    connect(m_grid, &QTableWidget::currentCellChanged, this, [this](int current, int, int previous, int) {
        if (!m_filling && current != previous) currentLineChanged(current);
    });

    FieldRules& code = desk.rules(SheetKey::BEAV);
    code.help = [dictionary] { dictionary(1); };
    code.key = [this](int key) { return codeKey(key); };
    desk.rules(SheetKey::MENNY).key = [this](int key) {
        if (key == Qt::Key_Return) {
            addLine();
            return true;
        }
        if (key == Qt::Key_Down) {
            SelectAll(m_desk.input(SheetKey::BeavJelleg));
            return true;
        }
        return false;
    };
    desk.rules(SheetKey::BeavJelleg).key = [this](int key) {
        if (key == Qt::Key_Return || key == Qt::Key_Down) {
            m_add->setFocus(Qt::TabFocusReason);
            return true;
        }
        if (key == Qt::Key_Up) {
            SelectAll(m_desk.input(SheetKey::MENNY));
            return true;
        }
        return false;
    };
}

QList<QWidget*> ProceduresFrame::asideWidgets() const {
    return {m_desk.input(SheetKey::BeavJelleg), m_add, m_grid, m_delete};
}

bool ProceduresFrame::codeKey(int key) {
    if (key == Qt::Key_Return) {
        addLine();
        return true;
    }
    if (key == Qt::Key_Up) {
        SelectAll(m_desk.input(SheetKey::Diag5));
        return true;
    }
    if (key == Qt::Key_Down) {
        SelectAll(m_desk.input(SheetKey::MENNY));
        return true;
    }
    if (key < Qt::Key_F2 || key > Qt::Key_F9) return false;
    m_desk.guarded([this, key] {
        const QString code = getFunkcBeavKod(m_desk.station, keyCodeOfF2 + key - Qt::Key_F2);
        m_desk.setText(SheetKey::BEAV, code);
        showName(code.isEmpty() ? QString() : procedureNameByPrefix(m_desk.station, code));
        m_desk.input(SheetKey::BEAV)->selectAll();
    });
    return true;
}

void ProceduresFrame::showName(const QString& name) {
    m_name->setText(name);
}

void ProceduresFrame::takeProcedure(const QString& code, const QString& name) {
    m_desk.setText(SheetKey::BEAV, code);
    showName(name);
}

void ProceduresFrame::setDefaultCharacter(const QString& character) {
    m_character = character;
    m_desk.setText(SheetKey::BeavJelleg, character);
}

void ProceduresFrame::showSheet(const QString& key) {
    m_key = key;
    fillGrid(0);
    currentLineChanged(m_grid->currentRow());
}

void ProceduresFrame::fillGrid(int currentRow) {
    m_desk.guarded([this, currentRow] {
        m_filling = true;
        m_grid->clearContents();
        m_rowids.clear();
        const std::vector<ProcedureLine> lines = procedureLines(m_desk.station, m_key);
        m_grid->setRowCount(static_cast<int>(lines.size()));
        for (int row = 0; row < m_grid->rowCount(); ++row) {
            const ProcedureLine& line = lines[static_cast<std::size_t>(row)];
            m_rowids.push_back(line.rowid);
            const QString name = Visszaad_beav(m_desk.station, line.BEAV.trimmed()).name.trimmed();
            int column = 0;
            for (const QString& text : {line.BEAV, line.MENNY, line.BeavJelleg, name})
                m_grid->setItem(row, column++, new QTableWidgetItem(text));
        }
        if (m_grid->rowCount() > 0)
            m_grid->setCurrentCell(std::clamp(currentRow, 0, m_grid->rowCount() - 1), 0);
        // The grid knows its new height only after the layout: the newest line must not stay half hidden.
        QMetaObject::invokeMethod(
            m_grid, [grid = m_grid] { grid->scrollTo(grid->currentIndex()); }, Qt::QueuedConnection);
    });
    m_filling = false;
}

void ProceduresFrame::currentLineChanged(int row) {
    const QTableWidgetItem* name = row >= 0 ? m_grid->item(row, 3) : nullptr;
    showName(name != nullptr ? name->text() : QString());
}

// A line is written here and now, not at the store: leaving the sheet unstored keeps it, and that is wanted.
void ProceduresFrame::addLine() {
    const bool done = m_desk.guarded([this] {
        switch (addProcedureLine(m_desk.station, m_key, m_desk.text(SheetKey::BEAV).trimmed(),
                                 m_desk.text(SheetKey::MENNY), m_desk.text(SheetKey::BeavJelleg))) {
        case AddLineOutcome::quantityRefused:
            SelectAll(m_desk.input(SheetKey::MENNY));
            return;
        case AddLineOutcome::characterMissing:
            SelectAll(m_desk.input(SheetKey::BeavJelleg));
            return;
        case AddLineOutcome::codeUnknown:
            SelectAll(m_desk.input(SheetKey::BEAV));
            return;
        case AddLineOutcome::added:
            break;
        }
        fillGrid(m_grid->rowCount()); // the new line is the last and the current one
        m_desk.setText(SheetKey::BEAV, QString());
        m_desk.setText(SheetKey::MENNY, u"1"_s);
        m_desk.setText(SheetKey::BeavJelleg, m_character);
        showName(QString());
        SelectAll(m_desk.input(SheetKey::BEAV));
    });
    // A quantity that the table refuses is typed over.
    if (auto* edit = qobject_cast<QLineEdit*>(focusWidget()); !done && edit != nullptr) edit->selectAll();
}

void ProceduresFrame::deleteLine() {
    m_desk.guarded([this] {
        const int row = m_grid->currentRow();
        const qint64 rowid =
            row >= 0 && row < static_cast<int>(m_rowids.size()) ? m_rowids[static_cast<std::size_t>(row)] : 0;
        if (!deleteProcedureLine(m_desk.station, rowid)) return;
        showName(QString());
        fillGrid(0);
        currentLineChanged(m_grid->currentRow());
    });
}

bool ProceduresFrame::eventFilter(QObject* watched, QEvent* event) {
    // The line that is current already shows its name too, though an entry below may have cleared it.
    if (watched == m_grid && event->type() == QEvent::FocusIn) currentLineChanged(m_grid->currentRow());
    if (watched == m_grid && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Delete) {
            deleteLine();
            return true;
        }
        if (key == Qt::Key_Escape) {
            SelectAll(m_desk.input(SheetKey::BEAV));
            return true;
        }
    }
    return FormGroup::eventFilter(watched, event);
}

} // namespace vandrel

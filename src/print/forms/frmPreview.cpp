#include "print/forms/frmPreview.h"

#include "foundation/forms/elided_label.h"
#include "foundation/forms/field_chain.h"
#include "foundation/forms/window_helpers.h"
#include "print/forms/frmPrint.h"
#include "print/forms/print_at_once.h"
#include "print/forms/printing_watch.h"
#include "print/pdf_file.h"
#include "print/print_fault.h"
#include "print/save_name.h"
#include "print/workbook_file.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int stripHeight = 600 / 15;
const QString printing = u"Nyomtatás..."_s;
const QString saving = u"Mentés..."_s;
const QString title = u"Nyomtatás"_s;

QPushButton* button(const QString& text, const char* name, const QString& key) {
    auto* result = new QPushButton(text);
    result->setObjectName(QLatin1StringView(name));
    result->setAccessibleName(text);
    result->setToolTip(key);
    result->setAutoDefault(false);
    return result;
}

} // namespace

frmPreview::frmPreview(qcPrinter& document, PreviewPorts& ports, QWidget* parent)
    : QDialog(parent), m_document(document), m_ports(ports), m_chain(new FieldChain(this)),
      m_total(document.Pages()) {
    setObjectName(u"frmPreview"_s);
    setWindowTitle(u"Nyomtatás előnézet"_s);
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                   Qt::WindowCloseButtonHint);
    m_area = new PreviewArea([this](PageTarget& picture) { drawPage(picture); });
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_strip = makeStrip();
    column->addWidget(m_strip);
    column->addWidget(m_area, 1);
    makeKeys();
    showZoom();
    m_note->setText(m_document.PreviewNote());
    Preview_Display(1);
    m_area->setFocus();
}

QWidget* frmPreview::makeStrip() {
    auto* strip = new QWidget;
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(8, 4, 8, 4);
    row->setSpacing(6);
    m_previous = button(u"Előző"_s, "Elozo", u"Page Up"_s);
    m_next = button(u"Következő"_s, "Kovetkezo", u"Page Down"_s);
    m_print = button(u"Nyomtat ..."_s, "Nyomtat", u"Ctrl+P"_s);
    m_close = button(u"Bezár"_s, "Bezar", u"Esc"_s);
    m_pdf = button(u"Mentés PDF-be"_s, "MentesPdf", u"Ctrl+S"_s);
    m_table = button(u"Mentés táblázatba"_s, "MentesTablazat", u"Ctrl+T"_s);
    m_status = new QLabel;
    m_status->setObjectName(u"Oldal"_s);
    m_status->setAccessibleName(u"Oldal:"_s);
    m_status->setMinimumWidth(m_status->fontMetrics().horizontalAdvance(printing) + 4);
    m_note = new ElidedLabel;
    m_note->setObjectName(u"Uzenet"_s);
    m_note->setAccessibleName(u"Üzenet"_s);
    m_zooms = new QComboBox;
    m_zooms->setObjectName(u"Nezet"_s);
    m_zooms->setAccessibleName(u"Nézet:"_s);
    m_zooms->setEditable(true);
    m_zooms->setInsertPolicy(QComboBox::NoInsert);
    m_zooms->setCompleter(nullptr);
    for (const preview::ZoomEntry& entry : preview::zoomList)
        m_zooms->addItem(QString::fromUtf16(entry.text), entry.zoom);
    m_zooms->setMinimumWidth(m_zooms->sizeHint().width() + 8);
    m_zooms->installEventFilter(this);
    auto* zoomLabel = new QLabel(m_zooms->accessibleName());
    zoomLabel->setBuddy(m_zooms);

    for (QPushButton* first : {m_previous, m_next, m_print, m_close})
        row->addWidget(first);
    row->addSpacing(10);
    row->addWidget(new QLabel(m_status->accessibleName()));
    row->addWidget(m_status);
    row->addSpacing(10);
    row->addWidget(zoomLabel);
    row->addWidget(m_zooms);
    row->addSpacing(6);
    row->addWidget(m_note, 1);
    row->addWidget(m_pdf);
    row->addWidget(m_table);
    strip->setFixedHeight(std::max(stripHeight, strip->sizeHint().height()));

    connect(m_previous, &QPushButton::clicked, this, [this] { goTo(m_page - 1); });
    connect(m_next, &QPushButton::clicked, this, [this] { goTo(m_page + 1); });
    connect(m_print, &QPushButton::clicked, this, &frmPreview::print);
    connect(m_close, &QPushButton::clicked, this, &frmPreview::reject);
    connect(m_pdf, &QPushButton::clicked, this, &frmPreview::savePdf);
    connect(m_table, &QPushButton::clicked, this, &frmPreview::saveTable);
    connect(m_zooms, &QComboBox::currentIndexChanged, this, &frmPreview::zoomChosen);
    for (QPushButton* each : {m_previous, m_next, m_print, m_close, m_pdf, m_table})
        m_chain->adopt(each, pressOnEnter(each));
    FieldBehaviour typing;
    typing.key = [this](int key) {
        if (key != Qt::Key_Return) return false;
        zoomTyped();
        return true;
    };
    typing.leave = [this] { // what was typed without Enter is given up
        showZoom();
        return true;
    };
    m_chain->adopt(m_zooms, typing);
    return strip;
}

void frmPreview::makeKeys() {
    const auto key = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    key(Qt::Key_PageUp, [this] { goTo(m_page - 1); });
    key(Qt::Key_PageDown, [this] { goTo(m_page + 1); });
    key(Qt::CTRL | Qt::Key_Home, [this] { goTo(1); });
    key(Qt::CTRL | Qt::Key_End, [this] { goTo(m_total); });
    key(Qt::CTRL | Qt::Key_P, [this] { print(); });
    key(Qt::CTRL | Qt::Key_S, [this] { savePdf(); });
    key(Qt::CTRL | Qt::Key_T, [this] {
        if (m_table->isEnabled()) saveTable();
    });
}

void frmPreview::goTo(int page) {
    if (m_printing || page < 1 || page > m_total || page == m_page) return;
    m_note->setText(m_document.PreviewNote());
    Preview_Display(page);
}

void frmPreview::Preview_Display(int page) {
    m_page = page;
    Preview_Status();
    m_area->showPage(m_document.engine().printer.size());
}

void frmPreview::drawPage(PageTarget& picture) {
    if (!m_up) return;
    try {
        m_document.PreviewPage(picture, m_page);
    } catch (const Fault& fault) {
        // The screen is being painted: the box has to wait.
        QMetaObject::invokeMethod(
            this, [this, fault] { tell(fault); }, Qt::QueuedConnection);
    }
}

void frmPreview::Preview_Status() {
    m_previous->setEnabled(m_page >= 2);
    m_next->setEnabled(m_page < m_total);
    m_table->setEnabled(!m_document.table().isEmpty());
    m_status->setText(u"%1 / %2"_s.arg(m_page).arg(m_total));
}

void frmPreview::zoomChosen(int entry) {
    if (m_changing || entry < 0) return;
    setZoom(preview::zoomList[static_cast<std::size_t>(entry)].zoom);
}

void frmPreview::zoomTyped() {
    if (const auto typed = preview::readZoom(m_zooms->currentText())) setZoom(*typed);
    showZoom();
    m_zooms->lineEdit()->selectAll();
}

void frmPreview::setZoom(float zoom) {
    if (zoom == m_zoom) return;
    m_zoom = zoom;
    m_area->setZoom(zoom);
}

// The list's entry of the zoom, or its number.
void frmPreview::showZoom() {
    const QScopedValueRollback<bool> changing(m_changing, true);
    const int entry = m_zooms->findData(m_zoom);
    m_zooms->setCurrentIndex(entry);
    m_zooms->setEditText(entry >= 0 ? m_zooms->itemText(entry) : preview::zoomText(m_zoom));
}

void frmPreview::print() {
    if (m_printing) return;
    frmPrint dialog(m_document.engine(), *m_ports.dialogue, this);
    dialog.setPrintOptions(m_document.PrintOptions());
    dialog.setPageCurrent(m_page);
    dialog.setPageMax(m_total);
    dialog.exec();
    if (!dialog.PrintDoc()) return;
    if (dialog.ToPdf()) {
        saveAsPdf(m_pdf->text(), dialog.PageStart(), dialog.PageEnd(), dialog.Copies(), dialog.Collate());
        return;
    }
    const int printer = m_document.engine().printer.number();
    int pages = 0;
    const bool printed = work(Work::printing, [&] {
        int end = dialog.PageEnd();
        const bool all = dialog.PageStart() == 1 && end == m_total;
        m_document.usePrinter(dialog.PrinterNumber());
        // Other paper may take more pages: all of them still means all.
        if (all) end = m_document.Pages();
        pages = (end - dialog.PageStart() + 1) * std::max(dialog.Copies(), 1);
        return m_document.PrintDoc(dialog.PageStart(), end, dialog.Copies(), dialog.Collate(),
                                   dialog.PrinterNumber());
    });
    if (printed) m_note->setText(u"Kinyomtatva: %1 oldal"_s.arg(pages));
    if (printer == m_document.engine().printer.number()) return;
    // For another printer the document was laid out anew.
    m_total = m_document.Pages();
    Preview_Display(std::min(m_page, m_total));
}

// Runs a print job with everything closed; faults are told when the window can be used again. True: it came
// out.
bool frmPreview::work(Work what, const std::function<bool()>& job) {
    m_printing = true;
    QWidget* focused = focusWidget();
    m_area->setFrozen(true);
    m_area->setFocus();
    const QList<QWidget*> controls{m_previous, m_next, m_print, m_close, m_zooms, m_pdf, m_table};
    for (QWidget* control : controls)
        control->setEnabled(false);
    for (QPushButton* save : {m_pdf, m_table})
        save->hide(); // what is told of the pages needs their room
    m_note->clear();
    m_status->setText(what == Work::printing ? printing : saving);
    m_strip->repaint();
    bool done = false;
    std::optional<Fault> failed;
    try {
        PrintingWatch watch(m_document.engine(), *m_ports.dialogue, [this](int page, int total) {
            m_note->setText(u"%1 / %2 oldal (Esc: megszakítás)"_s.arg(page).arg(total));
        });
        done = job();
    } catch (const Fault& fault) {
        failed = fault;
    }
    m_note->clear();
    for (QPushButton* save : {m_pdf, m_table})
        save->show();
    for (QWidget* control : controls)
        control->setEnabled(true);
    Preview_Status();
    m_area->setFrozen(false);
    if (focused != nullptr) focused->setFocus();
    m_printing = false;
    if (failed) tell(*failed, what);
    return done;
}

void frmPreview::tell(const Fault& fault, Work what) {
    if (m_ports.fault)
        m_ports.fault(fault);
    else if (what == Work::printing)
        m_ports.dialogue->tell(printFaultText(fault), title, Icon::warning);
    else
        m_ports.dialogue->tell(saveFaultText(fault), what == Work::pdf ? m_pdf->text() : m_table->text(),
                               Icon::warning);
}

std::optional<SaveAnswer> frmPreview::askWhere(const QString& caption, const QStringList& filters,
                                               const QStringList& endings) {
    return askTarget(
        this, *m_ports.dialogue, m_ports.askSavePath, m_ports.saveFolder,
        {caption, suggestedFileName(m_document.SaveName(), endings.constFirst()), filters, endings});
}

void frmPreview::savePdf() {
    if (!m_printing) saveAsPdf(m_pdf->text(), 1, m_document.Pages(), 1, true);
}

void frmPreview::saveAsPdf(const QString& caption, int startPage, int endPage, int copies, bool collate) {
    const auto answer = askWhere(caption, {u"PDF fájl (*.pdf)"_s}, {u"pdf"_s});
    if (!answer) return;
    const bool saved = work(Work::pdf, [&] {
        PdfJob job(answer->path, m_document.jobSetup());
        return m_document.PrintOnto(job, startPage, endPage, copies, collate);
    });
    if (saved) m_note->setText(u"Mentve: "_s + QFileInfo(answer->path).fileName());
}

void frmPreview::saveTable() {
    if (m_printing) return;
    using Encoding = DocumentTable::Encoding;
    const auto answer =
        askWhere(m_table->text(),
                 {u"Excel táblázat (*.xlsx)"_s, u"CSV, UTF-8 (*.csv)"_s, u"CSV, windows-1250 (*.csv)"_s},
                 {u"xlsx"_s, u"csv"_s, u"csv"_s});
    if (!answer) return;
    const DocumentTable& table = m_document.table();
    const bool workbook = answer->filter == 0;
    const Encoding encoding = answer->filter == 2 ? Encoding::windows1250 : Encoding::utf8;
    const qint64 lost = workbook ? 0 : table.unencodable(encoding);
    if (lost > 0 &&
        !m_ports.dialogue->ask(u"A választott kódolásban %1 karakter nem írható le, helyükre kérdőjel "
                               "kerül. Folytatja a mentést?"_s.arg(lost),
                               m_table->text(), Icon::warning))
        return;
    try {
        if (workbook)
            saveWorkbook(table, answer->path);
        else
            table.save(answer->path, encoding);
    } catch (const Fault& fault) {
        return tell(fault, Work::table);
    }
    m_note->setText(u"Mentve: "_s + QFileInfo(answer->path).fileName());
}

bool frmPreview::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_zooms) {
        // The wheel over the closed list would change the zoom unasked.
        if (event->type() == QEvent::Wheel) return true;
        // Ctrl+Home and Ctrl+End are the document's, also while a zoom is typed.
        if (event->type() == QEvent::ShortcutOverride &&
            (static_cast<QKeyEvent*>(event)->modifiers() & Qt::ControlModifier)) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Home || key == Qt::Key_End) {
                event->ignore();
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmPreview::showEvent(QShowEvent* event) {
    m_up = true;
    Preview_Display(m_page);
    QDialog::showEvent(event);
}

void frmPreview::reject() {
    if (!m_printing) QDialog::reject();
}

void frmPreview::closeEvent(QCloseEvent* event) {
    if (m_printing) return event->ignore();
    QDialog::closeEvent(event);
}

void showPreview(qcPrinter& document, PreviewPorts& ports) {
    frmPreview window(document, ports, QApplication::activeWindow());
    PreviewPlacement& placement = document.previewPlacement();
    const QRect screen = window.screen()->availableGeometry();
    QRect place(placement.left, placement.top, placement.width, placement.height);
    const bool known = placement.state != -1 && !place.isEmpty() && screen.intersects(place);
    if (!known) {
        place.setSize(QSize(std::min(1160, screen.width() * 9 / 10), screen.height() * 9 / 10)
                          .expandedTo(window.minimumSizeHint()));
        place.moveCenter(screen.center());
    }
    window.resize(place.size());
    window.move(place.topLeft());
    if (placement.state == 2) window.setWindowState(Qt::WindowMaximized);
    window.exec();

    placement.state = window.isMaximized() ? 2 : window.isMinimized() ? 1 : 0;
    if (placement.state == 0) placement = {0, window.x(), window.y(), window.width(), window.height()};
}

void installPreview(PrintEngine& engine, PreviewPorts ports) {
    engine.printAtOnce = [dialogue = ports.dialogue](qcPrinter& document) {
        return printAtOnce(document, *dialogue, QApplication::activeWindow());
    };
    engine.showPreview = [kept = std::make_shared<PreviewPorts>(std::move(ports))](qcPrinter& document) {
        showPreview(document, *kept);
    };
    engine.busy = [](bool busy) {
        if (busy)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    };
}

void installPreview(PrintEngine& engine, Dialogue& dialogue) {
    PreviewPorts ports;
    ports.dialogue = &dialogue;
    installPreview(engine, std::move(ports));
}

} // namespace vandrel

#include "print/qc_printer.h"

#include "platform/fault.h"
#include "print/document_walk.h"
#include "print/pagination.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// The hourglass as long as it lives.
class Busy {
  public:
    explicit Busy(const PrintEngine& engine) : m_engine(engine) { tell(true); }
    ~Busy() { tell(false); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    void tell(bool busy) const {
        if (m_engine.busy) m_engine.busy(busy);
    }
    const PrintEngine& m_engine;
};

void checkSlot(int slot) {
    if (slot < 0 || slot >= qcPrinter::slotCount)
        throw Fault(fault::subscript, u"A fejléceknek és lábléceknek nincs %1. helye!"_s.arg(slot));
}

constexpr std::array<Axis, 4> marginAxes{Axis::horizontal, Axis::horizontal, Axis::vertical, Axis::vertical};

} // namespace

qcPrinter::qcPrinter(PrintEngine& engine)
    : m_engine(engine), m_pageSize(engine.printer.paperCode()), m_orientation(engine.printer.orientation()) {
    computeOrientOkay();
    makeSlots();
    shareGeometry();
}

void qcPrinter::makeSlots() {
    m_slotItems = {};
    m_band = {};
    for (const char* name : {"Head", "Foot"}) {
        for (int slot = 0; slot < slotCount; ++slot) {
            qcTextItem item(m_engine);
            item.setFontName(u"Arial"_s);
            item.setFontSize(10);
            item.setUseParsedText(true);
            item.setScaleMode(m_scaleMode);
            m_slotItems.Add(std::move(item), QLatin1StringView(name) + QString::number(slot));
        }
    }
}

qcTextItem& qcPrinter::slotItem(Band band, int slot) {
    checkSlot(slot);
    return m_slotItems.Item((band == Band::header ? 0 : slotCount) + slot + 1);
}

double qcPrinter::marginTwips(std::size_t which) const {
    return toTwips(m_margins[which], m_scaleMode, marginAxes[which], m_engine.printer.size());
}

void qcPrinter::shareGeometry() {
    m_engine.paper = m_engine.printer.size();
    m_engine.marginLeft = marginTwips(0);
    m_engine.marginRight = marginTwips(1);
    m_engine.marginTop = marginTwips(2);
    m_engine.marginBottom = marginTwips(3);
}

void qcPrinter::setScaleMode(long mode) {
    if (mode == m_scaleMode) return;
    for (std::size_t which = 0; which < m_margins.size(); ++which)
        m_margins[which] = static_cast<float>(
            fromTwips(marginTwips(which), mode, marginAxes[which], m_engine.printer.size()));
    m_scaleMode = mode;
    m_lastStyle.reset();
    for (qcTextItem& item : m_items)
        item.setScaleMode(mode);
    for (qcTextItem& item : m_slotItems)
        item.setScaleMode(mode);
}

void qcPrinter::setMargin(std::size_t which, float length) {
    if (m_margins[which] == length) return;
    m_margins[which] = length;
    shareGeometry();
    m_engine.raisePaging();
}

void qcPrinter::setMarginLeft(float length) {
    setMargin(0, length);
}
void qcPrinter::setMarginRight(float length) {
    setMargin(1, length);
}
void qcPrinter::setMarginTop(float length) {
    setMargin(2, length);
}
void qcPrinter::setMarginBottom(float length) {
    setMargin(3, length);
}

void qcPrinter::setPageSize(long code) {
    if (code == m_pageSize) return;
    m_pageSize = code;
    m_engine.raisePaging();
}

void qcPrinter::setAppName(const QString& name) {
    m_appName = name;
    m_engine.linesMoved(); // a header may be of another height
}

void qcPrinter::setOrientation(long orientation) {
    if (orientation == m_orientation || !m_orientOkay) return;
    m_orientation = orientation;
    m_engine.printer.setOrientation(orientation);
    m_engine.raisePaging();
}

void qcPrinter::computeOrientOkay() {
    CurrentPrinter& printer = m_engine.printer;
    const long before = printer.orientation();
    const PaperSize size = printer.size();
    printer.setOrientation(before == orientation::portrait ? orientation::landscape : orientation::portrait);
    m_orientOkay = printer.size().width == size.height && printer.size().height == size.width;
    if (m_orientation != before) m_engine.raisePaging();
    printer.setOrientation(before);
    if (printer.size() != size) printer.setSize(size);
}

void qcPrinter::setTextItem(qcTextItemCol items) {
    m_items = std::move(items);
    m_engine.raisePaging();
}

qcTextItem& qcPrinter::Header(int slot) {
    return slotItem(Band::header, slot);
}
qcTextItem& qcPrinter::Footer(int slot) {
    return slotItem(Band::footer, slot);
}

void qcPrinter::setHeader(int slot, const qcTextItem& item) {
    slotItem(Band::header, slot) = item;
    m_engine.raisePaging();
}

void qcPrinter::setFooter(int slot, const qcTextItem& item) {
    slotItem(Band::footer, slot) = item;
    m_engine.raisePaging();
}

bool qcPrinter::SetHeader(int slot) const {
    checkSlot(slot);
    return m_inUse[0][static_cast<std::size_t>(slot)];
}

bool qcPrinter::SetFooter(int slot) const {
    checkSlot(slot);
    return m_inUse[1][static_cast<std::size_t>(slot)];
}

void qcPrinter::setSetHeader(int slot, bool inUse) {
    qcTextItem& item = slotItem(Band::header, slot);
    m_inUse[0][static_cast<std::size_t>(slot)] = inUse;
    m_engine.linesMoved();
    if (inUse) item.GetSize();
}

void qcPrinter::setSetFooter(int slot, bool inUse) {
    qcTextItem& item = slotItem(Band::footer, slot);
    m_inUse[1][static_cast<std::size_t>(slot)] = inUse;
    m_engine.linesMoved();
    if (inUse) item.GetSize();
}

void qcPrinter::copySlot(Band band, int from, int to) {
    const qcTextItem source = slotItem(band, from);
    qcTextItem& target = slotItem(band, to);
    const TextStyle& style = *source.m_style;
    target.m_text = source.m_text;
    TextStyle& copy = target.change(true); // these and no others
    copy.fontUnderline = style.fontUnderline;
    copy.fontItalic = style.fontItalic;
    copy.fontBold = style.fontBold;
    copy.fontColor = style.fontColor;
    copy.fontSize = style.fontSize;
    copy.fontName = style.fontName;
    copy.scaleMode = style.scaleMode;
    copy.indentRight = style.indentRight;
    copy.indentLeft = style.indentLeft;
    copy.alignment = style.alignment;
    copy.borderColor = style.borderColor;
    copy.borderShading = style.borderShading;
    copy.borderLine = style.borderLine;
    copy.showBorder = style.showBorder;
}

void qcPrinter::HeaderCopy(int from, int to) {
    copySlot(Band::header, from, to);
}
void qcPrinter::FooterCopy(int from, int to) {
    copySlot(Band::footer, from, to);
}

void qcPrinter::AddText(const QString& text, const TextLook& look, const QString& key) {
    const unsigned geometry =
        m_engine.geometry(); // a percent of the paper is another length on another paper
    if (!m_lastStyle || m_lastLook != look || m_lastGeometry != geometry) {
        m_lastLook = look;
        m_lastGeometry = geometry;
        qcTextItem item(m_engine);
        TextStyle& style = item.change(true);
        style.fontName = look.fontName;
        style.fontSize = look.fontSize;
        style.fontBold = look.bold;
        style.fontItalic = look.italic;
        style.fontUnderline = look.underline;
        style.fontColor = look.color;
        style.alignment = look.alignment;
        style.scaleMode = m_scaleMode; // before the indents
        style.indentLeft = item.inside(look.indentLeft, Axis::horizontal);
        style.indentRight = item.inside(look.indentRight, Axis::horizontal);
        m_lastStyle = item.m_style;
    }
    qcTextItem& item = m_items.Add(qcTextItem(m_lastStyle), key);
    item.setText(text);
    item.measure({reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())});
}

void qcPrinter::AddTextAt(float x, float y, const QString& text, const TextLook& look, int page,
                          float width) {
    AddText(text, look);
    qcTextItem& item = m_items.Item(m_items.Count());
    const double left = item.inside(x, Axis::horizontal) - m_engine.marginLeft;
    const double room = item.inside(width, Axis::horizontal);
    item.setAbsolute(true);
    item.setAbsPage(page);
    TextStyle& style = item.change(true);
    style.indentLeft = static_cast<float>(left);
    if (width > 0) style.indentRight = static_cast<float>(m_engine.printableWidth() - left - room);
    style.top = item.inside(y, Axis::vertical);
    style.formOffset = static_cast<float>(-m_engine.marginTop);
    item.GetSize();
}

void qcPrinter::ResetItems() {
    m_items = {};
    m_form.reset();
    m_table.clear();
    m_previewNote.clear();
    makeSlots();
    m_engine.raisePaging();
}

void qcPrinter::RemoveItem(const qcTextItemCol::IndexOrKey& which) {
    try {
        m_items.Remove(which);
    } catch (const Fault&) {
        // Deliberate: an item that is not there is as good as removed.
    }
    m_engine.raisePaging();
}

qcTextItem* qcPrinter::bandOf(Band band, int page, bool isLast, int total) {
    const auto& inUse = m_inUse[static_cast<std::size_t>(band)];
    int slot = -1; // later rules win
    if (inUse[4]) slot = 4;
    if (page % 2 != 0 && inUse[2]) slot = 2;
    if (page % 2 == 0 && inUse[3]) slot = 3;
    if (page == 1 && inUse[0]) slot = 0;
    if (isLast && inUse[1]) slot = 1;
    if (slot < 0) return nullptr;
    qcTextItem& item = slotItem(band, slot);
    item.ParseFields(page, total, m_appName);
    item.GetSize();
    return &item;
}

void qcPrinter::prepareBands(int page, bool isLast, int total) {
    m_band = {bandOf(Band::header, page, isLast, total), bandOf(Band::footer, page, isLast, total)};
    m_engine.headerHeight = m_band[0] != nullptr ? m_band[0]->m_height : 0;
    m_engine.footerHeight = m_band[1] != nullptr ? m_band[1]->m_height : 0;
}

int qcPrinter::Pages() {
    // The flag is everyone's: another document may have cleared it before this one was ever laid out.
    if (m_engine.NeedsPaging || m_pages == 0) {
        Pagination(*this).run();
        DocumentWalk(*this, {}, {}).findPageStarts();
    }
    return m_pages;
}

void qcPrinter::WalkDocument(PageTarget& target, int startPage, int endPage) {
    DocumentWalk(*this, [&target]() -> PageTarget& { return target; }, {}).run(startPage, endPage);
}

void qcPrinter::PreviewPage(PageTarget& picture, int page) {
    const Busy busy(m_engine);
    WalkDocument(picture, page, page);
}

void qcPrinter::usePrinter(int printerNumber) {
    if (printerNumber == m_engine.printer.number()) return;
    m_engine.printer.use(printerNumber);
    computeOrientOkay();
    m_printerNumber = printerNumber;
    m_engine.raisePaging();
}

PrintJobSetup qcPrinter::jobSetup() const {
    const CurrentPrinter& printer = m_engine.printer;
    return {printer.number(), printer.orientation(), printer.size().width, printer.size().height, m_appName};
}

bool qcPrinter::PrintDoc(int startPage, int endPage, int copies, bool collate, int printerNumber) {
    usePrinter(printerNumber);
    const std::unique_ptr<PrintJob> job = m_engine.service.begin(jobSetup());
    return job && PrintOnto(*job, startPage, endPage, copies, collate);
}

bool qcPrinter::PrintOnto(PrintJob& job, int startPage, int endPage, int copies, bool collate) {
    copies = std::max(copies, 1);
    const Busy busy(m_engine);
    int done = 0;
    const int total = std::max(endPage - startPage + 1, 0) * copies;
    DocumentWalk walk(
        *this, [&job]() -> PageTarget& { return job.page(); },
        [&] {
            job.newPage();
            return !m_engine.pagePrinted || m_engine.pagePrinted(++done, total);
        });
    if (!collate && copies != 1) {
        // Copies of a page stay together.
        for (int page = startPage; page <= endPage; ++page)
            for (int copy = 0; copy < copies; ++copy)
                if (!walk.run(page, page)) return false;
    } else {
        for (int copy = 0; copy < copies; ++copy)
            if (!walk.run(startPage, endPage)) return false;
    }
    if (total == 0) return false; // no page was asked for; a printer would put out a blank one
    job.endDoc();
    return true;
}

bool qcPrinter::PrintAtOnce() {
    return m_engine.printAtOnce && m_engine.printAtOnce(*this);
}

void qcPrinter::Preview() {
    if (m_engine.showPreview) m_engine.showPreview(*this);
}

} // namespace vandrel

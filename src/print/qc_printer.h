// The document: body items, header and footer slots, margins, pagination, and the drawing of pages. Every
// list and every paper builds one by AddText and ends with Preview or PrintDoc.
#pragma once

#include "print/document_table.h"
#include "print/form_print.h"
#include "print/text_item_col.h"

#include <array>
#include <optional>

namespace vandrel {

// How AddText's paragraph looks; the order is that of the engine's own call.
struct TextLook {
    QString fontName;
    float fontSize = 10; // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    long color = 0;
    long alignment = 0;
    float indentLeft = 0; // in the document's ScaleMode
    float indentRight = 0;

    bool operator==(const TextLook&) const = default;
};

// The last placement of the preview window; state -1: none yet, 0 normal, 2 maximised.
struct PreviewPlacement {
    int state = -1;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

class qcPrinter {
  public:
    static constexpr int slotCount = 5; // first page, last page, odd pages, even pages, all pages

    explicit qcPrinter(PrintEngine& engine);

    PrintEngine& engine() const { return m_engine; }

    long ScaleMode() const { return m_scaleMode; }
    void setScaleMode(long mode); // converts the margins; every item gets the mode
    // In ScaleMode.
    float MarginLeft() const { return m_margins[0]; }
    float MarginRight() const { return m_margins[1]; }
    float MarginTop() const { return m_margins[2]; }
    float MarginBottom() const { return m_margins[3]; }
    void setMarginLeft(float length);
    void setMarginRight(float length);
    void setMarginTop(float length);
    void setMarginBottom(float length);
    long PageSize() const { return m_pageSize; }
    void setPageSize(long code); // stored; the paper of the printer in use is what counts
    long Orientation() const { return m_orientation; }
    void setOrientation(long orientation);
    bool OrientOkay() const { return m_orientOkay; }
    long PrintOptions() const {
        return m_printOptions;
    } // bit 1: choice of printer; bit 2: copies and collation
    void setPrintOptions(long bits) { m_printOptions = bits; }
    QString AppName() const { return m_appName; }
    void setAppName(const QString& name);
    int PrinterNumber() const { return m_printerNumber; }
    PreviewPlacement& previewPlacement() { return m_placement; }

    // The same content as rows and columns; empty where a document has none. Emptied with the items.
    DocumentTable& table() { return m_table; }

    // Told in the preview beside the pages: what the document leaves out. Emptied with the items.
    const QString& PreviewNote() const { return m_previewNote; }
    void setPreviewNote(const QString& note) { m_previewNote = note; }
    // The name that a file of it is offered under, without ending; empty: AppName.
    QString SaveName() const { return m_saveName.isEmpty() ? m_appName : m_saveName; }
    void setSaveName(const QString& name) { m_saveName = name; }

    // Total of pages, at least 1; paginates first if NeedsPaging is set.
    int Pages();
    int ItemCount() const { return m_items.Count(); }
    qcTextItemCol& TextItem() { return m_items; }
    void setTextItem(qcTextItemCol items);

    // Slots 0 to 4; another one is fault subscript.
    qcTextItem& Header(int slot);
    qcTextItem& Footer(int slot);
    void setHeader(int slot, const qcTextItem& item);
    void setFooter(int slot, const qcTextItem& item);
    bool SetHeader(int slot) const;
    bool SetFooter(int slot) const;
    // True also measures the slot's item. Deliberate: NeedsPaging stays as it is.
    void setSetHeader(int slot, bool inUse);
    void setSetFooter(int slot, bool inUse);
    void HeaderCopy(int from, int to);
    void FooterCopy(int from, int to);

    // A text at a place of a page: x and y from the paper's upper left corner, in ScaleMode, by the margins
    // of now. It takes no part in the flow. width: the room in which it breaks its lines and is aligned; 0:
    // up to the right margin. What reaches below the bottom margin is not drawn.
    void AddTextAt(float x, float y, const QString& text, const TextLook& look, int page = 1,
                   float width = 0);
    // Appends a paragraph and measures it. A text of a blank is a blank line. Fault 457 for a key that is
    // taken.
    void AddText(const QString& text, const TextLook& look, const QString& key = {});
    // Empties the document; the slots keep whether they are in use.
    void ResetItems();
    // A place from 1 or a key; one that is not there is ignored.
    void RemoveItem(const qcTextItemCol::IndexOrKey& which);

    // Draws the pages from startPage to endPage, both from 1, one after the other onto the same target; a
    // document with fewer pages gives header, footer and absolute items only. Where each page begins is kept,
    // so that a late page is not looked for from page 1.
    void WalkDocument(PageTarget& target, int startPage, int endPage);
    // One page onto the preview's picture.
    void PreviewPage(PageTarget& picture, int page);
    // Prints. Copies below 1 count as 1. False: given up by the user, or a range that ends before it starts;
    // nothing came out. Faults of the printer pass through, and nothing came out either.
    bool PrintDoc(int startPage, int endPage, int copies, bool collate, int printerNumber);
    // The same into a job that the caller has begun by jobSetup().
    bool PrintOnto(PrintJob& job, int startPage, int endPage, int copies, bool collate);
    // What the document would be printed with now: the paper as it lies, the title.
    PrintJobSetup jobSetup() const;
    // Switches to a printer; with another one than that in use the document is paginated anew.
    void usePrinter(int printerNumber);
    // Shows the preview window and waits until it is closed.
    void Preview();
    // Prints all of it on the printer in use, without the preview; what goes wrong is told to the user, no
    // printer at all among it. False: nothing came out.
    bool PrintAtOnce();

    // Both are in form_print.cpp.
    // One absolute item on page 1 for every control, as if the form's width were the paper's. alignment is
    // how the texts are aligned in their controls' widths. Items are kept under the controls' names, option
    // buttons under "Opt:" and the name; fault 457 for a name that is there already.
    void FormPrint(const PrintableForm& form, long alignment = form_alignment::left);
    // The controls' present texts into those items. Faults formNotPrinted and otherForm, with their source.
    void FormPrint_Update(const PrintableForm& form);

  private:
    friend class DocumentWalk;
    friend class Pagination;

    // Where a page begins: the item, the position in its text (1-based; 0: from its beginning), and whether
    // the break before that item has already been made.
    struct PageStart {
        int item = 0; // from 0; the number of items when only headers and footers are left
        int position = 0;
        bool broken = false;
    };
    // What walking the document has found out, from page 1 on as far as it went, and what it was found for.
    struct PageStarts {
        std::vector<PageStart> pages;
        std::vector<int> absolutes; // the absolute items, from 0
        unsigned writes = 0;
        unsigned geometry = 0;
        double height = 0; // of the printable page
        int items = 0;
    };
    enum class Band { header, footer };

    void makeSlots();
    qcTextItem& slotItem(Band band, int slot);
    void copySlot(Band band, int from, int to);
    void setMargin(std::size_t which, float length);
    double marginTwips(std::size_t which) const;
    // Paper and margins into the state that all documents share.
    void shareGeometry();
    // The item used on a page, with its fields filled and measured; null when there is none.
    qcTextItem* bandOf(Band band, int page, bool isLast, int total);
    // Chooses, fills and measures both bands for a page, and with them the body's height.
    void prepareBands(int page, bool isLast, int total);
    void computeOrientOkay();

    PrintEngine& m_engine;
    long m_scaleMode = scale_mode::twip;
    std::array<float, 4> m_margins{1440, 1440, 1440, 1440}; // left, right, top, bottom, in ScaleMode
    long m_pageSize;
    long m_orientation;
    bool m_orientOkay = false;
    long m_printOptions = 3;
    QString m_appName;
    int m_printerNumber = 0;
    PreviewPlacement m_placement;
    QString m_previewNote, m_saveName;
    int m_pages = 0; // of the last pagination
    qcTextItemCol m_items;
    qcTextItemCol m_slotItems; // Head0 to Head4, Foot0 to Foot4
    DocumentTable m_table;
    std::array<std::array<bool, slotCount>, 2> m_inUse{}; // headers, footers
    std::array<qcTextItem*, 2> m_band{};                  // of the page being handled; null: none
    PageStarts m_starts;
    std::optional<QString> m_form; // that FormPrint has printed
    // Of the last AddText: most paragraphs look like the one before.
    TextLook m_lastLook;
    unsigned m_lastGeometry = 0;
    QSharedDataPointer<TextStyle> m_lastStyle; // null: there is none in this ScaleMode
};

} // namespace vandrel

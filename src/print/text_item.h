// One block of text of a document: its mark-up, font, alignment, indents and box, and what measuring and
// pagination found. Lengths are kept in twips; the public ones are in the item's ScaleMode.
#pragma once

#include "print/packed_text.h"
#include "print/print_engine.h"

#include <QSharedData>
#include <QString>

#include <vector>

namespace vandrel {

// Everything of an item but its text and its results. Shared between the items of a list, which differ in
// their texts only; written to, an item gets its own.
struct TextStyle : QSharedData {
    PrintEngine* engine = nullptr;
    QString fontName;
    float fontSize = 0;
    bool fontBold = false;
    bool fontItalic = false;
    bool fontUnderline = false;
    long fontColor = 0;
    long alignment = 0;
    float indentLeft = 0; // lengths in twips
    float indentRight = 0;
    float lineSpacing = 0;
    float maxHeight = 0;
    bool absolute = false;
    int absPage = 0;
    float left = 0;
    float top = 0;
    long newPage = 0;
    bool showBorder = false;
    int borderLine = 0;
    long borderColor = 0;
    long borderShading = -1; // the only one that does not start at nothing
    int underline = 0;
    int underlineAll = 0;
    long scaleMode = 0;
    bool useParsedText = false;
    QString parsedText;
    float formHeight = 0;
    float formOffset = 0;

    bool same(const TextStyle& other) const;
};

namespace item_alignment {
inline constexpr long left = 0;
inline constexpr long centre = 1;
inline constexpr long right = 2;
inline constexpr long justify = 3;
} // namespace item_alignment

namespace page_break {
inline constexpr long before = 1; // bit 1 of NewPage
inline constexpr long after = 2;  // bit 2
} // namespace page_break

class qcTextItem {
  public:
    // Belongs to the engine whose repagination flag its writes set; it must outlive the item.
    explicit qcTextItem(PrintEngine& engine);

    // The marked setters set NeedsPaging, also when the value is the same. No setter checks its value, unless
    // it says so.
    QString Text() const { return m_text.text(); }
    void setText(const QString& text);
    QString FontName() const { return m_style->fontName; }
    void setFontName(const QString& name);
    float FontSize() const { return m_style->fontSize; } // points
    void setFontSize(float points);
    bool FontBold() const { return m_style->fontBold; }
    void setFontBold(bool bold);
    bool FontItalic() const { return m_style->fontItalic; }
    void setFontItalic(bool italic);
    bool FontUnderline() const { return m_style->fontUnderline; }
    void setFontUnderline(bool underline);
    long FontColor() const { return m_style->fontColor; }
    void setFontColor(long color);
    long Alignment() const { return m_style->alignment; } // 0 left, 1 centre, 2 right, 3 justify
    void setAlignment(long alignment);
    float IndentLeft() const;
    void setIndentLeft(float length);
    float IndentRight() const;
    void setIndentRight(float length);
    float LineSpacing() const;
    void setLineSpacing(float length);
    float MaxHeight() const;
    void setMaxHeight(float length);
    bool Absolute() const { return m_style->absolute; }
    void setAbsolute(bool absolute);
    int AbsPage() const { return m_style->absPage; }
    void setAbsPage(int page); // fault overflow beyond 16 bits
    float Left() const;        // stored and given back; no layout step reads it
    void setLeft(float length);
    float Top() const;
    void setTop(float length);
    long NewPage() const { return m_style->newPage; }
    void setNewPage(long bits);
    bool ShowBorder() const { return m_style->showBorder; }
    void setShowBorder(bool show);
    int BorderLine() const { return m_style->borderLine; } // printer pixels
    void setBorderLine(int width);
    long BorderColor() const { return m_style->borderColor; }
    void setBorderColor(long color);
    long BorderShading() const { return m_style->borderShading; }
    void setBorderShading(long color);
    int Underline() const { return m_style->underline; } // printer pixels
    void setUnderline(int width);
    int UnderlineAll() const { return m_style->underlineAll; }
    void setUnderlineAll(int width);
    long ScaleMode() const { return m_style->scaleMode; }
    void setScaleMode(long mode); // the twips stay as they are

    // Results, valid after GetSize or pagination.
    float Width() const;
    float Height() const;
    int StartPage() const { return m_startPage; }
    int EndPage() const { return m_endPage; }
    float PositionStart() const;
    float PositionEnd() const;

    // Measures the text with the metrics of the printer in use. Width is never reset: it only rises, until it
    // is cut to the room there is.
    void GetSize();
    // Text with the page fields replaced, into ParsedText.
    void ParseFields(int pageNumber, int pageTotal, const QString& appName);

    // What comes after the first "=" of a tag; a colour as the decimal text of its number. Empty without
    // "=".
    static QString GetTagValue(QStringView tag);

    // Members that only the engine reaches.
    int LineCount() const { return m_lineCount; }
    // Line heights from index 1 on, LineSpacing included; the index 0 is not used.
    std::vector<float> LineHeights() const;
    float LineHeight(int line) const; // from 1
    float DefaultLineHeight() const { return m_defaultLineHeight; }
    bool UseParsedText() const { return m_style->useParsedText; }
    void setUseParsedText(bool use);
    QString ParsedText() const { return m_style->parsedText; }
    float FormHeight() const { return m_style->formHeight; }
    void setFormHeight(float height);
    float FormOffset() const { return m_style->formOffset; }
    void setFormOffset(float offset);

  private:
    friend class qcPrinter;
    friend class DocumentWalk;
    friend class Pagination;

    struct Line {
        float height = 0; // LineSpacing included
        float drawn = 0;  // as drawing adds it up: without LineSpacing and without the box's line
        int start = 0;    // of the line in the text
    };
    struct Lines : QSharedData {
        std::vector<Line> lines;
    };

    explicit qcTextItem(const QSharedDataPointer<TextStyle>& style) : m_style(style) {}
    void measure(std::u16string_view text); // GetSize of the text that it takes
    TextStyle& change(bool dirty);          // the style, to be written to
    void measuredOtherwise();
    float outside(float twips, Axis axis) const;
    float inside(float length, Axis axis) const;

    PackedText m_text;
    QSharedDataPointer<TextStyle> m_style;
    QSharedDataPointer<Lines> m_lines; // null with fewer than two lines
    Line m_line;                       // the only one
    float m_width = 0;                 // twips
    float m_height = 0;
    float m_defaultLineHeight = 0;
    float m_positionStart = 0;
    float m_positionEnd = 0;
    int m_startPage = 0;
    int m_endPage = 0;
    int m_lineCount = 0;
    int m_openLine = -1;            // where a last line begins that got no height; -1: there is none
    unsigned m_measured = 0;        // the engine's geometry it was measured for; 0: not since the last change
    bool m_drawsAsMeasured = false; // drawing breaks the lines where measuring did
};

} // namespace vandrel

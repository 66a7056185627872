// The one scan by which items are both measured and drawn: it walks a text character by character, lets the
// tags change the state, and ends a segment where a line overflows, a paragraph ends or a tag forces it.
#pragma once

#include "print/text_item.h"

#include <string_view>

namespace vandrel {

// The font state of the running text.
struct FontNow {
    const Face* face = nullptr;
    bool underline = false;
    long color = 0;
};

// What the tags have set so far. Tags do not nest: each sets a state, an end tag puts the item's own value
// back.
class TagState {
  public:
    TagState(const TextStyle& style, TextMeter& meter, const PaperSize& paper);

    enum class Effect {
        none,    // no tag: the "<" is an ordinary character
        applied, // also an unknown tag, which vanishes
        closed,  // an indent was put back
        forced   // the segment ends
    };
    // Reads the tag at text[at], which is a "<"; next becomes the place after it.
    Effect read(std::u16string_view text, std::size_t at, std::size_t& next);

    FontNow font;
    long alignment;
    double tagLeft = 0; // twips
    double tagRight = 0;

  private:
    Effect apply(QStringView body);
    Effect applyShort(QStringView body); // shorter than three letters, or an end tag
    void setFace(const FontChoice& choice) { font.face = &m_meter.face(choice); }

    const TextStyle& m_style;
    TextMeter& m_meter;
    PaperSize m_paper;
    std::size_t m_close = 0; // of the last search for ">"; a text of many "<" is searched once
};

struct Segment {
    enum class End { overflow, paragraph, forced, text };

    std::size_t start = 0; // the characters of the segment, tags among them
    std::size_t stop = 0;
    FontNow font;        // at its start
    double width = 0;    // sum of the characters' widths
    double height = 0;   // of the line so far, without LineSpacing
    double lineLeft = 0; // the indents in force, and the room between them
    double lineRight = 0;
    double room = 0;
    long alignment = 0; // in force at its end
    End end = End::text;
};

class SegmentScan {
  public:
    enum class Purpose { measuring, drawing };

    // fullWidth: the room between the item's own indents, in twips.
    SegmentScan(std::u16string_view text, const TextStyle& style, PrintEngine& engine, Purpose purpose,
                double fullWidth);

    // Goes on from a place in the text: every tag before it is replayed.
    void resumeAt(std::size_t place);
    // The next segment; false when the text is used up.
    bool next(Segment& segment);

    // Measuring: the room as the tags leave it.
    double room() const { return m_room; }
    // Measuring: true as long as drawing, which takes a closed indent over only at the next forced end, would
    // have ended every segment at the same character.
    bool drawsAlike() const { return m_drawsAlike; }

  private:
    // A stretch of letters between two places where a line may end, and the state at its start.
    struct Word {
        std::size_t start = 0;
        FontNow font;
        long alignment = 0;
        double width = 0;
        double height = 0; // of its letters; kept for a carried word only
    };
    // The segment that is being scanned.
    struct Open {
        double lineWidth = 0; // of the words that are on the line
        Word word;            // not on the line yet
        double wordHeight = 0;
        double freshHeight = 0; // of a line that would begin with this segment: the carried letters count
        bool hasWords = false;  // a blank or a hyphen is on the line, so it can end after it
    };

    void beginSegment(Segment& segment);
    bool step(Segment& segment);
    void endWord();
    bool takeCharacter(Segment& segment, std::size_t here);
    void overflow(Segment& segment, std::size_t here, double width);
    void endSegment(Segment& segment, double heightBefore);
    bool fits(double width);
    bool readTag(Segment& segment);
    double roomBetween(double left, double right) const { return m_fullWidth - left - right; }

    std::u16string_view m_text;
    Purpose m_purpose;
    double m_fullWidth;
    TagState m_state;
    std::size_t m_at = 0;
    double m_room;        // that decides
    double m_drawingRoom; // that would decide in drawing
    double m_lineLeft = 0;
    double m_lineRight = 0;
    double m_lineHeight = 0;
    bool m_forced = false;  // the last segment ended so
    bool m_resumed = false; // no segment has been given since resumeAt
    bool m_drawsAlike = true;
    Open m_open;
    bool m_carried = false; // there is a word that did not fit and begins the next line
    Word m_carry;
};

// A number at the beginning of a text, with a decimal point; 0 where there is none.
double leadingNumber(QStringView text);

} // namespace vandrel

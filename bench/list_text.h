// The paragraphs of a made-up traffic log of any length, the same ones on every machine, as they are given to
// a document, and as a reader sees them. Knows no data file.
#pragma once

#include "print/qc_printer.h"

#include <QStringList>

#include <cstdint>
#include <vector>

namespace vandrel::bench {

using namespace Qt::StringLiterals;

// Once on the page for every sheet.
inline const QString sheetMark = u"Beavatkozások:"_s;

inline const QString listFont = u"Times New Roman"_s;
inline constexpr float listFontSize = 9; // points
// Millimetres, as the lists have them.
inline constexpr float listMarginLeft = 20;
inline constexpr float listMargin = 10;    // on the other sides
inline constexpr int textsOfSheet = 5;     // four lines and a blank one
inline constexpr int batchSheets = 500;    // sheets whose texts exist at one time
inline constexpr int sheetsOfUnit = 2'500; // a title block comes before so many

// The period of the list of the sample clinic: all its sheets.
inline const QString storedFrom = u"2003.01.01."_s;
inline const QString storedTo = u"2008.12.31."_s;

class TrafficLogTexts {
  public:
    explicit TrafficLogTexts(int sheets) : m_sheets(sheets) {}

    // The next paragraphs instead of those in batch; false when there are none left.
    bool next(std::vector<QString>& batch);

  private:
    int below(int limit);
    bool chance(int percent) { return below(100) < percent; }
    void head(std::vector<QString>& batch);
    void unit(std::vector<QString>& batch);
    void sheet(std::vector<QString>& batch);

    int m_sheets;
    int m_done = 0;
    std::uint64_t m_state = 4;
};

// A paragraph without its tags; each column begins with a tab, and its place, in millimetres, goes to stops.
QString withTabs(const QString& text, std::vector<double>& stops);

// How the list's paragraphs look.
TextLook listLook();
// Margins and footer of the list.
void prepareDocument(qcPrinter& document);

} // namespace vandrel::bench

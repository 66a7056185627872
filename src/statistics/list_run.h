// What the skeleton hands to a producer: the sheets one by one, the look-ups, the way to print, and how a
// failing statement is met. Knows no list.
#pragma once

#include "foundation/institution_data.h"
#include "foundation/progress.h"
#include "platform/event_turn.h"
#include "statistics/list_look_ups.h"
#include "statistics/list_request.h"
#include "statistics/list_writer.h"

#include <functional>
#include <string_view>
#include <vector>

namespace vandrel {

// Thrown through a producer when the user breaks its list off.
struct ListStopped {};

// A failing statement is left out and the list goes on, or its fault ends the list.
enum class OnFault { skipStatement, endList };

class ListRun {
  public:
    ListRun(Workstation& workstation, const ListRequest& asked, ListWriter& writer, Progress& listProgress,
            OnFault onFault);
    ~ListRun();
    ListRun(const ListRun&) = delete;
    ListRun& operator=(const ListRun&) = delete;

    Workstation& station;
    const ListRequest& request;
    ListLookUps lookUps;
    std::vector<qint64> sheets; // rowids in BETEG, in the list's order

    Database& data() { return station.files[DataFile::tetdata]; }
    Database& scratch() { return station.files[DataFile::tetseged]; }

    // Runs a statement until no other program holds its data file; the event loop gets its turns meanwhile,
    // and the user may break the list off. The statement begins anew each time.
    void waiting(const std::function<void()>& statement);
    // Sheets of a list that goes on over failing statements: those that could not be read at all, and those
    // of which something is missing.
    qint64 unreadSheets() const { return m_unread; }
    qint64 incompleteSheets() const { return m_incomplete; }

    // Calls sheet with each row of the selection, with these columns of BETEG in their order. The event loop
    // gets its turns between two sheets; no statement and no lock is open then.
    void eachSheet(std::string_view columns, const std::function<void(const Query&)>& sheet);
    // The same for the rows of any table.
    void eachRow(DataFile file, std::string_view table, std::string_view columns,
                 const std::vector<qint64>& rows, const std::function<void(const Query&)>& row);
    // Runs one statement of the list as its policy says. True when it came to its end.
    bool attempt(const std::function<void()>& statement);

    // --- printing, in the list's text size unless a look is given
    void setBodySize(float points) { m_body.size = points; }
    const LineLook& body() const { return m_body; }
    void text(const QString& line) { m_writer.text(line, m_body); }
    void bold(const QString& line);
    void look(const QString& line, const LineLook& look) { m_writer.text(line, look); }
    void blank();
    void title(const QString& line);          // bold and centred
    void centred(const QString& line);        // in the body's size
    void closing(const QString& line);        // bold, 11 points
    void made();                              // "Készült: " and today
    void period();                            // "Időszak: " and both dates
    void rule(float points, int length = 81); // of underscores
    // The table's heads, of which so many at the end are of numbers; then its rows.
    void heads(const QStringList& names, int numbers) { m_writer.heads(names, numbers); }
    void row(const QStringList& cells) { m_writer.row(cells); }
    QString fitted(const QString& line, double millimetres) const {
        return m_writer.fitted(line, millimetres, m_body);
    }

  private:
    void turn(qint64 done, qint64 all);
    void askWhetherToStop();

    ListWriter& m_writer;
    Progress& m_progress;
    const OnFault m_onFault;
    qint64 m_unread = 0;
    qint64 m_incomplete = 0;
    bool m_failed = false; // a statement of the row at hand
    bool m_waited = false; // the data file waits for locks only a moment: the run does it instead
    EventTurn m_turn;
    LineLook m_body;
};

// The institution, blank where none is stored yet; waits for its data file.
Institution institutionOf(ListRun& run);

// --- parts of lines ----------------------------------------------------------------------------------------

// A text at a tab stop, in millimetres from the item's left edge.
QString at(int indent, QStringView text);
// The same for lines that are written by the hundred thousand: the parts are put into one text.
class TabbedLine {
  public:
    explicit TabbedLine(QStringView first) {
        m_text.reserve(400);
        m_text += first;
    }
    // The parts one after the other at one tab stop.
    template<class... Parts>
    TabbedLine& at(int indent, const Parts&... parts) {
        m_text += u"<LINDENT=";
        m_text += QString::number(indent);
        m_text += u'>';
        (m_text.append(QStringView(parts)), ...);
        m_text += u"</LINDENT>";
        return *this;
    }
    const QString& text() const { return m_text; }

  private:
    QString m_text;
};
// Two codes name the same group: without regard to case and to blanks at the ends, as the order has them.
bool sameCode(const QString& a, const QString& b);
// The order of codes in the data files, for sums that are kept by code.
struct CodeOrder {
    bool operator()(const QString& a, const QString& b) const {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    }
};

// The four figures of the lists that count points and money, and the sums of them.
struct CostFigures {
    double quantity = 0;
    double unitPoints = 0; // points of one procedure; Deliberate: in a sum the sum of them
    double points = 0;     // quantity times points
    double value = 0;      // that times the unit's multiplier

    static CostFigures of(double quantity, double unitPoints, double multiplier);
    CostFigures& operator+=(const CostFigures& other);
};
// The figures as the last cells of a table row.
QStringList cells(const CostFigures& figures);

} // namespace vandrel

#include "statistics/list_run.h"

#include "platform/format.h"

#include <QThread>

#include <chrono>
#include <optional>
#include <string>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr unsigned long retryPause = 10; // milliseconds between two tries of a locked file
constexpr float titleSize = 14;
constexpr float closingSize = 11;

} // namespace

ListRun::ListRun(Workstation& workstation, const ListRequest& asked, ListWriter& writer,
                 Progress& listProgress, OnFault onFault)
    : station(workstation), request(asked),
      lookUps(workstation, [this](const auto& lookUp) { waiting(lookUp); }), m_writer(writer),
      m_progress(listProgress), m_onFault(onFault), m_turn(workstation.serveEvents) {}

ListRun::~ListRun() {
    if (m_waited) data().setLockWait(Database::usualLockWait);
}

void ListRun::turn(qint64 done, qint64 all) {
    const bool display = m_turn.displayDue();
    if (display || done == all) m_progress.moved(done, all);
    m_turn.serve();
    if (m_progress.ending()) throw ListStopped();
    if (display) askWhetherToStop();
}

void ListRun::askWhetherToStop() {
    if (m_progress.stopWished() && station.dialogue.ask(u"Megszakítja a lista készítését?"_s))
        throw ListStopped();
}

void ListRun::waiting(const std::function<void()>& statement) {
    for (bool told = false;; told = true) {
        try {
            statement();
            if (told) m_progress.stage(list_status::processing);
            return;
        } catch (const Fault& fault) {
            if (fault.number() != fault::dataFileInUse) throw;
        }
        if (!told) m_progress.stage(list_status::waiting);
        if (!std::exchange(m_waited, true)) data().setLockWait(std::chrono::milliseconds(0));
        QThread::msleep(retryPause);
        m_turn.serve();
        if (m_progress.ending()) throw ListStopped();
        askWhetherToStop();
    }
}

void ListRun::eachSheet(std::string_view columns, const std::function<void(const Query&)>& sheet) {
    eachRow(DataFile::tetdata, "BETEG", columns, sheets, sheet);
}

void ListRun::eachRow(DataFile file, std::string_view table, std::string_view columns,
                      const std::vector<qint64>& rows, const std::function<void(const Query&)>& row) {
    Database& database = station.files[file];
    const std::string sql =
        "select " + std::string(columns) + " from " + std::string(table) + " where rowid=?1";
    // One lock for the many questions between two turns of the event loop.
    std::optional<ReadTransaction> lock;
    const auto all = static_cast<qint64>(rows.size());
    qint64 done = 0;
    for (const qint64 rowid : rows) {
        m_failed = false;
        const bool read = attempt([&] {
            // The first row after a turn takes the lock, the others read under it.
            std::optional<Query> found;
            bool there = false;
            waiting([&] {
                found.reset();
                if (!lock) lock.emplace(database);
                found.emplace(database.query(sql, rowid));
                there = found->next();
            });
            if (there) row(*found);
        });
        m_unread += read ? 0 : 1;
        m_incomplete += read && m_failed ? 1 : 0;
        ++done;
        if (done < all && !m_turn.due()) continue;
        lock.reset();
        turn(done, all);
    }
}

bool ListRun::attempt(const std::function<void()>& statement) {
    if (m_onFault == OnFault::endList) {
        statement();
        return true;
    }
    try {
        statement();
        return true;
    } catch (const Fault&) {
        m_failed = true;
        return false; // Deliberate: these lists go on over a failing statement
    }
}

void ListRun::bold(const QString& line) {
    LineLook look = m_body;
    look.bold = true;
    m_writer.text(line, look);
}

void ListRun::blank() {
    m_writer.text(u" "_s, m_body);
}

void ListRun::title(const QString& line) {
    m_writer.caption(line, u"Időszak: "_s + request.from + u" - "_s + request.to);
    m_writer.text(line, {.size = titleSize, .bold = true, .centred = true});
}

void ListRun::centred(const QString& line) {
    LineLook look = m_body;
    look.centred = true;
    m_writer.text(line, look);
}

void ListRun::closing(const QString& line) {
    m_writer.text(line, {.size = closingSize, .bold = true});
}

void ListRun::made() {
    text(u"Készült: "_s + format::shortDate(station.clock.today()));
}

void ListRun::period() {
    text(u"Időszak: "_s + request.from + u" - "_s + request.to);
}

void ListRun::rule(float points, int length) {
    m_writer.text(QString(length, u'_'), {.size = points});
}

Institution institutionOf(ListRun& run) {
    Institution found;
    run.waiting([&] { found = readInstitution(run.station).value_or(Institution()); });
    return found;
}

QString at(int indent, QStringView text) {
    return TabbedLine({}).at(indent, text).text();
}

bool sameCode(const QString& a, const QString& b) {
    return a.trimmed().compare(b.trimmed(), Qt::CaseInsensitive) == 0;
}

CostFigures CostFigures::of(double quantity, double unitPoints, double multiplier) {
    const double points = quantity * unitPoints;
    return {quantity, unitPoints, points, points * multiplier};
}

CostFigures& CostFigures::operator+=(const CostFigures& other) {
    quantity += other.quantity;
    unitPoints += other.unitPoints;
    points += other.points;
    value += other.value;
    return *this;
}

QStringList cells(const CostFigures& figures) {
    return {format::number(figures.quantity), format::number(figures.unitPoints),
            format::number(figures.points), format::number(figures.value)};
}

} // namespace vandrel

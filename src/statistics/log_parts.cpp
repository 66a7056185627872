#include "statistics/log_parts.h"

#include "print/literal_text.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

template<class Key>
PatientColumns patientBy(ListRun& run, std::string_view condition, const Key& key) {
    PatientColumns patient;
    run.attempt([&] {
        Query row = run.data().query("select TAJ, Neve, Azon_Tipus, Nem, Szul_Dat from Paciensek where " +
                                         std::string(condition) + " order by rowid limit 1",
                                     key);
        if (row.next()) patient = {row.text(0), row.text(1), row.text(2), row.text(3), row.text(4), true};
    });
    return patient;
}

} // namespace

void logHead(ListRun& run, const QString& title) {
    run.blank();
    run.made();
    run.blank();
    run.title(title);
    run.blank();
    run.period();
    run.blank();
    run.blank();
}

void categoryLine(ListRun& run, const QString& category) {
    run.text(u"<b>Kategória: <LINDENT=30>"_s + literalText(category) + u"</LINDENT></b>"_s);
}

PatientColumns patientById(ListRun& run, std::optional<qint64> id) {
    return id ? patientBy(run, "ID=?1", *id) : PatientColumns();
}

PatientColumns patientByTaj(ListRun& run, const QString& taj) {
    // No number is nobody's number.
    return taj.trimmed().isEmpty() ? PatientColumns() : patientBy(run, "TAJ=?1", taj);
}

std::vector<LineColumns> linesOf(ListRun& run, const QString& sheetKey) {
    std::vector<LineColumns> lines;
    run.attempt([&] {
        Query row = run.data().query(
            "select BEAV, MENNY from EUSZOLG where Azonosito=?1 order by BEAV, rowid", sheetKey);
        while (row.next())
            lines.push_back({row.text(0), row.number(1)});
    });
    return lines;
}

} // namespace vandrel

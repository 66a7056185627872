#include "sample/sample_data.h"

#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

static void initialiseResources() { // outside every namespace, as the resource macro wants it
    Q_INIT_RESOURCE(sample);
}

namespace vandrel {

namespace {

struct Dictionary {
    const char* resource;
    DataFile file;
    const char* table;
};

constexpr Dictionary dictionaries[] = {
    {"units.tsv", DataFile::tetmod, "SZAKREND"},      {"doctors.tsv", DataFile::tetmod, "ORVOSOK"},
    {"referrers.tsv", DataFile::tetmod, "BEKULDO"},   {"function_keys.tsv", DataFile::tetmod, "FUNKCIO"},
    {"postal_codes.tsv", DataFile::tetmod, "IRSZ"},   {"countries.tsv", DataFile::tetmod, "ALLAMPOL"},
    {"own_drugs.tsv", DataFile::tetmod, "Gyogyszer"}, {"procedures.tsv", DataFile::beav, "BEAV"},
    {"diagnoses.tsv", DataFile::diagnos, "DIAGNOS"},
};

// Lines of a table: the column names first, then the rows; a line that starts with # is a remark.
std::vector<QStringList> readTable(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw Fault(fault::fileNotFound, path);
    std::vector<QStringList> lines;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n'))
        if (!line.isEmpty() && !line.startsWith(u'#')) lines.push_back(line.split(u'\t'));
    return lines;
}

void fill(Database& database, const Dictionary& dictionary) {
    const std::vector<QStringList> lines = readTable(u":/sample/"_s + QLatin1StringView(dictionary.resource));
    const QStringList& columns = lines.front();
    QStringList places;
    for (int i = 1; i <= columns.size(); ++i)
        places << u"?%1"_s.arg(i);
    const std::string sql =
        u"insert into %1 (%2) values (%3)"_s
            .arg(QLatin1StringView(dictionary.table), columns.join(u','), places.join(u','))
            .toStdString();
    for (std::size_t row = 1; row < lines.size(); ++row) {
        if (lines[row].size() != columns.size())
            throw Fault(fault::subscript, QLatin1StringView(dictionary.resource));
        Query insert = database.query(sql);
        for (int i = 0; i < columns.size(); ++i) // an empty text is stored as one blank, as the forms do it
            insert.bind(i + 1, lines[row][i].isEmpty() ? u" "_s : lines[row][i]);
        insert.run();
    }
}

} // namespace

void fillSampleData(DataFiles& files) {
    initialiseResources();
    for (const DataFile file : {DataFile::tetmod, DataFile::beav, DataFile::diagnos}) {
        Database& database = files[file];
        Transaction transaction(database);
        for (const Dictionary& dictionary : dictionaries)
            if (dictionary.file == file) fill(database, dictionary);
        if (file == DataFile::beav) database.execute("update KozlonySzam set Kozlonyszam = 'MINTA'");
        transaction.commit();
    }
    Database& data = files[DataFile::tetdata];
    Transaction transaction(data);
    data.execute("update Gepazonosito set Gepazon = 'A01'");
    transaction.commit();
}

} // namespace vandrel

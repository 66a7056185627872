// Build-time tool: turns the machine's country list (JSON) and its Hungarian translation (a gettext .mo file)
// into the starter dictionary of countries. Arguments: JSON, .mo, output. Runs at build time only.
#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QtEndian>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// Member states whose citizens come with a European insurance form; only these have an EUKOD.
constexpr std::string_view memberStates[] = {"AT", "BE", "BG", "CY", "CZ", "DE", "DK", "EE", "ES",
                                             "FI", "FR", "GR", "HR", "HU", "IE", "IT", "LT", "LU",
                                             "LV", "MT", "NL", "PL", "PT", "RO", "SE", "SI", "SK"};

std::optional<QByteArray> readAll(const char* path) {
    QFile file(QString::fromLocal8Bit(path));
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return file.readAll();
}

// A .mo file: magic, revision, number of texts, and where the tables of (length, offset) pairs of the
// originals and of the translations lie.
std::optional<QHash<QByteArray, QByteArray>> readCatalogue(const QByteArray& bytes) {
    const auto word = [&bytes](qint64 at) -> qint64 {
        return at >= 0 && at + 4 <= bytes.size() ? qFromLittleEndian<quint32>(bytes.constData() + at) : -1;
    };
    if (word(0) != 0x950412deLL) return std::nullopt;
    const qint64 count = word(8), originals = word(12), translations = word(16);
    const auto textAt = [&](qint64 entry) -> std::optional<QByteArray> {
        const qint64 length = word(entry), offset = word(entry + 4);
        if (length < 0 || offset < 0 || offset + length > bytes.size()) return std::nullopt;
        return bytes.mid(offset, length);
    };
    QHash<QByteArray, QByteArray> texts;
    for (qint64 i = 0; i < count; ++i) {
        const auto original = textAt(originals + 8 * i), translation = textAt(translations + 8 * i);
        if (!original || !translation) return std::nullopt;
        texts.insert(*original, *translation);
    }
    return texts;
}

int fail(const char* what, const char* path) {
    std::fprintf(stderr, "countries: %s: %s\n", what, path);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) return fail("needs the JSON list, the .mo file and the output", argv[0]);
    const auto json = readAll(argv[1]);
    if (!json) return fail("cannot read", argv[1]);
    const auto catalogue = readAll(argv[2]);
    if (!catalogue) return fail("cannot read", argv[2]);
    const auto hungarian = readCatalogue(*catalogue);
    if (!hungarian) return fail("is no catalogue of translations", argv[2]);

    std::vector<QByteArray> lines;
    for (const QJsonValue& value : QJsonDocument::fromJson(*json).object()["3166-1"_L1].toArray()) {
        const QJsonObject country = value.toObject();
        const auto text = [&country](const char* key) {
            return country[QLatin1StringView(key)].toString().toUtf8();
        };
        // The everyday name where there is one and it is translated ("Bolívia"), else the listed one.
        QByteArray name = hungarian->value(text("common_name"));
        if (name.isEmpty() || text("common_name").isEmpty())
            name = hungarian->value(text("name"), text("name"));
        const QByteArray alpha2 = text("alpha_2");
        const bool member =
            std::find(std::begin(memberStates), std::end(memberStates),
                      std::string_view(alpha2.constData(), alpha2.size())) != std::end(memberStates);
        lines.push_back(name + '\t' + text("alpha_3") + '\t' + (member ? alpha2 : QByteArray()));
    }
    if (lines.empty()) return fail("holds no country", argv[1]);
    std::sort(lines.begin(), lines.end(), [](const QByteArray& a, const QByteArray& b) {
        return a.split('\t')[1] < b.split('\t')[1]; // by the short code, as the pick-list searches it
    });

    QSaveFile output(QString::fromLocal8Bit(argv[3]));
    if (!output.open(QIODevice::WriteOnly)) return fail("cannot write", argv[3]);
    output.write("ORSZAG\tROV\tEUKOD\n");
    for (const QByteArray& line : lines)
        output.write(line + '\n');
    return output.commit() ? 0 : fail("cannot write", argv[3]);
}

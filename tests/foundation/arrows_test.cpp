// Holds the house in shape: reads every file under src/ and tells where an arrow runs up, where files include
// one another in a circle, where a widget is used outside the forms, where a name does not lead to its file,
// and where a file has grown too long. The order of the rooms is in the top CMakeLists.txt.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

constexpr qsizetype longestFile = 500;

struct Source {
    QString path, text;

    QString room() const { return path.section('/'_L1, 0, 0); }
    bool inForms() const { return path.section('/'_L1, 1, 1) == "forms"_L1; }
    // A header and the source of its name are one unit.
    QString unit() const { return path.section('.'_L1, 0, 0); }
};

struct Include {
    QString header;
    bool ofSystem;
};

std::vector<Source> readSources(const QString& root) {
    std::vector<Source> sources;
    QDirIterator files(root, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly)) ADD_FAILURE() << file.fileName().toStdString();
        sources.push_back({QDir(root).relativeFilePath(file.fileName()), QString::fromUtf8(file.readAll())});
    }
    return sources;
}

std::vector<Include> includesOf(const Source& source) {
    static const QRegularExpression directive(u"^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"]"_s,
                                              QRegularExpression::MultilineOption);
    std::vector<Include> includes;
    for (const QRegularExpressionMatch& line : directive.globalMatch(source.text))
        includes.push_back({line.captured(2), line.captured(1) == "<"_L1});
    return includes;
}

// Why a file must not include a header of the program; empty when it may.
QString arrowFault(const Source& source, const QString& header) {
    static const QStringList rooms = QStringLiteral(VANDREL_ROOMS).split(' '_L1);
    const Source target{header, {}};
    if (!header.contains('/'_L1) || header.startsWith('.'_L1)) return u" does not name the room of "_s;
    const qsizetype from = rooms.indexOf(source.room()), to = rooms.indexOf(target.room());
    if (from < 0 || to < 0) return u" includes out of or into an unknown room: "_s;
    if (to > from) return u" lies below the room of "_s;
    if (source.room() == "app"_L1) return {};
    // The print engine's rules rest on the platform alone; its windows are forms like any other.
    if (source.room() == "print"_L1 && !source.inForms() && target.room() == "foundation"_L1)
        return u" must not know "_s;
    if (target.inForms() && !source.inForms()) return u" is a rule and must not know the form "_s;
    if (target.inForms() && target.room() != source.room() && target.room() != "foundation"_L1)
        return u" must not know another room's form "_s;
    return {};
}

// The single widget headers are not on the rules' include path, so their compilation fails; these would pass.
bool isWidgetModule(const QString& header) {
    return header.contains("QtWidgets"_L1) || header.contains("QtPrintSupport"_L1);
}

// The first circle that is found from a unit on, as "a -> b -> a"; empty when there is none.
using Graph = std::map<QString, std::set<QString>>;
QString circleFrom(const QString& unit, const Graph& graph, QStringList& way, std::set<QString>& done) {
    if (way.contains(unit)) return (way.mid(way.indexOf(unit)) << unit).join(" -> "_L1);
    if (!done.insert(unit).second) return {};
    way << unit;
    if (const auto found = graph.find(unit); found != graph.end()) {
        for (const QString& next : found->second) {
            if (const QString circle = circleFrom(next, graph, way, done); !circle.isEmpty()) return circle;
        }
    }
    way.removeLast();
    return {};
}

// Functions that a source defines for others, each as the name that its header must have: the class of a
// member, else the function itself. Relies on the format: such a definition begins in the first column.
QStringList publicDefinitions(QString text) {
    static const QRegularExpression unnamed(u"^namespace \\{$.*?^\\} // namespace$"_s,
                                            QRegularExpression::MultilineOption |
                                                QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression definition(
        u"^(?!static |namespace|struct |class |enum |using |template|extern |inline )"
        "(?:[A-Za-z_][^\\n;={(]*?[ &*])?((?:\\w+::)*)(~?\\w+|operator\\S+)\\([^;{]*?\\)[^;{]*?\\{"_s,
        QRegularExpression::MultilineOption);
    text.remove(unnamed);
    QStringList names;
    for (const QRegularExpressionMatch& match : definition.globalMatch(text)) {
        const QString owner = match.captured(1).section("::"_L1, 0, 0);
        names << (owner.isEmpty() ? match.captured(2) : owner);
    }
    names.removeDuplicates();
    return names;
}

bool names(const QString& text, const QString& word) {
    return QRegularExpression(u"\\b%1\\b"_s.arg(QRegularExpression::escape(word))).match(text).hasMatch();
}

// The document's class is written in two files, for its length; both headers are needed to use it.
bool isKnownPart(const QString& path, const QString& name) {
    return path == "print/form_print.cpp"_L1 && name == "qcPrinter"_L1;
}

// A class whose members run what is written over the class itself: the way there, the part includes the
// class.
bool isKnownReturn(const QString& from, const QString& to) {
    static const std::set<std::pair<QString, QString>> returns = {
        {u"print/qc_printer"_s, u"print/document_walk"_s},
        {u"print/qc_printer"_s, u"print/form_print"_s},
        {u"print/qc_printer"_s, u"print/pagination"_s},
        {u"print/text_item"_s, u"print/segment_scan"_s},
        {u"foundation/data_files"_s, u"foundation/file_checks"_s},
        {u"foundation/forms/record_grid"_s, u"foundation/forms/record_model"_s},
    };
    return returns.contains({from, to});
}

// A file over the limit says why in the comment at its top.
bool lengthIsExplained(const QString& text) {
    const QString top = text.section(u"\n#"_s, 0, 0);
    return names(top, u"long"_s) || names(top, u"length"_s);
}

// What breaks the walls between the rooms under a source tree, one line each, sorted.
QStringList wallFaults(const std::vector<Source>& sources) {
    std::map<QString, QString> folded;
    QStringList found;
    for (const Source& source : sources) {
        if (const auto [place, fresh] = folded.try_emplace(source.path.toLower(), source.path); !fresh) {
            QStringList both{place->second, source.path};
            both.sort();
            found << both.join(" and "_L1) + u" differ by case only"_s;
        }
        for (const Include& include : includesOf(source)) {
            if (include.ofSystem) {
                if (isWidgetModule(include.header) && !source.inForms() && source.room() != "app"_L1)
                    found << source.path + u" uses the widgets of "_s + include.header;
                continue;
            }
            if (const QString fault = arrowFault(source, include.header); !fault.isEmpty())
                found << source.path + fault + include.header;
        }
    }
    found.sort();
    return found;
}

// Circles, names that do not lead to their file and files that are too long, one line each, sorted.
QStringList shapeFaults(const std::vector<Source>& sources) {
    std::map<QString, QString> texts;
    for (const Source& source : sources)
        texts[source.path] = source.text;
    QStringList found;
    Graph graph;
    for (const Source& source : sources) {
        for (const Include& include : includesOf(source)) {
            const QString unit = Source{include.header, {}}.unit();
            if (!include.ofSystem && unit != source.unit() && !isKnownReturn(source.unit(), unit))
                graph[source.unit()].insert(unit);
        }
        if (source.path.endsWith(".cpp"_L1) && source.path != "app/main.cpp"_L1) {
            const auto header = texts.find(source.unit() + u".h"_s);
            for (const QString& name : publicDefinitions(source.text)) {
                if (isKnownPart(source.path, name)) continue;
                if (header == texts.end() || !names(header->second, name))
                    found << source.path + u" defines what no header of its name declares: "_s + name;
            }
        }
        if (const qsizetype lines = source.text.count('\n'_L1);
            lines > longestFile && !lengthIsExplained(source.text))
            found << source.path + u" has %1 lines and does not say why it is long"_s.arg(lines);
    }
    std::set<QString> done;
    for (const auto& [unit, targets] : graph) {
        QStringList way;
        if (const QString circle = circleFrom(unit, graph, way, done); !circle.isEmpty())
            found << u"circle: "_s + circle;
    }
    found.sort();
    return found;
}

void plant(const QTemporaryDir& tree, const char* path, const QByteArray& text) {
    const QString full = tree.filePath(QLatin1StringView(path));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(full).absolutePath()));
    QFile file(full);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

} // namespace

TEST(Arrows, TheSourcesKeepTheWalls) {
    const std::vector<Source> sources = readSources(QStringLiteral(VANDREL_SOURCE_DIR "/src"));
    ASSERT_GT(sources.size(), 100U);
    EXPECT_EQ(wallFaults(sources).join('\n'_L1).toStdString(), "");
    EXPECT_EQ(shapeFaults(sources).join(u"\n"_s).toStdString(), "");
}

TEST(Arrows, PlantedFaultsAreFound) {
    struct Case {
        const char* path;
        QByteArray text;
        const char* finding; // null: allowed
    };
    const QByteArray many(500, '\n');
    const Case cases[] = {
        {"platform/a.cpp", "#include \"foundation/x.h\"\n",
         "platform/a.cpp lies below the room of foundation/x.h"},
        {"foundation/b.h", "// x\n #  include \"sheet/x.h\"",
         "foundation/b.h lies below the room of sheet/x.h"},
        {"foundation/c.h", "#include \"print/x.h\"", "foundation/c.h lies below the room of print/x.h"},
        {"sheet/f.cpp", "#include \"reports/x.h\"\n", "sheet/f.cpp lies below the room of reports/x.h"},
        {"reports/f.cpp", "#include \"sheet/x.h\"\n#include \"print/x.h\"\n", nullptr},
        {"nowhere/a.h", "#include \"platform/x.h\"",
         "nowhere/a.h includes out of or into an unknown room: platform/x.h"},
        {"settings/n.h", "#include \"app/x.h\"", "settings/n.h lies below the room of app/x.h"},
        {"print/d.h", "#include \"foundation/x.h\"", "print/d.h must not know foundation/x.h"},
        {"print/e.h", "#include \"platform/x.h\"", nullptr},
        {"print/forms/q.h", "#include \"foundation/forms/x.h\"\n#include \"print/x.h\"", nullptr},
        {"reports/forms/g.cpp", "#include \"sheet/forms/x.h\"",
         "reports/forms/g.cpp must not know another room's form sheet/forms/x.h"},
        {"sheet/h.cpp", "#include \"sheet/forms/x.h\"",
         "sheet/h.cpp is a rule and must not know the form sheet/forms/x.h"},
        {"sheet/forms/j.cpp", "#include \"foundation/forms/x.h\"\n#include <QtWidgets/QLineEdit>\n", nullptr},
        {"sheet/k.cpp", "#include <QtWidgets/QMessageBox>",
         "sheet/k.cpp uses the widgets of QtWidgets/QMessageBox"},
        {"app/o.cpp", "#include \"sheet/forms/x.h\"\n#include <QtWidgets>\n", nullptr},
        {"sheet/p.cpp", "#include \"x.h\"", "sheet/p.cpp does not name the room of x.h"},
        {"sheet/forms/Tetad.h", "", nullptr},
        {"sheet/forms/tetad.h", "", "sheet/forms/Tetad.h and sheet/forms/tetad.h differ by case only"},
        {"sheet/ring1.h", "#include \"sheet/ring2.h\"", nullptr},
        {"sheet/ring2.cpp", "#include \"sheet/ring3.h\"", nullptr},
        {"sheet/ring3.h", "#include \"sheet/ring1.h\"",
         "circle: sheet/ring1 -> sheet/ring2 -> sheet/ring3 -> sheet/ring1"},
        {"sheet/own.h", "class Own;\nint mine(int a);", nullptr},
        {"sheet/own.cpp",
         "namespace {\nvoid inner() {\n}\n} // namespace\nOwn::Own() : a(1) {\n}\n"
         "int mine(int a,\n         int b) {\n    if (call(a)) {\n    }\n}\nint another(int a) {\n}\n",
         "sheet/own.cpp defines what no header of its name declares: another"},
        {"sheet/long.cpp", "// Much.\n" + many,
         "sheet/long.cpp has 501 lines and does not say why it is long"},
        {"sheet/table.cpp", "// One table, hence its length.\n" + many, nullptr},
    };
    const QTemporaryDir tree;
    QStringList expected;
    for (const Case& entry : cases) {
        plant(tree, entry.path, entry.text);
        if (entry.finding != nullptr) expected << QLatin1StringView(entry.finding);
    }
    expected.sort();
    QStringList found = wallFaults(readSources(tree.path())) + shapeFaults(readSources(tree.path()));
    found.sort();
    EXPECT_EQ(found.join('\n'_L1).toStdString(), expected.join('\n'_L1).toStdString());
}

} // namespace vandrel::test

// Holds the walls between the rooms: reads every include under src/ and tells where an arrow runs up, where a
// widget stands outside the forms, and where two files differ by case only.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include <map>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

const QStringList workingRooms = {u"sheet"_s,    u"reports"_s,     u"statistics"_s, u"masterdata"_s,
                                  u"clinical"_s, u"eligibility"_s, u"exchange"_s,   u"settings"_s};

// inForms: of the including file. The print engine stands on the platform alone; its windows are forms like
// any other and use what all forms share.
bool mayInclude(const QString& room, bool inForms, const QString& other) {
    if (room == other || room == "app"_L1) return true;
    if (other == "platform"_L1) return true;
    if (room == "platform"_L1 || other == "app"_L1) return false;
    if (room == "foundation"_L1 || (room == "print"_L1 && !inForms)) return false;
    if (room == "print"_L1) return other == "foundation"_L1;
    return other == "foundation"_L1 || other == "print"_L1 || workingRooms.contains(other);
}

bool isWidgetHeader(const QString& header) {
    static const QSet<QString> widgets = [] {
        QSet<QString> names;
        for (const char* name : {"QApplication",
                                 "QMessageBox",
                                 "QDialog",
                                 "QMainWindow",
                                 "QMenu",
                                 "QMenuBar",
                                 "QLabel",
                                 "QLineEdit",
                                 "QLayout",
                                 "QBoxLayout",
                                 "QHBoxLayout",
                                 "QVBoxLayout",
                                 "QFormLayout",
                                 "QGridLayout",
                                 "QComboBox",
                                 "QCheckBox",
                                 "QRadioButton",
                                 "QGroupBox",
                                 "QFrame",
                                 "QPlainTextEdit",
                                 "QTextEdit",
                                 "QProgressBar",
                                 "QToolBar",
                                 "QToolButton",
                                 "QPushButton",
                                 "QAbstractButton",
                                 "QTableView",
                                 "QHeaderView",
                                 "QFileDialog",
                                 "QShortcut",
                                 "QStyle",
                                 "QStyleFactory",
                                 "QScrollArea",
                                 "QStackedWidget",
                                 "QSplitter",
                                 "QSpinBox",
                                 "QToolTip",
                                 "QProgressDialog",
                                 "QListView",
                                 "QTreeView",
                                 "QAbstractItemView",
                                 "QStyledItemDelegate",
                                 "QPrinter",
                                 "QPrintDialog",
                                 "QPrinterInfo"})
            names << QLatin1StringView(name);
        return names;
    }();
    const QString name = header.section('/'_L1, -1);
    return header.contains("QtWidgets"_L1) || header.contains("QtPrintSupport"_L1) ||
           widgets.contains(name) || (name.startsWith('Q'_L1) && name.endsWith("Widget"_L1));
}

// Everything wrong under a source tree, one line each, sorted.
QStringList violations(const QString& root) {
    static const QRegularExpression include(u"^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"]"_s,
                                            QRegularExpression::MultilineOption);
    QStringList found;
    std::map<QString, QString> folded;
    QDirIterator files(root, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = QDir(root).relativeFilePath(files.next());
        const auto [place, fresh] = folded.try_emplace(path.toLower(), path);
        if (!fresh) {
            QStringList both{place->second, path};
            both.sort();
            found << both.join(" and "_L1) + u" differ by case only"_s;
        }
        const QString room = path.section('/'_L1, 0, 0);
        const bool inForms = path.section('/'_L1, 1, 1) == "forms"_L1;
        QFile file(QDir(root).filePath(path));
        if (!file.open(QIODevice::ReadOnly)) {
            found << path + u" cannot be read"_s;
            continue;
        }
        QRegularExpressionMatchIterator lines = include.globalMatch(QString::fromUtf8(file.readAll()));
        while (lines.hasNext()) {
            const QRegularExpressionMatch line = lines.next();
            const QString header = line.captured(2);
            if (line.captured(1) == "<"_L1) {
                if (isWidgetHeader(header) && !inForms && room != "app"_L1)
                    found << path + u" uses the widget "_s + header;
                continue;
            }
            const QString other = header.section('/'_L1, 0, 0);
            const bool otherForms = header.section('/'_L1, 1, 1) == "forms"_L1;
            if (!header.contains('/'_L1) || header.startsWith('.'_L1))
                found << path + u" does not name the room of "_s + header;
            else if (!mayInclude(room, inForms, other))
                found << path + u" must not know "_s + header;
            else if (otherForms && room != "app"_L1 &&
                     (!inForms || (other != room && other != "foundation"_L1)))
                found << path + u" must not know the form "_s + header;
        }
    }
    found.sort();
    return found;
}

void plant(const QTemporaryDir& tree, const char* path, const char* text) {
    const QString full = tree.filePath(QLatin1StringView(path));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(full).absolutePath()));
    QFile file(full);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

} // namespace

TEST(Arrows, TheSourcesKeepTheWalls) {
    const QString root = QStringLiteral(VANDREL_SOURCE_DIR "/src");
    ASSERT_TRUE(QFile::exists(root + u"/platform/database.h"_s));
    EXPECT_EQ(violations(root).join('\n'_L1).toStdString(), "");
}

TEST(Arrows, PlantedFaultsAreFound) {
    struct Case {
        const char* path;
        const char* text;
        const char* finding; // null: allowed
    };
    const Case cases[] = {
        {"platform/a.cpp", "#include \"foundation/x.h\"\n", "platform/a.cpp must not know foundation/x.h"},
        {"foundation/b.h", "// x\n #  include \"sheet/x.h\"", "foundation/b.h must not know sheet/x.h"},
        {"foundation/c.h", "#include \"print/x.h\"", "foundation/c.h must not know print/x.h"},
        {"print/d.h", "#include \"foundation/x.h\"", "print/d.h must not know foundation/x.h"},
        {"print/e.h", "#include \"platform/x.h\"", nullptr},
        {"print/forms/q.h", "#include \"foundation/forms/x.h\"\n#include \"print/x.h\"", nullptr},
        {"print/forms/r.h", "#include \"sheet/x.h\"", "print/forms/r.h must not know sheet/x.h"},
        {"sheet/f.cpp", "#include \"reports/x.h\"\n#include \"print/x.h\"\n", nullptr},
        {"sheet/forms/g.cpp", "#include \"reports/forms/x.h\"",
         "sheet/forms/g.cpp must not know the form reports/forms/x.h"},
        {"sheet/h.cpp", "#include \"sheet/forms/x.h\"", "sheet/h.cpp must not know the form sheet/forms/x.h"},
        {"sheet/i.cpp", "#include \"foundation/forms/x.h\"",
         "sheet/i.cpp must not know the form foundation/forms/x.h"},
        {"sheet/forms/j.cpp", "#include \"foundation/forms/x.h\"\n#include <QLineEdit>\n", nullptr},
        {"sheet/k.cpp", "#include <QtWidgets/QMessageBox>",
         "sheet/k.cpp uses the widget QtWidgets/QMessageBox"},
        {"foundation/l.h", "#include <QWidget>", "foundation/l.h uses the widget QWidget"},
        {"reports/m.h", "#include <QTableWidget>", "reports/m.h uses the widget QTableWidget"},
        {"settings/n.h", "#include \"app/x.h\"", "settings/n.h must not know app/x.h"},
        {"app/o.cpp", "#include \"sheet/forms/x.h\"\n#include <QApplication>\n", nullptr},
        {"sheet/p.cpp", "#include \"x.h\"", "sheet/p.cpp does not name the room of x.h"},
        {"sheet/forms/Tetad.h", "", nullptr},
        {"sheet/forms/tetad.h", "", "sheet/forms/Tetad.h and sheet/forms/tetad.h differ by case only"},
    };
    const QTemporaryDir tree;
    QStringList expected;
    for (const Case& entry : cases) {
        plant(tree, entry.path, entry.text);
        if (entry.finding != nullptr) expected << QLatin1StringView(entry.finding);
    }
    expected.sort();
    EXPECT_EQ(violations(tree.path()).join('\n'_L1).toStdString(), expected.join('\n'_L1).toStdString());
}

} // namespace vandrel::test

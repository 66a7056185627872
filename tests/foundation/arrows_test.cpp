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

namespace vandrel::test {

namespace {

const QStringList workingRooms = {QStringLiteral("sheet"),      QStringLiteral("reports"),
                                  QStringLiteral("statistics"), QStringLiteral("masterdata"),
                                  QStringLiteral("clinical"),   QStringLiteral("eligibility"),
                                  QStringLiteral("exchange"),   QStringLiteral("settings")};

// inForms: of the including file. The print engine stands on the platform alone; its windows are forms like
// any other and use what all forms share.
bool mayInclude(const QString& room, bool inForms, const QString& other) {
    if (room == other || room == QLatin1String("app")) return true;
    if (other == QLatin1String("platform")) return true;
    if (room == QLatin1String("platform") || other == QLatin1String("app")) return false;
    if (room == QLatin1String("foundation") || (room == QLatin1String("print") && !inForms)) return false;
    if (room == QLatin1String("print")) return other == QLatin1String("foundation");
    return other == QLatin1String("foundation") || other == QLatin1String("print") ||
           workingRooms.contains(other);
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
            names << QLatin1String(name);
        return names;
    }();
    const QString name = header.section(QLatin1Char('/'), -1);
    return header.contains(QLatin1String("QtWidgets")) || header.contains(QLatin1String("QtPrintSupport")) ||
           widgets.contains(name) ||
           (name.startsWith(QLatin1Char('Q')) && name.endsWith(QLatin1String("Widget")));
}

// Everything wrong under a source tree, one line each, sorted.
QStringList violations(const QString& root) {
    static const QRegularExpression include(QStringLiteral("^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"]"),
                                            QRegularExpression::MultilineOption);
    QStringList found;
    std::map<QString, QString> folded;
    QDirIterator files(root, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = QDir(root).relativeFilePath(files.next());
        const auto [place, fresh] = folded.try_emplace(path.toLower(), path);
        if (!fresh) {
            QStringList both{place->second, path};
            both.sort();
            found << both.join(QLatin1String(" and ")) + QStringLiteral(" differ by case only");
        }
        const QString room = path.section(QLatin1Char('/'), 0, 0);
        const bool inForms = path.section(QLatin1Char('/'), 1, 1) == QLatin1String("forms");
        QFile file(QDir(root).filePath(path));
        if (!file.open(QIODevice::ReadOnly)) {
            found << path + QStringLiteral(" cannot be read");
            continue;
        }
        QRegularExpressionMatchIterator lines = include.globalMatch(QString::fromUtf8(file.readAll()));
        while (lines.hasNext()) {
            const QRegularExpressionMatch line = lines.next();
            const QString header = line.captured(2);
            if (line.captured(1) == QLatin1String("<")) {
                if (isWidgetHeader(header) && !inForms && room != QLatin1String("app"))
                    found << path + QStringLiteral(" uses the widget ") + header;
                continue;
            }
            const QString other = header.section(QLatin1Char('/'), 0, 0);
            const bool otherForms = header.section(QLatin1Char('/'), 1, 1) == QLatin1String("forms");
            if (!header.contains(QLatin1Char('/')) || header.startsWith(QLatin1Char('.')))
                found << path + QStringLiteral(" does not name the room of ") + header;
            else if (!mayInclude(room, inForms, other))
                found << path + QStringLiteral(" must not know ") + header;
            else if (otherForms && room != QLatin1String("app") &&
                     (!inForms || (other != room && other != QLatin1String("foundation"))))
                found << path + QStringLiteral(" must not know the form ") + header;
        }
    }
    found.sort();
    return found;
}

void plant(const QTemporaryDir& tree, const char* path, const char* text) {
    const QString full = tree.filePath(QLatin1String(path));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(full).absolutePath()));
    QFile file(full);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

} // namespace

TEST(Arrows, TheSourcesKeepTheWalls) {
    const QString root = QStringLiteral(VANDREL_SOURCE_DIR "/src");
    ASSERT_TRUE(QFile::exists(root + QStringLiteral("/platform/database.h")));
    EXPECT_EQ(violations(root).join(QLatin1Char('\n')).toStdString(), "");
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
        if (entry.finding != nullptr) expected << QLatin1String(entry.finding);
    }
    expected.sort();
    EXPECT_EQ(violations(tree.path()).join(QLatin1Char('\n')).toStdString(),
              expected.join(QLatin1Char('\n')).toStdString());
}

} // namespace vandrel::test

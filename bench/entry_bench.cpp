#include "entry_bench.h"

#include "floor_entry.h"
#include "sync_counter.h"

#include "foundation/dialogue.h"
#include "sheet/dictionary_list.h"
#include "sheet/forms/tetad.h"
#include "sheet/forms/tetad_kieg1.h"
#include "sheet/new_sheet.h"
#include "sheet/patient_register.h"
#include "sheet/procedure_lines.h"
#include "sheet/sheet_fields.h"
#include "sheet/sheet_store.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace vandrel::bench {

namespace {

constexpr int questions = 400; // of one kind in a round

// Answers every question with yes.
class YesDialogue : public Dialogue {
  public:
    Answer show(const Message& message) override {
        return message.buttons == Buttons::yesNo ? Answer::yes : Answer::ok;
    }
};

class NoPacker : public Packer {
  public:
    void start(const QString&, const QString&, const QString&) override {}
    bool endsWithin(int) override { return true; }
    bool waitForFinished() override { return true; }
};

void require(bool good, const char* what) {
    if (good) return;
    std::fprintf(stderr, "program and floor differ: %s\n", what);
    std::exit(1);
}

// Seconds of one call, on average over all the texts; the answers are kept for comparing.
template<class Ask>
double average(const std::vector<QString>& texts, std::vector<long long>& answers, Ask&& ask) {
    answers.assign(texts.size(), 0);
    const Stopwatch watch;
    for (std::size_t i = 0; i < texts.size(); ++i)
        answers[i] = ask(i);
    return watch.seconds() / static_cast<double>(texts.size());
}

struct Setting {
    Setting(const QString& folder)
        : station(folder, dialogue, clock, packer), floor(floorOpen(QFile::encodeName(folder).constData())) {}
    ~Setting() { floorClose(floor); }
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

    YesDialogue dialogue;
    FixedClock clock{QDateTime(QDate(2009, 1, 5), QTime(10, 10, 0))};
    NoPacker packer;
    Workstation station;
    FloorEntry* floor;
};

std::vector<QString> registeredTajs(Workstation& station) {
    std::vector<QString> result;
    Query row = station.files[DataFile::tetdata].query(
        "select TAJ from Paciensek where ID % (select max(1, max(ID)/?1) from Paciensek)=1 limit ?1",
        questions);
    while (row.next())
        result.push_back(row.text(0));
    return result;
}

void measureTajSearch(Table& table, Setting& setting, const QString& size, int rounds) {
    const std::vector<QString> tajs = registeredTajs(setting.station);
    struct Kind {
        const char* name;
        int length;
        bool hit;
    };
    for (const Kind& kind : {Kind{"1 digit, found", 1, true},
                             {"4 digits, found", 4, true},
                             {"5 digits, found", 5, true},
                             {"9 digits, found", 9, true},
                             {"4 characters, not found", 4, false},
                             {"9 characters, not found", 9, false}}) {
        std::vector<QString> texts;
        for (QString text : tajs) {
            text.truncate(kind.length);
            if (!kind.hit) text[kind.length - 1] = u':'; // sorts after the digits
            texts.push_back(text);
        }
        std::vector<QByteArray> bytes;
        for (const QString& text : texts)
            bytes.push_back(text.toUtf8());
        Pairs pairs;
        std::vector<long long> ours, floors;
        for (int round = 0; round <= rounds; ++round) {
            const double program = average(texts, ours, [&](std::size_t i) {
                const auto found = findPatientByPrefix(setting.station, texts[i]);
                return found ? found->id : -1;
            });
            const double floor = average(texts, floors, [&](std::size_t i) {
                return floorPatient(setting.floor, bytes[i].constData());
            });
            require(ours == floors && (ours.front() >= 0) == kind.hit, kind.name);
            if (round == 0) continue;
            pairs.program.push_back(program);
            pairs.floor.push_back(floor);
        }
        table.pairs(u"TAJ search, %1, %2 sheets"_s.arg(QLatin1StringView(kind.name), size), pairs, u"us"_s,
                    1e6, u"2000 us"_s);
    }
}

QString milliseconds(double seconds) {
    return QString::number(seconds * 1000, 'f', 2) + u" ms"_s;
}

void press(QWidget* field, QChar character) {
    QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character), Qt::NoModifier);
    QApplication::processEvents();
}

QLineEdit* lineEdit(QWidget& form, const char* name) {
    auto* field = form.findChild<QLineEdit*>(QLatin1StringView(name));
    if (field == nullptr) {
        std::fprintf(stderr, "no field %s\n", name);
        std::exit(1);
    }
    return field;
}

// On the screen itself, from the key to the painted fields.
void measureForm(Table& table, Setting& setting, const QString& size, int rounds) {
    QWidget opener;
    opener.show();
    std::vector<double> news, keys, searches;
    const std::vector<QString> tajs = registeredTajs(setting.station);
    {
        tetad form(setting.station, &opener);
        for (int round = 0; round <= rounds; ++round) {
            const Stopwatch watch;
            form.Uj();
            QApplication::processEvents();
            if (round > 0) news.push_back(watch.seconds());
        }
        QLineEdit* field = lineEdit(form, "Szem_szam");
        field->setFocus();
        for (int i = 0; i < rounds * 3; ++i) {
            field->clear();
            for (const QChar digit : tajs[static_cast<std::size_t>(i) % tajs.size()]) {
                const Stopwatch watch;
                press(field, digit);
                keys.push_back(watch.seconds());
            }
            require(field->text() == tajs[static_cast<std::size_t>(i) % tajs.size()], "typed TAJ");
            require(!lineEdit(form, "Neve")->text().isEmpty(), "name of the typed TAJ");
        }
        form.close();
    }
    tetad_kieg1 list(setting.station, &opener);
    list.openFor(tetad_kieg1::firstDiagnosis);
    QLineEdit* field = list.findChild<QLineEdit*>();
    for (auto* button : list.findChildren<QRadioButton*>())
        if (button->text().contains(u"Megnevezésre")) button->click();
    field->setFocus();
    for (const QString& text : {u"térd fejlődési"_s, u"nincs ilyen név"_s, u"13990. alak"_s}) {
        field->clear();
        QApplication::processEvents();
        for (const QChar character : text) {
            const Stopwatch watch;
            press(field, character);
            searches.push_back(watch.seconds());
        }
        require(field->text() == text, "typed name");
    }
    list.close();
    const auto worst = [](const std::vector<double>& values) {
        return *std::max_element(values.begin(), values.end());
    };
    table.single(u"Uj on the screen, painted, %1 sheets"_s.arg(size), milliseconds(median(news)), u"20 ms"_s);
    table.single(u"key stroke in the TAJ field, painted, %1 sheets"_s.arg(size), milliseconds(median(keys)));
    table.single(u"  the slowest of %1"_s.arg(keys.size()), milliseconds(worst(keys)));
    table.single(u"key stroke in the diagnosis list by name, painted"_s, milliseconds(median(searches)));
    table.single(u"  the slowest of %1"_s.arg(searches.size()), milliseconds(worst(searches)));
}

void measureNewSheet(Table& table, Setting& setting, const QString& size, int rounds) {
    Pairs pairs;
    for (int round = 0; round <= rounds; ++round) {
        const int times = 100;
        const Stopwatch ourWatch;
        QString key;
        for (int i = 0; i < times; ++i)
            key = makeNewSheet(setting.station).Azonosito;
        const double program = ourWatch.seconds() / times;
        const Stopwatch floorWatch;
        long number = 0;
        for (int i = 0; i < times; ++i)
            number = floorNewSheet(setting.floor);
        const double floor = floorWatch.seconds() / times;
        require(key.mid(3).toLong() == number, "number of the new sheet");
        if (round == 0) continue;
        pairs.program.push_back(program);
        pairs.floor.push_back(floor);
    }
    table.pairs(u"Uj: the new sheet's values, %1 sheets"_s.arg(size), pairs, u"us"_s, 1e6, u"20000 us"_s);
}

void measureDiagnosisSearch(Table& table, Setting& setting, int rounds) {
    const DictionaryList list(setting.station, Dictionary::diagnoses);
    std::vector<QByteArray> folded;
    for (int i = 0; i < list.count(); ++i)
        folded.push_back(list.at(i).foldedName.toUtf8());
    std::vector<const char*> names;
    for (const QByteArray& name : folded)
        names.push_back(name.constData());
    struct Kind {
        const char* name;
        std::vector<QString> texts;
    };
    std::vector<Kind> kinds{{"found early", {u"Tér"_s, u"zúzó"_s, u"GYULLADÁSA"_s}},
                            {"found at the end", {u"13990. alak"_s, u"13999. Al"_s}},
                            {"not found", {u"nincs ilyen"_s, u"a szívek"_s, u"14000. alak"_s}}};
    for (const Kind& kind : kinds) {
        std::vector<QByteArray> bytes;
        for (const QString& text : kind.texts)
            bytes.push_back(text.toCaseFolded().toUtf8());
        Pairs pairs;
        for (int round = 0; round <= rounds; ++round) {
            const int times = 30;
            double seconds[2] = {0, 0};
            for (int i = 0; i < times; ++i) {
                std::vector<long long> ours, floors;
                seconds[0] += average(kind.texts, ours, [&](std::size_t at) {
                    return list.find(SearchBy::name, kind.texts[at], 0);
                });
                seconds[1] += average(kind.texts, floors, [&](std::size_t at) {
                    return floorWalk(names.data(), static_cast<int>(names.size()), bytes[at].constData());
                });
                require(ours == floors, kind.name);
            }
            if (round == 0) continue;
            pairs.program.push_back(seconds[0] / times);
            pairs.floor.push_back(seconds[1] / times);
        }
        table.pairs(u"diagnosis search by name, %1, 14,000 names"_s.arg(QLatin1StringView(kind.name)), pairs,
                    u"us"_s, 1e6);
    }
}

SheetFields sheetOf(Workstation& station, const QString& taj) {
    SheetFields fields = makeNewSheet(station);
    fields.Szem_szam = taj;
    fields.Azon_tipus = u"1"_s;
    fields.Neve = u"Kovács Béla"_s;
    fields.Irszam = u"1000"_s;
    fields.City = u"Mintafalu 1"_s;
    fields.Cim = u"Fő utca 1."_s;
    fields.Anyja_neve = u"Nagy Éva"_s;
    fields.Nem = u"1"_s;
    fields.Szul_dat = u"1970.01.01."_s;
    fields.Diag[0] = u"A0000"_s;
    fields.K_kep = u"0"_s;
    return fields;
}

void measureStore(Table& table, Setting& setting, const QString& size, int rounds) {
    for (const bool known : {true, false}) {
        Pairs pairs;
        long transactions = 0, writes = 0;
        for (int round = 0; round <= rounds; ++round) {
            const int times = 8;
            double seconds[2] = {0, 0};
            for (int i = 0; i < times; ++i) {
                // The first sheet of each kind enters the patient, or brings the register up to date.
                const QString taj = known ? u"900000007"_s : QString::number(910'000'000 + round * 100 + i);
                const SheetFields fields = sheetOf(setting.station, taj);
                const long before = syncCounterDataFiles(), allBefore = syncCounterAll();
                const Stopwatch watch;
                const StoreResult result = storeSheet(setting.station, fields);
                seconds[0] += watch.seconds();
                transactions = syncCounterDataFiles() - before;
                writes = syncCounterAll() - allBefore;
                require(result.outcome == StoreOutcome::storedAnother, "store");
                const QByteArray key = makeNewSheet(setting.station).Azonosito.toLatin1();
                const Stopwatch floorWatch;
                floorStore(setting.floor, key.constData());
                seconds[1] += floorWatch.seconds();
            }
            if (round == 0) continue;
            pairs.program.push_back(seconds[0] / times);
            pairs.floor.push_back(seconds[1] / times);
        }
        const QString kind = known ? u"known patient"_s : u"new patient"_s;
        table.pairs(u"store, %1, %2 sheets"_s.arg(kind, size), pairs, u"ms"_s, 1000);
        table.single(u"  its synced transactions (of %1 syncs)"_s.arg(writes), QString::number(transactions),
                     u"3"_s);
    }
}

void copyFolder(const QString& from, const QString& to) {
    QDir(to).removeRecursively();
    QDir().mkpath(to);
    for (const QFileInfo& file : QDir(from).entryInfoList(QDir::Files))
        if (!QFile::copy(file.filePath(), QDir(to).filePath(file.fileName()))) std::exit(1);
}

} // namespace

void measureEntry(Table& table, const QString& clinic, const QString& size, const QString& copy, int rounds) {
    copyFolder(clinic, copy);
    {
        Setting setting(copy);
        measureNewSheet(table, setting, size, rounds);
        measureTajSearch(table, setting, size, rounds);
        measureForm(table, setting, size, rounds);
        measureDiagnosisSearch(table, setting, rounds);
        measureStore(table, setting, size, rounds);
    }
    QDir(copy).removeRecursively();
}

} // namespace vandrel::bench

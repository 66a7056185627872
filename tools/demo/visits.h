// The twenty visits that the demonstration types: invented patients, every kind of sheet once at least.
// Data only.
#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace vandrel::demo {

// A field of the sheet by its name, and what is typed into it. Dates and times as digits, the mask has the
// rest.
using Entry = std::pair<QString, QString>;

struct Line {
    enum class Way { code, functionKey, dictionary };
    QString text;     // the code; "F2" ...; or what is searched for among the names
    QString code;     // the code that must be stored
    QString quantity; // empty: the proposed 1
    Way way = Way::code;
};

struct Visit {
    QString name; // of the patient, as it must be on the sheet at the end
    QString taj;  // nine digits
    bool known;   // in the register already: the first digits of the TAJ bring the rest
    QString date; // éééé.hh.nn.
    QString time; // four digits
    QString unit;
    QString postalCode, sex, birth, citizenship; // of the patient; the birth date as digits
    QString diagnosis;
    std::vector<Entry> fields;    // typed when the focus comes there
    std::vector<Entry> picked;    // chosen from the list at F1 by the first letters of its line
    std::vector<Entry> searched;  // chosen from the dictionary at F1 by a part of the name
    std::vector<Line> lines;      // procedures in their order
    std::vector<Entry> otherData; // Ctrl-E, in the frame's order
    QString note;                 // Ctrl-N
    bool forgetSex = false;       // the store is refused first
    QString wrongBirth;           // typed first, refused at the field
    QString remark;               // for the log
};

const std::vector<Visit>& visits();

} // namespace vandrel::demo

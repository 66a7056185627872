// How a form declares its text fields: one table a form, a row a field, typed keys. A rule may read the
// table: it knows no widget. The widgets are made by foundation/forms/field_set.h.
#pragma once

#include "foundation/code_lists.h"

#include <QStringView>

#include <algorithm>
#include <limits>
#include <span>

namespace vandrel {

enum class FieldShape {
    text,
    password,
    date,     // ####.##.##., with a calendar
    time,     // ##:##
    period,   // ####.##
    account,  // ########-########-########
    taxNumber // ########-#-##
};

// Where Enter, Down and Up find a field.
enum class FieldPlace {
    chain, // after the row before it
    aside, // in no chain: reached by Tab, mouse and its own links
    none   // a value of the record that has no input of its own
};

// What a date must be when the field is left; none: nothing is checked.
enum class DateCheck { none, birth, referral, care, exemptionExpiry };

inline constexpr int noLimit = std::numeric_limits<qint16>::max();

// Name it with designated members: {.name = "Naplo", .label = u"Naplósorszám:", .limit = 8, .numeric = true}.
struct FieldDescription {
    const char* name;            // objectName: of a field of a table its column's name
    QStringView label = {};      // caption beside the field; fields in one row may share one
    QStringView accessible = {}; // where a label is shared, what tells this field apart; empty: the label
    FieldShape shape = FieldShape::text;
    int limit = noLimit; // characters that may be typed or pasted
    int shown = 0;       // characters the field is wide; 0: as wide as its place
    bool numeric = false;
    bool required = false;              // marked at its label
    bool zeroWhenEmpty = false;         // "0" when it is left empty
    QStringView whenNew = {};           // text in a new record; the empty mask needs none
    PickMarker list = PickMarker::none; // opened by F1
    DateCheck dateCheck = DateCheck::none;
    FieldPlace place = FieldPlace::chain;

    constexpr QStringView accessibleName() const { return accessible.isEmpty() ? label : accessible; }
    constexpr bool masked() const { return shape != FieldShape::text && shape != FieldShape::password; }
};

// The key is an enumerator, or a pointer to the member of the record that the field edits: then
// `record.*key` is the value. The order of the rows is the order of entry.
template<typename Key>
struct FieldRow {
    Key key;
    FieldDescription field;
};

template<typename Key>
using FieldTable = std::span<const FieldRow<Key>>;

// For static_assert: each enumerator from 0 to last has its row, at its own place.
template<typename Key, std::size_t count>
consteval bool everyKeyInOrder(const FieldRow<Key> (&rows)[count], Key last) {
    if (count != static_cast<std::size_t>(last) + 1) return false;
    for (std::size_t i = 0; i < count; ++i)
        if (static_cast<std::size_t>(rows[i].key) != i) return false;
    return true;
}

// For static_assert: no key and no name twice.
template<typename Key, std::size_t count>
consteval bool noFieldTwice(const FieldRow<Key> (&rows)[count]) {
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t j = i + 1; j < count; ++j)
            if (rows[i].key == rows[j].key ||
                std::string_view(rows[i].field.name) == std::string_view(rows[j].field.name))
                return false;
    return true;
}

// The value of a field in the record it edits. A table with enumerators for keys brings an overload of its
// own.
template<typename Record, typename Value>
Value& valueOf(Record& record, Value Record::*key) {
    return record.*key;
}

} // namespace vandrel

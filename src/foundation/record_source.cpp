// Sorting and narrowing as text, and what a numeric answer means.
#include "foundation/record_source.h"

#include "foundation/dialect.h"
#include "platform/fault.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr std::size_t dateNameLength = 11;

std::string lower(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char c) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
    return result;
}

bool isSelect(const std::string& text) {
    return lower(text).starts_with("select");
}

// Digits with a decimal comma; blanks may group them.
double numberAnswer(const QString& answer) {
    QString digits = answer.trimmed();
    digits.remove(u' ');
    digits.remove(QChar(QChar::Nbsp));
    const bool plain = std::ranges::all_of(
        digits, [](QChar c) { return (c >= u'0' && c <= u'9') || c == u',' || c == u'-' || c == u'+'; });
    bool valid = false;
    const double number = digits.replace(u',', u'.').toDouble(&valid);
    if (!plain || !valid || !std::isfinite(number))
        throw Fault(fault::typeMismatch, u"Ez nem szám: %1"_s.arg(answer.trimmed().left(40)));
    return number;
}

// Halves go to the even number.
template<class Whole>
qint64 wholeAnswer(const QString& answer) {
    const double number = std::nearbyint(numberAnswer(answer));
    if (number < std::numeric_limits<Whole>::min() || number > std::numeric_limits<Whole>::max())
        throw Fault(fault::overflow,
                    u"Ez a szám túl nagy ehhez az oszlophoz: %1"_s.arg(answer.trimmed().left(40)));
    return static_cast<qint64>(number);
}

std::string tableName(const std::string& table) {
    return lower(table) == "default" ? "[DEFAULT]" : table;
}

} // namespace

FieldType fieldType(catalogue::Type type) {
    switch (type) {
    case catalogue::Type::text:
    case catalogue::Type::code:
        return FieldType::text;
    case catalogue::Type::integer:
        return FieldType::integer;
    case catalogue::Type::whole:
        return FieldType::wholeLong;
    case catalogue::Type::number:
    case catalogue::Type::wholeNumber:
        return FieldType::number;
    }
    return FieldType::other;
}

RecordSource sortedSource(const RecordSource& source, const GridField& field, SortDirection direction) {
    RecordSource sorted = source;
    if (!isSelect(source.text)) sorted.text = "select * from " + tableName(source.text);
    const bool alphabetical = field.type == FieldType::text && !field.isCode;
    sorted.text += " order by " + (alphabetical ? "hungarian_key(" + field.name + ")" : field.name);
    if (direction == SortDirection::descending) sorted.text += " desc";
    return sorted;
}

std::optional<RecordSource> narrowedSource(const std::string& table, const GridField& field, NarrowMode mode,
                                           const QString& answer) {
    const QString value = answer.trimmed();
    RecordSource source{"select * from " + tableName(table) + " where " + field.name};
    source.narrowedColumn = field.name;
    source.narrowedBy = value;
    source.narrowedByPart = mode == NarrowMode::part;
    const bool whole = mode == NarrowMode::whole;
    switch (field.type) {
    case FieldType::integer:
    case FieldType::wholeLong:
    case FieldType::number:
        if (!whole) return std::nullopt;
        source.text += "= ?1";
        if (field.type == FieldType::number)
            source.values.emplace_back(numberAnswer(value));
        else
            source.values.emplace_back(field.type == FieldType::integer ? wholeAnswer<qint16>(value)
                                                                        : wholeAnswer<qint32>(value));
        return source;
    case FieldType::date:
        // Deliberate: the name of a date column is cut to 11 characters here; a longer one is not found.
        if (whole)
            source.text =
                "select * from " + tableName(table) + " where " + field.name.substr(0, dateNameLength);
        [[fallthrough]];
    case FieldType::text:
    case FieldType::memo:
        source.text += !whole ? " like '*?1*'" : field.isCode ? "= ?1" : "= '?1'";
        source.values.emplace_back(value);
        return source;
    case FieldType::other:
        break;
    }
    return std::nullopt;
}

std::string rowNumberStatement(const RecordSource& source) {
    std::string text = isSelect(source.text) ? source.text : "select * from " + tableName(source.text);
    if (const std::size_t star = text.find('*'); star != std::string::npos) text.replace(star, 1, "rowid");
    const std::string plain = lower(text);
    // Equal rows stay in stored order, which an index gives at no cost.
    if (plain.find(" order by ") == std::string::npos)
        text += " order by rowid";
    else
        text += plain.ends_with(" desc") ? ", rowid desc" : ", rowid";
    return dialect(text);
}

} // namespace vandrel

// Called once a row on half a million rows: no QString is made for the letters that Hungarian texts have.
#include "platform/text_functions.h"

#include "platform/text_compare.h"

#include <QChar>

#include <sqlite3.h>

#include <array>
#include <vector>

namespace vandrel {

namespace {

using Byte = unsigned char;

// Takes one character off the front; a byte that is no UTF-8 counts as a character of its own.
char32_t takeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<Byte>(text[i]); };
    const auto follows = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xc0) == 0x80; };
    const Byte lead = byte(0);
    if (lead >= 0xc2 && lead < 0xe0 && follows(1)) {
        const char32_t c = (lead & 0x1fU) << 6 | (byte(1) & 0x3fU);
        text.remove_prefix(2);
        return c;
    }
    if (lead >= 0xe0 && lead < 0xf0 && follows(1) && follows(2)) {
        const char32_t c = (lead & 0x0fU) << 12 | (byte(1) & 0x3fU) << 6 | (byte(2) & 0x3fU);
        text.remove_prefix(3);
        return c;
    }
    if (lead >= 0xf0 && lead < 0xf5 && follows(1) && follows(2) && follows(3)) {
        const char32_t c =
            (lead & 0x07U) << 18 | (byte(1) & 0x3fU) << 12 | (byte(2) & 0x3fU) << 6 | (byte(3) & 0x3fU);
        text.remove_prefix(4);
        return c;
    }
    text.remove_prefix(1);
    return lead;
}

void append(std::string& to, char32_t c) {
    const auto add = [&](char32_t bits) { to.push_back(static_cast<char>(bits)); };
    if (c < 0x80) {
        add(c);
    } else if (c < 0x800) {
        add(0xc0 | c >> 6);
        add(0x80 | (c & 0x3f));
    } else {
        if (c < 0x10000) {
            add(0xe0 | c >> 12);
        } else {
            add(0xf0 | c >> 18);
            add(0x80 | (c >> 12 & 0x3f));
        }
        add(0x80 | (c >> 6 & 0x3f));
        add(0x80 | (c & 0x3f));
    }
}

void fold(std::string_view text, std::string& to) {
    to.clear();
    while (!text.empty()) {
        const auto c = static_cast<Byte>(text.front());
        if (c < 0x80) {
            to.push_back(static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c));
            text.remove_prefix(1);
        } else {
            append(to, QChar::toCaseFolded(takeCharacter(text)));
        }
    }
}

// Where each letter of the alphabet lies; digits, signs and blanks come before.
enum Letter : Byte {
    firstLetter = 0x60,
    cs = firstLetter + 3, // behind a, b, c
    dz = cs + 2,
    dzs = dz + 1,
    gy = dzs + 4,
    ly = gy + 6,
    ny = ly + 3,
    oe = ny + 2,
    sz = oe + 5,
    ty = sz + 2,
    ue = ty + 2,
    zs = ue + 6,
    foreign = 0xf0 // followed by the character's number
};

constexpr std::array<Byte, 26> plainLetters = [] {
    std::array<Byte, 26> places{};
    Byte place = firstLetter;
    for (int i = 0; i < 26; ++i) {
        const char letter = static_cast<char>('a' + i);
        places[static_cast<std::size_t>(i)] = place++;
        // What follows the letter in the alphabet on its own account.
        if (letter == 'c' || letter == 'g' || letter == 'l' || letter == 'n' || letter == 'o' ||
            letter == 's' || letter == 't' || letter == 'u')
            ++place;
        if (letter == 'd') place += 2;
    }
    return places;
}();
static_assert(plainLetters[25] + 1 == zs && plainLetters['p' - 'a'] == oe + 1 &&
              plainLetters['v' - 'a'] == ue + 1);

struct Sign {
    Byte weight = foreign;
    Byte accent = 0;
    char letter = 0; // a to z without an accent; 0 for all else
};

Sign makeSign(char32_t c) {
    if (c >= 'A' && c <= 'Z') c += 32;
    if (c >= 'a' && c <= 'z') return {plainLetters[c - 'a'], 0, static_cast<char>(c)};
    if (c <= 0x40) return {static_cast<Byte>(c + 1), 0, 0};
    if (c < 0x61) return {static_cast<Byte>(c - 0x5b + 0x42), 0, 0};
    if (c < 0x80) return {static_cast<Byte>(c - 0x7b + 0x48), 0, 0};
    switch (QChar::toLower(c)) {
    case U'ö':
        return {oe, 0, 0};
    case U'ő':
        return {oe, 1, 0};
    case U'ü':
        return {ue, 0, 0};
    case U'ű':
        return {ue, 1, 0};
    default:
        break;
    }
    // An accent on another letter makes a difference only where the letters are the same.
    const QString parts = QChar::decomposition(QChar::toLower(c));
    if (parts.size() == 2 && parts[0] >= u'a' && parts[0] <= u'z')
        return {plainLetters[static_cast<std::size_t>(parts[0].unicode() - u'a')],
                static_cast<Byte>(1 + parts[1].unicode() % 0x70), 0};
    return {};
}

constexpr char32_t signCount = 0x250; // Latin letters with all their accents

const Sign& signOf(char32_t c) {
    static const std::array<Sign, signCount> signs = [] {
        std::array<Sign, signCount> all;
        for (char32_t i = 0; i < signCount; ++i)
            all[i] = makeSign(i);
        return all;
    }();
    static const Sign other;
    return c < signCount ? signs[c] : other;
}

struct Digraph {
    Byte weight = 0; // 0: none begins here
    int length = 0;
};

// The letter of several characters that begins the text.
Digraph digraph(const char* letters) {
    const char second = letters[1];
    switch (letters[0]) {
    case 'c':
        if (second == 's') return {cs, 2};
        break;
    case 'd':
        if (second == 'z') return letters[2] == 's' ? Digraph{dzs, 3} : Digraph{dz, 2};
        break;
    case 'g':
        if (second == 'y') return {gy, 2};
        break;
    case 'l':
        if (second == 'y') return {ly, 2};
        break;
    case 'n':
        if (second == 'y') return {ny, 2};
        break;
    case 's':
        if (second == 'z') return {sz, 2};
        break;
    case 't':
        if (second == 'y') return {ty, 2};
        break;
    case 'z':
        if (second == 's') return {zs, 2};
        break;
    default:
        break;
    }
    return {};
}

// What the functions of one connection keep from row to row, so that memory is asked for once.
struct Scratch {
    std::string value, wanted, lastWanted, letters, accents, key;
    std::vector<char32_t> characters;

    // The second argument is the same for all rows of a question.
    const std::string& folded(std::string_view text) {
        if (text != lastWanted || wanted.empty()) {
            lastWanted.assign(text);
            fold(text, wanted);
        }
        return wanted;
    }
    const std::string& keyOf(std::string_view utf8);
};

const std::string& Scratch::keyOf(std::string_view utf8) {
    characters.clear();
    letters.clear();
    accents.clear();
    key.clear();
    while (!utf8.empty()) {
        const char32_t c = takeCharacter(utf8);
        characters.push_back(c);
        letters.push_back(signOf(c).letter);
    }
    std::size_t accentEnd = 0;
    for (std::size_t i = 0; i < characters.size();) {
        if (letters[i] != 0) {
            // "ssz" is "sz" twice. The text's closing zero ends every look ahead.
            const bool twice = letters[i + 1] == letters[i];
            if (const Digraph found = digraph(letters.c_str() + i + (twice ? 1 : 0)); found.weight != 0) {
                key.append(twice ? 2 : 1, static_cast<char>(found.weight));
                accents.append(twice ? 2 : 1, '\1');
                i += static_cast<std::size_t>(found.length) + (twice ? 1 : 0);
                continue;
            }
        }
        const Sign& sign = signOf(characters[i]);
        key.push_back(static_cast<char>(sign.weight));
        if (sign.weight == foreign)
            for (const int shift : {16, 8, 0})
                key.push_back(static_cast<char>(characters[i] >> shift & 0xff));
        accents.push_back(static_cast<char>(sign.accent + 1));
        if (sign.accent != 0) accentEnd = accents.size();
        ++i;
    }
    if (accentEnd > 0) {
        key.push_back('\0');
        key.append(accents, 0, accentEnd);
    }
    return key;
}

std::string_view textOf(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    if (bytes == nullptr) return {};
    return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

Scratch& scratchOf(sqlite3_context* context) {
    return *static_cast<Scratch*>(sqlite3_user_data(context));
}

void keyFunction(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) != SQLITE_TEXT) {
        sqlite3_result_value(context, values[0]);
        return;
    }
    const std::string& key = scratchOf(context).keyOf(textOf(values[0]));
    sqlite3_result_blob64(context, key.data(), key.size(), SQLITE_TRANSIENT);
}

template<bool (*test)(const std::string& value, const std::string& wanted)>
void compareFunction(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL) return;
    Scratch& scratch = scratchOf(context);
    const std::string& wanted = scratch.folded(textOf(values[1]));
    fold(textOf(values[0]), scratch.value);
    sqlite3_result_int(context, test(scratch.value, wanted) ? 1 : 0);
}

bool same(const std::string& value, const std::string& wanted) {
    return value == wanted;
}
bool contains(const std::string& value, const std::string& wanted) {
    return value.find(wanted) != std::string::npos;
}
bool beginsWith(const std::string& value, const std::string& wanted) {
    return value.starts_with(wanted);
}
bool matches(const std::string& value, const std::string& wanted) {
    // No index answers a pattern, and only dictionaries are asked by one.
    return TextPattern(QString::fromStdString(wanted)).matchesFolded(QString::fromStdString(value));
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

void add(sqlite3* database, const char* name, int arguments, Function function) {
    sqlite3_create_function_v2(database, name, arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC, new Scratch,
                               function, nullptr, nullptr,
                               [](void* scratch) { delete static_cast<Scratch*>(scratch); });
}

} // namespace

void registerTextFunctions(sqlite3* database) {
    add(database, "hungarian_key", 1, keyFunction);
    add(database, "same_text", 2, compareFunction<same>);
    add(database, "has_text", 2, compareFunction<contains>);
    add(database, "begins_with", 2, compareFunction<beginsWith>);
    add(database, "text_matches", 2, compareFunction<matches>);
}

std::string hungarianKey(std::string_view utf8) {
    Scratch scratch;
    return scratch.keyOf(utf8);
}

} // namespace vandrel

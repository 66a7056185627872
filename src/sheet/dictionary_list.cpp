// Snapshot and search of a dictionary.
#include "sheet/dictionary_list.h"

#include "platform/text_compare.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

struct Source {
    DataFile file;
    const char* select;
};

Source sourceOf(Dictionary dictionary) {
    switch (dictionary) {
    case Dictionary::procedures:
        return {DataFile::beav, "select BEAV_KOD, BEAV_NEV from BEAV order by rowid"};
    case Dictionary::diagnoses:
        return {DataFile::diagnos, "select D_KOD, D_NEV from DIAGNOS order by rowid"};
    case Dictionary::countries:
        break;
    }
    return {DataFile::tetmod, "select ROV, ORSZAG from ALLAMPOL order by rowid"};
}

} // namespace

DictionaryList::DictionaryList(Workstation& station, Dictionary dictionary) {
    const Source source = sourceOf(dictionary);
    Query rows = station.files[source.file].query(source.select);
    while (rows.next()) {
        Entry entry{rows.text(0), rows.text(1), {}, {}};
        entry.foldedCode = foldCase(entry.code);
        entry.foldedName = foldCase(entry.name);
        m_entries.push_back(std::move(entry));
    }
}

int DictionaryList::find(SearchBy by, const QString& text, int from) const {
    const QString folded = foldCase(text);
    const bool wild = folded.contains(u'*') || folded.contains(u'?') || folded.contains(u'#');
    const TextPattern pattern(u'*' + text + u'*');
    for (int row = std::max(from, 0); row < count(); ++row) {
        const Entry& entry = at(row);
        const bool match = by == SearchBy::code ? entry.foldedCode.startsWith(folded)
                           : wild               ? pattern.matchesFolded(entry.foldedName)
                                                : entry.foldedName.contains(folded);
        if (match) return row;
    }
    return -1;
}

} // namespace vandrel

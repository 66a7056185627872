// The whole menu of the main window as one table: what stands where, and with which code and titles each
// entry opens its form. Knows no window; the form names are names only.
#pragma once

#include <QString>

#include <span>
#include <string_view>

namespace vandrel {

enum class MenuKind {
    title, // a menu or sub-menu: opens nothing itself
    form,  // opens a form with the entry's code and titles
    tool,  // runs an outside program and ends this one
    none,  // stands in the menu without an action of its own, and that is wanted
    newSheet,
    leaving // the exit dialogue
};

// Texts are UTF-8; an empty one means that the form keeps its own.
struct MenuEntry {
    std::string_view name;
    std::string_view parent; // empty: stands in the menu bar
    std::string_view caption;
    MenuKind kind = MenuKind::title;
    std::string_view form = {};        // the form's or the outside program's name
    std::string_view code = {};        // written into the form's hidden code label
    std::string_view windowTitle = {}; // replaces the form's window title
    std::string_view titleSuffix = {}; // goes after the form's window title
    std::string_view title = {};       // head of the printed list
    std::string_view prompt = {};
    std::string_view label = {};
    std::string_view button = {};     // caption of the form's working button
    std::string_view pathButton = {}; // caption of the form's path button
};

// Every entry, a parent always before its children, children in their order.
std::span<const MenuEntry> menuMap();
// The entry of a name; null when there is none.
const MenuEntry* menuEntry(std::string_view name);

inline QString menuText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The window title of a form for this opening: its own with the entry's suffix, or the entry's instead.
inline QString windowTitleFor(const MenuEntry& entry, const QString& own) {
    return entry.windowTitle.empty() ? own + menuText(entry.titleSuffix) : menuText(entry.windowTitle);
}

// The toolbar by index 1 to 6. Index 5 acts as no entry, and that is wanted.
struct ToolButton {
    std::string_view toolTip;
    std::string_view actsAs; // name of a menu entry
};
std::span<const ToolButton> toolButtons();

} // namespace vandrel

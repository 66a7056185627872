// The question for the file a document is saved to, with Hungarian words all over.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QWidget;

namespace vandrel {

struct SaveQuestion {
    QString title;
    QString suggestion;  // whole path
    QStringList filters; // as "PDF fájl (*.pdf)"; the first one is chosen
};

struct SaveAnswer {
    QString path;   // as typed; the ending may be missing
    int filter = 0; // place of the chosen one
};

// nullopt: the user has given up. An existing file is not asked about.
using AskSavePath = std::function<std::optional<SaveAnswer>(QWidget* parent, const SaveQuestion& question)>;
std::optional<SaveAnswer> askSavePath(QWidget* parent, const SaveQuestion& question);

} // namespace vandrel

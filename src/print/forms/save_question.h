// The question for the file a document is saved to, with Hungarian words all over.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QWidget;

namespace vandrel {

class Dialogue;

struct SaveQuestion {
    QString title;
    QString suggestion;  // whole path; for askTarget the name alone
    QStringList filters; // as "PDF fájl (*.pdf)"; the first one is chosen
    QStringList endings; // of each filter, without the point
};

struct SaveAnswer {
    QString path;   // as typed; the ending may be missing
    int filter = 0; // place of the chosen one
};

// nullopt: the user has given up. An existing file is not asked about.
using AskSavePath = std::function<std::optional<SaveAnswer>(QWidget* parent, const SaveQuestion& question)>;
std::optional<SaveAnswer> askSavePath(QWidget* parent, const SaveQuestion& question);

// The same for a file that will be written at once: in the folder of last time (empty: the user's documents),
// with the chosen filter's ending after its name (a typed ending of another filter chooses that one), and an
// existing file goes only when the dialogue says so. folder is that of the answer afterwards.
std::optional<SaveAnswer> askTarget(QWidget* parent, Dialogue& dialogue, const AskSavePath& ask,
                                    QString& folder, const SaveQuestion& question);

} // namespace vandrel

#include "print/forms/save_question.h"

#include "foundation/dialogue.h"
#include "print/save_name.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSplitter>
#include <QStandardPaths>
#include <QToolButton>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace vandrel {

std::optional<SaveAnswer> askSavePath(QWidget* parent, const SaveQuestion& question) {
    const QFileInfo suggestion(question.suggestion);
    QFileDialog dialog(parent, question.title, suggestion.absolutePath());
    dialog.setObjectName(u"mentes"_s);
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite |
                      QFileDialog::DontUseCustomDirectoryIcons);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setViewMode(QFileDialog::List);
    dialog.setNameFilters(question.filters);
    dialog.selectFile(suggestion.fileName());
    dialog.setLabelText(QFileDialog::LookIn, u"Hely:"_s);
    dialog.setLabelText(QFileDialog::FileName, u"Fájlnév:"_s);
    dialog.setLabelText(QFileDialog::FileType, u"Típus:"_s);
    dialog.setLabelText(QFileDialog::Accept, u"Mentés"_s);
    dialog.setLabelText(QFileDialog::Reject, u"Mégse"_s);
    QList<QUrl> places;
    for (const QString& place :
         {QDir::homePath(), QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
          QDir::rootPath()})
        if (QDir(place).exists() && !places.contains(QUrl::fromLocalFile(place)))
            places << QUrl::fromLocalFile(place);
    dialog.setSidebarUrls(places);
    dialog.resize(820, 480);
    if (auto* splitter = dialog.findChild<QSplitter*>()) splitter->setSizes({170, 650});
    const std::pair<const char*, const char16_t*> tips[] = {{"backButton", u"Vissza"},
                                                            {"forwardButton", u"Előre"},
                                                            {"toParentButton", u"Fölérendelt mappa"},
                                                            {"newFolderButton", u"Új mappa"},
                                                            {"listModeButton", u"Lista"},
                                                            {"detailModeButton", u"Részletek"}};
    for (const auto& [name, tip] : tips)
        if (auto* button = dialog.findChild<QToolButton*>(QLatin1StringView(name))) {
            button->setToolTip(QString::fromUtf16(tip));
            button->setAccessibleName(QString::fromUtf16(tip));
        }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return SaveAnswer{dialog.selectedFiles().constFirst(),
                      static_cast<int>(question.filters.indexOf(dialog.selectedNameFilter()))};
}

std::optional<SaveAnswer> askTarget(QWidget* parent, Dialogue& dialogue, const AskSavePath& ask,
                                    QString& folder, const SaveQuestion& question, const QString& ending) {
    QString start = folder;
    if (start.isEmpty() || !QDir(start).exists())
        start = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QDir(start).exists()) start = QDir::homePath();
    auto answer = ask(parent, {question.title, QDir(start).filePath(question.suggestion), question.filters});
    if (!answer) return std::nullopt;
    answer->path = withEnding(answer->path, ending);
    const QFileInfo file(answer->path);
    if (file.exists() && !dialogue.ask(u"A(z) \"%1\" fájl már létezik. Felülírja?"_s.arg(file.fileName()),
                                       question.title, Icon::warning))
        return std::nullopt;
    folder = file.absolutePath();
    return answer;
}

} // namespace vandrel

#include "print/forms/save_question.h"

#include "foundation/dialogue.h"
#include "print/save_name.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QSplitter>
#include <QStandardPaths>
#include <QToolButton>
#include <QUrl>

#include <algorithm>

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
    // A name that has the ending of one type gets that of the type chosen after it.
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        auto* name = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
        const qsizetype chosen = question.filters.indexOf(filter);
        if (name == nullptr || chosen < 0) return;
        for (const QString& ending : question.endings)
            if (name->text().endsWith(u'.' + ending, Qt::CaseInsensitive)) {
                name->setText(name->text().chopped(ending.size()) + question.endings[chosen]);
                return;
            }
    });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return SaveAnswer{dialog.selectedFiles().constFirst(),
                      static_cast<int>(question.filters.indexOf(dialog.selectedNameFilter()))};
}

std::optional<SaveAnswer> askTarget(QWidget* parent, Dialogue& dialogue, const AskSavePath& ask,
                                    QString& folder, const SaveQuestion& question) {
    QString start = folder;
    if (start.isEmpty() || !QDir(start).exists())
        start = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QDir(start).exists()) start = QDir::homePath();
    auto answer = ask(parent, {question.title, QDir(start).filePath(question.suggestion), question.filters,
                               question.endings});
    if (!answer) return std::nullopt;
    const auto has = [&](const QString& ending) {
        return answer->path.endsWith(u'.' + ending, Qt::CaseInsensitive);
    };
    answer->filter = std::clamp(answer->filter, 0, static_cast<int>(question.endings.size()) - 1);
    if (!has(question.endings[answer->filter]))
        if (const auto typed = std::find_if(question.endings.begin(), question.endings.end(), has);
            typed != question.endings.end())
            answer->filter = static_cast<int>(typed - question.endings.begin());
    answer->path = withEnding(answer->path, question.endings[answer->filter]);
    const QFileInfo file(answer->path);
    if (file.exists() && !dialogue.ask(u"A(z) \"%1\" fájl már létezik. Felülírja?"_s.arg(file.fileName()),
                                       question.title, Icon::warning, Asking::loss))
        return std::nullopt;
    folder = file.absolutePath();
    return answer;
}

} // namespace vandrel

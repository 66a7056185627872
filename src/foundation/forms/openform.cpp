#include "foundation/forms/openform.h"

#include "foundation/forms/field_chain.h"
#include "foundation/forms/form_parts.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

struct Kind {
    const char* fajta;
    const char* files;   // what the file list shows
    bool target;         // of report files
    const char* startIn; // empty: the working folder
};
constexpr Kind kinds[] = {
    {"1", "*.txt", true, ""},
    {"2", "*.txt", true, ""},
    {"3", "*.dbf", false, ""},
    {"4", "osszedata.mdb", false, ""},
    {"5", "ZEKA.mdb", false, "C:\\Program Files\\ZEKA\\Adatok"},
};

const Kind& kindOf(const QString& fajta) {
    for (const Kind& kind : kinds)
        if (fajta == QLatin1StringView(kind.fajta)) return kind;
    return kinds[0];
}

const QString parentFolder = u".."_s;

} // namespace

openform::openform(Workstation& station, QWidget* opener, const QString& fajta, Chosen chosen)
    : WorkForm(station, opener), m_fajta(fajta), m_chosen(std::move(chosen)), m_drives(new QComboBox),
      m_folders(new QListWidget), m_files(new QListWidget), m_path(new QLineEdit) {
    setObjectName(u"openform"_s);
    setWindowTitle(u"Megnyitás"_s);

    named(m_drives, u"Meghajtok"_s, u"Meghajtó"_s);
    named(m_folders, u"Mappak"_s, u"Mappa"_s);
    named(m_files, u"Fajlok"_s, u"Fájlok"_s);
    named(m_path, u"Utvonal"_s, u"Választott elérési út:"_s);
    auto* take = makeButton(u"Megnyit"_s, u"Megnyit"_s);
    auto* leave = makeButton(u"Megse"_s, u"Mégse"_s);
    m_folders->setMinimumSize(300, 240);
    m_files->setMinimumSize(220, 240);
    m_files->setFocusPolicy(Qt::NoFocus); // shown for orientation, nothing is picked from it
    m_files->setSelectionMode(QAbstractItemView::NoSelection);
    m_drives->addItems(readyVolumes());
    for (int i = 0; i < m_drives->count(); ++i)
        m_drives->setItemText(i, QDir::toNativeSeparators(m_drives->itemText(i)));

    auto* grid = new QGridLayout;
    grid->setSpacing(8);
    const auto column = [&](const QString& caption, QWidget* widget, int at) {
        grid->addWidget(makeLabel(caption, widget), 0, at);
    };
    column(u"&Meghajtó:"_s, m_drives, 0);
    column(u"&Fájlok:"_s, m_files, 1);
    grid->addWidget(m_drives, 1, 0);
    grid->addWidget(makeLabel(u"Ma&ppa:"_s, m_folders), 2, 0);
    grid->addWidget(m_folders, 3, 0);
    grid->addWidget(m_files, 1, 1, 3, 1);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    grid->setRowStretch(3, 1);

    auto* pathRow = new QHBoxLayout;
    pathRow->addWidget(makeLabel(u"Választott elérési út:"_s, m_path));
    pathRow->addWidget(m_path, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(take);
    buttons->addWidget(leave);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(18, 16, 18, 14);
    rows->setSpacing(12);
    rows->addLayout(grid, 1);
    rows->addLayout(pathRow);
    rows->addLayout(buttons);

    auto* chain = new FieldChain(this);
    FieldBehaviour path;
    path.key = [this](int key) {
        if (key != Qt::Key_Return) return false;
        this->take();
        return true;
    };
    chain->adopt(m_path, path);
    m_folders->installEventFilter(this);
    QWidget* previous = m_drives;
    for (QWidget* next : std::initializer_list<QWidget*>{m_folders, m_path, take, leave}) {
        setTabOrder(previous, next);
        previous = next;
    }

    connect(m_drives, &QComboBox::activated, this, &openform::driveChosen);
    connect(m_folders, &QListWidget::itemDoubleClicked, this, &openform::folderChosen);
    connect(take, &QPushButton::clicked, this, &openform::take);
    connect(leave, &QPushButton::clicked, this, &openform::close);

    const QString start = QString::fromLatin1(kindOf(m_fajta).startIn);
    goTo(!start.isEmpty() && QFileInfo(start).isDir() ? start : station.folder);
    m_folders->setFocus();
}

bool openform::picksReportTarget(const QString& fajta) {
    return kindOf(fajta).target;
}

void openform::goTo(const QString& folder) {
    const QDir place(QDir(folder).absolutePath());
    if (!place.exists() || !place.isReadable()) return;
    m_folder = place.absolutePath();
    m_path->setText(withoutClosingSeparator(QDir::toNativeSeparators(m_folder)));
    m_folders->clear();
    if (!place.isRoot()) m_folders->addItem(parentFolder);
    m_folders->addItems(place.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase));
    if (m_folders->count() > 0) m_folders->setCurrentRow(0);
    m_files->clear();
    m_files->addItems(place.entryList({QString::fromLatin1(kindOf(m_fajta).files)}, QDir::Files,
                                      QDir::Name | QDir::IgnoreCase));
    // The volume that holds the folder: the longest root that the path begins with.
    int volume = -1;
    qsizetype length = 0;
    for (int i = 0; i < m_drives->count(); ++i) {
        const QString root = withClosingSeparator(m_drives->itemText(i));
        if (withClosingSeparator(QDir::toNativeSeparators(m_folder)).startsWith(root) &&
            root.size() > length) {
            volume = i;
            length = root.size();
        }
    }
    m_drives->setCurrentIndex(volume);
}

void openform::driveChosen(int index) {
    const QString before = m_folder;
    goTo(m_drives->itemText(index)); // a drive that is not ready is ignored
    if (m_folder == before) goTo(before);
}

void openform::folderChosen() {
    const QListWidgetItem* item = m_folders->currentItem();
    if (item == nullptr) return;
    const QDir place(m_folder);
    goTo(item->text() == parentFolder ? QFileInfo(m_folder).absolutePath() : place.filePath(item->text()));
}

void openform::take() {
    const QString typed = m_path->text();
    // Only a folder that is there can be chosen; on a machine without drives "a:" is none.
    if (typed.trimmed().isEmpty() || !QDir::isAbsolutePath(typed) || !QFileInfo(typed).isDir()) {
        station().dialogue.tell(u"Nem található az elérési útvonal!"_s);
        SelectAll(m_path);
        return;
    }
    const QString path = withoutClosingSeparator(QDir::toNativeSeparators(typed));
    if (kindOf(m_fajta).target) station().reportTarget = withClosingSeparator(path);
    if (m_chosen) m_chosen(path, volumeTexts(path));
    close();
}

bool openform::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_folders && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            folderChosen();
            return true;
        }
        if (key == Qt::Key_Backspace) {
            goTo(QFileInfo(m_folder).absolutePath());
            return true;
        }
    }
    return WorkForm::eventFilter(watched, event);
}

} // namespace vandrel

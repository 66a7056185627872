// A list view over lines that are fetched as they come into sight: a register of any size opens at once.
#include "foundation/forms/pick_list_frame.h"
#include "foundation/pick_source.h"

#include <QAbstractListModel>
#include <QCheckBox>
#include <QDateTime>
#include <QKeyEvent>
#include <QListView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

class PickLineModel : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    void setSource(std::unique_ptr<PickSource> source) {
        beginResetModel();
        m_source = std::move(source);
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() || m_source == nullptr ? 0 : m_source->count();
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
        return line(index.row());
    }
    // A fault while a line is painted cannot be shown then and there; the line says so itself.
    QString line(int row) const {
        try {
            return m_source->line(row);
        } catch (const Fault& fault) {
            return fault.text();
        }
    }
    int rowBeginningWith(const QString& text) const {
        try {
            return m_source->rowBeginningWith(text);
        } catch (const Fault&) {
            return -1; // the lines themselves say what is wrong
        }
    }

  private:
    std::unique_ptr<PickSource> m_source;
};

namespace {
constexpr qint64 quickTyping = 1000; // milliseconds between letters of one word
} // namespace

PickListFrame::PickListFrame(QWidget* form)
    : OverlayFrame(form, u"lista_keret"_s, QString()), m_list(new QListView), m_switch(new QCheckBox),
      m_model(new PickLineModel(this)) {
    setPanelSize(820, 520);
    m_list->setObjectName(u"lista"_s);
    m_list->setModel(m_model);
    m_list->setUniformItemSizes(true);
    m_list->setSpacing(2);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_list->installEventFilter(this);
    connect(m_list, &QListView::doubleClicked, this, &PickListFrame::take);
    body()->addWidget(m_list, 1);
    m_switch->setObjectName(u"Alt_eng"_s);
    m_switch->setText(u"Általános engedélyező"_s);
    m_switch->setAccessibleName(m_switch->text());
    m_switch->setChecked(true);
    body()->addWidget(m_switch);
    setKeysHint(u"<Enter> Átvesz     <Esc> Mégsem     a kezdő betűkre ugrik"_s);
}

PickListFrame::~PickListFrame() = default;

QWidget* PickListFrame::list() const {
    return m_list;
}

void PickListFrame::load(Workstation& station, PickMarker marker, const QString& code) {
    const CodeList& list = codeList(marker);
    m_model->setSource(openPickSource(station, marker));
    m_marker = marker;
    m_width = list.width;
    m_typed.clear();
    setTitle(list.title);
    m_list->setAccessibleName(list.title);
    if (m_model->rowCount() > 0) m_list->setCurrentIndex(m_model->index(0));
    if (!code.trimmed().isEmpty()) jump(code.trimmed());
}

void PickListFrame::take(const QModelIndex& index) {
    if (!index.isValid()) return;
    Q_EMIT taken(m_model->line(index.row()).left(m_width));
}

void PickListFrame::jump(const QString& typed) {
    const int row = m_model->rowBeginningWith(typed);
    if (row >= 0) m_list->setCurrentIndex(m_model->index(row));
}

bool PickListFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            take(m_list->currentIndex());
            return true;
        }
        if (key->key() == Qt::Key_Escape) {
            Q_EMIT closeAsked();
            return true;
        }
        const bool plain = !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
        if (plain && !key->text().isEmpty() && key->text()[0].isPrint()) {
            const qint64 now = QDateTime::currentMSecsSinceEpoch();
            if (now - m_typedAt > quickTyping) m_typed.clear();
            m_typedAt = now;
            m_typed += key->text();
            jump(m_typed);
            return true;
        }
    }
    return OverlayFrame::eventFilter(watched, event);
}

} // namespace vandrel

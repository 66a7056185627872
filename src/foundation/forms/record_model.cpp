#include "foundation/forms/record_model.h"

#include "foundation/forms/record_grid.h"

#include <QColor>
#include <QFont>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {
constexpr qsizetype longestMark = 14; // characters of the narrowing's value in a heading
const QColor selectedTint(255, 244, 204);
} // namespace

RecordModel::RecordModel(RecordGrid& grid) : QAbstractTableModel(&grid), m_grid(grid) {}

int RecordModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_grid.list().rows().count());
}

int RecordModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_grid.list().columns().size());
}

QVariant RecordModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole)
        return m_grid.cellText(index.row(), index.column());
    if (role == Qt::BackgroundRole && index.column() == m_grid.selectedColumn()) return selectedTint;
    return {};
}

QString RecordModel::heading(int column) const {
    const RecordList& list = m_grid.list();
    QString text = QString::fromUtf16(list.columns()[static_cast<std::size_t>(column)].heading);
    if (list.sortedColumn() == column)
        text += list.sortDirection() == SortDirection::ascending ? u" ▲"_s : u" ▼"_s;
    const RecordSource& source = list.source();
    if (source.narrowedColumn == list.field(column).name) {
        QString value = source.narrowedBy.simplified();
        if (value.size() > longestMark) value = value.left(longestMark) + u'…';
        text += (source.narrowedByPart ? u" [*%1*]"_s : u" [%1]"_s).arg(value);
    }
    return text;
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return heading(section);
    case Qt::ToolTipRole: {
        const RecordSource& source = m_grid.list().source();
        if (source.narrowedColumn != m_grid.list().field(section).name) return {};
        return u"Szűkítve erre: "_s + source.narrowedBy.left(200).toHtmlEscaped();
    }
    case Qt::FontRole: {
        QFont font = m_grid.font();
        font.setBold(section == m_grid.selectedColumn());
        return font;
    }
    case Qt::ForegroundRole:
        return section == m_grid.selectedColumn() ? QVariant(QColor(192, 0, 0)) : QVariant();
    default:
        return {};
    }
}

void RecordModel::headingsChanged() {
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void RecordModel::rowsChanged() {
    if (rowCount() > 0) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

} // namespace vandrel

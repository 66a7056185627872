// The grid's rows and headings for Qt's table view. A heading says what its column is sorted and narrowed by.
#pragma once

#include <QAbstractTableModel>

namespace vandrel {

class RecordGrid;

class RecordModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit RecordModel(RecordGrid& grid);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void begin() { beginResetModel(); }
    void end() { endResetModel(); }
    void headingsChanged();
    void rowsChanged(); // the same rows, to be read again

  private:
    QString heading(int column) const;

    RecordGrid& m_grid;
};

} // namespace vandrel

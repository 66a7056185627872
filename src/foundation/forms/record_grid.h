// The one grid for tables: a view over a RecordList of any size, with the column that is selected, the right
// button menu that sorts and narrows, and jumping by typing. What a row means is its form's business.
#pragma once

#include "foundation/record_list.h"
#include "foundation/workstation.h"

#include <QTableView>

#include <functional>
#include <optional>

namespace vandrel {

class RecordModel;

class RecordGrid : public QTableView {
    Q_OBJECT

  public:
    // A grid with services has columns that can be selected, the menu and the double click that sorts; one
    // without is a plain list.
    enum class Services { none, sortAndNarrow };
    // What a cell shows instead of its column's text; row has the texts of all columns.
    using CellText = std::function<QString(int column, const QStringList& row)>;
    // The question for the value to narrow by; nullopt: given up.
    using AskText =
        std::function<std::optional<QString>(QWidget* parent, const QString& question, const QString& title)>;

    RecordGrid(Workstation& station, RecordList list, Services services, QWidget* parent = nullptr);
    ~RecordGrid() override;

    const RecordList& list() const { return m_list; }
    void setCellText(CellText text) { m_cellText = std::move(text); }
    void setAskText(AskText ask) { m_ask = std::move(ask); }

    // Runs something that changes the list's rows; the view follows, and the first row is current. A fault
    // passes through; list and view then stay as they were.
    void change(const std::function<void(RecordList&)>& work);
    void setSource(const RecordSource& source) {
        change([&source](RecordList& list) { list.setSource(source); });
    }

    qint64 count() const { return m_list.rows().count(); }
    qint64 position() const { return m_list.rows().position(); } // -1: no row
    // Makes a row the current one and brings it into sight; outside: stays.
    void goTo(qint64 position);
    void goFirst() { goTo(0); }
    void goLast() { goTo(count() - 1); }
    bool goNext();     // false at the end
    bool goPrevious(); // false at the beginning
    // A cell's text as shown; a row that is no longer there says so in its first column.
    QString cellText(qint64 position, int column) const;

    int selectedColumn() const { return m_selectedColumn; } // -1: none, as at opening
    void selectColumn(int column);                          // not QTableView's: rows stay what is selected

    // The menu's commands, by hand or by key.
    void sortBySelected(SortDirection direction);
    void narrowBySelected(NarrowMode mode);

  Q_SIGNALS:
    void positionChanged(qint64 position);
    void rowChosen(qint64 position); // Enter, or a double click where it does not sort
    void narrowed();                 // after a narrowing from the menu, whatever it left
    void showAllAsked();             // "Mindent mutat": the form sets its source

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void layOut();
    void openMenu(const QPoint& globalPlace);
    QPoint placeOfFocus() const;
    void sortWholeTable();
    void guarded(const std::function<void()>& work);
    void jump(const QString& typed);

    Workstation& m_station;
    RecordList m_list;
    Services m_services;
    RecordModel* m_model;
    CellText m_cellText;
    AskText m_ask;
    int m_selectedColumn = -1;
    bool m_changing = false;
    QString m_typed;
    qint64 m_typedAt = 0;
};

} // namespace vandrel

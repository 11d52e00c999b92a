#ifndef QUICKMACROVIEW_H
#define QUICKMACROVIEW_H

#include "quickmacroitem.h"
#include "uicomponents_export.h"

#include <QList>
#include <QStringList>
#include <QTableView>
#include <QVector>

class DataModel;
class DataDelegate;

/// The three-column hit list of the keyboard wizard and the search overlay:
/// tag, code, name; rows 30 pixels high, whole-row single selection, thin
/// overlay scroll bars that show while the mouse is over the list.
///
/// setTableData() shows every hit and fills what is left of 200 rows with
/// group entries. An entry of two strings joins columns 1 and 2 on the row
/// given by its place among the copied group entries (counted from 0, not
/// after the hits), exactly as the clients of this list expect.
class UICOMPONENTS_EXPORT QuickMacroView : public QTableView
{
    Q_OBJECT
public:
    explicit QuickMacroView(QWidget* parent = nullptr);

    void setTableData(const QVector<quickMacroItem*>& items, const QStringList& groupNames,
                      const QList<QList<QStringList>>& groups, bool showKindColumn);

    /// The filling rule of setTableData() for any table view and model pair.
    static void fillTable(QTableView* view, DataModel* model, const QVector<quickMacroItem*>& items,
                          const QStringList& groupNames, const QList<QList<QStringList>>& groups,
                          bool showKindColumn);

    /// Moves VIEW's current row: direction 0 up, 1 down, anything else stays.
    /// Clamped to the last row; above the first row nothing changes. Returns
    /// the index that was aimed at (invalid when nothing moved).
    static QModelIndex stepCurrentRow(QAbstractItemView* view, int nDirection, ScrollHint hint);

private:
    DataModel* m_model = nullptr;
    DataDelegate* m_delegate = nullptr;
};

#endif // QUICKMACROVIEW_H

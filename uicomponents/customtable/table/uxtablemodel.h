#ifndef UXTABLEMODEL_H
#define UXTABLEMODEL_H

#include "uxqtcompat.h"
#include "uxtabledefines.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QHash>
#include <QList>
#include <QMap>
#include <QModelIndex>
#include <QStringList>
#include <QVariant>

#include <vector>

class QTimer;

// Item model of the quote table: one row per instrument (_TableData), one
// column per configured field (_TableHHeaderData). Prices are coloured by
// rise and fall, values carrying 万 / 亿 / % sort numerically, single rows are
// updated in place as quotes arrive, and a changed last price ("Now") gets a
// background tint for about a second.
//
// The tint is deliberately not served through Qt::BackgroundRole; a client
// that wants to paint it reads backgroundColorAt().
//
// Choices of our own:
// - updateRow() finds its row through a hash on (key, code, market), so the
//   cost of an update does not depend on the number of rows. The first row
//   with the triple wins, as a scan from the top would find.
// - sort() parses every row's key once, then sorts the parsed keys; the keys
//   of the numeric field sorted last are kept in step with the rows, so
//   sorting it again only re-parses the rows that changed since.
// - sort() uses a total order. The pairwise rule (conversion follows the left
//   key, null keys neither less nor greater) is not a strict weak order, and
//   std::sort given such a comparison may read past the ends of the list.
//   Numeric keys are ordered by value (a 万/亿 key by its unsigned integer, a
//   plain or % key by its double), which agrees with the pairwise rule
//   wherever that rule is consistent; empty codes, unparsable times and NaN
//   go to the end in both directions; equal keys keep their previous order.
// - sort() for a column equal to columnCount() does nothing.
// - While tinting is disabled, updated rows are not queued for tint clearing:
//   no timer runs then, so the queue would grow without bound.
// - rowCount()/columnCount() answer 0 for a valid parent: a flat table that
//   reports children under every cell is an endless tree to a tree view.
// - dataChanged() never names a row or column the model does not have
//   (updateAllRows() on fewer than three columns, an empty model).
class UxTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit UxTableModel(QObject* parent = nullptr);
    ~UxTableModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    void setHeaderDatas(const QList<_TableHHeaderData>& headers);
    QList<_TableHHeaderData> headerDatas() const;
    void setTableData(const QList<_TableData>& datas);
    QList<_TableData> tableDatas() const;
    void updateRow(const _TableData& row);
    void updateAllRows(const QList<_TableData>& rows);

    void setSortState(const QString& feild, UxHeaderSort state);
    void toggleSortState(int column);
    int sortState(int column) const;

    QStringList visibleCodes(int first, int count) const;

    void setBackgroundColorChangedEnable(bool enable);
    bool backgroundColorChangedEnable() const;
    void setIsPageChanged(bool changed);
    void setSortIndicatorShown(bool shown);

    // The background tint currently recorded for the cell, or an invalid
    // colour when the cell has none. Tints appear when updateRow() sees a new
    // last price and disappear about a second later; both moments are
    // announced with dataChanged(..., {Qt::BackgroundRole}).
    QColor backgroundColorAt(const QModelIndex& index) const;

    // First row equal to ROW (same key, code and market), or -1.
    int findRow(const _TableData& row) const;

    // The numeric sort key of a cell text: qulonglong for 万 and 亿 values,
    // double otherwise (0 when the text is not a number).
    static QVariant toNumber(const QString& text);

private Q_SLOTS:
    void slotClearBgColor();

private:
    struct RowId
    {
        QString key;
        QString code;
        int market;
        bool operator==(const RowId& o) const { return market == o.market && code == o.code && key == o.key; }
    };
    friend UxHashSeed qHash(const RowId& id, UxHashSeed seed)
    {
        UxHashSeed h = qHash(id.code, seed);
        h ^= qHash(id.key, seed) + 0x9e3779b9u + (h << 6) + (h >> 2);
        h ^= qHash(id.market, seed) + 0x9e3779b9u + (h << 6) + (h >> 2);
        return h;
    }

    // A numeric sort key as a pair that orders like the exact value: the
    // largest double not above it, then the integer remainder (non-zero only
    // for 万/亿 keys beyond 2^53).
    struct NumberSortKey
    {
        double hi = 0.0;
        quint64 lo = 0;
        bool isNull = false;
        bool stale = true;
    };

    bool validCell(const QModelIndex& index) const;
    static quint64 cellKey(int row, int column) { return (quint64(quint32(row)) << 32) | quint32(column); }
    void applyOrder(const std::vector<int>& order);
    void sortNumbers(int column, Qt::SortOrder order, std::vector<int>& result);
    void rebuildRowIndex() const;
    int lastPriceColumn() const;

    QList<_TableHHeaderData> m_headers;
    QList<_TableData> m_datas;
    QMap<QString, int> m_sortStates;
    // Tinted cells by (row << 32 | column): a hash, not an ordered map, so a
    // tint costs the same in a table of 1,000 rows as in one of 32,760.
    QHash<quint64, QColor> m_bgColors;
    int m_tintColumnsEnd = 0; // one past the highest column ever tinted
    bool m_bgColorChangeEnabled = false;
    bool m_isPageChanged = false;
    bool m_sortIndicatorShown = true;
    QList<QTimer*> m_timers;
    QList<int> m_pendingRows;
    int m_lastRow = -1;

    // (key, code, market) -> first row holding it; rebuilt lazily after
    // changes that may move or rename rows.
    mutable QHash<RowId, int> m_rowIndex;
    mutable bool m_rowIndexDirty = true;

    // Parsed keys of m_keyFeild, one per row; empty when none are kept.
    QString m_keyFeild;
    std::vector<NumberSortKey> m_keys;
};

#endif // UXTABLEMODEL_H

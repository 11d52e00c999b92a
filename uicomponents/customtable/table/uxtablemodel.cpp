#include "uxtablemodel.h"

#include <QTime>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

const int kTimerCount = 10;
const int kTintMs = 1000;
const QChar kWan(0x4E07); // 万
const QChar kYi(0x4EBF);  // 亿

bool isVolumeField(const QString& f)
{
    return f == QLatin1String("RedVolume") || f == QLatin1String("GreenVolume");
}

bool comparesWithPreClose(const QString& f)
{
    return f == QLatin1String("Open") || f == QLatin1String("High") || f == QLatin1String("Low");
}

inline bool isAsciiDigit(QChar c)
{
    return c.unicode() >= u'0' && c.unicode() <= u'9';
}

// True when TEXT holds digits, a point, digits and UNIT in a row somewhere
// (a unit value needs its decimal point to count).
bool hasDecimalWithUnit(const QString& text, QChar unit)
{
    const QChar* s = text.constData();
    for (int p = text.indexOf(unit); p >= 0; p = text.indexOf(unit, p + 1)) {
        int j = p;
        while (j > 0 && isAsciiDigit(s[j - 1]))
            --j;
        if (j < p && j >= 2 && s[j - 1] == QLatin1Char('.') && isAsciiDigit(s[j - 2]))
            return true;
    }
    return false;
}

// True when some '%' directly follows a digit.
bool hasPercent(const QString& text)
{
    const QChar* s = text.constData();
    for (int p = text.indexOf(QLatin1Char('%')); p >= 0; p = text.indexOf(QLatin1Char('%'), p + 1)) {
        if (p > 0 && isAsciiDigit(s[p - 1]))
            return true;
    }
    return false;
}

// double -> unsigned 64 bits, truncating; negative values wrap as they do
// through a signed conversion, out-of-range values saturate.
qulonglong wrapToULongLong(double v)
{
    if (std::isnan(v))
        return 0;
    if (v >= 18446744073709551616.0)
        return ~0ULL;
    if (v >= 9223372036854775808.0)
        return qulonglong(v);
    if (v <= -9223372036854775808.0)
        return qulonglong(std::numeric_limits<qint64>::min());
    return qulonglong(qint64(v));
}

struct NumberKey
{
    bool unit = false; // true: u holds the key; false: d holds it
    qulonglong u = 0;
    double d = 0.0;
};

NumberKey parseNumber(const QString& text)
{
    NumberKey k;
    if (hasDecimalWithUnit(text, kWan)) {
        k.unit = true;
        k.u = wrapToULongLong(QString(text).remove(kWan).toDouble() * 10000.0);
    } else if (hasDecimalWithUnit(text, kYi)) {
        k.unit = true;
        k.u = wrapToULongLong(QString(text).remove(kYi).toDouble() * 100000000.0);
    } else if (hasPercent(text)) {
        k.d = QString(text).remove(QLatin1Char('%')).toDouble();
    } else {
        k.d = text.toDouble();
    }
    return k;
}

bool allAsciiDigits(const QString& s)
{
    for (QChar c : s) {
        if (!isAsciiDigit(c))
            return false;
    }
    return true;
}

// One row's text or time sort key, parsed once per sort.
struct SortItem
{
    int row = 0;
    int msecs = 0;
    QString text;
    bool digitsOnly = false;
};

enum class KeyFamily { Number, Text, Time };

} // namespace

UxTableModel::UxTableModel(QObject* parent)
    : QAbstractTableModel(parent)
{
    for (int i = 0; i < kTimerCount; ++i) {
        auto* timer = new QTimer(this);
        timer->setSingleShot(true);
        timer->setInterval(kTintMs);
        connect(timer, &QTimer::timeout, this, &UxTableModel::slotClearBgColor);
        m_timers.append(timer);
    }
}

UxTableModel::~UxTableModel() = default;

int UxTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_datas.size();
}

int UxTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_headers.size();
}

bool UxTableModel::validCell(const QModelIndex& index) const
{
    return index.isValid() && index.row() >= 0 && index.row() < m_datas.size() && index.column() >= 0
        && index.column() < m_headers.size();
}

QVariant UxTableModel::data(const QModelIndex& index, int role) const
{
    if (!validCell(index))
        return QVariant();
    const _TableHHeaderData& h = m_headers.at(index.column());
    const _TableData& r = m_datas.at(index.row());

    switch (role) {
    case Qt::DisplayRole: {
        if (h.feild.isEmpty())
            return index.row() + 1;
        if (h.feild == QLatin1String("Code"))
            return r.code;
        if (h.feild == QLatin1String("Name"))
            return r.name;
        const QString v = r.values.value(h.feild);
        if (isVolumeField(h.feild))
            return v.toDouble();
        return v.isEmpty() ? h.defaultValue : v;
    }
    case Qt::TextAlignmentRole:
        return int(h.alignment);
    case Qt::ForegroundRole: {
        if (!h.isChangeColor)
            return QVariant();
        const QString v = r.values.value(h.feild);
        if (v.isEmpty())
            return QVariant();
        if (comparesWithPreClose(h.feild)) {
            const double value = v.toDouble();
            const double preClose = r.values.value(QStringLiteral("PreClose")).toDouble();
            if (value > preClose)
                return h.riseColor;
            if (value < preClose)
                return h.fallColor;
            return QVariant();
        }
        if (h.feild == QLatin1String("DifferRange5Min") && v.startsWith(QLatin1Char('-')))
            return h.fallColor;
        if (r.riseFall == 0)
            return h.riseColor;
        if (r.riseFall == 1)
            return h.fallColor;
        return QVariant();
    }
    default:
        return QVariant();
    }
}

QVariant UxTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section < 0 || section >= m_headers.size())
        return QVariant();
    const _TableHHeaderData& h = m_headers.at(section);
    if (role == Qt::TextAlignmentRole)
        return int(h.alignment);
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QVariant();
    QString text = h.text;
    if (m_sortIndicatorShown) {
        const int state = m_sortStates.value(h.feild, UxSortNone);
        if (state == UxSortAscending)
            text += QChar(0x2191); // ↑
        else if (state == UxSortDescending)
            text += QChar(0x2193); // ↓
    }
    return text;
}

Qt::ItemFlags UxTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool UxTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !validCell(index))
        return false;
    const QString& feild = m_headers.at(index.column()).feild;
    if (feild.isEmpty())
        return true;
    const QString text = value.toString();
    _TableData& r = m_datas[index.row()];
    if (feild == QLatin1String("Code")) {
        if (r.code == text)
            return true;
        r.code = text;
        m_rowIndexDirty = true;
    } else if (feild == QLatin1String("Name")) {
        if (r.name == text)
            return true;
        r.name = text;
    } else {
        QString& stored = r.values[feild];
        if (stored == text)
            return true;
        stored = text;
        if (feild == m_keyFeild && size_t(index.row()) < m_keys.size())
            m_keys[size_t(index.row())].stale = true;
    }
    emit dataChanged(index, index, {Qt::EditRole});
    return true;
}

void UxTableModel::sort(int column, Qt::SortOrder order)
{
    const int rows = m_datas.size();
    if (rows == 0 || column < 0 || column >= m_headers.size())
        return;

    const QString& feild = m_headers.at(column).feild;
    const KeyFamily family = feild == QLatin1String("Time")
        ? KeyFamily::Time
        : ((feild == QLatin1String("Code") || feild == QLatin1String("Name")) ? KeyFamily::Text : KeyFamily::Number);

    // The new order as old row numbers, null keys last.
    std::vector<int> sorted;
    sorted.reserve(static_cast<size_t>(rows));
    if (family == KeyFamily::Number) {
        sortNumbers(column, order, sorted);
    } else {
        // Decorate: every key is parsed exactly once.
        std::vector<SortItem> items;
        items.reserve(static_cast<size_t>(rows));
        std::vector<int> nulls;
        for (int i = 0; i < rows; ++i) {
            const _TableData& r = m_datas.at(i);
            SortItem item;
            item.row = i;
            bool isNull = false;
            if (family == KeyFamily::Time) {
                const QTime t = QTime::fromString(r.values.value(QStringLiteral("Time")), Qt::ISODate);
                isNull = !t.isValid();
                item.msecs = t.msecsSinceStartOfDay();
            } else {
                item.text = r.code;
                isNull = item.text.isEmpty();
                item.digitsOnly = allAsciiDigits(item.text);
            }
            if (isNull)
                nulls.push_back(i);
            else
                items.push_back(std::move(item));
        }

        auto compare = [family](const SortItem& a, const SortItem& b) -> int {
            if (family == KeyFamily::Time)
                return a.msecs < b.msecs ? -1 : (a.msecs > b.msecs ? 1 : 0);
            // Plain digit strings collate in code-unit order in every locale.
            if (a.digitsOnly && b.digitsOnly)
                return a.text.compare(b.text);
            return QString::localeAwareCompare(a.text, b.text);
        };
        if (order == Qt::AscendingOrder) {
            std::stable_sort(items.begin(), items.end(),
                             [&compare](const SortItem& a, const SortItem& b) { return compare(a, b) < 0; });
        } else {
            std::stable_sort(items.begin(), items.end(),
                             [&compare](const SortItem& a, const SortItem& b) { return compare(b, a) < 0; });
        }
        for (const SortItem& item : items)
            sorted.push_back(item.row);
        sorted.insert(sorted.end(), nulls.begin(), nulls.end());
    }

    applyOrder(sorted);
    m_rowIndexDirty = true;

    if (!m_headers.isEmpty())
        emit dataChanged(index(0, 0), index(rows - 1, m_headers.size() - 1));
}

void UxTableModel::sortNumbers(int column, Qt::SortOrder order, std::vector<int>& result)
{
    const QString& feild = m_headers.at(column).feild;
    const size_t rows = static_cast<size_t>(m_datas.size());
    if (m_keyFeild != feild || m_keys.size() != rows) {
        m_keyFeild = feild;
        m_keys.assign(rows, NumberSortKey());
    }

    struct Item
    {
        double hi;
        quint64 lo;
        int row;
    };
    std::vector<Item> items;
    items.reserve(rows);
    std::vector<int> nulls;
    for (size_t i = 0; i < rows; ++i) {
        NumberSortKey& key = m_keys[i];
        if (key.stale) {
            const NumberKey k = parseNumber(m_datas.at(int(i)).values.value(feild));
            key.stale = false;
            key.isNull = !k.unit && std::isnan(k.d);
            if (!k.unit) {
                key.hi = k.d;
                key.lo = 0;
            } else {
                double h = double(k.u);
                if (h >= 18446744073709551616.0 || qulonglong(h) > k.u)
                    h = std::nextafter(h, 0.0);
                key.hi = h;
                key.lo = k.u - qulonglong(h);
            }
        }
        if (key.isNull)
            nulls.push_back(int(i));
        else
            items.push_back(Item{key.hi, key.lo, int(i)});
    }

    // Ties keep their previous order in both directions.
    if (order == Qt::AscendingOrder) {
        std::sort(items.begin(), items.end(), [](const Item& a, const Item& b) {
            if (a.hi != b.hi)
                return a.hi < b.hi;
            return a.lo != b.lo ? a.lo < b.lo : a.row < b.row;
        });
    } else {
        std::sort(items.begin(), items.end(), [](const Item& a, const Item& b) {
            if (a.hi != b.hi)
                return a.hi > b.hi;
            return a.lo != b.lo ? a.lo > b.lo : a.row < b.row;
        });
    }
    for (const Item& item : items)
        result.push_back(item.row);
    result.insert(result.end(), nulls.begin(), nulls.end());
}

void UxTableModel::applyOrder(const std::vector<int>& order)
{
    // Row I takes old row ORDER[I]; cycles are followed with pointer swaps,
    // so no row is copied (unless the list is still shared with a caller).
    std::vector<int> from(order);
    const int rows = int(from.size());
    for (int i = 0; i < rows; ++i) {
        int j = i;
        while (from[size_t(j)] != i) {
            const int next = from[size_t(j)];
            m_datas.swapItemsAt(j, next);
            from[size_t(j)] = j;
            j = next;
        }
        from[size_t(j)] = j;
    }

    if (!m_keys.empty()) {
        std::vector<NumberSortKey> keys;
        keys.reserve(m_keys.size());
        for (int row : order)
            keys.push_back(m_keys[size_t(row)]);
        m_keys.swap(keys);
    }
}

void UxTableModel::setHeaderDatas(const QList<_TableHHeaderData>& headers)
{
    beginResetModel();
    m_headers = headers;
    QMap<QString, int> states;
    for (const _TableHHeaderData& h : headers)
        states.insert(h.feild, m_sortStates.value(h.feild, UxSortNone));
    m_sortStates.swap(states);
    endResetModel();
}

QList<_TableHHeaderData> UxTableModel::headerDatas() const
{
    return m_headers;
}

void UxTableModel::setTableData(const QList<_TableData>& datas)
{
    beginResetModel();
    m_pendingRows.clear();
    m_bgColors.clear();
    m_datas = datas;
    m_rowIndexDirty = true;
    m_keyFeild.clear();
    m_keys.clear();
    endResetModel();
}

QList<_TableData> UxTableModel::tableDatas() const
{
    return m_datas;
}

void UxTableModel::rebuildRowIndex() const
{
    m_rowIndex.clear();
    m_rowIndex.reserve(m_datas.size());
    // Walk backwards so the first row with a triple is the one kept.
    for (int i = m_datas.size() - 1; i >= 0; --i) {
        const _TableData& r = m_datas.at(i);
        m_rowIndex.insert(RowId{r.key, r.code, r.market}, i);
    }
    m_rowIndexDirty = false;
}

int UxTableModel::findRow(const _TableData& row) const
{
    if (m_rowIndexDirty)
        rebuildRowIndex();
    return m_rowIndex.value(RowId{row.key, row.code, row.market}, -1);
}

int UxTableModel::lastPriceColumn() const
{
    for (int c = 3; c < m_headers.size(); ++c) {
        if (m_headers.at(c).feild == QLatin1String("Now"))
            return c;
    }
    return -1;
}

void UxTableModel::updateRow(const _TableData& row)
{
    // The same object always carries its own triple, so the lookup by
    // triple also covers an update with a row taken from this model.
    const int r = findRow(row);
    if (r >= 0) {
        if (m_bgColorChangeEnabled && !m_isPageChanged) {
            const int column = lastPriceColumn();
            const QString now = QStringLiteral("Now");
            if (column >= 0 && row.values.value(now) != m_datas.at(r).values.value(now)) {
                const _TableHHeaderData& h = m_headers.at(column);
                if (row.riseFall == 0 || row.riseFall == 1) {
                    m_bgColors.insert(cellKey(r, column), row.riseFall == 0 ? h.riseBgColor : h.fallBgColor);
                    m_tintColumnsEnd = qMax(m_tintColumnsEnd, column + 1);
                }
            }
        }
        if (m_bgColorChangeEnabled) {
            m_lastRow = r;
            m_pendingRows.append(r);
        }
        m_datas[r] = row;
        if (size_t(r) < m_keys.size())
            m_keys[size_t(r)].stale = true;
        if (!m_headers.isEmpty())
            emit dataChanged(index(r, 0), index(r, m_headers.size() - 1));
    }

    if (m_bgColorChangeEnabled && m_lastRow != -1) {
        m_lastRow = -1;
        for (QTimer* timer : qAsConst(m_timers)) {
            if (!timer->isActive()) {
                timer->start();
                break;
            }
        }
    }
}

void UxTableModel::updateAllRows(const QList<_TableData>& rows)
{
    if (rows.size() != m_datas.size())
        return;
    for (int i = 0; i < rows.size(); ++i) {
        const _TableData& src = rows.at(i);
        _TableData& dst = m_datas[i];
        dst.key = src.key;
        dst.code = src.code;
        dst.name = src.name;
        dst.market = src.market;
    }
    m_rowIndexDirty = true;
    if (!m_datas.isEmpty() && !m_headers.isEmpty())
        emit dataChanged(index(0, 0), index(m_datas.size() - 1, qMin(2, m_headers.size() - 1)));
}

void UxTableModel::setSortState(const QString& feild, UxHeaderSort state)
{
    for (auto it = m_sortStates.begin(); it != m_sortStates.end(); ++it)
        it.value() = UxSortNone;
    m_sortStates.insert(feild, state);
    if (!m_headers.isEmpty())
        emit headerDataChanged(Qt::Horizontal, 0, m_headers.size() - 1);
}

void UxTableModel::toggleSortState(int column)
{
    if (column < 0 || column >= m_headers.size())
        return;
    const QString& feild = m_headers.at(column).feild;
    const int next = m_sortStates.value(feild, UxSortNone) == UxSortAscending ? UxSortDescending : UxSortAscending;
    for (auto it = m_sortStates.begin(); it != m_sortStates.end(); ++it)
        it.value() = UxSortNone;
    m_sortStates.insert(feild, next);
    emit headerDataChanged(Qt::Horizontal, 0, m_headers.size() - 1);
}

int UxTableModel::sortState(int column) const
{
    if (column < 0 || column >= m_headers.size())
        return UxSortNone;
    return m_sortStates.value(m_headers.at(column).feild, UxSortNone);
}

QStringList UxTableModel::visibleCodes(int first, int count) const
{
    QStringList codes;
    if (first < 0 || first >= m_datas.size() || count < 1)
        return codes;
    const int last = int(qMin<qint64>(qint64(first) + count, m_datas.size()));
    codes.reserve(last - first);
    for (int i = first; i < last; ++i) {
        const _TableData& r = m_datas.at(i);
        codes.append(r.code + QLatin1Char('-') + QString::number(r.market));
    }
    return codes;
}

void UxTableModel::setBackgroundColorChangedEnable(bool enable)
{
    m_bgColorChangeEnabled = enable;
}

bool UxTableModel::backgroundColorChangedEnable() const
{
    return m_bgColorChangeEnabled;
}

void UxTableModel::setIsPageChanged(bool changed)
{
    m_isPageChanged = changed;
}

void UxTableModel::setSortIndicatorShown(bool shown)
{
    if (m_sortIndicatorShown == shown)
        return;
    m_sortIndicatorShown = shown;
    if (!m_headers.isEmpty())
        emit headerDataChanged(Qt::Horizontal, 0, m_headers.size() - 1);
}

QVariant UxTableModel::toNumber(const QString& text)
{
    const NumberKey k = parseNumber(text);
    return k.unit ? QVariant::fromValue(k.u) : QVariant(k.d);
}

QColor UxTableModel::backgroundColorAt(const QModelIndex& index) const
{
    if (!validCell(index))
        return QColor();
    return m_bgColors.value(cellKey(index.row(), index.column()));
}

void UxTableModel::slotClearBgColor()
{
    auto* timer = qobject_cast<QTimer*>(sender());
    if (!timer || m_pendingRows.isEmpty())
        return;
    const int row = m_pendingRows.takeFirst();
    for (int c = 0; c < m_tintColumnsEnd && !m_bgColors.isEmpty(); ++c)
        m_bgColors.remove(cellKey(row, c));
    if (row < m_datas.size() && !m_headers.isEmpty())
        emit dataChanged(index(row, 0), index(row, m_headers.size() - 1), {Qt::BackgroundRole});
    if (!m_pendingRows.isEmpty() && !timer->isActive())
        timer->start();
}

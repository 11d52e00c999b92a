// The quote model's sort keys and sort, checked against the plain rules
// written out below: toNumber() must give the same type and value as the
// pattern-by-pattern computation, and sort() must put every pair of rows
// whose order the pairwise comparison decides in that order, lose no row and
// keep rows without a key (empty code, bad time, NaN) out of the way.
//
// Input: byte 0 picks the column ("Code", "Name", "Time" or a number field),
// byte 1 the order, the rest is UTF-8 cell texts separated by newlines.

#include "fuzzcommon.h"
#include "uxtablemodel.h"

#include <QRegularExpression>
#include <QTime>

#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// --- the plain computation ----------------------------------------------------------

bool refULongLong(double v, qulonglong* out)
{
    // Truncation is defined for [0, 2^64) and, through a signed value, for
    // negative values above -2^63; outside that the result is the
    // implementation's own, so it is not compared.
    if (std::isnan(v) || v >= 18446744073709551616.0 || v <= -9223372036854775808.0)
        return false;
    *out = v >= 0 ? qulonglong(v) : qulonglong(qint64(v));
    return true;
}

// Returns false when the value is outside what the rule defines.
bool refToNumber(const QString& text, QVariant* out)
{
    static const QRegularExpression wan(QStringLiteral("(\\d+\\.\\d+)万"));
    static const QRegularExpression yi(QStringLiteral("(\\d+\\.\\d+)亿"));
    static const QRegularExpression percent(QStringLiteral("(\\d+(\\.\\d+)?%)"));
    qulonglong u = 0;
    if (wan.match(text).hasMatch()) {
        if (!refULongLong(QString(text).remove(QStringLiteral("万")).toDouble() * 10000.0, &u))
            return false;
        *out = QVariant::fromValue(u);
    } else if (yi.match(text).hasMatch()) {
        if (!refULongLong(QString(text).remove(QStringLiteral("亿")).toDouble() * 100000000.0, &u))
            return false;
        *out = QVariant::fromValue(u);
    } else if (percent.match(text).hasMatch()) {
        *out = QVariant(QString(text).remove(QLatin1Char('%')).toDouble());
    } else {
        *out = QVariant(text.toDouble());
    }
    return true;
}

QVariant refKey(const _TableData& r, const QString& feild)
{
    if (feild == QLatin1String("Time"))
        return QVariant(QTime::fromString(r.values.value(QStringLiteral("Time")), Qt::ISODate));
    if (feild == QLatin1String("Code") || feild == QLatin1String("Name"))
        return r.code.isEmpty() ? QVariant(QString()) : QVariant(r.code); // an empty code is a null key
    QVariant n;
    if (refToNumber(r.values.value(feild), &n))
        return n;
    return UxTableModel::toNumber(r.values.value(feild)); // outside the rule: the model's own
}

bool refLessThan(const QVariant& left, const QVariant& right)
{
    if (left.isNull() || right.isNull() || !left.isValid())
        return false;
    if (!right.isValid())
        return true;
    switch (int(left.type())) {
    case QMetaType::Int:
        return left.toInt() < right.toInt();
    case QMetaType::UInt:
        return left.toUInt() < right.toUInt();
    case QMetaType::LongLong:
        return left.toLongLong() < right.toLongLong();
    case QMetaType::ULongLong:
        return left.toULongLong() < right.toULongLong();
    case QMetaType::Double:
        return left.toDouble() < right.toDouble();
    case QMetaType::Float:
        return left.toFloat() < right.toFloat();
    case QMetaType::QDateTime:
        return left.toDateTime() < right.toDateTime();
    default:
        return QString::localeAwareCompare(left.toString(), right.toString()) < 0;
    }
}

bool sameNumber(const QVariant& a, const QVariant& b)
{
    if (a.userType() != b.userType())
        return false;
    if (a.userType() == QMetaType::ULongLong)
        return a.toULongLong() == b.toULongLong();
    const double x = a.toDouble();
    const double y = b.toDouble();
    return (std::isnan(x) && std::isnan(y)) || std::memcmp(&x, &y, sizeof x) == 0;
}

QString show(const QVariant& v)
{
    return QStringLiteral("%1(%2)").arg(QString::fromLatin1(v.typeName()), v.toString());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    UxFuzz::init(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    static const char* const kFields[] = {"Code", "Name", "Time", "Now", "RedVolume", "ChangeRate"};
    const QString feild = QString::fromLatin1(kFields[data[0] % 6]);
    const Qt::SortOrder order = data[1] & 1 ? Qt::DescendingOrder : Qt::AscendingOrder;
    const QStringList texts = QString::fromUtf8(reinterpret_cast<const char*>(data + 2), int(size - 2))
                                  .split(QLatin1Char('\n'))
                                  .mid(0, 48);

    // toNumber against the plain rule, for every text.
    for (const QString& t : texts) {
        QVariant expected;
        if (!refToNumber(t, &expected))
            continue;
        const QVariant got = UxTableModel::toNumber(t);
        UxFuzz::check(sameNumber(got, expected), "toNumber",
                      t + QStringLiteral(": ") + show(got) + QStringLiteral(" expected ") + show(expected));
    }

    static UxTableModel* model = new UxTableModel;
    _TableHHeaderData h;
    h.feild = feild;
    _TableHHeaderData code;
    code.feild = QStringLiteral("Code");
    model->setHeaderDatas({code, h});

    QList<_TableData> rows;
    for (int i = 0; i < texts.size(); ++i) {
        _TableData r;
        r.tag = i;
        r.code = texts.at(i);
        r.values.insert(feild, texts.at(i));
        rows.append(r);
    }
    model->setTableData(rows);
    model->sort(1, order);
    const QList<_TableData> sorted = model->tableDatas();

    UxFuzz::check(sorted.size() == rows.size(), "sort changed the row count");
    QVector<int> seen(rows.size(), 0);
    for (const _TableData& r : sorted) {
        UxFuzz::check(r.tag >= 0 && r.tag < rows.size() && ++seen[r.tag] == 1, "sort lost or doubled a row");
        UxFuzz::check(r == rows.at(r.tag), "sort changed a row");
    }

    QVector<QVariant> keys;
    for (const _TableData& r : sorted)
        keys.append(refKey(r, feild));
    auto comp = [order](const QVariant& a, const QVariant& b) {
        return order == Qt::AscendingOrder ? refLessThan(a, b) : refLessThan(b, a);
    };
    for (int i = 0; i < keys.size(); ++i) {
        for (int j = i + 1; j < keys.size(); ++j) {
            const bool ij = comp(keys[i], keys[j]);
            const bool ji = comp(keys[j], keys[i]);
            // Only pairs the comparison decides one way are checked.
            if (ij != ji)
                UxFuzz::check(ij, "sort order", QStringLiteral("row %1 %2 before row %3 %4")
                                                     .arg(i).arg(show(keys[i])).arg(j).arg(show(keys[j])));
        }
    }
    return 0;
}

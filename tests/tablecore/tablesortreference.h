#ifndef TABLESORTREFERENCE_H
#define TABLESORTREFERENCE_H

// The quote table's sort key and comparison written out the plain way: keys
// computed inside every comparison, the conversion chosen by the left key.
// The tests check the model's sort against it.

#include "uxtabledefines.h"

#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QTime>
#include <QVariant>

#include <algorithm>

namespace ref {

inline QVariant toNumber(const QString& text)
{
    static const QRegularExpression wan(QStringLiteral("(\\d+\\.\\d+)万"));
    static const QRegularExpression yi(QStringLiteral("(\\d+\\.\\d+)亿"));
    static const QRegularExpression pct(QStringLiteral("(\\d+(\\.\\d+)?%)"));
    QString t = text;
    if (wan.match(text).hasMatch())
        return QVariant::fromValue(qulonglong(qint64(t.remove(QStringLiteral("万")).toDouble() * 10000.0)));
    if (yi.match(text).hasMatch())
        return QVariant::fromValue(qulonglong(qint64(t.remove(QStringLiteral("亿")).toDouble() * 100000000.0)));
    if (pct.match(text).hasMatch())
        return t.remove(QLatin1Char('%')).toDouble();
    return text.toDouble();
}

inline QVariant key(const _TableData& r, const QString& feild)
{
    if (feild == QLatin1String("Time"))
        return QTime::fromString(r.values.value(QStringLiteral("Time")), Qt::ISODate);
    if (feild == QLatin1String("Code") || feild == QLatin1String("Name"))
        return r.code;
    return toNumber(r.values.value(feild));
}

inline bool lessThan(const QVariant& l, const QVariant& r)
{
    if (l.isNull() || r.isNull() || !l.isValid())
        return false;
    if (!r.isValid())
        return true;
    switch (l.userType()) {
    case QMetaType::Int:
        return l.toInt() < r.toInt();
    case QMetaType::UInt:
        return l.toUInt() < r.toUInt();
    case QMetaType::LongLong:
        return l.toLongLong() < r.toLongLong();
    case QMetaType::ULongLong:
        return l.toULongLong() < r.toULongLong();
    case QMetaType::Double:
        return l.toDouble() < r.toDouble();
    case QMetaType::Float:
        return l.toFloat() < r.toFloat();
    case QMetaType::QDateTime:
        return l.toDateTime() < r.toDateTime();
    default:
        return QString::localeAwareCompare(l.toString(), r.toString()) < 0;
    }
}

inline QList<_TableData> sorted(QList<_TableData> rows, const QString& feild, Qt::SortOrder order)
{
    std::sort(rows.begin(), rows.end(), [&](const _TableData& a, const _TableData& b) {
        return order == Qt::AscendingOrder ? lessThan(key(a, feild), key(b, feild))
                                           : lessThan(key(b, feild), key(a, feild));
    });
    return rows;
}

} // namespace ref

#endif // TABLESORTREFERENCE_H

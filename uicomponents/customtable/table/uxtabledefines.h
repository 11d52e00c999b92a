#ifndef UXTABLEDEFINES_H
#define UXTABLEDEFINES_H

// The quote table's records: one configured column, one instrument row, one
// page or sort request, and the sort mode of a column. All are plain values
// registered with the meta-type system when the library loads.
//
// Each struct carries its short meta-type name ("TableHHeaderData",
// "TableData", "SubPageData") and the underscore name is the alias: Qt 6 names
// a meta-type after the type itself and ignores typedef names, so this is the
// one way QMetaType reports the short names under both Qt majors. Clients keep
// writing _TableData and friends.

#include "uicomponents_export.h"

#include <QColor>
#include <QList>
#include <QMap>
#include <QMetaType>
#include <QString>

/// Sort mode of a column. The header shows "↑" for the first state and "↓"
/// for the second.
enum UxHeaderSort
{
    UxSortNone = 0,
    UxSortAscending = 1,
    UxSortDescending = 2
};

/// One column of the quote table. The misspelt "feild" is part of the
/// interface and of the column files.
struct TableHHeaderData
{
    QString text;
    QString feild;
    bool isShow = true;
    bool isChangeColor = false;
    QColor defaultColor = QColor(Qt::black);
    QColor riseColor = QColor(Qt::black);
    QColor fallColor = QColor(Qt::black);
    QColor suspensionColor = QColor(Qt::black);
    QColor riseBgColor = QColor(QStringLiteral("#FFFFFF"));
    QColor fallBgColor = QColor(QStringLiteral("#FFFFFF"));
    QColor defaultBgColor = QColor(QStringLiteral("#FFFFFF"));
    QString defaultValue = QStringLiteral("--");
    Qt::Alignment alignment = Qt::AlignCenter;

    bool operator==(const TableHHeaderData& o) const
    {
        return text == o.text && feild == o.feild && isShow == o.isShow && isChangeColor == o.isChangeColor
            && defaultColor == o.defaultColor && riseColor == o.riseColor && fallColor == o.fallColor
            && suspensionColor == o.suspensionColor && riseBgColor == o.riseBgColor
            && fallBgColor == o.fallBgColor && defaultBgColor == o.defaultBgColor
            && defaultValue == o.defaultValue && alignment == o.alignment;
    }
    bool operator!=(const TableHHeaderData& o) const { return !(*this == o); }
};

/// One instrument row. riseFall: 0 up, 1 down, anything else neither.
/// values holds every other field's display text keyed by the column's feild.
struct TableData
{
    int tag = 0;
    QString key;
    QString code;
    QString name;
    int market = 0;
    int riseFall = -1;
    QMap<QString, QString> values;

    bool operator==(const TableData& o) const
    {
        return tag == o.tag && key == o.key && code == o.code && name == o.name && market == o.market
            && riseFall == o.riseFall && values == o.values;
    }
    bool operator!=(const TableData& o) const { return !(*this == o); }
};

/// The rows the table asks its owner for: a page while scrolling, or a whole
/// sorted table after a header click.
struct SubPageData
{
    int start = 0;
    int count = 0;
    QString blockId;
    QString sortFeild;
    int sortMode = UxSortNone;

    bool operator==(const SubPageData& o) const
    {
        return start == o.start && count == o.count && blockId == o.blockId && sortFeild == o.sortFeild
            && sortMode == o.sortMode;
    }
    bool operator!=(const SubPageData& o) const { return !(*this == o); }
};

/// The record names of the library's interface.
typedef TableHHeaderData _TableHHeaderData;
typedef TableData _TableData;
typedef SubPageData _SubPageData;

Q_DECLARE_METATYPE(TableHHeaderData)
Q_DECLARE_METATYPE(TableData)
Q_DECLARE_METATYPE(SubPageData)
Q_DECLARE_METATYPE(UxHeaderSort)

#endif // UXTABLEDEFINES_H

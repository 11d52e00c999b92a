#ifndef QUICKMACROITEM_H
#define QUICKMACROITEM_H

#include <QMetaType>
#include <QString>
#include <QStringList>

/// One quick-macro hit. The client owns the records; the quick-macro widgets
/// keep pointers to them and never free them.
///
/// texts: [0] the kind shown in the tag cell, [1] the code, [2] the name,
///        [3] a further search key (pinyin initials, for example), matched
///        like the name. Records with fewer than four texts are skipped by
///        every search.
/// url:   the internal address handed on when the hit is chosen.
struct quickMacroItem
{
    QStringList texts;
    QString url;
};

Q_DECLARE_METATYPE(quickMacroItem)
Q_DECLARE_METATYPE(quickMacroItem*)

#endif // QUICKMACROITEM_H

#ifndef UXMESSAGEDEFINES_H
#define UXMESSAGEDEFINES_H

// The message ticker's record: one notice of the client (alert,
// announcement). Plain value, registered with the meta-type system as
// "Message", the name every signal and slot signature uses. The struct
// carries that name and tagMessage is the alias, because Qt 6 names a
// meta-type after the type itself, never after a typedef.

#include "uicomponents_export.h"

#include <QMetaType>
#include <QString>

struct Message
{
    QString msgId;
    QString msgType;   ///< decimal kind; 1 to 4 pick an attention page
    QString levelText; ///< text twin of level
    int level = 0;     ///< 0 normal, 1 important, 4 urgent, else grey
    QString time;      ///< "yyyy/MM/dd hh:mm:ss"
    QString content;
    QString extra;
};

typedef Message tagMessage;

Q_DECLARE_METATYPE(Message)

#endif // UXMESSAGEDEFINES_H

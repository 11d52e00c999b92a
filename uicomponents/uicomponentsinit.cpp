// Runs when the library is loaded: registers the records that travel in
// QVariant and in queued signals. The compiled-in resources register
// themselves from their own generated source.

#include "quickmacroitem.h"
#include "uxmessagedefines.h"
#include "uxtabledefines.h"

#include <QLineEdit>
#include <QMetaType>
#include <QtGlobal>

static void uicomponentsRegisterTypes()
{
    qRegisterMetaType<_TableHHeaderData>("TableHHeaderData");
    qRegisterMetaType<_TableHHeaderData>("_TableHHeaderData");
    qRegisterMetaType<QList<_TableHHeaderData>>("QList<_TableHHeaderData>");
    qRegisterMetaType<_TableData>("TableData");
    qRegisterMetaType<_TableData>("_TableData");
    qRegisterMetaType<QList<_TableData>>("QList<_TableData>");
    qRegisterMetaType<QList<_TableData>>("QList<TableData>");
    qRegisterMetaType<_SubPageData>("SubPageData");
    qRegisterMetaType<_SubPageData>("_SubPageData");
    qRegisterMetaType<UxHeaderSort>("UxHeaderSort");
    qRegisterMetaType<tagMessage>("Message");
    qRegisterMetaType<tagMessage>("tagMessage");
    qRegisterMetaType<quickMacroItem>("quickMacroItem");
    qRegisterMetaType<quickMacroItem*>("quickMacroItem*");
    qRegisterMetaType<QLineEdit*>("QLineEdit*");
}
Q_CONSTRUCTOR_FUNCTION(uicomponentsRegisterTypes)

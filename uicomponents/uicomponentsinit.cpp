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
    // The records' own names come from their declarations; the underscore and
    // tag names are registered as aliases so that lookups by either succeed.
    qRegisterMetaType<TableHHeaderData>();
    qRegisterMetaType<TableHHeaderData>("_TableHHeaderData");
    qRegisterMetaType<QList<TableHHeaderData>>("QList<_TableHHeaderData>");
    qRegisterMetaType<TableData>();
    qRegisterMetaType<TableData>("_TableData");
    qRegisterMetaType<QList<TableData>>("QList<TableData>");
    qRegisterMetaType<QList<TableData>>("QList<_TableData>");
    qRegisterMetaType<SubPageData>();
    qRegisterMetaType<SubPageData>("_SubPageData");
    qRegisterMetaType<UxHeaderSort>("UxHeaderSort");
    qRegisterMetaType<Message>();
    qRegisterMetaType<Message>("tagMessage");
    qRegisterMetaType<quickMacroItem>("quickMacroItem");
    qRegisterMetaType<quickMacroItem*>("quickMacroItem*");
    qRegisterMetaType<QLineEdit*>("QLineEdit*");
}
Q_CONSTRUCTOR_FUNCTION(uicomponentsRegisterTypes)

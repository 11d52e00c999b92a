#ifndef IUXMEMORY_H
#define IUXMEMORY_H

#include "uxcore_export.h"

#include <QMap>
#include <QString>
#include <QVariant>
#include <QtPlugin>

/// The host's save/restore interface: a widget writes its values under its own
/// keys and reads them back with defaults. When the host calls them is the host's
/// business.
class UXCORE_EXPORT IUxMemory
{
public:
    virtual ~IUxMemory();
    virtual void save(QMap<QString, QVariant>& m) = 0;
    virtual void restore(const QMap<QString, QVariant>& m) = 0;
};

#define IUxMemory_iid "com.uicomponents.uxcore.IUxMemory/1.0"
Q_DECLARE_INTERFACE(IUxMemory, IUxMemory_iid)

#endif // IUXMEMORY_H

#ifndef INVOKERBASE_H
#define INVOKERBASE_H

#include "uxcore_export.h"

#include <QByteArray>
#include <QVector>

class QObject;

/// Calls a method by name through the meta-object system with arguments
/// collected beforehand, each a pair (pointer to the value, meta-type name such
/// as "QString"). The values must outlive invoke(). At most ten arguments.
class UXCORE_EXPORT InvokerBase
{
public:
    InvokerBase();
    ~InvokerBase();

    InvokerBase& addArgument(void* value, const char* typeName);
    InvokerBase& operator<<(const QPair<void*, const char*>& arg);
    int argumentCount() const;

    /// Direct call on the caller's thread. A null target or an unknown method
    /// is logged and nothing is called.
    void invoke(QObject* target, const char* method);

private:
    struct Arg
    {
        void* value;
        QByteArray type;
    };
    QVector<Arg> m_args;
};

#endif // INVOKERBASE_H

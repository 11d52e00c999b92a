#include "invokerbase.h"

#include <QDebug>
#include <QGenericArgument>
#include <QMetaObject>
#include <QObject>

InvokerBase::InvokerBase() = default;
InvokerBase::~InvokerBase() = default;

InvokerBase& InvokerBase::addArgument(void* value, const char* typeName)
{
    m_args.append({value, QByteArray(typeName)});
    return *this;
}

InvokerBase& InvokerBase::operator<<(const QPair<void*, const char*>& arg)
{
    return addArgument(arg.first, arg.second);
}

int InvokerBase::argumentCount() const
{
    return m_args.size();
}

void InvokerBase::invoke(QObject* target, const char* method)
{
    if (!target || !method) {
        qDebug() << Q_FUNC_INFO << "target is null!" << method;
        return;
    }
    if (m_args.size() > 10) {
        qDebug() << Q_FUNC_INFO << "too many arguments:" << m_args.size();
        return;
    }
    QByteArray signature = QByteArray(method) + '(';
    for (int i = 0; i < m_args.size(); ++i)
        signature += (i ? "," : "") + m_args[i].type;
    signature += ')';
    if (target->metaObject()->indexOfMethod(QMetaObject::normalizedSignature(signature.constData())) < 0) {
        qDebug() << Q_FUNC_INFO << "no such method:" << target->metaObject()->className() << signature;
        return;
    }
    QGenericArgument a[10];
    for (int i = 0; i < m_args.size(); ++i)
        a[i] = QGenericArgument(m_args[i].type.constData(), m_args[i].value);
    QMetaObject::invokeMethod(target, method, Qt::DirectConnection, a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7],
                              a[8], a[9]);
}

#include "uxqtcompat.h"

#include <QMetaType>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QStringDecoder>
#include <QStringEncoder>
#else
#include <QTextCodec>
#endif

namespace UxQtCompat {

int metaTypeId(const char* name)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QMetaType::fromName(name).id();
#else
    return QMetaType::type(name);
#endif
}

QByteArray metaTypeName(int id)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QByteArray(QMetaType(id).name());
#else
    return QByteArray(QMetaType::typeName(id));
#endif
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
bool hasGbk()
{
    return QStringEncoder("GBK").isValid();
}

QByteArray toGbk(const QString& text)
{
    QStringEncoder encoder("GBK");
    return encoder.isValid() ? QByteArray(encoder.encode(text)) : QByteArray();
}

QString fromGbk(const QByteArray& bytes)
{
    QStringDecoder decoder("GBK");
    return decoder.isValid() ? QString(decoder.decode(bytes)) : QString();
}

LocaleCodecOverride::LocaleCodecOverride(const char*) {}
LocaleCodecOverride::~LocaleCodecOverride() = default;
#else
bool hasGbk()
{
    return QTextCodec::codecForName("GBK") != nullptr;
}

QByteArray toGbk(const QString& text)
{
    QTextCodec* codec = QTextCodec::codecForName("GBK");
    return codec ? codec->fromUnicode(text) : QByteArray();
}

QString fromGbk(const QByteArray& bytes)
{
    QTextCodec* codec = QTextCodec::codecForName("GBK");
    return codec ? codec->toUnicode(bytes) : QString();
}

LocaleCodecOverride::LocaleCodecOverride(const char* name)
{
    if (QTextCodec* codec = QTextCodec::codecForName(name)) {
        m_previous = QTextCodec::codecForLocale();
        QTextCodec::setCodecForLocale(codec);
    }
}

LocaleCodecOverride::~LocaleCodecOverride()
{
    if (m_previous)
        QTextCodec::setCodecForLocale(static_cast<QTextCodec*>(m_previous));
}
#endif

} // namespace UxQtCompat

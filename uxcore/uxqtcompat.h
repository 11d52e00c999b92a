#ifndef UXQTCOMPAT_H
#define UXQTCOMPAT_H

// The few places where Qt 5.15 and Qt 6 differ in source, held in one header
// so that no widget needs a version check of its own. Everything else in the
// tree uses calls both majors share. It sits in uxcore because uxcore needs
// the event positions too, and it is public because exported widget headers
// name the override types below.

#include "uxcore_export.h"

#include <QByteArray>
#include <QDate>
#include <QEvent>
#include <QMouseEvent>
#include <QString>
#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
using UxEnterEvent = QEnterEvent; // QWidget::enterEvent(QEnterEvent*)
using UxCellDate = QDate;         // QCalendarWidget::paintCell takes the date by value
using UxHashSeed = size_t;        // qHash(key, seed) and its result
#else
using UxEnterEvent = QEvent;
using UxCellDate = const QDate&;
using UxHashSeed = uint;
#endif

namespace UxQtCompat {

/// Mouse and hover positions as whole pixels.
inline QPoint pos(const QMouseEvent* e)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return e->position().toPoint();
#else
    return e->pos();
#endif
}

inline QPoint globalPos(const QMouseEvent* e)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return e->globalPosition().toPoint();
#else
    return e->globalPos();
#endif
}

inline QPoint pos(const QHoverEvent* e)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return e->position().toPoint();
#else
    return e->pos();
#endif
}

/// A copy of E of the same type and buttons at the widget position LOCAL
/// (window and screen positions kept), for forwarding to another widget.
inline QMouseEvent remapped(const QMouseEvent* e, const QPoint& local)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QMouseEvent(e->type(), QPointF(local), e->scenePosition(), e->globalPosition(), e->button(),
                       e->buttons(), e->modifiers(), e->source(), e->pointingDevice());
#else
    return QMouseEvent(e->type(), QPointF(local), e->windowPos(), e->screenPos(), e->button(), e->buttons(),
                       e->modifiers(), e->source());
#endif
}

/// The id a meta-type was registered under NAME, 0 when there is none, and
/// the name of the type ID.
UXCORE_EXPORT int metaTypeId(const char* name);
UXCORE_EXPORT QByteArray metaTypeName(int id);

/// GBK text, for hosts that hand the library 8-bit Chinese text: Qt 5 through
/// QTextCodec, Qt 6 through QStringConverter's ICU back end (Qt 6's core has
/// no QTextCodec). hasGbk() is false where the Qt build has neither.
UXCORE_EXPORT bool hasGbk();
UXCORE_EXPORT QByteArray toGbk(const QString& text);
UXCORE_EXPORT QString fromGbk(const QByteArray& bytes);

/// Sets the codec QString::fromLocal8Bit uses to NAME (Qt 5) for the life of
/// the object and restores the previous one afterwards. Qt 6 has no settable
/// locale codec: active() is then false and nothing changes.
class UXCORE_EXPORT LocaleCodecOverride
{
public:
    explicit LocaleCodecOverride(const char* name);
    ~LocaleCodecOverride();
    LocaleCodecOverride(const LocaleCodecOverride&) = delete;
    LocaleCodecOverride& operator=(const LocaleCodecOverride&) = delete;
    bool active() const { return m_previous != nullptr; }

private:
    void* m_previous = nullptr;
};

} // namespace UxQtCompat

#endif // UXQTCOMPAT_H

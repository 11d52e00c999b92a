#include "qcustomstyle.h"

QCustomStyle::QCustomStyle(QObject* parent)
    : QProxyStyle()
{
    setParent(parent);
}

void QCustomStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const
{
    if (element == QStyle::PE_FrameFocusRect)
        return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

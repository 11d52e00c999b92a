#ifndef QCUSTOMSTYLE_H
#define QCUSTOMSTYLE_H

#include <QProxyStyle>

// The calendar's style: the application style without focus rectangles, so a
// clicked day cell shows only its painted selection.
class QCustomStyle : public QProxyStyle
{
    Q_OBJECT
public:
    explicit QCustomStyle(QObject* parent = nullptr);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
};

#endif // QCUSTOMSTYLE_H

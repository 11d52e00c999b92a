#include "uxbaseshadowwidget.h"
#include "uxscaledpixmap.h"

#include <QDebug>
#include <QPainter>
#include <QPixmap>

namespace {

// Shared by drawFrame() and paintEvent(): a plain function, so that the
// widget's own painting never goes through the virtual drawFrame().
void paintShadowFrame(QPainter* painter, const QRect& rect, int b)
{
    const int w = rect.width();
    const int h = rect.height();
    painter->setRenderHint(QPainter::Antialiasing);

    const QRect topLeft(0, 0, b, b);
    const QRect topRight(w - b, 0, b, b);
    const QRect bottomLeft(0, h - b, b, b);
    const QRect bottomRight(w - b, h - b, b, b);
    const QRect top(b, 0, w - 2 * b, b);
    const QRect bottom(b, h - b, w - 2 * b, b);
    const QRect left(0, b, b, h - 2 * b);
    const QRect right(w - b, b, b, h - 2 * b);

    // Loaded on every paint: the host may swap the images with the skin.
    const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
    const auto piece = [ratio](const char* name) { return UxScaledPixmap::load(QLatin1String(name), ratio); };
    painter->drawPixmap(topLeft, piece(":/bg/shadow_top_left.png"));
    painter->drawPixmap(left, piece(":/bg/shadow_left.png"));
    painter->drawPixmap(bottomLeft, piece(":/bg/shadow_bottom_left.png"));
    painter->drawPixmap(top, piece(":/bg/shadow_top.png"));
    painter->drawPixmap(bottom, piece(":/bg/shadow_bottom.png"));
    painter->drawPixmap(right, piece(":/bg/shadow_right.png"));
    painter->drawPixmap(topRight, piece(":/bg/shadow_top_right.png"));
    painter->drawPixmap(bottomRight, piece(":/bg/shadow_bottom_right.png"));

    painter->setBrush(QBrush(QColor(QStringLiteral("#ffffff"))));
    painter->setPen(Qt::NoPen);
    painter->drawRoundedRect(rect.adjusted(b, b, -b, -b), 1, 1, Qt::RelativeSize);
}

} // namespace

UxBaseShadowWidget::UxBaseShadowWidget(QWidget* parent)
    : QFrame(parent, Qt::WindowFlags())
    , m_windowBorderWidth(8)
{
    setWindowFlags(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground, true);
}

UxBaseShadowWidget::~UxBaseShadowWidget() = default;

void UxBaseShadowWidget::setWindowBorderWidth(int width)
{
    const int limit = 16384;
    if (width > limit || width < -limit) {
        qDebug() << Q_FUNC_INFO << "border width out of range!" << width;
        width = qBound(-limit, width, limit);
    }
    if (width == m_windowBorderWidth)
        return;
    m_windowBorderWidth = width;
    update();
}

void UxBaseShadowWidget::drawFrame(QPainter* painter)
{
    if (!painter) {
        qDebug() << Q_FUNC_INFO << "painter is null!";
        return;
    }
    paintShadowFrame(painter, rect(), m_windowBorderWidth);
}

void UxBaseShadowWidget::paintEvent(QPaintEvent* event)
{
    // QWidget's handler, not QFrame's: no frame of QFrame's own is drawn.
    QWidget::paintEvent(event);
    QPainter painter(this);
    paintShadowFrame(&painter, rect(), m_windowBorderWidth);
}

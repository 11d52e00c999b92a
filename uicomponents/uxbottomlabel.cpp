#include "uxbottomlabel.h"

#include "uxapplication.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QResizeEvent>

UxBottomLabel::UxBottomLabel(const tagMessage& msg, QWidget* parent)
    : QLabel(parent)
    , m_msgColor(QStringLiteral("#ffffff"))
    , m_fullText(msg.time + msg.content)
    , m_msg(msg)
    , m_pressed(false)
{
    setLabelData(msg);
    setMinimumWidth(200);
}

UxBottomLabel::~UxBottomLabel() = default;

void UxBottomLabel::setLabelData(const Message& msg)
{
    m_msg = msg;
    // The first two space-separated parts keep "yyyy/MM/dd hh:mm:ss" whole.
    m_fullText = msg.time.section(QLatin1Char(' '), 0, 1) + QLatin1Char(' ') + msg.content;

    int limit = -1;
    if (QWidget* mainWindow = UxApplication::uxmainWindow())
        limit = mainWindow->width() / 2;
    else if (QWidget* parent = parentWidget())
        limit = parent->width() / 2;

    QString shown = m_fullText;
    const QFontMetrics fm(font());
    if (limit >= 0 && fm.horizontalAdvance(m_fullText) >= limit)
        shown = fm.elidedText(m_fullText, Qt::ElideRight, limit);
    setText(shown);
    update();
}

void UxBottomLabel::setMsgColor(const QColor& color)
{
    if (color == m_msgColor)
        return;
    m_msgColor = color;
    update();
}

bool UxBottomLabel::event(QEvent* e)
{
    if (e->type() == QEvent::ToolTip)
        setToolTip(m_fullText);
    return QLabel::event(e);
}

void UxBottomLabel::enterEvent(UxEnterEvent* e)
{
    setCursor(Qt::PointingHandCursor);
    emit signalHovered(true);
    QLabel::enterEvent(e);
}

void UxBottomLabel::leaveEvent(QEvent* e)
{
    emit signalHovered(false);
    QLabel::leaveEvent(e);
}

void UxBottomLabel::mousePressEvent(QMouseEvent* e)
{
    m_pressed = true;
    QLabel::mousePressEvent(e);
}

void UxBottomLabel::mouseReleaseEvent(QMouseEvent* e)
{
    if (m_pressed) {
        m_pressed = false;
        // The click may open a page that deletes the status bar, and this
        // line with it: touch nothing of ours afterwards.
        QPointer<UxBottomLabel> alive(this);
        emit signalClicked(tagMessage(m_msg));
        if (!alive)
            return;
    }
    // Handed to the press handler on purpose: the label keeps no release logic.
    QLabel::mousePressEvent(e);
}

void UxBottomLabel::paintEvent(QPaintEvent* e)
{
    Q_UNUSED(e)
    QPainter painter(this);
    painter.setPen(m_msgColor);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, text());
}

void UxBottomLabel::resizeEvent(QResizeEvent* e)
{
    QLabel::resizeEvent(e);
    if (e->size().isValid())
        setLabelData(m_msg);
}

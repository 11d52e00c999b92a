#include "uxnewindentlabel.h"
#include "uxnewindentlabel_p.h"

#include <QDebug>
#include <QFontMetrics>
#include <QPainter>
#include <QResizeEvent>
#include <QTextOption>

namespace {
// No screen shows more spaces than this; a larger indent would only make the
// text allocation fail.
const int kMaxIndent = 16384;

QLabel* makeLinkLabel(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QStringLiteral("linkLabel"));
    return label;
}
} // namespace

UxNewIndentLabelPrivate::UxNewIndentLabelPrivate(UxNewIndentLabel* q)
    : q_ptr(q)
    , m_linkLabel(makeLinkLabel(q))
{
}

UxNewIndentLabel::UxNewIndentLabel(QWidget* parent)
    : QLabel(parent)
    , d_ptr(new UxNewIndentLabelPrivate(this))
{
}

UxNewIndentLabel::~UxNewIndentLabel() = default;

void UxNewIndentLabel::setMsg(const QString& msg)
{
    Q_D(UxNewIndentLabel);
    d->m_msg = msg;
    setTextIndent(d->m_indent);
}

void UxNewIndentLabel::setTextIndent(int n)
{
    Q_D(UxNewIndentLabel);
    if (n > kMaxIndent) {
        qDebug() << Q_FUNC_INFO << "indent too large!" << n;
        n = kMaxIndent;
    }
    d->m_indent = n < 0 ? 0 : n;
    d->m_text = QString(d->m_indent, QLatin1Char(' ')) + d->m_msg.simplified();
}

void UxNewIndentLabel::setLink(const QString& text)
{
    Q_D(UxNewIndentLabel);
    if (!d->m_linkLabel)
        d->m_linkLabel = makeLinkLabel(this);
    d->m_linkLabel->setText(text);
    d->m_linkLabel->adjustSize();
    d->m_linkLabel->setOpenExternalLinks(true);
}

void UxNewIndentLabel::showLinkTextVisible(bool visible)
{
    Q_D(UxNewIndentLabel);
    d->m_showLinkText = visible;
}

QLabel* UxNewIndentLabel::linkLabel()
{
    Q_D(UxNewIndentLabel);
    if (!d->m_linkLabel)
        d->m_linkLabel = makeLinkLabel(this);
    return d->m_linkLabel;
}

// Cuts the next line off TEXT: the longest prefix no wider than WIDTH (at
// least the whole text when no shorter prefix reaches the width).
QString UxNewIndentLabel::getTextOfSpecifiedWidth(QString& text, int width)
{
    if (text.isEmpty())
        return QString();
    const QFontMetrics fm(font());
    for (int i = 1; i < text.length(); ++i) {
        const QString prefix = text.left(i);
        const int w = fm.horizontalAdvance(prefix);
        if (w > width) {
            text.remove(0, i - 1);
            return prefix.left(i - 1);
        }
        if (w == width) {
            text.remove(0, i);
            return prefix;
        }
    }
    const QString all = text;
    text.clear();
    return all;
}

void UxNewIndentLabel::paintEvent(QPaintEvent* e)
{
    Q_UNUSED(e)
    Q_D(UxNewIndentLabel);
    if (d->m_msg.isEmpty())
        return;

    QPainter painter(this);
    QString rest = d->m_text;
    const int lineHeight = d->m_lineSpacing;
    const int linkWidth = d->m_linkLabel ? d->m_linkLabel->width() : 0;
    auto setLinkVisible = [d](bool visible) {
        if (d->m_linkLabel)
            d->m_linkLabel->setVisible(visible);
    };

    int k = 0;
    while (k < d->m_lineCount - 1) {
        const QString line = getTextOfSpecifiedWidth(rest, d->m_width);
        painter.drawText(QRectF(0, lineHeight * k, d->m_width, lineHeight), line, QTextOption());
        if (rest.isEmpty()) {
            setLinkVisible(d->m_showLinkText);
            break;
        }
        ++k;
    }

    if (rest.isEmpty())
        return;
    const QFontMetrics fm(font());
    const int w = fm.horizontalAdvance(rest);
    if (w > d->m_width) {
        setLinkVisible(true);
        const int room = d->m_width - linkWidth;
        painter.drawText(QRectF(0, lineHeight * k, room, lineHeight), fm.elidedText(rest, Qt::ElideRight, room),
                         QTextOption());
    } else {
        setLinkVisible(d->m_showLinkText);
        painter.drawText(QRectF(0, lineHeight * k, w, lineHeight), rest, QTextOption());
    }
}

void UxNewIndentLabel::resizeEvent(QResizeEvent* e)
{
    QLabel::resizeEvent(e);
    if (!e->size().isValid())
        return;
    Q_D(UxNewIndentLabel);
    d->m_width = rect().width();
    d->m_height = rect().height();
    d->m_lineSpacing = QFontMetrics(font()).lineSpacing();
    if (d->m_lineSpacing == 0)
        return;
    d->m_lineCount = d->m_height / d->m_lineSpacing;
    if (d->m_linkLabel) {
        d->m_linkLabel->setFixedHeight(d->m_lineSpacing);
        d->m_linkLabel->move(d->m_width - d->m_linkLabel->width(), (d->m_lineCount - 1) * d->m_lineSpacing - 2);
    }
}

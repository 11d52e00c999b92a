#include "uxtabledelegate.h"

#include <QPainter>
#include <QStyle>
#include <QTableView>

UxTableDelegate::UxTableDelegate(QTableView* view)
    : QItemDelegate(nullptr)
{
    if (!view)
        return;
    m_view = view;
    const QStyleOptionViewItem opt;
    const QColor gridColor(
        static_cast<QRgb>(view->style()->styleHint(QStyle::SH_Table_GridLineColor, &opt, view)));
    m_gridPen = QPen(QBrush(gridColor, Qt::SolidPattern), 0, view->gridStyle(), Qt::SquareCap, Qt::BevelJoin);
}

UxTableDelegate::~UxTableDelegate() = default;

void UxTableDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem opt(option);
    const QVariant foreground = index.data(Qt::ForegroundRole);
    if (foreground.isValid()) {
        // A variant that does not convert gives an invalid colour.
        const QColor color = foreground.value<QColor>();
        opt.palette.setBrush(QPalette::All, QPalette::HighlightedText, QBrush(color, Qt::SolidPattern));
    }
    QItemDelegate::paint(painter, opt, index);

    if (!m_view)
        return;
    const QColor ruleColor = m_view->palette().brush(QPalette::AlternateBase).color();
    const QPen rule(QBrush(ruleColor, Qt::SolidPattern), 0, m_view->gridStyle(), Qt::SquareCap, Qt::BevelJoin);
    const QPen saved = painter->pen();
    painter->setPen(rule);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->setPen(saved);
}

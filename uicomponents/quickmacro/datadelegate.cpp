#include "datadelegate.h"

#include <QPainter>

DataDelegate::DataDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

void DataDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem opt(option);
    opt.state &= ~QStyle::State_HasFocus;
    QStyledItemDelegate::paint(painter, opt, index);
    if (index.column() != 0)
        return;

    const bool selected = option.state & QStyle::State_Selected;
    const QRect r = option.rect;

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    if (selected) {
        const QColor fill(76, 159, 255, 255);
        painter->setPen(fill);
        painter->setBrush(fill);
    } else {
        painter->setPen(QColor(160, 180, 216, 255));
        painter->setBrush(QColor(0, 0, 0, 0));
    }
    painter->drawRoundedRect(QRectF(r.x() + 10, r.y() + 5, r.width() - 20, r.height() - 10), 2.0, 2.0,
                             Qt::AbsoluteSize);
    painter->restore();

    painter->save();
    const QVariant font = index.data(Qt::FontRole);
    painter->setFont(font.userType() == QMetaType::QFont ? font.value<QFont>() : QFont());
    if (selected)
        painter->setPen(QColor(255, 255, 255, 255));
    painter->drawText(r.adjusted(15, 0, 0, 0), index.data(Qt::TextAlignmentRole).toInt(),
                      index.data(Qt::UserRole).toString());
    painter->restore();
}

#ifndef DATADELEGATE_H
#define DATADELEGATE_H

#include "uicomponents_export.h"

#include <QStyledItemDelegate>

/// Paints the quick-macro list: no focus frame in any cell, and in column 0 a
/// rounded tag holding the row's kind (Qt::UserRole) — outlined when the row
/// is not selected, filled blue with white text when it is.
class UICOMPONENTS_EXPORT DataDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit DataDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

#endif // DATADELEGATE_H

#ifndef NOFOCUSDELEGATE_H
#define NOFOCUSDELEGATE_H

#include <QStyledItemDelegate>

// Paints items without the focus frame: in multi-selection lists the frame
// around the current item reads as one more selected row.
class NoFocusDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit NoFocusDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

#endif // NOFOCUSDELEGATE_H

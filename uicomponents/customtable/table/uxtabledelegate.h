#ifndef UXTABLEDELEGATE_H
#define UXTABLEDELEGATE_H

#include <QItemDelegate>
#include <QPen>

class QTableView;

// Paints the quote table's cells: a selected cell keeps the rise/fall colour
// its model gives (instead of the highlighted-text colour), and every cell
// gets a rule along its bottom edge in the view's alternate-base colour, so
// rows are separated and columns are not.
//
// The delegate has no parent object; whoever creates it deletes it (the
// table view schedules it for deletion with itself). A null view leaves the
// delegate without a view: it then paints no rules.
class UxTableDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    explicit UxTableDelegate(QTableView* view);
    ~UxTableDelegate() override;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QPen m_gridPen;
    QTableView* m_view = nullptr;
};

#endif // UXTABLEDELEGATE_H

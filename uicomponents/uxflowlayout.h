#ifndef UXFLOWLAYOUT_H
#define UXFLOWLAYOUT_H

#include "uicomponents_export.h"

#include <QLayout>
#include <QList>
#include <QRect>
#include <QStyle>

/// Places its items left to right at their size hints and starts a new row when
/// the next item would pass the right edge; the height follows the width.
///
/// A negative spacing takes the parent's spacing (a widget's style metric or a
/// parent layout's spacing), and with no parent the item widget's own
/// push-button spacing. Items without a widget (spacers, nested layouts) have no
/// style to ask: they get no extra spacing instead.
class UICOMPONENTS_EXPORT UxFlowLayout : public QLayout
{
    Q_OBJECT
public:
    explicit UxFlowLayout(QWidget* parent, int margin = -1, int hSpacing = -1, int vSpacing = -1);
    explicit UxFlowLayout(int margin = -1, int hSpacing = -1, int vSpacing = -1);
    ~UxFlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int horizontalSpacing() const;
    int verticalSpacing() const;
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;
    QSize sizeHint() const override;
    QLayoutItem* takeAt(int index) override;

private:
    int doLayout(const QRect& rect, bool testOnly) const;
    int smartSpacing(QStyle::PixelMetric pm) const;
    int itemSpacing(QLayoutItem* item, QStyle::PixelMetric pm, Qt::Orientation orientation) const;

    QList<QLayoutItem*> m_itemList;
    int m_hSpace;
    int m_vSpace;
};

#endif // UXFLOWLAYOUT_H

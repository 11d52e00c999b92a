#include "uxflowlayout.h"

#include <QWidget>

UxFlowLayout::UxFlowLayout(QWidget* parent, int margin, int hSpacing, int vSpacing)
    : QLayout(parent)
    , m_hSpace(hSpacing)
    , m_vSpace(vSpacing)
{
    setContentsMargins(margin, margin, margin, margin);
}

UxFlowLayout::UxFlowLayout(int margin, int hSpacing, int vSpacing)
    : m_hSpace(hSpacing)
    , m_vSpace(vSpacing)
{
    setContentsMargins(margin, margin, margin, margin);
}

UxFlowLayout::~UxFlowLayout()
{
    while (QLayoutItem* item = takeAt(0))
        delete item;
}

void UxFlowLayout::addItem(QLayoutItem* item)
{
    if (!item)
        return;
    m_itemList.append(item);
}

int UxFlowLayout::horizontalSpacing() const
{
    if (m_hSpace >= 0)
        return m_hSpace;
    return smartSpacing(QStyle::PM_LayoutHorizontalSpacing);
}

int UxFlowLayout::verticalSpacing() const
{
    if (m_vSpace >= 0)
        return m_vSpace;
    return smartSpacing(QStyle::PM_LayoutVerticalSpacing);
}

int UxFlowLayout::count() const
{
    return m_itemList.size();
}

QLayoutItem* UxFlowLayout::itemAt(int index) const
{
    return m_itemList.value(index);
}

QLayoutItem* UxFlowLayout::takeAt(int index)
{
    if (index < 0 || index >= m_itemList.size())
        return nullptr;
    return m_itemList.takeAt(index);
}

Qt::Orientations UxFlowLayout::expandingDirections() const
{
    // Clients size their pop-ups around this; an empty set would change that.
    return Qt::Horizontal;
}

bool UxFlowLayout::hasHeightForWidth() const
{
    return true;
}

int UxFlowLayout::heightForWidth(int width) const
{
    return doLayout(QRect(0, 0, width, 0), true);
}

void UxFlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    doLayout(rect, false);
}

QSize UxFlowLayout::sizeHint() const
{
    return minimumSize();
}

QSize UxFlowLayout::minimumSize() const
{
    QSize size;
    for (QLayoutItem* item : m_itemList)
        size = size.expandedTo(item->minimumSize());
    const QMargins m = contentsMargins();
    size += QSize(m.left() + m.right(), m.top() + m.bottom());
    return size;
}

int UxFlowLayout::smartSpacing(QStyle::PixelMetric pm) const
{
    QObject* parent = this->parent();
    if (!parent)
        return -1;
    if (parent->isWidgetType()) {
        auto* pw = static_cast<QWidget*>(parent);
        return pw->style()->pixelMetric(pm, nullptr, pw);
    }
    return static_cast<QLayout*>(parent)->spacing();
}

int UxFlowLayout::itemSpacing(QLayoutItem* item, QStyle::PixelMetric pm, Qt::Orientation orientation) const
{
    const int stored = orientation == Qt::Horizontal ? m_hSpace : m_vSpace;
    if (stored >= 0)
        return stored;
    const int smart = smartSpacing(pm);
    if (smart != -1)
        return smart;
    QWidget* w = item->widget();
    if (!w)
        return 0;
    return w->style()->layoutSpacing(QSizePolicy::PushButton, QSizePolicy::PushButton, orientation);
}

int UxFlowLayout::doLayout(const QRect& rect, bool testOnly) const
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    getContentsMargins(&left, &top, &right, &bottom);
    const QRect effective = rect.adjusted(left, top, -right, -bottom);
    int x = effective.x();
    int y = effective.y();
    int lineHeight = 0;

    for (QLayoutItem* item : m_itemList) {
        const int spaceX = itemSpacing(item, QStyle::PM_LayoutHorizontalSpacing, Qt::Horizontal);
        const int spaceY = itemSpacing(item, QStyle::PM_LayoutVerticalSpacing, Qt::Vertical);
        const QSize hint = item->sizeHint();
        int nextX = x + hint.width() + spaceX;
        // An item wider than the row stays alone on it rather than wrapping forever.
        if (nextX - spaceX > effective.right() && lineHeight > 0) {
            x = effective.x();
            y = y + lineHeight + spaceY;
            nextX = x + hint.width() + spaceX;
            lineHeight = 0;
        }
        if (!testOnly)
            item->setGeometry(QRect(QPoint(x, y), hint));
        x = nextX;
        lineHeight = qMax(lineHeight, hint.height());
    }
    return y + lineHeight - rect.y() + bottom;
}

#include "quotespage.h"

#include "marketsimulator.h"

#include <uicomponents/quickmacroitem.h>
#include <uicomponents/uxcustomtablewidget.h>
#include <uicomponents/uxquickmacrosearchwidget.h>
#include <uxcore/uxcore.h>

#include <QApplication>
#include <QKeyEvent>

#include <QPainter>
#include <QPointer>
#include <QStatusBar>
#include <QTableView>
#include <QVBoxLayout>

namespace {

// Paints the change tint the table records for a moved last price, then lets
// the table's own delegate paint the cell over it.
class TintDelegate : public QAbstractItemDelegate
{
public:
    TintDelegate(UxCustomTableWidget* table, QAbstractItemDelegate* base, QObject* parent)
        : QAbstractItemDelegate(parent)
        , m_table(table)
        , m_base(base)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QColor tint = m_table ? m_table->backgroundColorAt(index.row(), index.column()) : QColor();
        if (tint.isValid())
            painter->fillRect(option.rect, QuotesPage::tintForSkin(tint, UxCore::instance()->getCurrentSkinId()));
        if (m_base)
            m_base->paint(painter, option, index);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return m_base ? m_base->sizeHint(option, index) : QSize();
    }

private:
    QPointer<UxCustomTableWidget> m_table;
    QPointer<QAbstractItemDelegate> m_base;
};

} // namespace

QColor QuotesPage::tintForSkin(const QColor& tint, const QString& skinId)
{
    if (skinId != QLatin1String("dark") && skinId != QLatin1String("black"))
        return tint;
    // The column file's pastel tints suit a white table; on a near-black one
    // they glare and wash out the red and green prices. Keep the hue, drop
    // the brightness so the price stays the brightest thing in the cell.
    const auto hue = tint.hsvHueF();
    return QColor::fromHsvF(hue < 0 ? 0 : hue, 0.75, 0.2);
}

QuotesPage::QuotesPage(MarketSimulator* market, QStatusBar* status, QWidget* parent)
    : QWidget(parent)
    , m_market(market)
    , m_status(status)
    , m_table(new UxCustomTableWidget(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table);

    m_table->setSettingBtnVisible(true);
    m_table->setBackgroundColorChangedEnable(true);
    m_table->setHHeaderSortEnable(true);
    m_table->setBlockId(QStringLiteral("hs-a-shares"));

    connect(m_table, qOverload<const SubPageData&>(&UxCustomTableWidget::sigSubPages), this, &QuotesPage::answerPage);
    connect(m_table, &UxCustomTableWidget::sigSortTableData, this, &QuotesPage::answerSort);
    connect(m_table, &UxCustomTableWidget::sigTableViewClicked, this, [this](const TableData& row, const QModelIndex& index) {
        m_status->showMessage(QStringLiteral("单击 %1 %2 (行 %3, 列 %4)")
                                  .arg(row.code, row.name).arg(index.row()).arg(index.column()),
                              4000);
    });
    connect(m_table, &UxCustomTableWidget::sigTableViewDoubleClicked, this,
            [this](const TableData& row, const QModelIndex&) {
                m_status->showMessage(QStringLiteral("双击 %1 %2: 打开个股页面").arg(row.code, row.name), 4000);
            });

    // "tableView" is the table's documented child: the scrolling part, where
    // the last-price column lives.
    m_view = m_table->findChild<QTableView*>(QStringLiteral("tableView"));
    if (m_view)
        m_view->setItemDelegate(new TintDelegate(m_table, m_view->itemDelegate(), m_view));

    m_table->slotCreateTableData(m_market->identityRows());

    // Several ticks a second for the rows on screen, as a live feed does.
    m_tickTimer.setInterval(250);
    connect(&m_tickTimer, &QTimer::timeout, this, [this] { tick(); });
    m_tickTimer.start();
}

void QuotesPage::answerPage(const SubPageData& page)
{
    m_page = page;
    ++m_requests;
    // Rows of a new page replace what was there: no change tint for them.
    m_table->setIsPageChanged(true);
    m_table->slotUpdateTable(m_market->rows(page.start, page.count));
    m_table->setIsPageChanged(false);
}

void QuotesPage::answerSort(const SubPageData& page)
{
    m_market->sortBy(page.sortFeild, page.sortMode);
    // "tableView" is the table's documented child: the scrolling part, where
    // the last-price column lives.
    m_view = m_table->findChild<QTableView*>(QStringLiteral("tableView"));
    if (m_view)
        m_view->setItemDelegate(new TintDelegate(m_table, m_view->itemDelegate(), m_view));

    m_table->slotCreateTableData(m_market->identityRows());
    m_table->slotSubFirstPage();
    m_status->showMessage(QStringLiteral("按 %1 排序").arg(page.sortFeild), 3000);
}

void QuotesPage::tick(int changes)
{
    if (m_page.count <= 0)
        return;
    const QList<_TableData> changed = m_market->tick(m_page.start, m_page.count, changes);
    if (!changed.isEmpty())
        m_table->slotUpdateTable(changed);
}

void QuotesPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // The table counts its rows on screen once it is shown; ask for the first
    // page then, as a client does when it opens a block.
    if (m_requests == 0)
        QTimer::singleShot(0, m_table, &UxCustomTableWidget::slotSubFirstPage);
}

void QuotesPage::enableQuickSearch(const QVector<quickMacroItem*>& dictionary)
{
    if (!m_view)
        return;
    QuickMacroSearchWidget* overlay = QuickMacroSearchWidget::initance();
    overlay->setParent(m_view);
    overlay->hide();
    overlay->setDictData(dictionary);
    QStringList names{QStringLiteral("功能")};
    QList<QList<QStringList>> groups{{{QStringLiteral("K线图")}, {QStringLiteral("分时走势")}, {QStringLiteral("个股资料")}}};
    overlay->setExtendItems(names, groups);
    m_view->installEventFilter(overlay);
    connect(overlay, &QuickMacroSearchWidget::stockSelected, this, [this, overlay](const QString& url, int) {
        overlay->hide();
        emit openRequested(url);
    });
    connect(overlay, &QuickMacroSearchWidget::extendSelected, this, [this, overlay](const QString& title, int index, int) {
        overlay->hide();
        emit openRequested(QStringLiteral("view://function?group=%1&index=%2").arg(title).arg(index));
    });
}

void QuotesPage::typeOnTable(const QString& text)
{
    if (!m_view)
        return;
    if (text.isEmpty()) {
        QuickMacroSearchWidget::initance()->hide();
        return;
    }
    m_view->setFocus(Qt::OtherFocusReason);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
    QApplication::sendEvent(m_view, &press);
}

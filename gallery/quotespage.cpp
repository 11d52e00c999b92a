#include "quotespage.h"

#include "marketsimulator.h"

#include <uicomponents/uxcustomtablewidget.h>

#include <QStatusBar>
#include <QVBoxLayout>

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

    m_table->slotCreateTableData(m_market->identityRows());

    // Several ticks a second for the rows on screen, as a live feed does.
    m_tickTimer.setInterval(250);
    connect(&m_tickTimer, &QTimer::timeout, this, &QuotesPage::tick);
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
    m_table->slotCreateTableData(m_market->identityRows());
    m_table->slotSubFirstPage();
    m_status->showMessage(QStringLiteral("按 %1 排序").arg(page.sortFeild), 3000);
}

void QuotesPage::tick()
{
    if (m_page.count <= 0)
        return;
    const QList<_TableData> changed = m_market->tick(m_page.start, m_page.count, 12);
    if (!changed.isEmpty())
        m_table->slotUpdateTable(changed);
}

#ifndef QUOTESPAGE_H
#define QUOTESPAGE_H

#include <uicomponents/uxtabledefines.h>

#include <QColor>
#include <QTimer>
#include <QWidget>

struct quickMacroItem;
class QStatusBar;
class QTableView;
class MarketSimulator;
class UxCustomTableWidget;

// The quote table fed the way a real client feeds it: the block's instrument
// list first, then quote rows only for the range the table asks for, price
// ticks for that range several times a second, and a re-ordered block when
// a header is clicked.
class QuotesPage : public QWidget
{
    Q_OBJECT
public:
    QuotesPage(MarketSimulator* market, QStatusBar* status, QWidget* parent = nullptr);

    UxCustomTableWidget* table() const { return m_table; }
    // The change tint as painted on the skin SKINID: the column file's colour
    // on light skins, a deep shade of its hue on the dark ones.
    static QColor tintForSkin(const QColor& tint, const QString& skinId);
    const SubPageData& lastRequest() const { return m_page; }
    int requestCount() const { return m_requests; }

    // Typing on the table opens the quick search over it.
    void enableQuickSearch(const QVector<quickMacroItem*>& dictionary);
    // Types TEXT on the table as a user would, or closes the search when empty.
    void typeOnTable(const QString& text);

signals:
    void openRequested(const QString& url);

public slots:
    // Moves CHANGES random prices among the requested rows.
    void tick(int changes = 12);

protected:
    void showEvent(QShowEvent* event) override;

private slots:
    void answerPage(const SubPageData& page);
    void answerSort(const SubPageData& page);

private:
    MarketSimulator* m_market;
    QStatusBar* m_status;
    UxCustomTableWidget* m_table;
    QTableView* m_view = nullptr;
    QTimer m_tickTimer;
    SubPageData m_page;
    int m_requests = 0;
};

#endif // QUOTESPAGE_H

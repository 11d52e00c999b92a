// Qt's item-model contract, checked by QAbstractItemModelTester in fatal
// mode on the quote model and the quick-macro model while bursts of
// updates, resets, sorts and edits go through them. Any broken rule (a
// signal with wrong bounds, an index of a foreign model, rows under a valid
// parent, data of the wrong type) aborts the test with Qt's own message.

#include "uxtestenv.h"

#include "datamodel.h"
#include "quickmacroview.h"
#include "uxtablemodel.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QSortFilterProxyModel>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

_TableHHeaderData column(const QString& feild, bool changeColor = true)
{
    _TableHHeaderData h;
    h.text = feild;
    h.feild = feild;
    h.isChangeColor = changeColor;
    h.riseColor = QColor(Qt::red);
    h.fallColor = QColor(Qt::green);
    h.riseBgColor = QColor(QStringLiteral("#ffdddd"));
    h.fallBgColor = QColor(QStringLiteral("#ddffdd"));
    return h;
}

QList<_TableHHeaderData> columns()
{
    return {column(QString(), false), column(QStringLiteral("Code"), false), column(QStringLiteral("Name"), false),
            column(QStringLiteral("Now")), column(QStringLiteral("Open")), column(QStringLiteral("PreClose")),
            column(QStringLiteral("RedVolume")), column(QStringLiteral("DifferRange5Min")),
            column(QStringLiteral("Time"))};
}

_TableData row(int i, QRandomGenerator& rng)
{
    static const char* const units[] = {"", "万", "亿", "%"};
    _TableData r;
    r.key = QStringLiteral("k%1").arg(i % 7);
    r.code = QStringLiteral("%1").arg(600000 + i, 6, 10, QLatin1Char('0'));
    r.name = QStringLiteral("股票%1").arg(i);
    r.market = i % 3;
    r.riseFall = int(rng.bounded(3));
    const QString unit = QString::fromUtf8(units[rng.bounded(4)]);
    r.values.insert(QStringLiteral("Now"), QString::number(rng.bounded(10000) / 100.0, 'f', 2) + unit);
    r.values.insert(QStringLiteral("Open"), QString::number(rng.bounded(10000) / 100.0, 'f', 2));
    r.values.insert(QStringLiteral("PreClose"), QStringLiteral("50.00"));
    r.values.insert(QStringLiteral("RedVolume"), QString::number(rng.bounded(100000)));
    r.values.insert(QStringLiteral("DifferRange5Min"), rng.bounded(2) ? QStringLiteral("-0.12") : QStringLiteral("0.3"));
    r.values.insert(QStringLiteral("Time"), QTime(9, 30).addSecs(int(rng.bounded(20000))).toString(Qt::ISODate));
    return r;
}

QList<_TableData> rows(int n, QRandomGenerator& rng, int first = 0)
{
    QList<_TableData> list;
    for (int i = 0; i < n; ++i)
        list.append(row(first + i, rng));
    return list;
}

} // namespace

class TstModelContract : public QObject
{
    Q_OBJECT

    QRandomGenerator rng{20240611};

private slots:
    void quoteModelUnderBursts()
    {
        UxTableModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        // A proxy on top sees the same signals as the view's own sorting would.
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&model);
        QAbstractItemModelTester proxyTester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);

        model.setHeaderDatas(columns());
        model.setTableData(rows(40, rng));
        model.setBackgroundColorChangedEnable(true);
        for (int burst = 0; burst < 30; ++burst) {
            switch (burst % 6) {
            case 0:
                for (int i = 0; i < 60; ++i)
                    model.updateRow(row(int(rng.bounded(50)), rng)); // some match no row
                break;
            case 1:
                model.sort(int(rng.bounded(quint32(model.columnCount()) + 1)),
                           rng.bounded(2) ? Qt::AscendingOrder : Qt::DescendingOrder);
                break;
            case 2:
                model.setTableData(rows(int(rng.bounded(60)), rng, burst));
                break;
            case 3:
                model.updateAllRows(rows(model.rowCount(), rng, 7));
                model.updateAllRows(rows(model.rowCount() + 1, rng));
                break;
            case 4:
                for (int i = 0; i < 20 && model.rowCount(); ++i) {
                    const QModelIndex idx = model.index(int(rng.bounded(quint32(model.rowCount()))),
                                                        int(rng.bounded(quint32(model.columnCount()))));
                    model.setData(idx, QString::number(rng.bounded(100)), Qt::EditRole);
                }
                model.toggleSortState(int(rng.bounded(12)) - 2);
                break;
            case 5: {
                QList<_TableHHeaderData> cols = columns();
                std::reverse(cols.begin(), cols.end());
                model.setHeaderDatas(burst % 2 ? columns() : cols.mid(0, int(rng.bounded(quint32(cols.size())))));
                break;
            }
            }
            proxy.sort(int(rng.bounded(4)));
            QTest::qWait(burst % 10 == 9 ? 1100 : 5); // now and then let the tint timers fire
        }
        // Every cell and header answers every role without breaking the rules.
        for (int r = 0; r < model.rowCount(); ++r) {
            for (int c = 0; c < model.columnCount(); ++c) {
                for (int role = 0; role < Qt::UserRole + 2; ++role)
                    model.data(model.index(r, c), role);
            }
        }
    }

    void quickMacroModelUnderBursts()
    {
        std::vector<std::unique_ptr<quickMacroItem>> items;
        QVector<quickMacroItem*> dict;
        for (int i = 0; i < 300; ++i) {
            items.emplace_back(new quickMacroItem);
            items.back()->texts = QStringList{QStringLiteral("沪A"), QString::number(600000 + i),
                                              QStringLiteral("名称%1").arg(i), QStringLiteral("MC")};
            if (i % 50 == 49)
                items.back()->texts = QStringList{QStringLiteral("short")}; // shows as an empty row
            dict.append(i % 97 == 96 ? nullptr : items.back().get());
        }
        const QList<QList<QStringList>> groups{
            {{QStringLiteral("打开")}, {QStringLiteral("61"), QStringLiteral("沪A涨幅排名")}, {}},
            {{QStringLiteral("F10"), QStringLiteral("资料")}}};
        const QStringList names{QStringLiteral("命令"), QStringLiteral("功能")};

        DataModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        for (int burst = 0; burst < 40; ++burst) {
            const int n = int(rng.bounded(quint32(dict.size())));
            model.resetData(dict.mid(int(rng.bounded(20)), n), burst % 3 ? names : QStringList(names.mid(0, 1)),
                            burst % 2 ? groups : QList<QList<QStringList>>{});
            for (int r = 0; r < model.rowCount() + 2; ++r) {
                for (int c = -1; c < 4; ++c) {
                    for (int role : {int(Qt::DisplayRole), int(Qt::UserRole), int(Qt::TextAlignmentRole),
                                     int(Qt::FontRole)})
                        model.data(model.index(r, c), role);
                }
            }
        }

        // The view's own model, filled through the view's row budget.
        QuickMacroView view;
        QAbstractItemModelTester viewTester(view.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        for (int burst = 0; burst < 20; ++burst)
            view.setTableData(dict.mid(0, int(rng.bounded(260))), names, groups, burst % 2);
        QVERIFY(view.model()->rowCount() <= 260 + 4);
    }
};

UX_TEST_MAIN(TstModelContract)
#include "tst_modelcontract.moc"

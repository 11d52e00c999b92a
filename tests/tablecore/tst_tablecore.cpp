// The quote table core and the quick-macro list model, mostly as rows of
// (actual, expected) built in the _data functions.

#include "uxtestenv.h"
#include "rows.h"

#include "datamodel.h"
#include "uxtabledelegate.h"
#include "uxtablemodel.h"
#include "uxtableview.h"

#include <QtWidgets>

namespace {

const QColor kRise(QStringLiteral("#e53935")), kFall(QStringLiteral("#1e9e50"));
const QColor kRiseBg(QStringLiteral("#ffd9d6")), kFallBg(QStringLiteral("#d3f2de"));
using Values = QMap<QString, QString>;

_TableHHeaderData column(const QString& feild, bool changeColor = false)
{
    _TableHHeaderData h;
    h.feild = feild, h.text = feild.isEmpty() ? QStringLiteral("No") : feild, h.isChangeColor = changeColor;
    h.riseColor = kRise, h.fallColor = kFall, h.riseBgColor = kRiseBg, h.fallBgColor = kFallBg;
    h.alignment = Qt::AlignRight | Qt::AlignVCenter;
    return h;
}

// Sequence, code, name, quote fields (Now 3, High 5, Amount 10, Time 11), then padding.
QList<_TableHHeaderData> quoteColumns(int count = 13)
{
    QList<_TableHHeaderData> list{column(QString()), column(QStringLiteral("Code")), column(QStringLiteral("Name"))};
    for (const char* f : {"Now", "Open", "High", "Low", "DifferRange5Min", "RedVolume", "GreenVolume", "Amount", "Time", "PreClose"})
        list << column(QString::fromLatin1(f), true);
    while (list.size() < count)
        list << column(QStringLiteral("F%1").arg(list.size()));
    return list.mid(0, count);
}

_TableData makeRow(const QString& code, int market = 1, const Values& values = {}, int riseFall = 0, const QString& key = QStringLiteral("k"))
{
    _TableData r;
    r.key = key, r.code = code, r.name = QStringLiteral("N") + code;
    r.market = market, r.riseFall = riseFall, r.values = values;
    return r;
}

QList<_TableData> makeRows(int n)
{
    QList<_TableData> rows;
    for (int i = 0; i < n; ++i)
        rows << makeRow(QString::number(600000 + i));
    return rows;
}

QStringList codesOf(const QList<_TableData>& rows)
{
    QStringList codes;
    for (const _TableData& r : rows)
        codes << r.code;
    return codes;
}

Values now(const QString& price) { return {{QStringLiteral("Now"), price}}; }
QVariant list(const QStringList& l) { return l; }

// The dataChanged emissions as "row,column-row,column [roles] ", in order.
QString ranges(const QSignalSpy& spy)
{
    QString out;
    for (const QList<QVariant>& args : spy) {
        const QModelIndex a = args.at(0).toModelIndex(), b = args.at(1).toModelIndex();
        QStringList roles;
        for (int r : args.at(2).value<QVector<int>>())
            roles << QString::number(r);
        out += QStringLiteral("%1,%2-%3,%4 [%5] ").arg(a.row()).arg(a.column()).arg(b.row()).arg(b.column()).arg(roles.join(','));
    }
    return out;
}

int activeTimers(const UxTableModel& model)
{
    const QList<QTimer*> timers = model.findChildren<QTimer*>();
    return int(std::count_if(timers.begin(), timers.end(), [](QTimer* t) { return t->isActive(); }));
}

// Fires a tint timer as its time-out would: the contract pins its interval.
void fire(QTimer* t)
{
    t->stop(), QMetaObject::invokeMethod(t, "timeout");
}

// 万 and 亿 values (negative ones wrap to huge keys), percents, plain numbers and junk.
QString mixedValue(QRandomGenerator& rng)
{
    const QString n = QString::number(rng.bounded(99999)), dec = n + QStringLiteral(".%1").arg(rng.bounded(100), 2, 10, QLatin1Char('0'));
    const QStringList forms = {dec + "万", dec + "亿", n + ".5%", n + "000", n + ".5", "-" + dec + "万", n + "万", "--", "abc", "", " "};
    return forms.at(rng.bounded(forms.size()));
}

// A view shown offscreen, with a log of both request signals.
struct ShownView
{
    UxTableView view;
    QStringList order; // "codes", "page" in emission order
    QList<QStringList> codes;
    QList<_SubPageData> pages;
    explicit ShownView(int rows = 1000, int columns = 13)
    {
        view.setBlockId(QStringLiteral("blk"));
        view.setHHeaderData(quoteColumns(columns));
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.slotCreateTableData(makeRows(rows));
        QObject::connect(&view, QOverload<const QStringList&>::of(&UxTableView::sigSubPages), &view,
                         [this](const QStringList& c) { order << QStringLiteral("codes"), codes << c; });
        QObject::connect(&view, QOverload<const SubPageData&>::of(&UxTableView::sigSubPages), &view,
                         [this](const SubPageData& p) { order << QStringLiteral("page"), pages << p; });
    }
    int pageRows() const { return qMax(0, (view.contentsRect().height() - 28 + 27) / 28); }
    void clear() { order.clear(), codes.clear(), pages.clear(); }
};

struct ProbeView : UxTableView
{
    using UxTableView::scrollTo;
    int move(bool left) { return moveCursor(left ? MoveLeft : MoveRight, Qt::NoModifier).column(); }
};

void clickSection(QHeaderView* header, int section)
{
    const QPoint at(header->sectionViewportPosition(section) + header->sectionSize(section) / 2, 10);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

using namespace Rows;

} // namespace

class TstTableCore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What clients and skins rely on, the tint timers (single-shot, coarse, 1000 ms) among it.
    void contract_data()
    {
        actualExpected();
        UxTableView view;
        QTableView* frozen = view.frozenView();
        QStringList timers, methods;
        for (QTimer* t : view.tableModel()->findChildren<QTimer*>())
            timers << QStringLiteral("%1 ms %2 %3").arg(t->interval()).arg(t->isSingleShot()).arg(int(t->timerType()));
        QTest::newRow("tint timers") << list(timers) << list(QVector<QString>(10, QStringLiteral("1000 ms 1 1")).toList());
        QTest::newRow("meta-types") << list({QVariant::fromValue(_TableData()).typeName(), QVariant::fromValue(_SubPageData()).typeName(),
                                             QVariant::fromValue(_TableHHeaderData()).typeName()})
                                    << list({"TableData", "SubPageData", "TableHHeaderData"});
        const QMetaObject& mo = UxTableView::staticMetaObject;
        for (int i = mo.methodOffset(); i < mo.methodCount(); ++i)
            methods << mo.method(i).methodSignature();
        QTest::newRow("view meta") << list(methods) << list(QStringLiteral(
            "sigSubPages(SubPageData) sigSubPages(QStringList) sigTableViewClicked(TableData,QModelIndex) "
            "sigTableViewDoubleClicked(TableData,QModelIndex) sigSortTableData(SubPageData) "
            "sigCustomContextMenuRequested(TableData,QModelIndex) slotCreateTableData(QList<TableData>) "
            "slotUpdateTable(QList<TableData>) slotUpdateAllTable(QList<TableData>) slotSubFirstPage() "
            "updateSectionWidth(int,int,int) moveUp(TableData,int,bool) moveUp(TableData,int) moveDown(TableData,int,bool) "
            "moveDown(TableData,int) remove(TableData) add(TableData) setIsPageChanged(bool) slotVSliderPressed() "
            "slotVSliderReleased() slotVScrollBarValueChanged(int) slotTableViewClicked(QModelIndex) "
            "slotTableViewDoubleClicked(QModelIndex) slotHHeaderClicked(int) slotCustomContextMenuRequested(QPoint)").split(' '));
        QTest::newRow("view") << QVariant(QVariantList{view.size(), view.verticalHeader()->defaultSectionSize(), view.horizontalHeader()->height(),
                                                       view.horizontalHeader()->defaultSectionSize(), view.isSortingEnabled(),
                                                       view.styleSheet().isEmpty(), frozen->objectName(), frozen->verticalHeader()->defaultSectionSize(),
                                                       frozen->horizontalHeader()->height(), int(frozen->horizontalScrollBarPolicy()),
                                                       int(frozen->verticalScrollBarPolicy()), frozen->selectionModel() == view.selectionModel()})
                              << QVariant(QVariantList{QSize(1400, 600), 30, 27, 80, false, false, "frozenTableView", 30, 27,
                                                       int(Qt::ScrollBarAlwaysOff), int(Qt::ScrollBarAlwaysOff), true});
        const _TableHHeaderData h;
        QTest::newRow("column defaults") << QVariant(QVariantList{h.defaultValue, h.isShow, h.isChangeColor, int(h.alignment)})
                                         << QVariant(QVariantList{"--", true, false, int(Qt::AlignCenter)});
    }
    void contract() { compareActual(); }

    // One cell of row 2 of a one-column model, per role.
    void cellData_data()
    {
        actualExpected();
        auto cell = [](const _TableHHeaderData& h, const Values& values, int role, int riseFall = 0) {
            UxTableModel model;
            QList<_TableData> rows = makeRows(3);
            rows[2].values = values, rows[2].riseFall = riseFall;
            model.setHeaderDatas({h}), model.setTableData(rows);
            return model.data(model.index(2, 0), role);
        };
        const int show = Qt::DisplayRole, colour = Qt::ForegroundRole;
        const QString pre = QStringLiteral("PreClose");
        _TableHHeaderData own = column(QStringLiteral("Amount"));
        own.defaultValue = QStringLiteral("N/A");
        QTest::newRow("code") << cell(column("Code"), {}, show) << QVariant("600002");
        QTest::newRow("volume number") << cell(column("RedVolume"), {{"RedVolume", "1234.5"}}, show) << QVariant(1234.5);
        QTest::newRow("volume junk") << cell(column("GreenVolume"), {{"GreenVolume", "abc"}}, show) << QVariant(0.0);
        QTest::newRow("empty uses default") << cell(column("Now"), now(""), show) << QVariant("--");
        QTest::newRow("missing uses own default") << cell(own, {}, show) << QVariant("N/A");
        QTest::newRow("alignment") << cell(own, {}, Qt::TextAlignmentRole) << QVariant(int(Qt::AlignRight | Qt::AlignVCenter));
        QTest::newRow("open above close, row falling") << cell(column("Open", true), {{"Open", "10.5"}, {pre, "10.0"}}, colour, 1) << QVariant(kRise);
        QTest::newRow("open equal close") << cell(column("Open", true), {{"Open", "10.0"}, {pre, "10.00"}}, colour) << QVariant();
        QTest::newRow("low below close, row rising") << cell(column("Low", true), {{"Low", "9.5"}, {pre, "10.0"}}, colour) << QVariant(kFall);
        QTest::newRow("high above close") << cell(column("High", true), {{"High", "11"}, {pre, "10.0"}}, colour, 1) << QVariant(kRise);
        QTest::newRow("5min negative") << cell(column("DifferRange5Min", true), {{"DifferRange5Min", "-0.12"}}, colour) << QVariant(kFall);
        QTest::newRow("5min positive, row falling") << cell(column("DifferRange5Min", true), {{"DifferRange5Min", "0.12"}}, colour, 1) << QVariant(kFall);
        QTest::newRow("now negative, row rising") << cell(column("Now", true), now("-10"), colour) << QVariant(kRise);
        QTest::newRow("now, row falling") << cell(column("Now", true), now("10"), colour, 1) << QVariant(kFall);
        QTest::newRow("now, row neither") << cell(column("Now", true), now("10"), colour, 7) << QVariant();
        QTest::newRow("colour switched off") << cell(column("Now", false), now("10"), colour) << QVariant();
        QTest::newRow("empty value") << cell(column("Now", true), now(""), colour) << QVariant();
    }
    void cellData() { compareActual(); }

    void sortStatesAndArrows()
    {
        UxTableModel model;
        model.setHeaderDatas(quoteColumns());
        QSignalSpy headerSpy(&model, &QAbstractItemModel::headerDataChanged);
        auto caption = [&model](int c) { return model.headerData(c, Qt::Horizontal).toString() + ' '; };
        QString seen;
        for (int i = 0; i < 3; ++i)
            model.toggleSortState(3), seen += caption(3);
        model.setSortIndicatorShown(false);
        seen += caption(3) + QString::number(headerSpy.count());
        model.setSortIndicatorShown(true);
        model.toggleSortState(4); // another column takes the arrow away
        QCOMPARE(seen + caption(3) + caption(4), QStringLiteral("Now↑ Now↓ Now↑ Now 4Now Open↑ "));
        QCOMPARE(headerSpy.at(0).at(1).toInt() * 100 + headerSpy.at(0).at(2).toInt(), 12);
        QCOMPARE(model.headerData(4, Qt::Vertical, Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
        QVERIFY(!model.headerData(4, Qt::Vertical).isValid() && !model.headerData(13, Qt::Horizontal).isValid() && !model.headerData(-1, Qt::Horizontal).isValid());
        headerSpy.clear();
        model.setSortState(QStringLiteral("Now"), UxSortDescending); // the widget's default sort refreshes the header
        QCOMPARE(caption(3) + caption(4) + QString::number(headerSpy.count()), QStringLiteral("Now↓ Open 1"));
        model.toggleSortState(3);
        model.toggleSortState(0);
        QCOMPARE(model.sortState(0) * 10 + model.sortState(3), 10);
        model.setSortState(QStringLiteral("Open"), UxSortAscending);
        QList<_TableHHeaderData> cols = quoteColumns();
        cols.removeAt(3);
        model.setHeaderDatas(cols); // fields that remain keep their state
        model.toggleSortState(99), model.toggleSortState(-1);
        QCOMPARE(model.sortState(3) * 100 + model.sortState(99) * 10 + model.sortState(-1) + model.sortState(model.columnCount()), 100);
    }

    // Bad indexes and edits, then quote updates matched by key, market and code.
    void setDataAndUpdateRows()
    {
        UxTableModel model;
        QStandardItemModel other(50, 50);
        auto text = [&model](int row, int col) { return model.data(model.index(row, col)).toString(); };
        model.setTableData(makeRows(3)); // no columns: nothing to show, sort or update
        model.sort(0, Qt::AscendingOrder), model.updateRow(makeRow(QStringLiteral("600001")));
        QVERIFY(!model.data(other.index(1, 0)).isValid());
        // Codes of the rows asked for, cut at the end; nothing for a start outside or no count.
        QCOMPARE(model.visibleCodes(1, 2) + model.visibleCodes(0, 1) + model.visibleCodes(2, 100) + model.visibleCodes(2, INT_MAX)
                     + model.visibleCodes(-1, 2) + model.visibleCodes(3, 2) + model.visibleCodes(0, 0),
                 QStringList({"600001-1", "600002-1", "600000-1", "600002-1", "600002-1"}));
        model.setHeaderDatas(quoteColumns());
        for (const QModelIndex& bad : {other.index(40, 1), other.index(1, 40), QModelIndex()})
            QVERIFY(!model.data(bad).isValid() && !model.setData(bad, QStringLiteral("x")));
        QVERIFY(model.flags(QModelIndex()) == Qt::NoItemFlags && (model.flags(model.index(0, 0)) & Qt::ItemIsEditable));
        QCOMPARE(model.rowCount(model.index(0, 0)) + model.columnCount(model.index(0, 0)), 0);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        auto set = [&model](int col, const char* text) { return model.setData(model.index(1, col), QString::fromUtf8(text)); };
        model.sort(-1, Qt::AscendingOrder), model.sort(13, Qt::AscendingOrder);
        // The same code or name, and the sequence column, store nothing and say so with true.
        QVERIFY(set(1, "600001") && set(2, "N600001") && set(0, "99"));
        QVERIFY(!model.setData(model.index(1, 3), QStringLiteral("9"), Qt::DisplayRole));
        QCOMPARE(text(1, 0) + text(1, 3) + ranges(changed), QStringLiteral("2--"));
        QVERIFY(set(3, "12.30") && set(3, "12.30"));
        QCOMPARE(text(1, 3), QStringLiteral("12.30"));
        // A new code is what the next quote update is matched by.
        QVERIFY(set(1, "000001") && set(2, "Renamed"));
        model.updateRow(makeRow(QStringLiteral("000001"), 1, now("7"))), model.updateRow(makeRow(QStringLiteral("600001"), 1, now("8")));
        QCOMPARE(text(1, 3) + text(1, 2), QStringLiteral("7N000001"));
        QCOMPARE(ranges(changed), QStringLiteral("1,3-1,3 [2] 1,1-1,1 [2] 1,2-1,2 [2] 1,0-1,12 [] "));
        QList<_TableData> rows = makeRows(5);
        rows[3] = makeRow(QStringLiteral("600001")), rows[4] = makeRow(QStringLiteral("600001"), 2); // row 1 again, and in another market
        model.setTableData(rows), changed.clear();
        _TableData update = makeRow(QStringLiteral("600001"), 1, now("8.88"));
        update.name = QStringLiteral("updated");
        model.updateRow(update);
        // Other key, other market or unknown code: nothing.
        model.updateRow(makeRow(QStringLiteral("600002"), 1, {}, 0, QStringLiteral("other")));
        model.updateRow(makeRow(QStringLiteral("600002"), 9)), model.updateRow(makeRow(QStringLiteral("999999")));
        QCOMPARE(text(1, 3) + text(1, 2) + text(3, 3) + text(4, 3), QStringLiteral("8.88updated----"));
        QCOMPARE(ranges(changed), QStringLiteral("1,0-1,12 [] "));
        model.sort(1, Qt::DescendingOrder); // the row moves with a sort and is still found
        model.updateRow(makeRow(QStringLiteral("600000"), 1, now("1.11")));
        QCOMPARE(text(4, 3), QStringLiteral("1.11"));
        // updateAllRows copies identity and names, for a list of the same size only.
        model.setTableData(makeRows(3)), model.updateRow(makeRow(QStringLiteral("600000"), 1, now("5"))), changed.clear();
        const QList<_TableData> fresh = {makeRow(QStringLiteral("A"), 7, now("9"), 1, QStringLiteral("ka")), makeRow("B"), makeRow("C")};
        model.updateAllRows(fresh.mid(0, 2)), model.updateAllRows(fresh);
        const _TableData first = model.tableDatas().at(0);
        QCOMPARE(QStringList({first.key, first.code, first.name, QString::number(first.market), first.values.value("Now"), QString::number(first.riseFall)}),
                 QStringList({"ka", "A", "NA", "7", "5", "0"}));
        model.updateRow(makeRow(QStringLiteral("A"), 7, now("6"), 0, QStringLiteral("ka")));
        QCOMPARE(text(0, 3), QStringLiteral("6"));
        model.setHeaderDatas({column(QString())}); // fewer than three columns: still a valid range
        model.updateAllRows(fresh);
        QCOMPARE(ranges(changed), QStringLiteral("0,0-2,2 [] 0,0-0,12 [] 0,0-2,0 [] "));
    }

    // Each key as "type value".
    void sortKeys_data()
    {
        actualExpected();
        auto keys = [](const QStringList& texts) {
            QStringList out;
            for (const QString& t : texts)
                out << QStringLiteral("%1 %2").arg(QLatin1String(UxTableModel::toNumber(t).typeName()), UxTableModel::toNumber(t).toString());
            return list(out);
        };
        QTest::newRow("units") << keys({"1.20亿", "9.90万", "12345.5万", "-1.50万", "万1.5万"})
                               << list({"qulonglong 120000000", "qulonglong 99000", "qulonglong 123455000", "qulonglong 18446744073709536616", "qulonglong 15000"});
        QTest::newRow("percents") << keys({"12.5%", "3%", "-2.5%", "%"}) << list({"double 12.5", "double 3", "double -2.5", "double 0"});
        QTest::newRow("a unit needs digits, a point and digits") << keys({"12万", "5.万", "１.５万", "1.2.3万", "约1.5万", "7.5.1亿", "1.5亿2.5万"})
            << list({"double 0", "double 0", "double 0", "qulonglong 0", "qulonglong 0", "qulonglong 0", "qulonglong 0"});
        QTest::newRow("plain") << keys({"abc", "-17.25", ""}) << list({"double 0", "double -17.25", "double 0"});
    }
    void sortKeys() { compareActual(); }

    // Each code is also the row's amount; empty codes and unreadable times end up last.
    void sortExamples_data()
    {
        actualExpected();
        auto sorted = [](int col, int order, const QStringList& codes) {
            const Values times = {{"300", "10:00:00"}, {"", "junk"}, {"100", "09:30:00"}, {"200", "14:59:59"}};
            QList<_TableData> rows;
            for (const QString& t : codes)
                rows << makeRow(t, 1, {{QStringLiteral("Amount"), t}, {QStringLiteral("Time"), times.value(t)}}, 0, t);
            UxTableModel model;
            model.setHeaderDatas(quoteColumns()), model.setTableData(rows), model.sort(col, Qt::SortOrder(order));
            return list(codesOf(model.tableDatas()));
        };
        const QStringList units = {"1.20亿", "9.90万", "12.5%", "abc"}, timed = {"300", "", "100", "200"};
        QTest::newRow("units up") << sorted(10, 0, units) << list({"abc", "12.5%", "9.90万", "1.20亿"});
        QTest::newRow("units down") << sorted(10, 1, units) << list({"1.20亿", "9.90万", "12.5%", "abc"});
        // A negative unit value wraps above every positive one; negative plain numbers stay below.
        QTest::newRow("negatives") << sorted(10, 0, {"3", "-1.40万", "-5", "1.20万", "-1.50万", "12万"})
                                   << list({"-5", "12万", "3", "1.20万", "-1.50万", "-1.40万"});
        QTest::newRow("code down") << sorted(1, 1, timed) << list({"300", "200", "100", ""});
        QTest::newRow("name sorts by code") << sorted(2, 0, timed) << list({"100", "200", "300", ""});
        QTest::newRow("time up") << sorted(11, 0, timed) << list({"100", "300", "200", ""});
        QTest::newRow("letters and digits") << sorted(1, 0, {"b2", "10", "a1", "9"}) << list({"10", "9", "a1", "b2"});
        QTest::newRow("column past the end") << sorted(13, 0, {"2", "1"}) << list({"2", "1"});
    }
    void sortExamples() { compareActual(); }

    // Row 1 after one update: the price shown, the timers running and the tinted cells.
    void tintConditions_data()
    {
        actualExpected();
        auto tints = [](bool enabled, bool pageChanged, const QString& price, int riseFall, int nowColumn) {
            UxTableModel model;
            QList<_TableHHeaderData> cols = quoteColumns();
            cols.move(3, nowColumn);
            model.setHeaderDatas(cols);
            model.setTableData({makeRow("600000"), makeRow("600001", 1, now("5.00"))});
            model.setBackgroundColorChangedEnable(enabled), model.setIsPageChanged(pageChanged);
            model.updateRow(makeRow(QStringLiteral("600001"), 1, now(price), riseFall));
            QStringList out{model.data(model.index(1, nowColumn)).toString(), QString::number(activeTimers(model))};
            for (int c = 0; c < model.columnCount(); ++c)
                if (model.backgroundColorAt(model.index(1, c)).isValid())
                    out << QStringLiteral("%1 %2").arg(c).arg(model.backgroundColorAt(model.index(1, c)).name());
            return list(out);
        };
        QTest::newRow("fall, price further right") << tints(true, false, "4.99", 1, 6) << list({"4.99", "1", "6 #d3f2de"});
        QTest::newRow("disabled") << tints(false, false, "5.01", 0, 3) << list({"5.01", "0"});
        QTest::newRow("same price") << tints(true, false, "5.00", 0, 3) << list({"5.00", "1"});
        QTest::newRow("neither rise nor fall") << tints(true, false, "5.01", 2, 3) << list({"5.01", "1"});
        QTest::newRow("price in frozen column 2") << tints(true, false, "5.01", 0, 2) << list({"5.01", "1"});
    }
    void tintConditions() { compareActual(); }

    // Each update takes an idle timer; a time-out clears the oldest pending row, again while rows are pending.
    void tintTimers()
    {
        UxTableModel model;
        model.setHeaderDatas(quoteColumns()), model.setTableData(makeRows(12));
        model.setBackgroundColorChangedEnable(true), model.setIsPageChanged(false);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        auto tint = [&model](int row) { return model.backgroundColorAt(model.index(row, 3)).name() + ' '; };
        const QList<QTimer*> timers = model.findChildren<QTimer*>();
        model.updateRow(makeRow(QStringLiteral("600001"), 1, now("10.01"), 0));
        model.updateRow(makeRow(QStringLiteral("600002"), 1, now("9.99"), 1));
        model.updateRow(makeRow(QStringLiteral("999999"))); // no match takes no timer
        QCOMPARE(tint(1) + tint(2) + QString::number(activeTimers(model)), QStringLiteral("#ffd9d6 #d3f2de 2"));
        QVERIFY(!model.data(model.index(1, 3), Qt::BackgroundRole).isValid());
        timers.at(0)->stop(), changed.clear();
        fire(timers.at(1));
        QCOMPARE(tint(1) + tint(2) + QString::number(timers.at(1)->isActive()), QStringLiteral("#000000 #d3f2de 1")); // row 2 pending
        fire(timers.at(1)), fire(timers.at(1)); // then nothing pending
        QCOMPARE(tint(2) + QString::number(timers.at(1)->isActive()), QStringLiteral("#000000 0"));
        QCOMPARE(ranges(changed), QStringLiteral("1,0-1,12 [8] 2,0-2,12 [8] "));
        // Ten timers at most; a new table drops tints and pending rows at once.
        for (int r = 0; r < 12; ++r)
            model.updateRow(makeRow(QString::number(600000 + r), 1, now("1"), 0));
        QCOMPARE(activeTimers(model), 10);
        model.setTableData(makeRows(12)), changed.clear();
        fire(timers.at(0));
        QCOMPARE(tint(3) + ranges(changed), QStringLiteral("#000000 "));
    }

    // Qt's item-model rules, in fatal mode, under bursts of updates, resets, sorts and edits; the price keys
    // kept from the last sort follow them and the code sorts in between, as a fresh sort of the same rows shows.
    void quoteModelContract()
    {
        QRandomGenerator rng(20240611);
        auto rows = [&rng](int n, int first) {
            QList<_TableData> list;
            for (int i = first; i < first + n; ++i)
                list << makeRow(QString::number(600000 + i), i % 3, {{"Now", mixedValue(rng)}, {"Open", mixedValue(rng)}}, int(rng.bounded(3)));
            return list;
        };
        UxTableModel model, fresh;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        model.setBackgroundColorChangedEnable(true), model.setIsPageChanged(false);
        int keptSorts = 0;
        for (int burst = 0; burst < 30; ++burst) {
            if (burst % 5 == 0)
                model.setHeaderDatas(quoteColumns(int(rng.bounded(15)))), fresh.setHeaderDatas(model.headerDatas());
            if (burst % 3 == 0)
                model.setTableData(rows(int(rng.bounded(60)), burst));
            const int n = model.rowCount(), cols = model.columnCount();
            for (const _TableData& r : rows(60, int(rng.bounded(20)))) // some match no row
                model.updateRow(r), model.setData(model.index(int(rng.bounded(n + 1)), int(rng.bounded(cols + 1))), r.code);
            const int col = burst % 2 ? 1 : 3, order = int(rng.bounded(2));
            fresh.setTableData(model.tableDatas()), fresh.sort(col, Qt::SortOrder(order)), model.sort(col, Qt::SortOrder(order));
            QCOMPARE(codesOf(model.tableDatas()), codesOf(fresh.tableDatas()));
            keptSorts += col == 3 && cols > 3 && burst % 3 == 2;
            if (burst % 3 == 2) // any column, just before a new table
                model.sort(int(rng.bounded(quint32(cols) + 1)), Qt::SortOrder(rng.bounded(2)));
            model.updateAllRows(rows(n, 7)), model.updateAllRows(rows(n + 1, 0));
            model.toggleSortState(int(rng.bounded(16)) - 2);
            for (QTimer* t : model.findChildren<QTimer*>())
                if (t->isActive() && rng.bounded(2))
                    fire(t);
        }
        QVERIFY(keptSorts > 1);
    }

    // Hits (full, missing, short) and an empty group entry; other group entries are the quick-macro suite's.
    void quickMacroRows_data()
    {
        actualExpected();
        quickMacroItem full{{"沪A", "600000", "浦发银行", "PFYH"}, "view://stock"}, shortOne{{"short"}, {}};
        DataModel model;
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        model.resetData({&full, nullptr, &shortOne}, {"命令", "功能"}, {{{"打开"}, {"61", "沪A涨幅排名"}, {}}, {{"F10", "资料"}}});
        // Display text of columns 0 to 2, then the kind, per row; "-" for nothing.
        auto row = [&model](int r) {
            QStringList out;
            for (int c : {0, 1, 2, -1}) {
                const QVariant v = model.data(model.index(r, qMax(c, 0)), c < 0 ? Qt::UserRole : Qt::DisplayRole);
                out << (v.isValid() ? v.toString() : QStringLiteral("-"));
            }
            return list(out);
        };
        QTest::newRow("size") << QVariant(QVariantList{reset.count(), model.rowCount(), model.columnCount()}) << QVariant(QVariantList{1, 7, 3});
        QTest::newRow("hit") << row(0) << list({"", "600000", "浦发银行", "沪A"});
        QTest::newRow("missing hit") << row(1) << list({"", "-", "-", "-"});
        QTest::newRow("short hit") << row(2) << list({"", "-", "-", "short"});
        QTest::newRow("empty entry") << row(5) << list({"", "-", "-", "命令"});
    }
    void quickMacroRows() { compareActual(); }

    void quickMacroModelContract()
    {
        QRandomGenerator rng(7);
        static quickMacroItem pool[300];
        QVector<quickMacroItem*> dict;
        for (int i = 0; i < 300; ++i) {
            pool[i].texts = i % 50 == 49 ? QStringList{"short"} : QStringList{"沪A", QString::number(600000 + i), QStringLiteral("名称%1").arg(i), "MC"};
            dict.append(i % 97 == 96 ? nullptr : &pool[i]);
        }
        const QList<QList<QStringList>> groups{{{"打开"}, {"61", "沪A涨幅排名"}, {}}, {{"F10", "资料"}}};
        const QStringList names{"命令", "功能"};
        DataModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        for (int burst = 0; burst < 40; ++burst) {
            model.resetData(dict.mid(int(rng.bounded(20)), int(rng.bounded(300))), burst % 3 ? names : QStringList(names.mid(0, 1)),
                            burst % 2 ? groups : QList<QList<QStringList>>{});
            for (int r = 0; r < model.rowCount() + 2; ++r)
                for (int c = -1; c < 4; ++c)
                    for (int role : {int(Qt::DisplayRole), int(Qt::UserRole), int(Qt::TextAlignmentRole), int(Qt::FontRole)})
                        model.data(model.index(r, c), role);
        }
    }

    // A selected cell keeps the model's colour; a rule along its bottom has the view's alternate-base colour.
    void delegatePaint()
    {
        QTableView view;
        QPalette palette = view.palette();
        palette.setColor(QPalette::AlternateBase, QColor(0, 200, 0)), view.setPalette(palette);
        UxTableDelegate delegate(&view);
        UxTableModel model;
        model.setHeaderDatas({column(QStringLiteral("Now"), true), column(QStringLiteral("Now"), false)});
        model.setTableData({makeRow(QStringLiteral("1"), 1, now("8888"), 0)});
        QImage image(240, 30, QImage::Format_RGB32);
        image.fill(Qt::black);
        QStyleOptionViewItem option;
        option.state = QStyle::State_Selected | QStyle::State_Enabled | QStyle::State_Active;
        option.palette.setColor(QPalette::Highlight, QColor(0, 0, 255)), option.palette.setColor(QPalette::HighlightedText, Qt::white);
        option.font.setPixelSize(22), option.font.setBold(true);
        QPainter painter(&image);
        painter.setPen(QColor(1, 2, 3));
        for (int c : {0, 1})
            option.rect = QRect(120 * c, 0, 120, 30), delegate.paint(&painter, option, model.index(0, c));
        QCOMPARE(painter.pen().color(), QColor(1, 2, 3)); // the caller's pen comes back
        painter.end();
        int n[4] = {0, 0, 0, 0}; // reddish and whitish pixels of the left cell, then of the right one
        for (int y = 0; y < 29; ++y)
            for (int x = 0; x < 240; ++x) {
                const QColor c = image.pixelColor(x, y);
                n[x / 120 * 2] += c.red() > 180 && c.green() < 110 && c.blue() < 110;
                n[x / 120 * 2 + 1] += c.red() > 220 && c.green() > 220 && c.blue() > 220;
            }
        QVERIFY2(n[0] > 10 && n[1] == 0 && n[2] == 0 && n[3] > 10, qPrintable(QStringLiteral("%1 %2 %3 %4").arg(n[0]).arg(n[1]).arg(n[2]).arg(n[3])));
        // Qt 6 sets text one pixel shorter than Qt 5: row 26 is highlight in both.
        QCOMPARE(image.pixelColor(0, 29).name() + image.pixelColor(239, 29).name() + image.pixelColor(60, 26).name(),
                 QStringLiteral("#00c800#00c800#0000ff"));
    }

    // Default section size, widths in the main and frozen view ("-": hidden there), column count.
    void columnWidths_data()
    {
        actualExpected();
        auto widths = [](int width, int columns, int hiddenInList) {
            UxTableView view;
            view.resize(width, 600);
            QList<_TableHHeaderData> cols = quoteColumns(columns);
            for (int i = 0; i < hiddenInList; ++i)
                cols[4 + i].isShow = false;
            view.setHHeaderData(cols), view.frozenView()->setColumnWidth(2, 50); // a hidden view does not follow the frozen one
            QStringList out{QString::number(view.horizontalHeader()->defaultSectionSize())};
            for (int c = 0; c < view.getHHeaderData().size(); ++c)
                out << QStringLiteral("%1/%2").arg(view.columnWidth(c)).arg(
                    view.frozenView()->isColumnHidden(c) ? QStringLiteral("-") : QString::number(view.frozenView()->columnWidth(c)));
            return list(out.mid(0, 6) << QString::number(out.size() - 1));
        };
        QTest::newRow("seventeen") << widths(1370, 17, 0) << list({"81", "60/60", "81/81", "81/50", "81/-", "81/-", "17"});
        QTest::newRow("exactly full") << widths(1340, 17, 0) << list({"80", "60/60", "80/80", "80/50", "80/-", "80/-", "17"});
        QTest::newRow("hidden columns dropped") << widths(1400, 12, 2) << list({"148", "60/60", "148/148", "148/50", "148/-", "148/-", "10"});
        QTest::newRow("two columns") << widths(1400, 2, 0) << list({"1335", "60/60", "1335/1335", "2"});
        QTest::newRow("one column") << widths(1400, 1, 0) << list({"80", "60/60", "1"});
    }
    void columnWidths() { compareActual(); }

    // Scrolling asks for three screens of rows (P rows each) around the top row.
    void requestsFollowScrollBarAndHeader()
    {
        ShownView shown(1000);
        UxTableView& view = shown.view;
        const int p = shown.pageRows();
        QScrollBar* bar = view.verticalScrollBar();
        // The starts asked for while the bar takes VALUES; "?" marks codes not from the start on.
        auto scroll = [&shown, bar](const QVector<int>& values) {
            for (int v : values)
                bar->setValue(v);
            QStringList s;
            for (int i = 0; i < shown.pages.size(); ++i)
                s << QString::number(shown.pages.at(i).start)
                         + (shown.codes.value(i).value(0) == QStringLiteral("%1-1").arg(600000 + shown.pages.at(i).start) ? "" : "?");
            shown.clear();
            return s.join(' ');
        };
        view.slotSubFirstPage();
        QCOMPARE(shown.order, QStringList({"codes", "page"}));
        QCOMPARE(shown.pages.at(0), (_SubPageData{0, 3 * p, QStringLiteral("blk"), QString(), UxSortNone}));
        QVERIFY(p > 5 && shown.codes.at(0).size() == 3 * p);
        shown.clear();
        QVector<int> down; // one row at a time: a new range only past start + 2P; back down to where it was asked, none
        for (int v = 1; v <= 2 * p + 1; ++v)
            down << v;
        QCOMPARE(scroll(down << 2 * p + 2 << 2 * p + 1), QString::number(2 * p));
        // A jump past the range starts there; a step back before it, or inside its first screen, moves 2P up.
        QCOMPARE(scroll({500, 499}), QStringLiteral("500 %1").arg(499 - 2 * p));
        QCOMPARE(scroll({499 - 2 * p, 499 - p}), QString()); // the first screen's end is outside it
        QCOMPARE(scroll({499 - 2 * p + 1}), QString::number(499 - 4 * p));
        // At the end the count stays 3P, the codes stop at the last row.
        bar->setValue(bar->maximum());
        QCOMPARE(QVariantList({shown.pages.at(0).count, shown.codes.at(0).size(), shown.codes.at(0).last()}),
                 QVariantList({3 * p, 1000 - bar->maximum(), "600999-1"}));
        QCOMPARE(scroll({}), QString::number(bar->maximum()));
        // Dragging asks once, on release; a show forces the next request, even for the same start.
        QCOMPARE(scroll({0, 3 * p + 1}), QStringLiteral("0 %1").arg(3 * p + 1)); // one past the range's last row starts there
        scroll({0}), view.slotSubFirstPage(), shown.clear();
        bar->setSliderDown(true);
        QCOMPARE(scroll({300, 600}), QString());
        bar->setSliderDown(false);
        QCOMPARE(scroll({}), QStringLiteral("600"));
        view.hide(), view.show(), view.slotSubFirstPage();
        QCOMPARE(scroll({}), QStringLiteral("600"));
        // Header clicks ask for a sorted table from the top.
        QSignalSpy sortSpy(&view, &UxTableView::sigSortTableData);
        auto sent = [&sortSpy](int i) { return sortSpy.at(i).at(0).value<_SubPageData>(); };
        auto page = [&shown]() { return shown.pages.value(0).sortFeild + QString::number(shown.pages.value(0).sortMode); };
        QHeaderView *frozenHeader = view.frozenView()->horizontalHeader(), *header = view.horizontalHeader();
        bar->setValue(300), shown.clear();
        clickSection(frozenHeader, 0); // column 0 never sorts
        QCOMPARE(sortSpy.count() * 1000 + view.verticalScrollBar()->value(), 300);
        clickSection(frozenHeader, 1);
        QCOMPARE(sortSpy.count() * 1000 + view.verticalScrollBar()->value() + shown.order.size(), 1000);
        QCOMPARE(sent(0), (_SubPageData{0, 32760, QStringLiteral("blk"), QStringLiteral("Code"), UxSortAscending}));
        QCOMPARE(view.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Code↑"));
        clickSection(frozenHeader, 1);
        QCOMPARE(sent(1).sortMode, int(UxSortDescending));
        // Clicked at the top, the skip waits for the next scroll; the one after asks, sorted.
        view.verticalScrollBar()->setValue(3 * p + 5);
        QCOMPARE(shown.pages.size(), 0);
        view.verticalScrollBar()->setValue(6 * p + 6);
        QCOMPARE(page(), QStringLiteral("Code2"));
        // The main header sorts only once enabled, once per click; disabling leaves the connection made.
        clickSection(header, 5);
        view.setHHeaderSortEnable(true), view.setHHeaderSortEnable(true);
        clickSection(header, 5);
        view.setHHeaderSortEnable(false);
        clickSection(header, 6);
        QCOMPARE(sortSpy.count(), 4);
        QCOMPARE(sent(2).sortFeild + sent(3).sortFeild, QStringLiteral("HighLow"));
        // Columns out of range ask for an unsorted table; the default sort field goes out with the next page.
        view.slotHHeaderClicked(99);
        QCOMPARE(sent(4).sortFeild, QString());
        view.setDefaultSortFeildAndMode(QStringLiteral("Amount"), UxSortDescending);
        shown.clear(), view.slotSubFirstPage();
        QCOMPARE(page(), QStringLiteral("Amount2"));
        // Sorting locally nothing is asked; the captions' arrows come back on, Qt's own indicator stays off.
        view.setIsIndexSelected(true);
        clickSection(frozenHeader, 1);
        QCOMPARE(QString::number(sortSpy.count()) + view.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("5Code↑"));
        QVERIFY(!header->isSortIndicatorShown() && !frozenHeader->isSortIndicatorShown());
        // Shown with no room for a row: no requests.
        UxTableView flat;
        QSignalSpy asked(&flat, QOverload<const SubPageData&>::of(&UxTableView::sigSubPages));
        flat.resize(600, 20), flat.show();
        QVERIFY(QTest::qWaitForWindowExposed(&flat));
        flat.setHHeaderData(quoteColumns()), flat.slotCreateTableData(makeRows(100)), flat.slotSubFirstPage(), flat.slotVScrollBarValueChanged(50);
        QCOMPARE(asked.count(), 0);
    }

    // 30 columns of 80 after one of 60, the bar scrolling whole columns: the column reached, the bar
    // then, and the vertical value after scrolling to a frozen and to another cell.
    void moveCursorAndScrollTo_data()
    {
        actualExpected();
        auto move = [](bool left, int scrolled, int current) {
            ProbeView view;
            view.setHHeaderData(quoteColumns(30));
            view.slotCreateTableData(makeRows(100));
            view.show();
            if (!QTest::qWaitForWindowExposed(&view))
                return QVariant();
            view.selectionModel()->setCurrentIndex(view.model()->index(0, current), QItemSelectionModel::NoUpdate);
            view.horizontalScrollBar()->setValue(scrolled);
            const int column = view.move(left);
            view.verticalScrollBar()->setValue(50);
            view.scrollTo(view.model()->index(0, 2));
            const int frozen = view.verticalScrollBar()->value();
            view.scrollTo(view.model()->index(0, 5));
            return QVariant(QVariantList{column, view.horizontalScrollBar()->value(), frozen, view.verticalScrollBar()->value()});
        };
        QTest::newRow("target at column 2's width") << move(true, 2, 4) << QVariant(QVariantList{3, 2, 50, 0});
        QTest::newRow("target left of column 2's width") << move(true, 3, 4) << QVariant(QVariantList{3, 0, 50, 0});
        QTest::newRow("target in frozen columns") << move(true, 2, 3) << QVariant(QVariantList{2, 2, 50, 0});
        QTest::newRow("moving right") << move(false, 3, 2) << QVariant(QVariantList{3, 3, 50, 0});
    }
    void moveCursorAndScrollTo() { compareActual(); }

    // The codes' last digits after one edit of rows 0..3, then the row count.
    void rowEdits_data()
    {
        actualExpected();
        auto edit = [](char op, int row, bool flag, const char* code) {
            UxTableView view;
            view.setHHeaderData(quoteColumns()), view.slotCreateTableData(makeRows(4));
            const _TableData data = makeRow(QString::fromLatin1(code));
            op == '+' ? view.add(data) : op == '-' ? view.remove(data) : op == 'u' ? view.moveUp(data, row, flag) : view.moveDown(data, row, flag);
            return QVariant(codesOf(view.getTableDatas()).join(QString()).remove(QStringLiteral("60000")) + QString::number(view.rowCount()));
        };
        QTest::newRow("add") << edit('+', 0, false, "600009") << QVariant("012395");
        QTest::newRow("remove") << edit('-', 0, false, "600002") << QVariant("0133");
        QTest::newRow("up last") << edit('u', 3, false, "600003") << QVariant("01324");
        QTest::newRow("up at top") << edit('u', 0, true, "600000") << QVariant("01234");
        QTest::newRow("up to top") << edit('u', 2, true, "600002") << QVariant("20134");
        QTest::newRow("up past end") << edit('u', 4, false, "600002") << QVariant("01234");
        QTest::newRow("up negative") << edit('u', -3, false, "600002") << QVariant("01234");
        QTest::newRow("down first") << edit('d', 0, false, "600000") << QVariant("10234");
        QTest::newRow("down to bottom") << edit('d', 0, true, "600000") << QVariant("12304");
        QTest::newRow("down at bottom") << edit('d', 3, false, "600003") << QVariant("01234");
        QTest::newRow("down negative") << edit('d', -1, false, "600003") << QVariant("01234");
    }
    void rowEdits() { compareActual(); }

    void scrollBarsKeysClicksUpdatesAndFrozenView()
    {
        ShownView shown(200, 10);
        UxTableView& view = shown.view;
        QSignalSpy clicked(&view, &UxTableView::sigTableViewClicked), doubleClicked(&view, &UxTableView::sigTableViewDoubleClicked),
            menu(&view, &UxTableView::sigCustomContextMenuRequested);
        auto codes = [](const QSignalSpy& spy) {
            QString s;
            for (const QList<QVariant>& args : spy)
                s += args.at(0).value<_TableData>().code + QLatin1Char('@') + QString::number(args.at(1).toModelIndex().row()) + ' ';
            return s;
        };
        // Scroll bars show only while the mouse is over the table.
        QScrollBar *bar = view.verticalScrollBar(), *hbar = view.horizontalScrollBar();
        QVERIFY(bar->isHidden() && hbar->isHidden());
        QEvent enter(QEvent::Enter), leave(QEvent::Leave);
        QCoreApplication::sendEvent(&view, &enter);
        QTRY_VERIFY(bar->isVisible() && hbar->isVisible());
        QCoreApplication::sendEvent(&view, &leave);
        QVERIFY(bar->isHidden() && hbar->isHidden());
        // Up and down report the row selected before the key moves it, Return and Enter the selected one.
        for (Qt::Key key : {Qt::Key_Return, Qt::Key_Down}) // nothing selected yet
            QTest::keyClick(&view, key);
        view.setRowSelected(2), clicked.clear();
        for (Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Enter, Qt::Key_PageDown, Qt::Key_PageUp,
                            Qt::Key_Home, Qt::Key_End, Qt::Key_Left, Qt::Key_Right, Qt::Key_A})
            QTest::keyClick(&view, key);
        QCOMPARE(codes(clicked) + codes(doubleClicked), QStringLiteral("600002@2 600003@3 600004@4 600003@3 600003@3 "));
        QCOMPARE(view.currentIndex().row() * 100 + bar->value(), 300);
        clicked.clear(), doubleClicked.clear();
        view.setRowSelected(-1), view.setRowSelected(200), view.setRowSelected(0), view.setRowSelected(150);
        QCOMPARE(codes(clicked), QStringLiteral("600000@0 600150@150 "));
        QVERIFY(clicked.at(1).at(1).toModelIndex() == view.currentIndex() && view.selectionModel()->isRowSelected(150, QModelIndex()));
        // Mouse clicks in either view report the row; the menu only on a row.
        clicked.clear(), bar->setValue(0);
        QTableView* frozen = view.frozenView();
        const QPoint cell = view.visualRect(view.model()->index(4, 6)).center();
        const QPoint frozenCell = frozen->visualRect(frozen->model()->index(6, 1)).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, cell);
        QTest::mouseClick(frozen->viewport(), Qt::LeftButton, Qt::NoModifier, frozenCell);
        QTest::mouseDClick(frozen->viewport(), Qt::LeftButton, Qt::NoModifier, frozenCell);
        view.slotTableViewClicked(QModelIndex()), view.slotTableViewClicked(QStandardItemModel(300, 3).index(250, 0));
        view.slotCustomContextMenuRequested(QPoint(5, 200 * 30 + 100)); // below the last row
        view.slotCustomContextMenuRequested(cell);
        QVERIFY(codes(clicked).startsWith(QStringLiteral("600004@4 600006@6 ")));
        QCOMPARE(codes(doubleClicked) + codes(menu), QStringLiteral("600006@6 600004@4 "));
        // Quote rows in: rows that just arrived with a new page are not tinted.
        view.setBackgroundColorChangedEnable(true);
        UxTableModel* model = view.tableModel();
        auto price = [model]() { return model->data(model->index(2, 3)).toString() + model->backgroundColorAt(model->index(2, 3)).name(); };
        view.slotUpdateTable({makeRow(QStringLiteral("600002"), 1, now("3.10"), 1)});
        QCOMPARE(price(), QStringLiteral("3.10#000000"));
        view.setIsPageChanged(false);
        view.slotUpdateTable({makeRow(QStringLiteral("600002"), 1, now("3.20"), 1)});
        QCOMPARE(price(), QStringLiteral("3.20#d3f2de"));
        // The frozen view covers the first three columns.
        auto geometry = [&view]() {
            return QRect(view.verticalHeader()->width() + view.frameWidth(), view.frameWidth(),
                         view.columnWidth(0) + view.columnWidth(1) + view.columnWidth(2), view.viewport()->height() + view.horizontalHeader()->height());
        };
        QVERIFY(frozen->isVisible() && frozen->geometry() == geometry());
        // Widths follow in both directions, for the three frozen columns only.
        view.setColumnWidth(1, 200), frozen->setColumnWidth(2, 100), view.setColumnWidth(0, 50);
        view.setFrozenViewColumnHidden(5, false), view.setColumnWidth(5, 300);
        QCOMPARE(QStringLiteral("%1 %2 %3 %4").arg(frozen->columnWidth(1)).arg(view.columnWidth(2)).arg(frozen->columnWidth(0)).arg(frozen->width()),
                 QStringLiteral("200 100 50 350"));
        QVERIFY(frozen->columnWidth(5) != 300 && frozen->geometry() == geometry() && view.updatesEnabled());
        view.resize(900, 400);
        QTRY_COMPARE(frozen->geometry(), geometry());
        // The two views scroll together.
        view.verticalScrollBar()->setValue(7);
        QCOMPARE(frozen->verticalScrollBar()->value(), 7);
        frozen->verticalScrollBar()->setValue(3);
        QCOMPARE(view.verticalScrollBar()->value(), 3);
        view.setFrozenViewColumnHidden(0, true), view.setFrozenViewColumnHidden(10, false), view.setFrozenViewColumnHidden(-1, false);
        view.setTableViewCustomContexrtMenuEnable(true);
        QVERIFY(frozen->isColumnHidden(0) && frozen->contextMenuPolicy() == Qt::CustomContextMenu && view.contextMenuPolicy() == Qt::CustomContextMenu);
    }
};

UX_TEST_MAIN(TstTableCore)
#include "tst_tablecore.moc"

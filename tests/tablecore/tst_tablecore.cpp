// The quote table core: model data and colours, unit-aware sorting against a
// plain reference, quote updates and tints, the delegate's painting, and the
// view's frozen columns, paged requests, header sorting and keys.

#include "uxtestenv.h"

#include "uxtabledelegate.h"
#include "uxtablemodel.h"
#include "uxtableview.h"

#include "tablesortreference.h"

#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTime>
#include <QTimer>

#include <algorithm>
#include <climits>

namespace {

const QColor kRise(QStringLiteral("#e53935"));
const QColor kFall(QStringLiteral("#1e9e50"));
const QColor kRiseBg(QStringLiteral("#ffd9d6"));
const QColor kFallBg(QStringLiteral("#d3f2de"));

_TableHHeaderData column(const QString& feild, bool changeColor = false, const QString& text = QString())
{
    _TableHHeaderData h;
    h.feild = feild;
    h.text = text.isEmpty() ? feild : text;
    h.isChangeColor = changeColor;
    h.riseColor = kRise;
    h.fallColor = kFall;
    h.riseBgColor = kRiseBg;
    h.fallBgColor = kFallBg;
    h.alignment = Qt::AlignRight | Qt::AlignVCenter;
    return h;
}

// Sequence, code, name, then the quote fields.
QList<_TableHHeaderData> quoteColumns()
{
    QList<_TableHHeaderData> list;
    list << column(QString(), false, QStringLiteral("No")) << column(QStringLiteral("Code"))
         << column(QStringLiteral("Name"));
    for (const char* f : {"Now", "Open", "High", "Low", "DifferRange5Min", "RedVolume", "GreenVolume", "Amount",
                          "Time", "PreClose"})
        list << column(QString::fromLatin1(f), true);
    return list;
}

_TableData makeRow(const QString& code, int market = 1, const QMap<QString, QString>& values = {}, int riseFall = 0,
                   const QString& key = QStringLiteral("k"))
{
    _TableData r;
    r.key = key;
    r.code = code;
    r.name = QStringLiteral("N") + code;
    r.market = market;
    r.riseFall = riseFall;
    r.values = values;
    return r;
}

QList<_TableData> makeRows(int n)
{
    QList<_TableData> rows;
    for (int i = 0; i < n; ++i)
        rows << makeRow(QString::number(600000 + i));
    return rows;
}


// Texts of every kind a value column carries: 万 and 亿 values, percents,
// plain numbers (whole or .5, so each pair has one clear order) and junk.
QString mixedValue(QRandomGenerator& rng)
{
    const int k = rng.bounded(200000000);
    switch (rng.bounded(7)) {
    case 0:
        return QStringLiteral("%1.%2万").arg(rng.bounded(99999)).arg(rng.bounded(100), 2, 10, QLatin1Char('0'));
    case 1:
        return QStringLiteral("%1.%2亿").arg(rng.bounded(99)).arg(rng.bounded(100), 2, 10, QLatin1Char('0'));
    case 2:
        return QStringLiteral("%1.5%").arg(rng.bounded(100));
    case 3:
        return QString::number(k);
    case 4:
        return QString::number(k % 300000) + QStringLiteral(".5");
    case 5:
        return QStringLiteral("%1万").arg(rng.bounded(50)); // no decimal point: not a unit value
    default: {
        static const QStringList junk = {QStringLiteral("--"), QStringLiteral("abc"), QString(), QStringLiteral(" ")};
        return junk.at(rng.bounded(junk.size()));
    }
    }
}

QStringList codesOf(const QList<_TableData>& rows)
{
    QStringList codes;
    for (const _TableData& r : rows)
        codes << r.code;
    return codes;
}

// ACTUAL must be ROWS reordered so that each position holds a key equal to the
// plain sort's key there.
void verifySortedLikeReference(const QList<_TableData>& actual, const QList<_TableData>& rows, const QString& feild,
                               Qt::SortOrder order)
{
    const QList<_TableData> expected = ref::sorted(rows, feild, order);
    QCOMPARE(actual.size(), expected.size());
    for (int i = 0; i < actual.size(); ++i) {
        const QVariant a = ref::key(actual.at(i), feild);
        const QVariant e = ref::key(expected.at(i), feild);
        if (ref::lessThan(a, e) || ref::lessThan(e, a))
            QFAIL(qPrintable(QStringLiteral("row %1: %2 where %3 belongs").arg(i).arg(a.toString(), e.toString())));
    }
    // Same rows, only reordered.
    QStringList before = codesOf(rows), after = codesOf(actual);
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    QCOMPARE(after, before);
}

// A view shown offscreen with rows and the quote columns.
struct ShownView
{
    UxTableView view;
    explicit ShownView(int rows = 1000, int columns = -1)
    {
        QList<_TableHHeaderData> cols = quoteColumns();
        while (columns >= 0 && cols.size() > columns)
            cols.removeLast();
        while (cols.size() < columns)
            cols << column(QStringLiteral("F%1").arg(cols.size()));
        view.setBlockId(QStringLiteral("blk"));
        view.setHHeaderData(cols);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.slotCreateTableData(makeRows(rows));
    }
    int pageRows() const
    {
        const int rest = view.contentsRect().height() - 28;
        return rest > 0 ? (rest + 27) / 28 : 0;
    }
};

// Records both request signals in emission order.
struct RequestLog
{
    QStringList order;
    QList<QStringList> codes;
    QList<_SubPageData> pages;
    explicit RequestLog(UxTableView* v)
    {
        QObject::connect(v, QOverload<const QStringList&>::of(&UxTableView::sigSubPages), v,
                         [this](const QStringList& c) {
                             order << QStringLiteral("codes");
                             codes << c;
                         });
        QObject::connect(v, QOverload<const SubPageData&>::of(&UxTableView::sigSubPages), v,
                         [this](const SubPageData& p) {
                             order << QStringLiteral("page");
                             pages << p;
                         });
    }
    void clear()
    {
        order.clear();
        codes.clear();
        pages.clear();
    }
};

// A one-cell "Now" table and the delegate of a view whose rule colour is green.
struct DelegateRig
{
    QTableView view;
    UxTableDelegate delegate{&view};
    UxTableModel model;
    DelegateRig(bool changeColor, const QString& now)
    {
        QPalette viewPalette = view.palette();
        viewPalette.setColor(QPalette::AlternateBase, QColor(0, 200, 0));
        view.setPalette(viewPalette);
        model.setHeaderDatas({column(QStringLiteral("Now"), changeColor)});
        model.setTableData({makeRow(QStringLiteral("1"), 1, {{QStringLiteral("Now"), now}}, 0)});
    }
};

class ProbeView : public UxTableView
{
public:
    using UxTableView::moveCursor;
    using UxTableView::scrollTo;
    QModelIndex moveLeft() { return moveCursor(MoveLeft, Qt::NoModifier); }
};

} // namespace

class TstTableCore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // model
    void displayByFieldKind_data();
    void displayByFieldKind();
    void riseFallColours_data();
    void riseFallColours();
    void missingColoursAreReturnedAsTheyAre();
    void sortStatesAndArrows();
    void badIndexesGiveNothing();
    void setDataStoresAndSignals();
    void sortKeyParsing_data();
    void sortKeyParsing();
    void sortMatchesReference_data();
    void sortMatchesReference();
    void sortAgainAfterChanges();
    void sortExamples_data();
    void sortExamples();
    void updateRowFindsFirstMatch();
    void updateAllRowsNeedsSameLength();
    void tintSetAndCleared();
    void tintConditions_data();
    void tintConditions();
    void visibleCodes_data();
    void visibleCodes();
    // delegate
    void delegateKeepsModelColourWhenSelected_data();
    void delegateKeepsModelColourWhenSelected();
    // view
    void columnWidths_data();
    void columnWidths();
    void frozenViewGeometryAndSync();
    void requestsFollowScrollBar();
    void noRequestsWithoutPageRows();
    void headerClickRequestsSort();
    void headerClickWhenSortingLocally();
    void keys();
    void moveCursorAndScrollTo_data();
    void moveCursorAndScrollTo();
    void rowEdits_data();
    void rowEdits();
    void rowSelectionAndClicks();
    void quoteUpdatesThroughView();
    void skinReachesTheRule();
};

// ---------------------------------------------------------------- model

void TstTableCore::displayByFieldKind_data()
{
    QTest::addColumn<QString>("feild");
    QTest::addColumn<QString>("value"); // "<none>" leaves the field out
    QTest::addColumn<QString>("defaultValue");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("sequence") << QString() << QStringLiteral("x") << QStringLiteral("--") << QVariant(3);
    QTest::newRow("code") << QStringLiteral("Code") << QString() << QStringLiteral("--") << QVariant(QStringLiteral("600002"));
    QTest::newRow("name") << QStringLiteral("Name") << QString() << QStringLiteral("--") << QVariant(QStringLiteral("N600002"));
    QTest::newRow("volume number") << QStringLiteral("RedVolume") << QStringLiteral("1234.5") << QStringLiteral("--")
                                   << QVariant(1234.5);
    QTest::newRow("volume junk") << QStringLiteral("GreenVolume") << QStringLiteral("abc") << QStringLiteral("--")
                                 << QVariant(0.0);
    QTest::newRow("volume missing") << QStringLiteral("RedVolume") << QStringLiteral("<none>") << QStringLiteral("--")
                                    << QVariant(0.0);
    QTest::newRow("text value") << QStringLiteral("Now") << QStringLiteral("10.50") << QStringLiteral("--")
                                << QVariant(QStringLiteral("10.50"));
    QTest::newRow("empty uses default") << QStringLiteral("Now") << QString() << QStringLiteral("--")
                                        << QVariant(QStringLiteral("--"));
    QTest::newRow("missing uses own default") << QStringLiteral("Amount") << QStringLiteral("<none>")
                                              << QStringLiteral("N/A") << QVariant(QStringLiteral("N/A"));
}

void TstTableCore::displayByFieldKind()
{
    QFETCH(QString, feild);
    QFETCH(QString, value);
    QFETCH(QString, defaultValue);
    QFETCH(QVariant, expected);

    UxTableModel model;
    _TableHHeaderData h = column(feild);
    h.defaultValue = defaultValue;
    model.setHeaderDatas({h});
    QList<_TableData> rows = makeRows(3);
    if (value != QLatin1String("<none>"))
        rows[2].values.insert(feild, value);
    model.setTableData(rows);

    const QVariant shown = model.data(model.index(2, 0), Qt::DisplayRole);
    QCOMPARE(shown.userType(), expected.userType());
    QCOMPARE(shown, expected);
    QCOMPARE(model.data(model.index(2, 0), Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    QVERIFY(!model.data(model.index(2, 0), Qt::BackgroundRole).isValid());
    QVERIFY(!model.data(model.index(2, 0), Qt::ToolTipRole).isValid());
}

void TstTableCore::riseFallColours_data()
{
    QTest::addColumn<QString>("feild");
    QTest::addColumn<bool>("changeColor");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("preClose");
    QTest::addColumn<int>("riseFall");
    QTest::addColumn<QColor>("expected"); // invalid: no colour

    QTest::newRow("open above close, row falling") << "Open" << true << "10.5" << "10.0" << 1 << kRise;
    QTest::newRow("open equal close") << "Open" << true << "10.0" << "10.00" << 0 << QColor();
    QTest::newRow("low below close") << "Low" << true << "9.5" << "10.0" << 0 << kFall;
    QTest::newRow("high above close") << "High" << true << "11" << "10.0" << 1 << kRise;
    QTest::newRow("5min negative") << "DifferRange5Min" << true << "-0.12" << "" << 0 << kFall;
    QTest::newRow("5min positive rising") << "DifferRange5Min" << true << "0.12" << "" << 0 << kRise;
    QTest::newRow("5min positive falling") << "DifferRange5Min" << true << "0.12" << "" << 1 << kFall;
    QTest::newRow("now rising") << "Now" << true << "10" << "" << 0 << kRise;
    QTest::newRow("now falling") << "Now" << true << "10" << "" << 1 << kFall;
    QTest::newRow("now neither") << "Now" << true << "10" << "" << 7 << QColor();
    QTest::newRow("colour switched off") << "Now" << false << "10" << "" << 0 << QColor();
    QTest::newRow("empty value") << "Now" << true << "" << "" << 0 << QColor();
}

void TstTableCore::riseFallColours()
{
    QFETCH(QString, feild);
    QFETCH(bool, changeColor);
    QFETCH(QString, value);
    QFETCH(QString, preClose);
    QFETCH(int, riseFall);
    QFETCH(QColor, expected);

    UxTableModel model;
    model.setHeaderDatas({column(feild, changeColor)});
    model.setTableData({makeRow(QStringLiteral("1"), 1,
                                {{feild, value}, {QStringLiteral("PreClose"), preClose}}, riseFall)});
    const QVariant colour = model.data(model.index(0, 0), Qt::ForegroundRole);
    if (!expected.isValid())
        QVERIFY2(!colour.isValid(), qPrintable(colour.toString()));
    else
        QCOMPARE(colour.value<QColor>(), expected);
}

void TstTableCore::missingColoursAreReturnedAsTheyAre()
{
    UxTableModel model;
    _TableHHeaderData h = column(QStringLiteral("Now"), true);
    h.riseColor = QColor();
    model.setHeaderDatas({h});
    model.setTableData({makeRow(QStringLiteral("1"), 1, {{QStringLiteral("Now"), QStringLiteral("9")}}, 0)});
    const QVariant colour = model.data(model.index(0, 0), Qt::ForegroundRole);
    QVERIFY(colour.isValid());
    QVERIFY(!colour.value<QColor>().isValid());
}

void TstTableCore::sortStatesAndArrows()
{
    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    QSignalSpy headerSpy(&model, &QAbstractItemModel::headerDataChanged);
    auto caption = [&model](int c) { return model.headerData(c, Qt::Horizontal).toString(); };

    QCOMPARE(caption(3), QStringLiteral("Now"));
    model.toggleSortState(3);
    QCOMPARE(caption(3), QStringLiteral("Now↑"));
    model.toggleSortState(3);
    QCOMPARE(caption(3), QStringLiteral("Now↓"));
    model.toggleSortState(3);
    QCOMPARE(caption(3), QStringLiteral("Now↑"));
    QVERIFY(headerSpy.count() >= 3);
    headerSpy.clear();
    model.setSortIndicatorShown(false);
    QCOMPARE(headerSpy.count(), 1);
    QCOMPARE(caption(3), QStringLiteral("Now"));
    model.setSortIndicatorShown(true);
    // Another column takes the arrow away from the first.
    model.toggleSortState(4);
    QCOMPARE(caption(3), QStringLiteral("Now"));
    QCOMPARE(caption(4), QStringLiteral("Open↑"));
    QCOMPARE(model.headerData(4, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    QVERIFY(!model.headerData(4, Qt::Vertical, Qt::DisplayRole).isValid());
    QVERIFY(!model.headerData(model.columnCount(), Qt::Horizontal).isValid());
    QVERIFY(!model.headerData(-1, Qt::Horizontal).isValid());

    model.setSortState(QStringLiteral("Now"), UxSortDescending);
    QCOMPARE(model.sortState(3), int(UxSortDescending));
    QCOMPARE(model.sortState(4), 0);
    model.toggleSortState(3);
    QCOMPARE(model.sortState(3), int(UxSortAscending));
    model.setSortState(QStringLiteral("Open"), UxSortAscending);
    QCOMPARE(model.sortState(3), 0);
    // A new column list keeps the states of fields that remain.
    QList<_TableHHeaderData> cols = quoteColumns();
    cols.removeAt(3);
    model.setHeaderDatas(cols);
    QCOMPARE(model.sortState(3), int(UxSortAscending)); // "Open" moved to 3
    model.toggleSortState(99);
    QCOMPARE(model.sortState(3), int(UxSortAscending));
}

void TstTableCore::badIndexesGiveNothing()
{
    UxTableModel model;
    QStandardItemModel other(50, 50);
    // Empty column list: no columns, nothing to show, nothing to sort.
    model.setTableData(makeRows(3));
    QCOMPARE(model.columnCount(), 0);
    QVERIFY(!model.data(other.index(1, 0)).isValid());
    model.sort(0, Qt::AscendingOrder);
    model.toggleSortState(0);
    QCOMPARE(model.sortState(0), 0);
    model.updateRow(makeRow(QStringLiteral("600001")));

    model.setHeaderDatas(quoteColumns());
    QVERIFY(!model.data(other.index(40, 1)).isValid());
    QVERIFY(!model.data(other.index(1, 40)).isValid());
    QVERIFY(!model.data(QModelIndex()).isValid());
    QCOMPARE(model.flags(QModelIndex()), Qt::NoItemFlags);
    QVERIFY(model.flags(model.index(0, 1)) & Qt::ItemIsEditable);
    QVERIFY(!model.setData(other.index(40, 1), QStringLiteral("x")));
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
    QCOMPARE(model.sortState(99), 0);
    QCOMPARE(model.sortState(-1), 0);
    QVERIFY(!model.backgroundColorAt(other.index(40, 3)).isValid());

    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.sort(-1, Qt::AscendingOrder);
    model.sort(model.columnCount(), Qt::AscendingOrder);
    QCOMPARE(changed.count(), 0);
}

void TstTableCore::setDataStoresAndSignals()
{
    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    model.setTableData(makeRows(3));
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);

    QVERIFY(model.setData(model.index(1, 1), QStringLiteral("600001"))); // same code
    QVERIFY(model.setData(model.index(1, 0), QStringLiteral("99")));     // sequence column
    QCOMPARE(changed.count(), 0);
    QVERIFY(!model.setData(model.index(1, 3), QStringLiteral("9"), Qt::DisplayRole));
    QCOMPARE(model.data(model.index(1, 0)).toInt(), 2);

    QVERIFY(model.setData(model.index(1, 3), QStringLiteral("12.30")));
    QCOMPARE(model.data(model.index(1, 3)).toString(), QStringLiteral("12.30"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), model.index(1, 3));
    QCOMPARE(changed.at(0).at(2).value<QVector<int>>(), QVector<int>{Qt::EditRole});
    QVERIFY(model.setData(model.index(1, 3), QStringLiteral("12.30")));
    QCOMPARE(changed.count(), 1);

    // A new code is found by the next quote update.
    QVERIFY(model.setData(model.index(1, 1), QStringLiteral("000001")));
    QVERIFY(model.setData(model.index(1, 2), QStringLiteral("Renamed")));
    QCOMPARE(changed.count(), 3);
    QCOMPARE(model.findRow(makeRow(QStringLiteral("000001"))), 1);
    QCOMPARE(model.findRow(makeRow(QStringLiteral("600001"))), -1);
    QCOMPARE(model.tableDatas().at(1).name, QStringLiteral("Renamed"));
}

void TstTableCore::sortKeyParsing_data()
{
    QTest::addColumn<QString>("text");
    for (const char* t : {"1.20亿", "9.90万", "12.5%", "abc", "12万", "-1.50万", "1.2.3万", "5.万", "约1.5万", "１.５万",
                          "3%", "%", "-2.5%", "-17.25", " 42 ", "", "1.5亿2.5万"})
        QTest::newRow(t) << QString::fromUtf8(t);
}

void TstTableCore::sortKeyParsing()
{
    QFETCH(QString, text);
    const QVariant expected = ref::toNumber(text);
    const QVariant actual = UxTableModel::toNumber(text);
    QCOMPARE(actual.userType(), expected.userType());
    QCOMPARE(actual, expected);
}

void TstTableCore::sortMatchesReference_data()
{
    QTest::addColumn<QString>("feild");
    QTest::addColumn<int>("order");
    for (int order : {int(Qt::AscendingOrder), int(Qt::DescendingOrder)})
        for (const char* f : {"Amount", "Code", "Name", "Time"})
            QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(QLatin1String(f)).arg(order))) << f << order;
}

void TstTableCore::sortMatchesReference()
{
    QFETCH(QString, feild);
    QFETCH(int, order);

    QRandomGenerator rng(20240611);
    static const QStringList letters = {QStringLiteral("SH"), QStringLiteral("sz"), QStringLiteral("平安"),
                                        QStringLiteral("HK"), QString()};
    QList<_TableData> rows;
    for (int i = 0; i < 1500; ++i) {
        // Codes repeat and mix digits with letters; no empty code here.
        QString code = QString::number(rng.bounded(400) * 7 + 100);
        const QString prefix = letters.at(rng.bounded(letters.size()));
        if (rng.bounded(3) == 0)
            code = prefix + code;
        const QString time = QTime(9, 30).addSecs(rng.bounded(20000)).toString(QStringLiteral("HH:mm:ss"));
        rows << makeRow(code, rng.bounded(3), {{QStringLiteral("Amount"), mixedValue(rng)}, {QStringLiteral("Time"), time}},
                        0, QString::number(i));
    }

    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    model.setTableData(rows);
    int col = -1;
    for (int c = 0; c < model.columnCount(); ++c) {
        if (model.headerDatas().at(c).feild == feild)
            col = c;
    }
    QVERIFY(col >= 0);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.sort(col, Qt::SortOrder(order));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(1).toModelIndex(), model.index(rows.size() - 1, model.columnCount() - 1));

    verifySortedLikeReference(model.tableDatas(), rows, feild, Qt::SortOrder(order));
}

// The kept keys of the column sorted last follow every change of the rows:
// each sort still equals the plain one over the rows as they are then.
void TstTableCore::sortAgainAfterChanges()
{
    QRandomGenerator rng(77);
    QList<_TableData> rows;
    for (int i = 0; i < 1200; ++i)
        rows << makeRow(QString::number(100000 + i), 1, {{QStringLiteral("Amount"), mixedValue(rng)}});
    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    model.setTableData(rows);
    const int amount = 10;
    const QString feild = QStringLiteral("Amount");
    model.sort(amount, Qt::AscendingOrder);

    for (int round = 0; round < 8; ++round) {
        const int n = model.rowCount();
        for (int i = 0; i < 60; ++i) {
            _TableData u = model.tableDatas().at(rng.bounded(n));
            u.values.insert(feild, mixedValue(rng));
            model.updateRow(u);
        }
        for (int i = 0; i < 30; ++i)
            QVERIFY(model.setData(model.index(rng.bounded(n), amount), mixedValue(rng)));
        if (round % 3 == 1)
            model.sort(1, Qt::DescendingOrder); // by code: the kept keys move with the rows
        if (round == 5) {
            QList<_TableData> fresh;
            for (int i = 0; i < 900; ++i)
                fresh << makeRow(QString::number(300000 + i), 1, {{feild, mixedValue(rng)}});
            model.setTableData(fresh);
        }
        const QList<_TableData> before = model.tableDatas();
        const auto order = round % 2 ? Qt::AscendingOrder : Qt::DescendingOrder;
        model.sort(amount, order);
        verifySortedLikeReference(model.tableDatas(), before, feild, order);
        if (QTest::currentTestFailed())
            return;
    }
}

void TstTableCore::sortExamples_data()
{
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("order");
    QTest::addColumn<QStringList>("codes"); // each code is also its amount
    QTest::addColumn<QStringList>("expected");
    const QStringList units = {"1.20亿", "9.90万", "12.5%", "abc"};
    const QStringList timed = {"300", "", "100", "200"};
    QTest::newRow("units up") << 10 << 0 << units << QStringList({"abc", "12.5%", "9.90万", "1.20亿"});
    QTest::newRow("units down") << 10 << 1 << units << QStringList({"1.20亿", "9.90万", "12.5%", "abc"});
    // A negative unit value wraps above every positive one; negative plain numbers stay below.
    QTest::newRow("negatives") << 10 << 0 << QStringList({"3", "-1.50万", "-5", "1.20万", "12万"})
                               << QStringList({"-5", "12万", "3", "1.20万", "-1.50万"});
    QTest::newRow("stable") << 10 << 0 << QStringList({"b", "a", "c"}) << QStringList({"b", "a", "c"});
    // Empty codes and unreadable times have no place in the order: they end up last.
    QTest::newRow("code down") << 1 << 1 << timed << QStringList({"300", "200", "100", ""});
    QTest::newRow("name sorts by code") << 2 << 0 << timed << QStringList({"100", "200", "300", ""});
    QTest::newRow("time down") << 11 << 1 << timed << QStringList({"200", "300", "100", ""});
}

void TstTableCore::sortExamples()
{
    QFETCH(int, col);
    QFETCH(int, order);
    QFETCH(QStringList, codes);
    QFETCH(QStringList, expected);
    const QMap<QString, QString> times = {{"300", "10:00:00"}, {"", "junk"}, {"100", "09:30:00"}, {"200", "14:59:59"}};
    QList<_TableData> rows;
    for (const QString& t : codes)
        rows << makeRow(t, 1, {{QStringLiteral("Amount"), t}, {QStringLiteral("Time"), times.value(t)}}, 0, t);
    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    model.setTableData(rows);
    model.sort(col, Qt::SortOrder(order));
    QCOMPARE(codesOf(model.tableDatas()), expected);
}

void TstTableCore::updateRowFindsFirstMatch()
{
    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    QList<_TableData> rows = makeRows(5);
    rows[3] = makeRow(QStringLiteral("600001")); // duplicate of row 1
    rows[4] = makeRow(QStringLiteral("600001"), 2);
    model.setTableData(rows);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);

    _TableData update = makeRow(QStringLiteral("600001"), 1, {{QStringLiteral("Now"), QStringLiteral("8.88")}});
    update.name = QStringLiteral("updated");
    model.updateRow(update);
    QCOMPARE(model.data(model.index(1, 3)).toString(), QStringLiteral("8.88"));
    QCOMPARE(model.data(model.index(1, 2)).toString(), QStringLiteral("updated"));
    QCOMPARE(model.data(model.index(3, 3)).toString(), QStringLiteral("--"));
    QCOMPARE(model.data(model.index(4, 3)).toString(), QStringLiteral("--"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), model.index(1, 0));
    QCOMPARE(changed.at(0).at(1).toModelIndex(), model.index(1, model.columnCount() - 1));

    // Other key, other market or unknown code: nothing.
    model.updateRow(makeRow(QStringLiteral("600002"), 1, {}, 0, QStringLiteral("other")));
    model.updateRow(makeRow(QStringLiteral("600002"), 9));
    model.updateRow(makeRow(QStringLiteral("999999")));
    QCOMPARE(changed.count(), 1);

    // The row moves with a sort and is still found.
    model.sort(1, Qt::DescendingOrder);
    const int moved = model.findRow(makeRow(QStringLiteral("600000")));
    QCOMPARE(model.tableDatas().at(moved).code, QStringLiteral("600000"));
    model.updateRow(makeRow(QStringLiteral("600000"), 1, {{QStringLiteral("Now"), QStringLiteral("1.11")}}));
    QCOMPARE(model.data(model.index(moved, 3)).toString(), QStringLiteral("1.11"));
    QCOMPARE(moved, model.rowCount() - 1);
}

void TstTableCore::updateAllRowsNeedsSameLength()
{
    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    QList<_TableData> rows = makeRows(3);
    rows[0].values.insert(QStringLiteral("Now"), QStringLiteral("5"));
    model.setTableData(rows);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);

    QList<_TableData> fresh = {makeRow(QStringLiteral("A"), 7, {{QStringLiteral("Now"), QStringLiteral("9")}}, 1),
                               makeRow(QStringLiteral("B")), makeRow(QStringLiteral("C"))};
    model.updateAllRows(fresh.mid(0, 2));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(model.tableDatas().at(0).code, QStringLiteral("600000"));

    model.updateAllRows(fresh);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(1).toModelIndex(), model.index(2, 2));
    const _TableData first = model.tableDatas().at(0);
    QCOMPARE(first.code, QStringLiteral("A"));
    QCOMPARE(first.market, 7);
    QCOMPARE(first.values.value(QStringLiteral("Now")), QStringLiteral("5")); // values kept
    QCOMPARE(first.riseFall, 0);
    QCOMPARE(model.findRow(makeRow(QStringLiteral("A"), 7)), 0);

    // Fewer than three columns still gives a valid range.
    model.setHeaderDatas({column(QString())});
    changed.clear();
    model.updateAllRows(fresh);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(1).toModelIndex(), model.index(2, 0));
}

void TstTableCore::tintSetAndCleared()
{
    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    model.setTableData(makeRows(4));
    model.setBackgroundColorChangedEnable(true);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);

    model.updateRow(makeRow(QStringLiteral("600001"), 1, {{QStringLiteral("Now"), QStringLiteral("10.01")}}, 0));
    model.updateRow(makeRow(QStringLiteral("600002"), 1, {{QStringLiteral("Now"), QStringLiteral("9.99")}}, 1));
    QCOMPARE(model.backgroundColorAt(model.index(1, 3)), kRiseBg);
    QCOMPARE(model.backgroundColorAt(model.index(2, 3)), kFallBg);
    // Each update takes an idle timer of its own.
    const QList<QTimer*> timers = model.findChildren<QTimer*>();
    QCOMPARE(std::count_if(timers.begin(), timers.end(), [](QTimer* t) { return t->isActive(); }), 2);
    QVERIFY(!model.backgroundColorAt(model.index(1, 4)).isValid());
    QVERIFY(!model.data(model.index(1, 3), Qt::BackgroundRole).isValid());

    QTRY_VERIFY_WITH_TIMEOUT(!model.backgroundColorAt(model.index(1, 3)).isValid(), 10000);
    QTRY_VERIFY_WITH_TIMEOUT(!model.backgroundColorAt(model.index(2, 3)).isValid(), 10000);

    QList<int> clearedRows;
    for (const QList<QVariant>& args : qAsConst(changed)) {
        const QVector<int> roles = args.at(2).value<QVector<int>>();
        if (roles == QVector<int>{Qt::BackgroundRole}) {
            QCOMPARE(args.at(0).toModelIndex().column(), 0);
            QCOMPARE(args.at(1).toModelIndex().column(), model.columnCount() - 1);
            clearedRows << args.at(0).toModelIndex().row();
        }
    }
    QCOMPARE(clearedRows, QList<int>({1, 2}));

    // A new table drops tints at once.
    model.updateRow(makeRow(QStringLiteral("600003"), 1, {{QStringLiteral("Now"), QStringLiteral("1")}}, 0));
    QVERIFY(model.backgroundColorAt(model.index(3, 3)).isValid());
    model.setTableData(makeRows(4));
    QVERIFY(!model.backgroundColorAt(model.index(3, 3)).isValid());
}

void TstTableCore::tintConditions_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("pageChanged");
    QTest::addColumn<QString>("now");
    QTest::addColumn<int>("riseFall");
    QTest::addColumn<bool>("nowFirst"); // "Now" among the first three columns
    QTest::addColumn<bool>("tinted");

    QTest::newRow("changed") << true << false << "5.01" << 0 << false << true;
    QTest::newRow("disabled") << false << false << "5.01" << 0 << false << false;
    QTest::newRow("page changed") << true << true << "5.01" << 0 << false << false;
    QTest::newRow("same price") << true << false << "5.00" << 0 << false << false;
    QTest::newRow("neither rise nor fall") << true << false << "5.01" << 2 << false << false;
    QTest::newRow("price in frozen columns") << true << false << "5.01" << 0 << true << false;
}

void TstTableCore::tintConditions()
{
    QFETCH(bool, enabled);
    QFETCH(bool, pageChanged);
    QFETCH(QString, now);
    QFETCH(int, riseFall);
    QFETCH(bool, nowFirst);
    QFETCH(bool, tinted);

    UxTableModel model;
    QList<_TableHHeaderData> cols = quoteColumns();
    if (nowFirst)
        cols.move(3, 0);
    model.setHeaderDatas(cols);
    QList<_TableData> rows = makeRows(2);
    rows[1].values.insert(QStringLiteral("Now"), QStringLiteral("5.00"));
    model.setTableData(rows);
    model.setBackgroundColorChangedEnable(enabled);
    model.setIsPageChanged(pageChanged);

    model.updateRow(makeRow(QStringLiteral("600001"), 1, {{QStringLiteral("Now"), now}}, riseFall));
    int tints = 0;
    for (int c = 0; c < model.columnCount(); ++c)
        tints += model.backgroundColorAt(model.index(1, c)).isValid() ? 1 : 0;
    QCOMPARE(tints, tinted ? 1 : 0);
    QCOMPARE(model.data(model.index(1, nowFirst ? 0 : 3)).toString(), now);
}

void TstTableCore::visibleCodes_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("middle") << 1 << 2 << QStringList({"600001-1", "600002-1"});
    QTest::newRow("past the end") << 2 << 100 << QStringList({"600002-1", "600003-1"});
    QTest::newRow("huge count") << 3 << INT_MAX << QStringList({"600003-1"});
    QTest::newRow("negative first") << -1 << 2 << QStringList();
    QTest::newRow("first at end") << 4 << 2 << QStringList();
    QTest::newRow("zero count") << 0 << 0 << QStringList();
}

void TstTableCore::visibleCodes()
{
    QFETCH(int, first);
    QFETCH(int, count);
    QFETCH(QStringList, expected);
    UxTableModel model;
    model.setTableData(makeRows(4));
    QCOMPARE(model.visibleCodes(first, count), expected);
}

// ---------------------------------------------------------------- delegate

void TstTableCore::delegateKeepsModelColourWhenSelected_data()
{
    QTest::addColumn<bool>("changeColor");
    QTest::newRow("rise colour") << true;
    QTest::newRow("no colour") << false;
}

void TstTableCore::delegateKeepsModelColourWhenSelected()
{
    QFETCH(bool, changeColor);
    DelegateRig rig(changeColor, QStringLiteral("8888"));
    QImage image(120, 30, QImage::Format_ARGB32);
    image.fill(Qt::black);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 120, 30);
    option.state = QStyle::State_Selected | QStyle::State_Enabled | QStyle::State_Active;
    option.palette.setColor(QPalette::Highlight, QColor(0, 0, 255));
    option.palette.setColor(QPalette::HighlightedText, Qt::white);
    option.font.setPixelSize(22);
    option.font.setBold(true);
    {
        QPainter painter(&image);
        rig.delegate.paint(&painter, option, rig.model.index(0, 0));
    }
    int red = 0, white = 0;
    for (int y = 0; y < 29; ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.red() > 180 && c.green() < 110 && c.blue() < 110)
                ++red;
            if (c.red() > 220 && c.green() > 220 && c.blue() > 220)
                ++white;
        }
    }
    QVERIFY2((changeColor ? red : white) > 10, qPrintable(QStringLiteral("%1 %2").arg(red).arg(white)));
    QCOMPARE(changeColor ? white : red, 0);
    // The bottom rule in the view's alternate-base colour.
    QCOMPARE(image.pixelColor(60, 29), QColor(0, 200, 0));
    // The highlight above it (Qt 6 sets text one pixel shorter than Qt 5, so
    // its last row is 27 or 28).
    QCOMPARE(image.pixelColor(60, 27).name() + image.pixelColor(60, 26).name(), QStringLiteral("#0000ff#0000ff"));
}


void TstTableCore::columnWidths_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("hiddenInList");
    QTest::addColumn<int>("section");
    // The view is 1400 wide.
    QTest::newRow("ten share the width") << 10 << 0 << (1400 - 65) / 9;
    QTest::newRow("seventeen") << 17 << 0 << (1400 - 65) / 16;
    QTest::newRow("eighteen overflow") << 18 << 0 << 80;
    QTest::newRow("hidden columns dropped") << 12 << 2 << (1400 - 65) / 9;
    QTest::newRow("one column") << 1 << 0 << 80;
}

void TstTableCore::columnWidths()
{
    QFETCH(int, columns);
    QFETCH(int, hiddenInList);
    QFETCH(int, section);

    UxTableView view; // 1400 wide
    QList<_TableHHeaderData> cols;
    for (int i = 0; i < columns; ++i)
        cols << column(i == 0 ? QString() : QStringLiteral("F%1").arg(i));
    for (int i = 0; i < hiddenInList; ++i)
        cols[4 + i].isShow = false;
    view.setHHeaderData(cols);

    const int n = columns - hiddenInList;
    QCOMPARE(view.getHHeaderData().size(), n);
    QCOMPARE(view.horizontalHeader()->defaultSectionSize(), section);
    QTableView* frozen = view.frozenView();
    for (int c = 0; c < n; ++c) {
        QCOMPARE(frozen->isColumnHidden(c), c > 2);
        QCOMPARE(view.columnWidth(c), c == 0 ? 60 : section);
        if (c < 3)
            QCOMPARE(frozen->columnWidth(c), view.columnWidth(c));
    }
    QCOMPARE(frozen->selectionModel(), view.selectionModel());
    QCOMPARE(frozen->itemDelegate(), view.itemDelegate());
    QCOMPARE(frozen->model(), view.model());
}

void TstTableCore::frozenViewGeometryAndSync()
{
    ShownView shown(50, 10);
    UxTableView& view = shown.view;
    QTableView* frozen = view.frozenView();
    auto expectedGeometry = [&view]() {
        return QRect(view.verticalHeader()->width() + view.frameWidth(), view.frameWidth(),
                     view.columnWidth(0) + view.columnWidth(1) + view.columnWidth(2),
                     view.viewport()->height() + view.horizontalHeader()->height());
    };
    QVERIFY(frozen->isVisible());
    QCOMPARE(frozen->geometry(), expectedGeometry());
    QCOMPARE(frozen->width(), 60 + 2 * ((1400 - 65) / 9));

    // Widths follow in both directions.
    view.setColumnWidth(1, 200);
    QCOMPARE(frozen->columnWidth(1), 200);
    QCOMPARE(frozen->geometry(), expectedGeometry());
    frozen->setColumnWidth(2, 100);
    QCOMPARE(view.columnWidth(2), 100);
    QCOMPARE(frozen->width(), 60 + 200 + 100);
    view.setColumnWidth(5, 300);
    QVERIFY(frozen->isColumnHidden(5));
    QCOMPARE(frozen->width(), 60 + 200 + 100);
    view.setFrozenViewColumnHidden(5, false); // only columns 0-2 follow
    QVERIFY(frozen->columnWidth(5) != 300);
    view.setFrozenViewColumnHidden(5, true);

    view.resize(900, 400);
    QTRY_COMPARE(frozen->geometry(), expectedGeometry());

    // The two views scroll together.
    view.verticalScrollBar()->setValue(7);
    QCOMPARE(frozen->verticalScrollBar()->value(), 7);
    frozen->verticalScrollBar()->setValue(3);
    QCOMPARE(view.verticalScrollBar()->value(), 3);

    view.setFrozenViewColumnHidden(1, true);
    QVERIFY(frozen->isColumnHidden(1));
    view.setFrozenViewColumnHidden(99, false);
    view.setFrozenViewColumnHidden(-1, false);
    view.setTableViewCustomContexrtMenuEnable(true);
    QCOMPARE(frozen->contextMenuPolicy(), Qt::CustomContextMenu);
}

void TstTableCore::requestsFollowScrollBar()
{
    ShownView shown(1000);
    UxTableView& view = shown.view;
    const int p = shown.pageRows();
    QVERIFY(p > 5);
    RequestLog log(&view);
    QScrollBar* bar = view.verticalScrollBar();

    view.slotSubFirstPage();
    QCOMPARE(log.order, QStringList({"codes", "page"}));
    QCOMPARE(log.pages.at(0), (_SubPageData{0, 3 * p, QStringLiteral("blk"), QString(), UxSortNone}));
    QCOMPARE(log.codes.at(0).size(), 3 * p);
    QCOMPARE(log.codes.at(0).first(), QStringLiteral("600000-1"));
    log.clear();

    // Down one row at a time: a new range only past start + 2P.
    for (int v = 1; v <= 2 * p; ++v)
        bar->setValue(v);
    QCOMPARE(log.pages.size(), 0);
    bar->setValue(2 * p + 1);
    QCOMPARE(log.pages.size(), 1);
    QCOMPARE(log.pages.at(0).start, 2 * p);
    QCOMPARE(log.codes.at(0).first(), QStringLiteral("6000%1-1").arg(2 * p, 2, 10, QLatin1Char('0')));
    log.clear();

    // A jump past the range starts there; a step back before it moves 2P up.
    bar->setValue(500);
    bar->setValue(499);
    QCOMPARE(log.pages.size(), 2);
    QCOMPARE(log.pages.at(0).start, 500);
    QCOMPARE(log.pages.at(1).start, 499 - 2 * p);
    log.clear();
    // Scrolling up inside the first screen of the range moves the start back 2P.
    bar->setValue(499 - 2 * p + 1);
    QCOMPARE(log.pages.size(), 1);
    QCOMPARE(log.pages.at(0).start, 499 - 4 * p);
    log.clear();

    // At the end the count stays 3P, the codes stop at the last row.
    bar->setValue(bar->maximum());
    QCOMPARE(log.pages.size(), 1);
    QCOMPARE(log.pages.at(0).start, bar->maximum());
    QCOMPARE(log.pages.at(0).count, 3 * p);
    QCOMPARE(log.codes.at(0).size(), 1000 - bar->maximum());
    QCOMPARE(log.codes.at(0).last(), QStringLiteral("600999-1"));
    QCOMPARE(log.order, QStringList({"codes", "page"}));

    // Dragging the slider asks once, on release.
    bar->setValue(0);
    view.slotSubFirstPage();
    log.clear();
    bar->setSliderDown(true);
    bar->setValue(300);
    bar->setValue(600);
    QCOMPARE(log.pages.size(), 0);
    bar->setSliderDown(false);
    QCOMPARE(log.pages.size(), 1);
    QCOMPARE(log.pages.at(0).start, 600);

    // Every show forces the next request, even for the same start.
    log.clear();
    view.hide();
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.slotSubFirstPage();
    QCOMPARE(log.pages.size(), 1);
}

void TstTableCore::noRequestsWithoutPageRows()
{
    // Never shown, shown with no room for a row, and without rows.
    UxTableView hidden, flat, empty;
    RequestLog hiddenLog(&hidden), flatLog(&flat), emptyLog(&empty);
    flat.resize(600, 20);
    flat.show();
    QVERIFY(QTest::qWaitForWindowExposed(&flat));
    for (UxTableView* v : {&hidden, &flat}) {
        v->setHHeaderData(quoteColumns());
        v->slotCreateTableData(makeRows(100));
        v->slotSubFirstPage();
        v->slotVScrollBarValueChanged(50);
    }
    empty.slotVScrollBarValueChanged(5);
    QCOMPARE(hiddenLog.order.size() + flatLog.order.size() + emptyLog.order.size(), 0);
}

void TstTableCore::headerClickRequestsSort()
{
    ShownView shown(1000);
    UxTableView& view = shown.view;
    const int p = shown.pageRows();
    RequestLog log(&view);
    QSignalSpy sortSpy(&view, &UxTableView::sigSortTableData);
    QHeaderView* frozenHeader = view.frozenView()->horizontalHeader();
    auto clickSection = [](QHeaderView* header, int section) {
        const QPoint at(header->sectionViewportPosition(section) + header->sectionSize(section) / 2, 10);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    };

    view.verticalScrollBar()->setValue(300);
    log.clear();

    clickSection(frozenHeader, 0);
    QCOMPARE(sortSpy.count(), 0);
    QCOMPARE(view.verticalScrollBar()->value(), 300);

    clickSection(frozenHeader, 1);
    QCOMPARE(view.verticalScrollBar()->value(), 0);
    QCOMPARE(log.order.size(), 0);
    QCOMPARE(sortSpy.count(), 1);
    QCOMPARE(sortSpy.at(0).at(0).value<_SubPageData>(),
             (_SubPageData{0, 32760, QStringLiteral("blk"), QStringLiteral("Code"), UxSortAscending}));
    QCOMPARE(view.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Code↑"));

    clickSection(frozenHeader, 1);
    QCOMPARE(sortSpy.count(), 2);
    QCOMPARE(sortSpy.at(1).at(0).value<_SubPageData>().sortMode, int(UxSortDescending));

    // Clicked at the top, the skip waits for the next scroll; the one after
    // it asks with the sort field and mode.
    view.verticalScrollBar()->setValue(3 * p + 5);
    QCOMPARE(log.pages.size(), 0);
    view.verticalScrollBar()->setValue(6 * p + 6);
    QCOMPARE(log.pages.size(), 1);
    QCOMPARE(log.pages.at(0).sortFeild, QStringLiteral("Code"));
    QCOMPARE(log.pages.at(0).sortMode, int(UxSortDescending));

    // The main header sorts only once enabled, and only once per click.
    QHeaderView* header = view.horizontalHeader();
    clickSection(header, 5);
    QCOMPARE(sortSpy.count(), 2);
    view.setHHeaderSortEnable(true);
    view.setHHeaderSortEnable(true);
    clickSection(header, 5);
    QCOMPARE(sortSpy.count(), 3);
    QCOMPARE(sortSpy.at(2).at(0).value<_SubPageData>().sortFeild, view.getHHeaderData().at(5).feild);
    view.setHHeaderSortEnable(false);
    clickSection(header, 6);
    QCOMPARE(sortSpy.count(), 4);

    // Columns out of range ask for an unsorted table and break nothing.
    view.slotHHeaderClicked(99);
    QCOMPARE(sortSpy.count(), 5);
    QCOMPARE(sortSpy.at(4).at(0).value<_SubPageData>().sortFeild, QString());

}

void TstTableCore::headerClickWhenSortingLocally()
{
    ShownView shown(0);
    UxTableView& view = shown.view;
    QList<_TableData> rows = makeRows(30);
    std::reverse(rows.begin(), rows.end());
    std::swap(rows[3], rows[17]);
    view.slotCreateTableData(rows);
    view.setIsIndexSelected(true);
    QSignalSpy sortSpy(&view, &UxTableView::sigSortTableData);

    QHeaderView* frozenHeader = view.frozenView()->horizontalHeader();
    QTest::mouseClick(frozenHeader->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(frozenHeader->sectionViewportPosition(1) + 10, 10));
    QCOMPARE(sortSpy.count(), 0);
    QStringList codes = codesOf(view.getTableDatas());
    QStringList ascending = codes, descending = codes;
    std::sort(ascending.begin(), ascending.end());
    std::sort(descending.begin(), descending.end(), std::greater<QString>());
    QVERIFY(codes == ascending || codes == descending);
    // A click turns the captions' arrows back on.
    QCOMPARE(view.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Code↑"));
    QVERIFY(!view.horizontalHeader()->isSortIndicatorShown());
    QVERIFY(!view.frozenView()->horizontalHeader()->isSortIndicatorShown());
}

void TstTableCore::keys()
{
    ShownView shown(100);
    UxTableView& view = shown.view;
    QSignalSpy clicked(&view, &UxTableView::sigTableViewClicked);
    QSignalSpy doubleClicked(&view, &UxTableView::sigTableViewDoubleClicked);

    // Scroll bars show only while the mouse is over the table.
    QScrollBar* bar = view.verticalScrollBar();
    QVERIFY(bar->isHidden());
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(&view, &enter);
    QTRY_VERIFY(bar->isVisible());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&view, &leave);
    QVERIFY(bar->isHidden());

    QTest::keyClick(&view, Qt::Key_Down); // nothing selected yet
    QCOMPARE(clicked.count(), 0);

    view.setRowSelected(2);
    QCOMPARE(clicked.count(), 1);
    clicked.clear();

    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).value<_TableData>().code, QStringLiteral("600002"));
    QCOMPARE(view.currentIndex().row(), 3);

    QTest::keyClick(&view, Qt::Key_Up);
    QCOMPARE(clicked.count(), 2);
    QCOMPARE(clicked.at(1).at(0).value<_TableData>().code, QStringLiteral("600003"));
    QCOMPARE(view.currentIndex().row(), 2);

    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Enter);
    QCOMPARE(doubleClicked.count(), 2);
    QCOMPARE(doubleClicked.at(0).at(0).value<_TableData>().code, QStringLiteral("600002"));
    QCOMPARE(doubleClicked.at(0).at(1).toModelIndex().row(), 2);

    const int value = view.verticalScrollBar()->value();
    for (Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End, Qt::Key_Left, Qt::Key_Right,
                        Qt::Key_A, Qt::Key_Space})
        QTest::keyClick(&view, key);
    QCOMPARE(view.currentIndex().row(), 2);
    QCOMPARE(view.verticalScrollBar()->value(), value);
    QCOMPARE(clicked.count(), 2);
    QCOMPARE(doubleClicked.count(), 2);
}

void TstTableCore::moveCursorAndScrollTo_data()
{
    QTest::addColumn<int>("scrolled");
    QTest::addColumn<int>("current");
    QTest::addColumn<bool>("moves");
    // 30 columns of 80 after a 60 wide first one; frozen column 2 is 80 wide.
    QTest::newRow("target behind frozen column 1") << 2 << 4 << false;
    QTest::newRow("target left of column 2's width") << 3 << 4 << true;
    QTest::newRow("target in frozen columns") << 0 << 3 << false;
}

void TstTableCore::moveCursorAndScrollTo()
{
    QFETCH(int, scrolled);
    QFETCH(int, current);
    QFETCH(bool, moves);

    ProbeView view;
    QList<_TableHHeaderData> cols = quoteColumns();
    while (cols.size() < 30)
        cols << column(QStringLiteral("F%1").arg(cols.size()));
    view.setHHeaderData(cols);
    view.slotCreateTableData(makeRows(100));
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QCOMPARE(view.frozenView()->columnWidth(2), 80);

    view.selectionModel()->setCurrentIndex(view.model()->index(0, current), QItemSelectionModel::NoUpdate);
    QScrollBar* hbar = view.horizontalScrollBar();
    hbar->setValue(scrolled);
    QCOMPARE(hbar->value(), scrolled);
    const QModelIndex target = view.moveLeft();
    QCOMPARE(target.column(), current - 1);
    QCOMPARE(hbar->value() != scrolled, moves);

    // Frozen columns never scroll the view.
    view.verticalScrollBar()->setValue(50);
    view.scrollTo(view.model()->index(0, 1));
    QCOMPARE(view.verticalScrollBar()->value(), 50);
    view.scrollTo(view.model()->index(0, 5));
    QCOMPARE(view.verticalScrollBar()->value(), 0);
}

void TstTableCore::rowEdits_data()
{
    QTest::addColumn<QString>("op");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QStringList>("expected"); // last digits of the codes

    QTest::newRow("add") << "add" << 0 << false << "600009" << QStringList({"0", "1", "2", "3", "9"});
    QTest::newRow("remove") << "remove" << 0 << false << "600002" << QStringList({"0", "1", "3"});
    QTest::newRow("remove unknown") << "remove" << 0 << false << "1" << QStringList({"0", "1", "2", "3"});
    QTest::newRow("up") << "up" << 2 << false << "600002" << QStringList({"0", "2", "1", "3"});
    QTest::newRow("up at top") << "up" << 0 << true << "600000" << QStringList({"0", "1", "2", "3"});
    QTest::newRow("up to top") << "up" << 2 << true << "600002" << QStringList({"2", "0", "1", "3"});
    QTest::newRow("up past end") << "up" << 9 << false << "600002" << QStringList({"0", "1", "2", "3"});
    QTest::newRow("up negative") << "up" << -3 << false << "600002" << QStringList({"0", "1", "2", "3"});
    QTest::newRow("down") << "down" << 1 << false << "600001" << QStringList({"0", "2", "1", "3"});
    QTest::newRow("down to bottom") << "down" << 0 << true << "600000" << QStringList({"1", "2", "3", "0"});
    QTest::newRow("down at bottom") << "down" << 3 << false << "600003" << QStringList({"0", "1", "2", "3"});
    QTest::newRow("down negative") << "down" << -1 << false << "600003" << QStringList({"0", "1", "2", "3"});
}

void TstTableCore::rowEdits()
{
    QFETCH(QString, op);
    QFETCH(int, row);
    QFETCH(bool, flag);
    QFETCH(QString, code);
    QFETCH(QStringList, expected);

    UxTableView view;
    view.setHHeaderData(quoteColumns());
    view.slotCreateTableData(makeRows(4));
    const _TableData data = makeRow(code);
    if (op == QLatin1String("add"))
        view.add(data);
    else if (op == QLatin1String("remove"))
        view.remove(data);
    else if (op == QLatin1String("up"))
        view.moveUp(data, row, flag);
    else
        view.moveDown(data, row, flag);

    QStringList last;
    for (const QString& c : codesOf(view.getTableDatas()))
        last << c.right(1);
    QCOMPARE(last, expected);
    QCOMPARE(view.rowCount(), expected.size());
}

void TstTableCore::rowSelectionAndClicks()
{
    ShownView shown(200);
    UxTableView& view = shown.view;
    QSignalSpy clicked(&view, &UxTableView::sigTableViewClicked);
    QSignalSpy doubleClicked(&view, &UxTableView::sigTableViewDoubleClicked);
    QSignalSpy menu(&view, &UxTableView::sigCustomContextMenuRequested);

    view.setRowSelected(-1);
    view.setRowSelected(200);
    QCOMPARE(clicked.count(), 0);

    view.setRowSelected(150);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).value<_TableData>().code, QStringLiteral("600150"));
    QCOMPARE(clicked.at(0).at(1).toModelIndex(), view.currentIndex());
    QCOMPARE(view.currentIndex().row(), 150);
    QVERIFY(view.selectionModel()->isRowSelected(150, QModelIndex()));
    // Selecting by code scrolls nothing: the frozen column 0 is current.
    QCOMPARE(view.verticalScrollBar()->value(), 0);

    // Mouse clicks in either view report the row.
    clicked.clear();
    view.verticalScrollBar()->setValue(0);
    const QRect cell = view.visualRect(view.model()->index(4, 6));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).value<_TableData>().code, QStringLiteral("600004"));
    QTableView* frozen = view.frozenView();
    const QRect frozenCell = frozen->visualRect(frozen->model()->index(6, 1));
    // A real double click starts with a press and release.
    QTest::mouseClick(frozen->viewport(), Qt::LeftButton, Qt::NoModifier, frozenCell.center());
    QTest::mouseDClick(frozen->viewport(), Qt::LeftButton, Qt::NoModifier, frozenCell.center());
    QCOMPARE(doubleClicked.count(), 1);
    QCOMPARE(doubleClicked.at(0).at(0).value<_TableData>().code, QStringLiteral("600006"));

    view.slotTableViewClicked(QModelIndex());
    view.slotCustomContextMenuRequested(QPoint(5, 200 * 30 + 100)); // below the last row
    QCOMPARE(menu.count(), 0);
    view.slotCustomContextMenuRequested(cell.center());
    QCOMPARE(menu.count(), 1);
    QCOMPARE(menu.at(0).at(0).value<_TableData>().code, QStringLiteral("600004"));
}

void TstTableCore::quoteUpdatesThroughView()
{
    UxTableView view;
    view.setHHeaderData(quoteColumns());
    view.slotCreateTableData(makeRows(5));
    view.setBackgroundColorChangedEnable(true);
    UxTableModel* model = view.tableModel();
    auto update = [](const QString& now) {
        return QList<_TableData>{makeRow(QStringLiteral("600002"), 1, {{QStringLiteral("Now"), now}}, 1)};
    };

    // Rows that just arrived with a new page are not tinted.
    view.slotUpdateTable(update(QStringLiteral("3.10")));
    QCOMPARE(model->data(model->index(2, 3)).toString(), QStringLiteral("3.10"));
    QVERIFY(!model->backgroundColorAt(model->index(2, 3)).isValid());
    view.setIsPageChanged(false);
    view.slotUpdateTable(update(QStringLiteral("3.20")));
    QCOMPARE(model->backgroundColorAt(model->index(2, 3)), kFallBg);

    QList<_TableData> renamed = makeRows(5);
    renamed[4].name = QStringLiteral("Renamed");
    view.slotUpdateAllTable(renamed);
    QCOMPARE(model->data(model->index(4, 2)).toString(), QStringLiteral("Renamed"));
    QCOMPARE(view.getTableDatas().size(), 5);
}

void TstTableCore::skinReachesTheRule()
{
    UxTableView view;
    // The view wears the skin's table sheet and follows a skin switch; the
    // row rule follows the sheet's alternate-background colour.
    QVERIFY(!view.styleSheet().isEmpty());
    UxTest::writeSkin(QStringLiteral("black"),
                      {{QStringLiteral("quote/customtable.css"),
                        QByteArray("QTableView { background: #000000; color: #ffffff; border: none;"
                                   " alternate-background-color: #123456; }")}});
    UxCore::instance()->setCurrentSkin(QStringLiteral("black"));
    QVERIFY(view.styleSheet().contains(QStringLiteral("#123456")));

    ShownView shown(20);
    const QImage image = shown.view.grab().toImage();
    const int ruleY = shown.view.horizontalHeader()->height() + shown.view.rowHeight(0) - 1;
    QCOMPARE(image.pixelColor(700, ruleY), QColor(QStringLiteral("#123456")));
    QCOMPARE(image.pixelColor(700, ruleY - 5), QColor(QStringLiteral("#000000")));
    UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
}

UX_TEST_MAIN(TstTableCore)
#include "tst_tablecore.moc"

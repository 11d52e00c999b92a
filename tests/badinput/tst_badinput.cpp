// What the public entry points do with the input a real client gets wrong:
// damaged or huge column files, impossible paths, out-of-range indexes,
// nonsense values, and widgets destroyed while their pop-ups are open. Each
// case must give the documented result and log, never crash.

#include "uxtestenv.h"

#include "uxanimationstackedwidget.h"
#include "uxbottomlabel.h"
#include "uxcalendartimeedit.h"
#include "uxcalendartimewidget.h"
#include "uxcustomtablewidget.h"
#include "uxcustomtoolbutton.h"
#include "uxkeyboradsprit.h"
#include "quickmacroitem.h"
#include "uxdatetimeedit.h"
#include "uxflowlayout.h"
#include "uxlooplabels.h"
#include "uxminiclockpannel.h"
#include "uxnewindentlabel.h"
#include "uxtabledatamanager.h"
#include "uxtimeeditpopedit.h"
#include "uxtimepopwidget.h"

#include <QCalendarWidget>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QTableView>

#include <climits>
#include <memory>
#include <vector>

namespace {

QByteArray columnJson(int i)
{
    return "{\"text\":\"列" + QByteArray::number(i) + "\",\"feild\":\"F" + QByteArray::number(i)
        + "\",\"isShow\":true,\"isChangeColor\":false,\"alignment\":\"AlignRight\",\"defaultValue\":\"--\"}";
}

QByteArray tableJson(const QByteArray& columns)
{
    return "{\"defaultColor\":\"#333333\",\"riseColor\":\"#ff0000\",\"fallColor\":\"#00ff00\","
           "\"horizontalHeader\":["
        + columns + "]}";
}

// Writes about SIZE bytes of one valid table with as many columns as fit;
// long captions keep the column count (and the test's time) moderate.
int writeHugeTable(const QString& path, qint64 size)
{
    const QByteArray caption(4000, 'c');
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(path));
    f.write("{\"defaultColor\":\"#333333\",\"horizontalHeader\":[");
    int n = 0;
    QByteArray chunk;
    while (f.size() + chunk.size() < size) {
        chunk += (n ? ",{\"text\":\"" : "{\"text\":\"") + caption + "\",\"feild\":\"F" + QByteArray::number(n)
            + "\",\"alignment\":\"AlignRight\"}";
        ++n;
        if (chunk.size() > (1 << 20)) {
            f.write(chunk);
            chunk.clear();
        }
    }
    f.write(chunk);
    f.write("]}");
    return n;
}

QWidget* newTopLevel(const QWidgetList& before, const QString& objectName)
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (!before.contains(w) && w->objectName() == objectName)
            return w;
    }
    return nullptr;
}

_TableHHeaderData header(const QString& feild)
{
    _TableHHeaderData h;
    h.text = feild;
    h.feild = feild;
    return h;
}

tagMessage message(int i)
{
    tagMessage m;
    m.content = QStringLiteral("message %1").arg(i);
    m.time = QStringLiteral("09:%1").arg(i, 2, 10, QLatin1Char('0'));
    m.level = i % 4;
    return m;
}

} // namespace

class TstBadInput : public QObject
{
    Q_OBJECT

    UxTableDataManager* m = UxTableDataManager::getInstance();
    QString dir;

    QString path(const QString& name) const { return dir + QLatin1Char('/') + name; }

private slots:
    void init()
    {
        dir = UxTest::rootDir() + QStringLiteral("/badinput-") + QString::fromLatin1(QTest::currentTestFunction());
        QDir(dir).removeRecursively();
        QDir().mkpath(dir);
    }

    // --- column files ------------------------------------------------------------------

    void columnFileThatIsNotAFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("log");
        QTest::newRow("a directory") << QStringLiteral("adir") << QStringLiteral("cannot open|illegal|garbage");
        QTest::newRow("inside a file") << QStringLiteral("plain/x.json") << QStringLiteral("file is not exists!");
        QTest::newRow("nul in the name") << QStringLiteral("a\0b.json") << QStringLiteral("file is not exists!");
    }
    void columnFileThatIsNotAFile()
    {
        QFETCH(QString, name);
        QFETCH(QString, log);
        QDir().mkpath(path(QStringLiteral("adir")));
        UxTest::writeFile(path(QStringLiteral("plain")), tableJson(columnJson(0)));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(log));
        QVERIFY(m->getTableHeaderData(path(name)).isEmpty());
    }

    void columnFileEncodings_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("columns");
        const QByteArray good = tableJson(columnJson(1));
        QTest::newRow("utf-8 with BOM") << QByteArray("\xef\xbb\xbf") + good << -1;
        QTest::newRow("utf-16") << QByteArray(reinterpret_cast<const char*>(QString::fromUtf8(good).utf16()),
                                              good.size() * 2)
                                << 0;
        QTest::newRow("nul between tokens") << QByteArray(good).insert(1, '\0') << 0;
        QTest::newRow("latin-1 text") << tableJson("{\"text\":\"\xe9t\xe9\",\"feild\":\"A\"}") << 0;
        QTest::newRow("trailing garbage") << good + "}}" << 0;
        QTest::newRow("only whitespace") << QByteArray(4096, ' ') << 0;
    }
    void columnFileEncodings()
    {
        // A file the parser refuses gives no columns and the parser's message;
        // a BOM is either skipped or refused, never half-read.
        QFETCH(QByteArray, content);
        QFETCH(int, columns);
        const QString f = UxTest::writeFile(path(QStringLiteral("t.json")), content);
        if (columns == 0)
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral(".")));
        const QList<_TableHHeaderData> list = m->getTableHeaderData(f);
        if (columns == 0) {
            QVERIFY(list.isEmpty());
        } else {
            QVERIFY(list.isEmpty() || (list.size() == 1 && list[0].feild == QStringLiteral("F1")));
        }
    }

    void deeplyNestedObjects()
    {
        // Nesting deeper than the parser allows is refused with its message.
        QByteArray doc = "{\"horizontalHeader\":[";
        for (int i = 0; i < 100000; ++i)
            doc += "{\"a\":";
        doc += "1";
        for (int i = 0; i < 100000; ++i)
            doc += "}";
        doc += "]}";
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("deep|nest|too")));
        QVERIFY(m->getTableHeaderData(UxTest::writeFile(path(QStringLiteral("deep.json")), doc)).isEmpty());
        QVERIFY(m->jsonToMap("{\"blockData\":[{\"TableHHeaderData\":" + doc + "}]}").isEmpty());
    }

    void hundredMegabyteFiles()
    {
        const qint64 size = 100LL * 1024 * 1024;
        const QString valid = path(QStringLiteral("huge.json"));
        const int n = writeHugeTable(valid, size);
        QVERIFY(QFileInfo(valid).size() >= size - 4096);
        const QList<_TableHHeaderData> list = m->getTableHeaderData(valid);
        QCOMPARE(list.size(), n);
        QCOMPARE(list.last().feild, QStringLiteral("F%1").arg(n - 1));
        QCOMPARE(list.last().alignment, Qt::Alignment(Qt::AlignRight));

        // The same size of garbage: refused with the parser's message.
        {
            QFile f(valid);
            QVERIFY(f.open(QIODevice::ReadWrite));
            f.seek(size / 2);
            f.write("\x01\x02 not json \xff");
        }
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral(".")));
        QVERIFY(m->getTableHeaderData(valid).isEmpty());
        QFile::remove(valid);
    }

    void wrongTypesEverywhere()
    {
        // Every key with the wrong JSON type: columns are still read, with
        // the empty or false values and the default alignment.
        const QByteArray doc = "{\"defaultColor\":12,\"riseColor\":[],\"fallColor\":null,\"suspensionColor\":{},"
                               "\"defaultBgColor\":true,\"riseBgColor\":\"#nothex\",\"fallBgColor\":\"\","
                               "\"horizontalHeader\":[{\"text\":5,\"feild\":[\"GreenVolume\"],\"isShow\":\"true\","
                               "\"isChangeColor\":1,\"alignment\":132,\"defaultValue\":{}},null,7,\"x\",[]]}";
        const QList<_TableHHeaderData> list = m->getTableHeaderData(UxTest::writeFile(path(QStringLiteral("t.json")), doc));
        QCOMPARE(list.size(), 1);
        const _TableHHeaderData& h = list.first();
        QVERIFY(h.text.isEmpty() && h.feild.isEmpty() && h.defaultValue.isEmpty());
        QVERIFY(!h.isShow && !h.isChangeColor);
        QCOMPARE(h.alignment, Qt::Alignment(Qt::AlignCenter));
        QVERIFY(!h.defaultColor.isValid() && !h.riseBgColor.isValid() && !h.fallBgColor.isValid());
    }

    void multiBlockGarbage_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QStringList>("ids");
        QTest::newRow("empty") << QByteArray() << QStringList();
        QTest::newRow("binary") << QByteArray("\x00\xff\xfe\x01", 4) << QStringList();
        QTest::newRow("blockData not an array") << QByteArray("{\"blockData\":{\"rootBlockId\":\"a\"}}") << QStringList();
        QTest::newRow("blocks of every type")
            << QByteArray("{\"blockData\":[1,\"a\",null,[],{\"rootBlockId\":7,\"TableHHeaderData\":[]},"
                          "{\"rootBlockId\":\"b\",\"TableHHeaderData\":\"x\"}]}")
            << QStringList{QString(), QStringLiteral("b")};
        QTest::newRow("truncated") << QByteArray("{\"blockData\":[{\"rootBlockId\":\"a\",\"TableHH") << QStringList();
    }
    void multiBlockGarbage()
    {
        QFETCH(QByteArray, json);
        QFETCH(QStringList, ids);
        const QMap<QString, QList<_TableHHeaderData>> map = m->jsonToMap(json);
        QCOMPARE(map.keys(), ids);
        for (const QList<_TableHHeaderData>& list : map)
            QVERIFY(list.isEmpty());
    }

    void manyBlocks()
    {
        QMap<QString, QList<_TableHHeaderData>> map;
        for (int i = 0; i < 3000; ++i)
            map.insert(QString::number(i), {header(QStringLiteral("F%1").arg(i))});
        const QMap<QString, QList<_TableHHeaderData>> back = m->jsonToMap(m->mapToJson(map));
        QCOMPARE(back.size(), map.size());
        QCOMPARE(back.value(QStringLiteral("2999")).value(0).feild, QStringLiteral("F2999"));
    }

    void oddTextsSurviveASave()
    {
        // Control characters, NULs, very long captions and non-BMP text are
        // written as JSON escapes and read back unchanged.
        const QString user = path(QStringLiteral("user.json"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("file is not exists!")));
        m->setUserFileName(user);
        QList<_TableHHeaderData> list;
        list << header(QString::fromUtf16(u"a\u0000b\u0001\"\\/\n\t"))
             << header(QString(100000, QChar(0x4E07)))
             << header(QString::fromUtf16(u"\U0001F4C8 ticker"));
        QVERIFY(m->saveUserConfig(list));
        const QList<_TableHHeaderData> back = m->getTableHeaderData(user);
        QCOMPARE(back.size(), 3);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(back[i].text, list[i].text);
            QCOMPARE(back[i].feild, list[i].feild);
        }
    }

    void savingToImpossiblePlaces_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("log");
        QTest::newRow("a directory") << QStringLiteral("adir") << QStringLiteral("cannot open|cannot write");
        QTest::newRow("below a file") << QStringLiteral("plain/user.json") << QStringLiteral("cannot create directory");
    }
    void savingToImpossiblePlaces()
    {
        // The list is taken, true is returned, the failure is logged, and
        // nothing on disk is renamed or removed.
        QFETCH(QString, name);
        QFETCH(QString, log);
        QDir().mkpath(path(QStringLiteral("adir")));
        UxTest::writeFile(path(QStringLiteral("adir/keep")), "x");
        UxTest::writeFile(path(QStringLiteral("plain")), "plain bytes");
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral(".")));
        m->setUserFileName(path(name));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(log));
        QVERIFY(m->saveUserConfig({header(QStringLiteral("Now"))}));
        QCOMPARE(m->getTableHeaderData().value(0).feild, QStringLiteral("Now"));
        QVERIFY(QFileInfo(path(QStringLiteral("adir"))).isDir());
        QVERIFY(QFile::exists(path(QStringLiteral("adir/keep"))));
        QCOMPARE(UxTest::readFile(path(QStringLiteral("plain"))), QByteArray("plain bytes"));
        QVERIFY(!QFile::exists(path(name) + QStringLiteral(".bad")));
    }

    // --- quote rows and dictionaries ----------------------------------------------------

    void quoteRowsAClientGetsWrong()
    {
        UxCustomTableWidget table;
        table.setHHeaderData(QList<_TableHHeaderData>{header(QString()), header(QStringLiteral("Code")),
                                                      header(QStringLiteral("Name")), header(QStringLiteral("Now")),
                                                      header(QStringLiteral("RedVolume")), header(QStringLiteral("Time"))});
        table.resize(600, 300);
        table.show();
        QVERIFY(QTest::qWaitForWindowExposed(&table));

        QList<_TableData> rows;
        const QStringList absurd{QStringLiteral("1e400"), QStringLiteral("-0"), QStringLiteral("nan"),
                                 QString(300, QLatin1Char('9')), QStringLiteral("99999999999999999999.9亿"),
                                 QStringLiteral("-1.50万"), QStringLiteral("%"), QStringLiteral("万亿%"),
                                 QString(), QString(5000, QChar(0x4EBF))};
        for (int i = 0; i < 30; ++i) {
            _TableData r;
            r.code = i % 3 ? QStringLiteral("600000") : QString(); // duplicate and missing codes
            r.market = i % 2 ? INT_MIN : INT_MAX;
            r.riseFall = i - 15;
            if (i % 4) {
                r.values.insert(QStringLiteral("Now"), absurd.at(i % absurd.size()));
                r.values.insert(QStringLiteral("RedVolume"), absurd.at((i + 3) % absurd.size()));
                r.values.insert(QStringLiteral("Time"), absurd.at((i + 5) % absurd.size()));
            }
            rows.append(r);
        }
        table.slotCreateTableData(rows);
        QCOMPARE(table.rowCount(), rows.size());
        table.setBackgroundColorChangedEnable(true);
        table.slotUpdateTable(rows.mid(0, 10));
        table.slotUpdateTable({});
        table.slotUpdateAllTable(rows.mid(0, 3)); // wrong length: ignored
        // Duplicates update the first row with their identity; every row is
        // still one of the rows sent, whole.
        rows = table.getTableDatas();
        QCOMPARE(rows.size(), 30);

        // Every column sorted both ways: the rows are the same, reordered.
        auto* view = table.findChild<QTableView*>();
        QVERIFY(view);
        for (int c = -1; c <= table.columnCount(); ++c) {
            view->model()->sort(c, Qt::AscendingOrder);
            view->model()->sort(c, Qt::DescendingOrder);
        }
        QList<_TableData> after = table.getTableDatas();
        QCOMPARE(after.size(), rows.size());
        for (const _TableData& r : rows)
            QVERIFY(after.removeOne(r));

        for (int row : {-5, -1, 30, 1000, INT_MAX})
            table.setRowSelected(row);
        for (int column : {-1, 6, 999}) {
            table.setColumnHidden(column, true);
            table.setFrozenViewColumnHidden(column, true);
        }
        table.moveUp(rows.first(), -3);
        table.moveDown(rows.first(), 999, true);
        table.remove(_TableData());
        QTest::qWait(1200); // tint time-outs on rows that moved
        QCOMPARE(table.rowCount(), rows.size());
    }

    void dictionaryWithNullsAndShortRecords()
    {
        std::vector<std::unique_ptr<quickMacroItem>> owned;
        QVector<quickMacroItem*> dict;
        for (int i = 0; i < 12; ++i) {
            owned.emplace_back(new quickMacroItem);
            for (int t = 0; t < i % 6; ++t)
                owned.back()->texts << QStringLiteral("60%1").arg(i);
            dict << owned.back().get() << nullptr;
        }
        UxKeyBoradSprit* wizard = UxKeyBoradSprit::initance();
        wizard->setDictData(dict);
        wizard->updateResult(QStringLiteral("60"));
        auto* view = wizard->findChild<QTableView*>();
        QVERIFY(view);
        // Only the records with four texts or more can be hits.
        for (int r = 0; r < view->model()->rowCount(); ++r)
            QVERIFY(view->model()->index(r, 1).data().toString().startsWith(QStringLiteral("60")));
        QCOMPARE(view->model()->rowCount(), 4);
        for (int d : {-1, 0, 1, 7})
            for (int i = 0; i < 8; ++i)
                wizard->focusRowChanged(d);
        QCOMPARE(wizard->dbClicked(view->model()->index(99, 0)), QString());
        QCOMPARE(wizard->dbClicked(QModelIndex(), true), QString());
        wizard->updateResult(QString());
        wizard->setDictData({});
        wizard->updateResult(QStringLiteral("x"));
        QCOMPARE(view->model()->rowCount(), 0);
        wizard->focusRowChanged(1);
        QCOMPARE(wizard->dbClicked(view->currentIndex(), true), QString());
    }

    // --- widgets: out-of-range and nonsense values ---------------------------------------

    void stackedWidgetRefusesMissingPages()
    {
        UxAnimationStackedWidget stack;
        QSignalSpy spy(&stack, &UxAnimationStackedWidget::signalFrameIndexChanged);
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("no page at index.*0")));
        stack.start(0);
        stack.addWidget(new QLabel(QStringLiteral("a")));
        stack.addWidget(new QLabel(QStringLiteral("b")));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("no page at index.*-7")));
        stack.start(-7);
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("no page at index.*2")));
        stack.start(2);
        stack.start(-1);
        stack.setLength(-50, UxAnimationStackedWidget::AnimationType(99));
        stack.setDuration(-1);
        QTest::qWait(50);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(stack.currentIndex(), 0);
    }

    void flowLayoutOutOfRange()
    {
        QWidget host;
        auto* layout = new UxFlowLayout(&host, -1, -1, -1);
        layout->addWidget(new QLabel(QStringLiteral("x")));
        QCOMPARE(layout->itemAt(-1), nullptr);
        QCOMPARE(layout->itemAt(1), nullptr);
        QCOMPARE(layout->takeAt(-1), nullptr);
        QCOMPARE(layout->takeAt(5), nullptr);
        QCOMPARE(layout->count(), 1);
        QVERIFY(layout->heightForWidth(-10) >= 0);
        layout->setGeometry(QRect(0, 0, 0, 0));
        layout->setGeometry(QRect(0, 0, -5, -5));
    }

    void tickerWithNonsenseLimits()
    {
        UxLoopLabels ticker;
        ticker.resize(300, 24);
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("negative interval!.*-5")));
        ticker.setIntervalTime(-5);
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("negative duration!.*-1")));
        ticker.setDurationTime(-1);
        ticker.setMaxLoopLabels(0);
        for (int i = 0; i < 5; ++i)
            ticker.addMessages(message(i));
        ticker.setMaxLoopLabels(-3);
        ticker.addMessages(message(9));
        ticker.addMsgContents(QString());
        ticker.addMsgContents(QString(50000, QLatin1Char('x')));
        ticker.show();
        QVERIFY(QTest::qWaitForWindowExposed(&ticker));
        QTest::qWait(50);
    }

    void tickerKeepsOnlyItsLines()
    {
        // A full ticker drops its oldest line for each new one: the dropped
        // lines must go, or a ticker fed all day grows without bound.
        UxLoopLabels ticker;
        ticker.setMaxLoopLabels(3);
        for (int i = 0; i < 60; ++i)
            ticker.addMessages(message(i));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY2(ticker.findChildren<UxBottomLabel*>().size() <= 3,
                 qPrintable(QString::number(ticker.findChildren<UxBottomLabel*>().size())));
    }

    void indentLabelWithoutRoom()
    {
        UxNewIndentLabel label;
        label.setMsg(QString(20000, QChar(0x4E07)));
        label.setTextIndent(-5);
        label.setLink(QStringLiteral("更多"));
        label.showLinkTextVisible(true);
        for (const QSize& s : {QSize(0, 0), QSize(1, 200), QSize(3, 1), QSize(400, 0)}) {
            label.resize(s);
            label.repaint();
        }
        label.setTextIndent(100000);
        label.resize(200, 60);
        label.repaint();
        label.setMsg(QString());
        label.repaint();
    }

    void toolButtonWithUnknownChoices()
    {
        UxCustomToolButton button;
        button.setDefaultActionChecked(QStringLiteral("missing"));
        button.addActionToMenu(QString());
        button.addActionToMenu(QStringLiteral("a"), QVariant());
        button.addActionToMenu(QStringLiteral("a"), 2);
        button.setDefaultActionChecked(QStringLiteral("nope"));
        QCOMPARE(button.text(), QStringLiteral("nope"));
        for (QAction* a : button.findChildren<QAction*>())
            QVERIFY(!a->isChecked());
    }

    void clockWithNonsenseZones()
    {
        UxMiniClockPannel clock;
        clock.setTimeZoneMap({});
        clock.restore({{QStringLiteral("zone"), QStringLiteral("abc")}});
        clock.restore({{QStringLiteral("zone"), 100000}});
        clock.setBaseZone(-1000);
        clock.restore({{QStringLiteral("zone"), QVariant()}});
        QMap<QString, QVariant> saved;
        clock.save(saved);
        QCOMPARE(saved.value(QStringLiteral("zone")).toInt(), 0);
        auto* time = clock.findChild<QLabel*>(QStringLiteral("timeLabel"));
        QVERIFY(time && !time->text().isEmpty());
    }

    void calendarWithInvalidBounds()
    {
        UxCalendarTimeEdit edit;
        const QString before = edit.text();
        edit.setCalendarMinDate(QDateTime());
        edit.setCalendarMaxDate(QDateTime());
        edit.setCalendarMaxDate(QDateTime(QDate(1900, 1, 1), QTime(0, 0)));
        QVERIFY(!edit.text().isNull());
        Q_UNUSED(before);

        UxCalendarTimeWidget cal(nullptr, false, true);
        cal.setCalendarMinDate(QDateTime(QDate(2030, 1, 1), QTime(0, 0)));
        cal.setCalendarMaxDate(QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
        cal.setCalendarMinDate(QDateTime());
        cal.show();
        QVERIFY(QTest::qWaitForWindowExposed(&cal));
    }

    void timeFieldsWithBadKinds()
    {
        for (int kind : {-1, 3, 1000}) {
            UxTimeEditPopEdit field(nullptr, kind);
            field.setDateTime(QDateTime(), QDateTime(), QDateTime());
            UxTimePopWidget pop(nullptr, kind);
            pop.setDateTime(QDateTime(QDate(2030, 1, 1), QTime(0, 0)), QDateTime(QDate(2000, 1, 1), QTime(0, 0)),
                            QDateTime());
            pop.show();
            QVERIFY(QTest::qWaitForWindowExposed(&pop));
        }
    }

    // --- widgets destroyed while their pop-ups are open ----------------------------------

    void calendarEditDestroyedWhileOpen()
    {
        auto* window = new QWidget;
        window->setGeometry(40, 40, 240, 60);
        const QWidgetList before = QApplication::topLevelWidgets();
        auto* edit = new UxCalendarTimeEdit(window);
        edit->setGeometry(10, 10, 160, 24);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QPointer<QWidget> frame = newTopLevel(before, QStringLiteral("calendarFramWidget"));
        QVERIFY(frame);
        QTest::mouseClick(edit, Qt::LeftButton);
        QVERIFY(frame->isVisible());
        delete window;
        QVERIFY(frame.isNull());
        QTest::qWait(30);
    }

    void timeFieldDestroyedWhileOpen()
    {
        auto* window = new QWidget;
        window->setGeometry(40, 200, 240, 100);
        const QWidgetList before = QApplication::topLevelWidgets();
        auto* field = new UxTimeEditPopEdit(window, 0);
        field->setGeometry(60, 60, 24, 24);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTest::mouseClick(field, Qt::LeftButton);
        QPointer<QWidget> pop = newTopLevel(before, QStringLiteral("TimePopWidget"));
        QVERIFY(pop && pop->isVisible());
        delete window;
        QVERIFY(pop.isNull());
        QTest::qWait(30);
    }

    void dateTimeEditDestroyedWhileOpen()
    {
        auto* edit = new UxDateTimeEdit;
        edit->setGeometry(40, 300, 200, 26);
        edit->show();
        QVERIFY(QTest::qWaitForWindowExposed(edit));
        QPointer<QCalendarWidget> cal = edit->calendarWidget();
        QVERIFY(cal);
        QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(edit->width() - 6, edit->height() / 2));
        QTRY_VERIFY(cal->isVisible());
        delete edit;
        QTest::qWait(30);
        QVERIFY(cal.isNull());
    }

    void menusDestroyedWhileOpen()
    {
        auto* button = new UxCustomToolButton;
        button->addActionToMenu(QStringLiteral("一"));
        button->addActionToMenu(QStringLiteral("二"));
        button->show();
        QVERIFY(QTest::qWaitForWindowExposed(button));
        button->showMenu(QPoint(50, 50));
        QPointer<QMenu> menu = button->findChild<QMenu*>();
        QVERIFY(menu && menu->isVisible());
        delete button;
        QVERIFY(menu.isNull());

        auto* clock = new UxMiniClockPannel;
        clock->show();
        QPointer<QMenu> zones = clock->findChild<QMenu*>(QStringLiteral("zoneMenu"));
        QVERIFY(zones);
        zones->popup(QPoint(60, 60));
        QTRY_VERIFY(zones->isVisible());
        delete clock;
        QVERIFY(zones.isNull());
        QTest::qWait(30);
    }

    void tickerDestroyedWhileRolling()
    {
        auto* ticker = new UxLoopLabels;
        ticker->setIntervalTime(10);
        ticker->setDurationTime(200);
        for (int i = 0; i < 4; ++i)
            ticker->addMessages(message(i));
        ticker->show();
        QVERIFY(QTest::qWaitForWindowExposed(ticker));
        QTest::qWait(60);
        delete ticker;
        QTest::qWait(60);
    }
};

UX_TEST_MAIN(TstBadInput)
#include "tst_badinput.moc"

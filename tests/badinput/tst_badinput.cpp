// What the public entry points do with input a real client gets wrong:
// damaged or huge column files, impossible paths, out-of-range values, and
// widgets destroyed while their pop-ups are open. Each must keep the previous
// or an empty state, and never crash.

#include "uxtestenv.h"

#include "quickmacroitem.h"
#include "uxanimationstackedwidget.h"
#include "uxcalendartimeedit.h"
#include "uxcalendartimewidget.h"
#include "uxcustomtablewidget.h"
#include "uxcustomtoolbutton.h"
#include "uxdatetimeedit.h"
#include "uxflowlayout.h"
#include "uxkeyboradsprit.h"
#include "uxlooplabels.h"
#include "uxminiclockpannel.h"
#include "uxnewindentlabel.h"
#include "uxtabledatamanager.h"
#include "uxtimeeditpopedit.h"
#include "uxtimepopwidget.h"

#include <QCalendarWidget>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QTableView>

#include <climits>
#include <functional>

namespace {

_TableHHeaderData header(const QString& feild)
{
    _TableHHeaderData h;
    h.text = h.feild = feild;
    return h;
}

QByteArray nested(int depth)
{
    return "{\"horizontalHeader\":[" + QByteArray("{\"a\":").repeated(depth) + "1" + QByteArray("}").repeated(depth) + "]}";
}

} // namespace

using Case = std::function<void()>;
Q_DECLARE_METATYPE(Case)

class TstBadInput : public QObject
{
    Q_OBJECT
    UxTableDataManager* m = UxTableDataManager::getInstance();
    QString path(const QString& name) const { return UxTest::rootDir() + QStringLiteral("/bad/") + name; }

private slots:
    void columnFiles_data()
    {
        QTest::addColumn<QByteArray>("content"); // "<dir>" makes a directory of that name
        const QByteArray good = "{\"horizontalHeader\":[{\"text\":\"A\",\"feild\":\"F1\"}]}";
        QTest::newRow("a directory") << QByteArray("<dir>");
        QTest::newRow("utf-16") << QByteArray(reinterpret_cast<const char*>(QString::fromUtf8(good).utf16()), good.size() * 2);
        QTest::newRow("nul between tokens") << QByteArray(good).insert(1, '\0');
        QTest::newRow("latin-1") << QByteArray("{\"horizontalHeader\":[{\"text\":\"\xe9t\xe9\",\"feild\":\"A\"}]}");
        QTest::newRow("trailing garbage") << good + "}}";
        QTest::newRow("whitespace") << QByteArray(4096, ' ');
        QTest::newRow("nested too deep") << nested(100000);
        QTest::newRow("30 MB, damaged in the middle") << good.left(20) + QByteArray(30 << 20, '[') + "\x01\xff";
    }
    void columnFiles()
    {
        QFETCH(QByteArray, content);
        const QString f = path(QStringLiteral("t.json"));
        QDir(path(QString())).removeRecursively();
        content == "<dir>" ? void(QDir().mkpath(f)) : void(UxTest::writeFile(f, content));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral(".")));
        QVERIFY(m->getTableHeaderData(f).isEmpty());
        QVERIFY(m->jsonToMap("{\"blockData\":[{\"TableHHeaderData\":" + content + "}]}").value(QString()).isEmpty());
    }

    void multiBlockGarbage_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QStringList>("ids");
        QTest::newRow("binary") << QByteArray("\x00\xff\xfe\x01", 4) << QStringList();
        QTest::newRow("not an array") << QByteArray("{\"blockData\":{\"rootBlockId\":\"a\"}}") << QStringList();
        QTest::newRow("every type") << QByteArray("{\"blockData\":[1,\"a\",null,[],{\"rootBlockId\":7,\"TableHHeaderData\":[]},"
                                                  "{\"rootBlockId\":\"b\",\"TableHHeaderData\":\"x\"}]}")
                                    << QStringList{QString(), QStringLiteral("b")};
        QTest::newRow("truncated") << QByteArray("{\"blockData\":[{\"rootBlockId\":\"a\",\"TableHH") << QStringList();
    }
    void multiBlockGarbage()
    {
        QFETCH(QByteArray, json);
        const auto map = m->jsonToMap(json);
        QFETCH(QStringList, ids);
        QCOMPARE(QStringList(map.keys()), ids);
        for (const auto& list : map)
            QVERIFY(list.isEmpty());
    }

    void savingToImpossiblePlaces_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("a directory") << QStringLiteral("adir");
        QTest::newRow("below a file") << QStringLiteral("plain/user.json");
    }
    void savingToImpossiblePlaces()
    {
        // Nothing on disk is renamed or removed; the list is still taken.
        QFETCH(QString, name);
        QDir(path(QString())).removeRecursively();
        UxTest::writeFile(path(QStringLiteral("adir/keep")), "x");
        UxTest::writeFile(path(QStringLiteral("plain")), "plain bytes");
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral(".")));
        m->setUserFileName(path(name));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral(".")));
        m->saveUserConfig({header(QStringLiteral("Now"))});
        QCOMPARE(m->getTableHeaderData().value(0).feild, QStringLiteral("Now"));
        QCOMPARE(UxTest::readFile(path(QStringLiteral("adir/keep"))), QByteArray("x"));
        QCOMPARE(UxTest::readFile(path(QStringLiteral("plain"))), QByteArray("plain bytes"));
    }

    // Nonsense values at every entry point: no crash, and the state named by
    // the row's check (previous or empty) holds afterwards.
    void entryPoints_data()
    {
        QTest::addColumn<Case>("run");
        QTest::newRow("quote rows") << Case([] {
            UxCustomTableWidget table;
            table.setHHeaderData({header(QString()), header(QStringLiteral("Code")), header(QStringLiteral("Now"))});
            QList<_TableData> rows;
            const QStringList absurd{"1e400", "nan", QString(300, '9'), "-1.50万", "万亿%", QString(), QString(5000, QChar(0x4EBF))};
            for (int i = 0; i < 21; ++i) {
                _TableData r;
                r.code = i % 3 ? QStringLiteral("600000") : QString();
                r.market = i % 2 ? INT_MIN : INT_MAX;
                r.values.insert(QStringLiteral("Now"), absurd.at(i % absurd.size()));
                rows << r;
            }
            table.slotCreateTableData(rows);
            table.slotUpdateTable(rows.mid(0, 10));
            table.slotUpdateAllTable(rows.mid(0, 3));
            auto* view = table.findChild<QTableView*>();
            for (int c = -1; c <= table.columnCount(); ++c)
                view->model()->sort(c, Qt::DescendingOrder);
            for (int i : {-5, 21, INT_MAX}) {
                table.setRowSelected(i);
                table.setColumnHidden(i, true);
            }
            table.remove(_TableData());
            QCOMPARE(table.rowCount(), 21);
        });
        QTest::newRow("dictionary with nulls") << Case([] {
            quickMacroItem shortItem, item;
            shortItem.texts = QStringList{"60"};
            item.texts = QStringList{"1", "600001", "x", "y"};
            UxKeyBoradSprit* wizard = UxKeyBoradSprit::initance();
            wizard->setDictData({&shortItem, nullptr, &item});
            wizard->updateResult(QStringLiteral("60"));
            for (int d : {-1, 7, 7})
                wizard->focusRowChanged(d);
            QCOMPARE(wizard->dbClicked(QModelIndex(), true), QString());
            wizard->setDictData({});
            wizard->updateResult(QStringLiteral("x"));
            QCOMPARE(wizard->findChild<QTableView*>()->model()->rowCount(), 0);
        });
        QTest::newRow("stack, missing pages") << Case([] {
            UxAnimationStackedWidget stack;
            QSignalSpy spy(&stack, &UxAnimationStackedWidget::signalFrameIndexChanged);
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("no page at index")));
            stack.start(3);
            stack.setLength(-50, UxAnimationStackedWidget::AnimationType(99));
            stack.setDuration(-1);
            QTest::qWait(20);
            QCOMPARE(spy.count(), 0);
        });
        QTest::newRow("flow layout") << Case([] {
            QWidget host;
            auto* layout = new UxFlowLayout(&host, -1, -1, -1);
            layout->addWidget(new QLabel(QStringLiteral("x")));
            QVERIFY(!layout->takeAt(-1) && !layout->takeAt(5) && !layout->itemAt(1));
            QVERIFY(layout->heightForWidth(-10) >= 0);
            layout->setGeometry(QRect(0, 0, -5, -5));
            QCOMPARE(layout->count(), 1);
        });
        QTest::newRow("ticker limits") << Case([] {
            UxLoopLabels ticker;
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("negative interval!")));
            ticker.setIntervalTime(-5);
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("negative duration!")));
            ticker.setDurationTime(-1);
            ticker.setMaxLoopLabels(-3);
            for (int i = 0; i < 60; ++i)
                ticker.addMsgContents(QString(i * 500, QLatin1Char('x')));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(ticker.findChildren<QLabel*>().size() <= 1);
        });
        QTest::newRow("indent label without room") << Case([] {
            UxNewIndentLabel label;
            label.setMsg(QString(20000, QChar(0x4E07)));
            label.setLink(QStringLiteral("更多"));
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("indent too large!")));
            label.setTextIndent(INT_MAX);
            for (const QSize& s : {QSize(0, 0), QSize(1, 200), QSize(400, 0)}) {
                label.resize(s);
                label.repaint();
            }
        });
        QTest::newRow("tool button unknown choice") << Case([] {
            UxCustomToolButton button;
            button.addActionToMenu(QString());
            button.setDefaultActionChecked(QStringLiteral("nope"));
            QCOMPARE(button.text(), QStringLiteral("nope"));
        });
        QTest::newRow("clock zones") << Case([] {
            UxMiniClockPannel clock;
            clock.setTimeZoneMap({});
            for (const QVariant& v : {QVariant("abc"), QVariant(100000), QVariant()})
                clock.restore({{QStringLiteral("zone"), v}});
            clock.setBaseZone(-1000);
            QMap<QString, QVariant> saved;
            clock.save(saved);
            QVERIFY(!clock.findChild<QLabel*>(QStringLiteral("timeLabel"))->text().isEmpty());
        });
        QTest::newRow("calendar bounds") << Case([] {
            UxCalendarTimeEdit edit;
            edit.setCalendarMinDate(QDateTime());
            edit.setCalendarMaxDate(QDateTime(QDate(1900, 1, 1), QTime(0, 0)));
            UxCalendarTimeWidget cal(nullptr, false, true);
            cal.setCalendarMinDate(QDateTime(QDate(2030, 1, 1), QTime(0, 0)));
            cal.setCalendarMaxDate(QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
            cal.show();
            QVERIFY(!edit.text().isNull());
        });
        QTest::newRow("time kinds") << Case([] {
            for (int kind : {-1, 3, 1000}) {
                UxTimeEditPopEdit field(nullptr, kind);
                field.setDateTime(QDateTime(), QDateTime(), QDateTime());
                UxTimePopWidget pop(nullptr, kind);
                pop.setDateTime(QDateTime(QDate(2030, 1, 1), QTime(0, 0)), QDateTime(QDate(2000, 1, 1), QTime(0, 0)), QDateTime());
                pop.show();
            }
        });
    }
    void entryPoints()
    {
        QFETCH(Case, run);
        run();
    }

    // A widget destroyed while its pop-up is open takes the pop-up with it.
    void destroyedWhileOpen_data()
    {
        QTest::addColumn<Case>("open"); // returns through the pointers below
        QTest::newRow("calendar edit") << Case([this] {
            auto* edit = new UxCalendarTimeEdit(owner);
            QTest::mouseClick(edit, Qt::LeftButton);
            popup = findNew("calendarFramWidget");
        });
        QTest::newRow("time field") << Case([this] {
            auto* field = new UxTimeEditPopEdit(owner, 0);
            QTest::mouseClick(field, Qt::LeftButton);
            popup = findNew("TimePopWidget");
        });
        QTest::newRow("date-time edit") << Case([this] {
            auto* edit = new UxDateTimeEdit(owner);
            edit->resize(200, 26);
            QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(194, 13));
            popup = edit->calendarWidget();
        });
        QTest::newRow("tool button") << Case([this] {
            auto* button = new UxCustomToolButton(owner);
            button->addActionToMenu(QStringLiteral("一"));
            button->showMenu(QPoint(50, 50));
            popup = button->menu();
        });
        QTest::newRow("clock zones") << Case([this] {
            auto* clock = new UxMiniClockPannel(owner);
            popup = clock->findChild<QMenu*>(QStringLiteral("zoneMenu"));
            static_cast<QMenu*>(popup.data())->popup(QPoint(60, 60));
        });
        QTest::newRow("rolling ticker") << Case([this] {
            auto* ticker = new UxLoopLabels(owner);
            ticker->setIntervalTime(5);
            for (int i = 0; i < 4; ++i)
                ticker->addMsgContents(QString::number(i));
            popup = ticker;
            QTest::qWait(30);
        });
    }
    void destroyedWhileOpen()
    {
        QFETCH(Case, open);
        owner = new QWidget;
        owner->setGeometry(40, 40, 300, 200);
        owner->show();
        QVERIFY(QTest::qWaitForWindowExposed(owner));
        before = QApplication::topLevelWidgets();
        open();
        QVERIFY(popup);
        delete owner;
        QTest::qWait(20);
        QVERIFY(popup.isNull());
    }

private:
    QWidget* owner = nullptr;
    QPointer<QWidget> popup;
    QWidgetList before;
    QWidget* findNew(const char* name) const
    {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (!before.contains(w) && w->objectName() == QLatin1String(name))
                return w;
        return nullptr;
    }
};

UX_TEST_MAIN(TstBadInput)
#include "tst_badinput.moc"

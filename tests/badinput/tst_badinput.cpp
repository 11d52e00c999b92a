// What the public entry points do with input a real client gets wrong:
// damaged or huge column files, impossible paths, out-of-range values, and
// widgets destroyed while in use. Each keeps the previous or an empty state,
// logs what it was given and never crashes.

#include "uxtestenv.h"

#include "quickmacroitem.h"
#include "uxanimationstackedwidget.h"
#include "uxcalendartimeedit.h"
#include "uxcalendartimewidget.h"
#include "uxcustomtablewidget.h"
#include "uxcustomtoolbutton.h"
#include "uxdatetimeedit.h"
#include "uxkeyboradsprit.h"
#include "uxlooplabels.h"
#include "uxminiclockpannel.h"
#include "uxnewindentlabel.h"
#include "uxtabledatamanager.h"
#include "uxtimeeditpopedit.h"
#include "uxtimepopwidget.h"

#include <QtWidgets>

namespace {

_TableHHeaderData header(const QString& feild)
{
    _TableHHeaderData h;
    h.text = h.feild = feild;
    return h;
}

void expectLog(const QString& pattern)
{
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(pattern));
}

} // namespace

using Case = std::function<void()>;
Q_DECLARE_METATYPE(Case)

class TstBadInput : public QObject
{
    Q_OBJECT
    UxTableDataManager* m = UxTableDataManager::getInstance();
    static QString path(const QString& name) { return UxTest::rootDir() + QStringLiteral("/bad/") + name; }
    QWidget* owner = nullptr;
    QPointer<QWidget> popup;

private slots:
    void init()
    {
        QDir(path(QString())).removeRecursively();
        UxTest::writeFile(path(QStringLiteral("adir/keep")), "x");
        UxTest::writeFile(path(QStringLiteral("plain")), "plain bytes");
    }

    void columnFiles_data()
    {
        QTest::addColumn<QByteArray>("content"); // "<dir>": a directory of that name, "<none>": no file
        QTest::addColumn<QString>("log");
        const QByteArray good = "{\"horizontalHeader\":[{\"text\":\"A\",\"feild\":\"F1\"}]}";
        QTest::newRow("missing") << QByteArray("<none>") << "file is not exists! \".*/bad/t.json\"$";
        QTest::newRow("a directory") << QByteArray("<dir>") << "cannot open \".*/bad/t.json\" \".+\"$";
        QTest::newRow("utf-16") << QByteArray(reinterpret_cast<const char*>(QString::fromUtf8(good).utf16()), good.size() * 2)
                                << "\\) \"unterminated object\"$";
        QTest::newRow("nul between tokens") << QByteArray(good).insert(1, '\0') << "\\) \"unterminated object\"$";
        QTest::newRow("latin-1") << QByteArray("{\"horizontalHeader\":[{\"text\":\"\xe9t\xe9\",\"feild\":\"A\"}]}")
                                 << "\\) \"invalid UTF8 string\"$";
        QTest::newRow("trailing garbage") << good + "}}" << "\\) \"garbage at the end of the document\"$";
        QTest::newRow("whitespace") << QByteArray(4096, ' ') << "\\) \"illegal value\"$";
        QTest::newRow("nested too deep") << "{\"horizontalHeader\":[" + QByteArray("{\"a\":").repeated(100000) + "1" + QByteArray("}").repeated(100000) + "]}"
                                         << "\\) \"too deeply nested document\"$";
        QTest::newRow("30 MB, damaged in the middle") << good.left(20) + QByteArray(30 << 20, '[') + "\x01\xff"
                                                      << "\\) \"too deeply nested document\"$";
    }
    void columnFiles()
    {
        QFETCH(QByteArray, content);
        const QString f = path(QStringLiteral("t.json"));
        if (content == "<dir>")
            QDir().mkpath(f);
        else if (content != "<none>")
            UxTest::writeFile(f, content);
        QFETCH(QString, log);
        expectLog(log);
        QVERIFY(m->getTableHeaderData(f).isEmpty());
        QVERIFY(m->jsonToMap("{\"blockData\":[{\"TableHHeaderData\":" + content + "}]}").value(QString()).isEmpty());
    }

    void multiBlockGarbage_data()
    {
        QTest::addColumn<QByteArray>("json"); QTest::addColumn<QStringList>("ids");
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
        QTEST(QStringList(map.keys()), "ids");
        for (const auto& list : map) QVERIFY(list.isEmpty());
    }

    // Nothing on disk is renamed or removed; the list is still taken.
    void savingToImpossiblePlaces_data()
    {
        QTest::addColumn<QString>("name"); QTest::addColumn<QString>("loadLog"); QTest::addColumn<QString>("log");
        QTest::newRow("a directory") << QStringLiteral("adir") << "cannot open \".*/bad/adir\" \".+\"$"
                                     << "cannot open \".*/bad/adir\" \".+\"$";
        QTest::newRow("below a file") << QStringLiteral("plain/user.json") << "file is not exists! \".*/bad/plain/user.json\"$"
                                      << "cannot create directory \".*/bad/plain\"$";
    }
    void savingToImpossiblePlaces()
    {
        QFETCH(QString, name); QFETCH(QString, loadLog); QFETCH(QString, log);
        expectLog(loadLog);
        m->setUserFileName(path(name));
        expectLog(log);
        QVERIFY(m->saveUserConfig({header(QStringLiteral("Now"))}));
        QCOMPARE(m->getTableHeaderData().value(0).feild, QStringLiteral("Now"));
        QCOMPARE(UxTest::readFile(path(QStringLiteral("adir/keep"))) + UxTest::readFile(path(QStringLiteral("plain"))),
                 QByteArray("xplain bytes"));
    }

    // Nonsense values at every entry point: no crash, the logged text, and
    // the previous or empty state afterwards.
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
            for (int c = -1; c <= table.columnCount(); ++c) view->model()->sort(c, Qt::DescendingOrder);
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
            expectLog(QStringLiteral("records skipped \\(null, fewer than four texts\\): 1 1$"));
            wizard->setDictData({&shortItem, nullptr, &item});
            wizard->updateResult(QStringLiteral("60"));
            for (int d : {-1, 7, 7}) wizard->focusRowChanged(d);
            QCOMPARE(wizard->dbClicked(QModelIndex(), true), QString());
            wizard->setDictData({});
            wizard->updateResult(QStringLiteral("x"));
            QCOMPARE(wizard->findChild<QTableView*>()->model()->rowCount(), 0);
        });
        QTest::newRow("stack, missing pages") << Case([] {
            UxAnimationStackedWidget stack;
            QSignalSpy spy(&stack, &UxAnimationStackedWidget::signalFrameIndexChanged);
            expectLog(QStringLiteral("no page at index 3$"));
            stack.start(3);
            stack.setLength(-50, UxAnimationStackedWidget::AnimationType(99));
            expectLog(QStringLiteral("negative duration! -1$"));
            stack.setDuration(-1);
            QCOMPARE(stack.getDuration(), 2000);
            QTest::qWait(20);
            QCOMPARE(spy.count(), 0);
        });
        QTest::newRow("ticker limits") << Case([] {
            UxLoopLabels ticker;
            expectLog(QStringLiteral("negative interval! -5$"));
            ticker.setIntervalTime(-5);
            expectLog(QStringLiteral("negative duration! -1$"));
            ticker.setDurationTime(-1);
            QCOMPARE(QAbstractEventDispatcher::instance()->registeredTimers(&ticker).constFirst().interval, 4000);
            ticker.setMaxLoopLabels(-3);
            for (int i = 0; i < 60; ++i) ticker.addMsgContents(QString(i * 500, QLatin1Char('x')));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(ticker.findChildren<QLabel*>().size() <= 1);
        });
        QTest::newRow("indent label without room or link; tool button, deleted menu") << Case([] {
            UxNewIndentLabel label;
            label.setMsg(QString(20000, QChar(0x4E07)));
            delete label.linkLabel(); // a client deletes the link label it was handed: a new one is made
            label.setLink(QStringLiteral("更多"));
            QCOMPARE(label.linkLabel()->text(), QStringLiteral("更多"));
            QCOMPARE(label.linkLabel()->parent(), &label);
            expectLog(QStringLiteral("indent too large! 2147483647$"));
            label.setTextIndent(INT_MAX);
            for (const QSize& s : {QSize(0, 0), QSize(1, 200), QSize(400, 0), QSize(200, 60)}) {
                label.resize(s);
                label.repaint();
            }
            UxCustomToolButton button;
            button.addActionToMenu(QString());
            delete button.menu()->actions().value(0); // a client deletes what it was handed
            button.setDefaultActionChecked(QStringLiteral("nope"));
            QCOMPARE(button.text(), QStringLiteral("nope"));
            delete button.menu();
            button.addActionToMenu(QStringLiteral("D"));
            button.showMenu(QPoint(40, 50));
            QVERIFY(button.menu()->isVisible());
            QCOMPARE(button.menu()->actions().size(), 1);
        });
        QTest::newRow("clock zones, calendar bounds, time kinds") << Case([] {
            UxMiniClockPannel clock;
            clock.setTimeZoneMap({});
            for (const QVariant& v : {QVariant("abc"), QVariant(100000), QVariant()})
                clock.restore({{QStringLiteral("zone"), v}});
            clock.setBaseZone(-1000);
            QMap<QString, QVariant> saved;
            clock.save(saved);
            QVERIFY(!clock.findChild<QLabel*>(QStringLiteral("timeLabel"))->text().isEmpty());
            UxCalendarTimeEdit edit;
            edit.setCalendarMinDate(QDateTime());
            edit.setCalendarMaxDate(QDateTime(QDate(1900, 1, 1), QTime(0, 0)));
            UxCalendarTimeWidget cal(nullptr, false, true);
            cal.setCalendarMinDate(QDateTime(QDate(2030, 1, 1), QTime(0, 0)));
            cal.setCalendarMaxDate(QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
            cal.show();
            QVERIFY(!edit.text().isNull());
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
        QTest::addColumn<Case>("open"); // sets popup
        auto topLevel = [](const char* name) {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->isVisible() && w->objectName() == QLatin1String(name)) return w;
            return static_cast<QWidget*>(nullptr);
        };
        QTest::newRow("calendar edit") << Case([=] {
            QTest::mouseClick(new UxCalendarTimeEdit(owner), Qt::LeftButton);
            popup = topLevel("calendarFramWidget");
        });
        QTest::newRow("time field") << Case([=] {
            QTest::mouseClick(new UxTimeEditPopEdit(owner, 0), Qt::LeftButton);
            popup = topLevel("TimePopWidget");
        });
        QTest::newRow("date-time edit") << Case([=] {
            auto* edit = new UxDateTimeEdit(owner);
            edit->resize(200, 26);
            QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(194, 13));
            popup = edit->calendarWidget();
        });
        QTest::newRow("tool button") << Case([=] {
            auto* button = new UxCustomToolButton(owner);
            button->addActionToMenu(QStringLiteral("一"));
            button->showMenu(QPoint(50, 50));
            popup = button->menu();
        });
        QTest::newRow("clock zone menu") << Case([=] {
            popup = (new UxMiniClockPannel(owner))->findChild<QMenu*>(QStringLiteral("zoneMenu"));
            static_cast<QMenu*>(popup.data())->popup(QPoint(60, 60));
        });
        QTest::newRow("rolling ticker") << Case([=] {
            auto* ticker = new UxLoopLabels(owner);
            ticker->setIntervalTime(5);
            for (int i = 0; i < 4; ++i) ticker->addMsgContents(QString::number(i));
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
        open();
        QVERIFY(popup);
        delete owner;
        QTest::qWait(20);
        QVERIFY(popup.isNull());
    }
};

UX_TEST_MAIN(TstBadInput)
#include "tst_badinput.moc"

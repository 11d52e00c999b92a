#include "uxtestenv.h"

#include "uxcustomtablewidget.h"
#include "uxsettingdialog.h"
#include "uxtabledatamanager.h"
#include "uxtableview.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QListWidget>
#include <QPushButton>
#include <QLabel>
#include <QScrollBar>
#include <QTimer>
#include "uxviewscrollbarexpand.h"

#include <functional>

namespace {

// A column file with one column per feild; the feilds listed in HIDDEN are not shown.
QByteArray columnFile(const QStringList& feilds, const QStringList& hidden = {})
{
    QJsonArray header;
    for (const QString& f : feilds) {
        header.append(QJsonObject{{"text", QStringLiteral("title ") + f},
                                  {"feild", f},
                                  {"isShow", !hidden.contains(f)},
                                  {"isChangeColor", false},
                                  {"alignment", "AlignCenter"},
                                  {"defaultValue", "--"}});
    }
    QJsonObject table{{"defaultColor", "#000000"}, {"riseColor", "#ff0000"},     {"fallColor", "#00ff00"},
                      {"suspensionColor", "#808080"}, {"defaultBgColor", "#ffffff"}, {"riseBgColor", "#ffeeee"},
                      {"fallBgColor", "#eeffee"},  {"horizontalHeader", header}};
    return QJsonDocument(table).toJson();
}

QStringList feildsOf(const QList<_TableHHeaderData>& list, bool shownOnly = false)
{
    QStringList out;
    for (const auto& d : list) {
        if (!shownOnly || d.isShow)
            out << d.feild;
    }
    return out;
}

QString templateDir()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/config");
}

QString userFile(const QString& name = QStringLiteral("userhsstocktable.json"))
{
    return UxCfg::instance()->path(QString()) + QLatin1Char('/') + name;
}

UxTableView* viewOf(UxCustomTableWidget& w)
{
    return w.findChild<UxTableView*>(QStringLiteral("tableView"));
}

QPushButton* settingBtn(UxCustomTableWidget& w)
{
    return w.findChild<QPushButton*>(QStringLiteral("settingBtn"));
}

UxSettingDialog* openDialog()
{
    if (auto* d = qobject_cast<UxSettingDialog*>(QApplication::activeModalWidget()))
        return d;
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (auto* d = qobject_cast<UxSettingDialog*>(top); d && d->isVisible())
            return d;
    }
    return nullptr;
}

// Clicks the settings button and runs ACT while the dialog is open; ACT
// must close it. Returns false when the dialog never showed up.
bool withDialog(UxCustomTableWidget& w, const std::function<void(UxSettingDialog*)>& act)
{
    bool seen = false;
    QTimer::singleShot(0, [&]() {
        UxSettingDialog* d = openDialog();
        seen = d != nullptr;
        if (d)
            act(d);
    });
    QTimer::singleShot(5000, []() {
        if (UxSettingDialog* d = openDialog())
            d->done(-1); // never hang the suite
    });
    QTest::mouseClick(settingBtn(w), Qt::LeftButton);
    return seen;
}

_TableData row(const QString& code)
{
    _TableData d;
    d.key = code;
    d.code = code;
    d.name = QStringLiteral("name ") + code;
    d.values.insert(QStringLiteral("Code"), code);
    return d;
}

const QStringList kTemplate{"Index", "Code", "Name", "Now", "Rise", "Volume", "Amount"};

} // namespace

class TstTableWidget : public QObject
{
    Q_OBJECT

private:
    QStringList m_created;

    QString writeTemplate(const QString& name, const QByteArray& content)
    {
        const QString path = templateDir() + QLatin1Char('/') + name;
        UxTest::writeFile(path, content);
        m_created << path;
        return path;
    }

private Q_SLOTS:
    void init()
    {
        QFile::remove(userFile());
        UxCfg::instance()->setPath(QString(), UxTest::configDir());
    }

    void cleanup()
    {
        for (const QString& path : qAsConst(m_created))
            QFile::remove(path);
        m_created.clear();
    }

    void cleanupTestCase()
    {
        QDir().rmdir(templateDir()); // only when the tests left it empty
    }

    // What clients and skins rely on, in one place.
    void contract_data()
    {
        QTest::addColumn<QVariant>("actual");
        QTest::addColumn<QVariant>("expected");
        UxCustomTableWidget w;
        UxTableView* view = viewOf(w);
        QTableView* frozen = view->findChild<QTableView*>(QStringLiteral("frozenTableView"));
        QScopedPointer<UxSettingDialog> owner(new UxSettingDialog);
        UxSettingDialog* dlg = owner.data();
        auto row = [](const char* name, const QVariant& actual, const QVariant& expected) {
            QTest::newRow(name) << actual << expected;
        };
        row("widget", w.objectName(), QStringLiteral("UxCustomTableWidget"));
        row("settings button hidden", settingBtn(w)->isHidden(), true);
        row("frozen view", frozen ? frozen->parent() == view : false, true);
        row("frozen view keeps its own focus", frozen ? frozen->focusProxy() == nullptr : false, true);
        row("header highlights sections", view->horizontalHeader()->highlightSections(), true);
        row("frozen header highlights sections", frozen->horizontalHeader()->highlightSections(), true);
        row("row height", view->verticalHeader()->defaultSectionSize(), 30);
        row("header height", view->horizontalHeader()->height(), 27);
        const QList<QTimer*> timers = view->model()->findChildren<QTimer*>();
        row("tint timers", timers.size(), 10);
        for (QTimer* t : timers) {
            row("tint interval", t->interval(), 1000);
            row("tint single shot", t->isSingleShot(), true);
            row("tint coarse", int(t->timerType()), int(Qt::CoarseTimer));
        }
        row("dialog", dlg->objectName(), QStringLiteral("PRICE_FRAME"));
        row("dialog list bar", dlg->findChild<QListWidget*>()->verticalScrollBar()->objectName(),
            QStringLiteral("PRICE_LIST_WIDGET_V_SCROLLBAR"));
        row("dialog list step", dlg->findChild<QListWidget*>()->verticalScrollBar()->singleStep(), 28);
        row("dialog flags", int(dlg->windowFlags() & 0x81B), 0x81B);
        row("dialog size", dlg->size(), QSize(320, 502));
        row("dialog modal", dlg->isModal(), true);
        row("dialog top and bottom hidden", dlg->findChild<QFrame*>(QStringLiteral("fmTop"))->isHidden()
                && dlg->findChild<QFrame*>(QStringLiteral("fmBottom"))->isHidden(), true);
        const struct { const char* name, *text, *tip; } buttons[] = {{"btnTop", "", "置顶"}, {"btnUp", "", "上移"},
            {"btnDown", "", "下移"}, {"btnOK", "确定", ""}, {"btnCancel", "取消", ""}, {"btnClose", "", ""}};
        for (const auto& b : buttons) {
            auto* btn = dlg->findChild<QPushButton*>(QLatin1String(b.name));
            row(b.name, btn ? btn->text() + QLatin1Char('|') + btn->toolTip() : QString(),
                QString::fromUtf8(b.text) + QLatin1Char('|') + QString::fromUtf8(b.tip));
        }
        row("lbTitle1", dlg->findChild<QLabel*>(QStringLiteral("lbTitle1"))->text(), QStringLiteral("列操作"));
        row("lbTitle2", dlg->findChild<QLabel*>(QStringLiteral("lbTitle2"))->text(), QStringLiteral("显示/隐藏"));
        const struct { const QMetaObject* mo; const char* signature; } members[] = {
            {&UxCustomTableWidget::staticMetaObject, "sigSubPages(SubPageData)"},
            {&UxCustomTableWidget::staticMetaObject, "sigSubPages(QStringList)"},
            {&UxCustomTableWidget::staticMetaObject, "sigTableViewClicked(TableData,QModelIndex)"},
            {&UxCustomTableWidget::staticMetaObject, "sigTableViewDoubleClicked(TableData,QModelIndex)"},
            {&UxCustomTableWidget::staticMetaObject, "sigSortTableData(SubPageData)"},
            {&UxCustomTableWidget::staticMetaObject, "sigCustomContextMenuRequested(TableData,QModelIndex)"},
            {&UxCustomTableWidget::staticMetaObject, "slotCreateTableData(QList<TableData>)"},
            {&UxCustomTableWidget::staticMetaObject, "moveUp(TableData,int,bool)"},
            {&UxCustomTableWidget::staticMetaObject, "moveDown(TableData,int,bool)"},
            {&UxTableView::staticMetaObject, "updateSectionWidth(int,int,int)"},
            {&UxTableView::staticMetaObject, "slotHHeaderClicked(int)"},
            {&UxSettingDialog::staticMetaObject, "sigItemChanged()"},
            {&UxViewScrollbarExpand::staticMetaObject, "slotValueChanged(int)"},
            {&UxViewScrollbarExpand::staticMetaObject, "slotHorizentalValueChanged(int)"}};
        for (const auto& m : members)
            row(m.signature, m.mo->indexOfMethod(m.signature) >= 0, true);
        // The sort request asks for 32760 rows.
        QSignalSpy sort(view, &UxTableView::sigSortTableData);
        view->slotHHeaderClicked(1);
        row("sort rows", sort.isEmpty() ? 0 : sort.first().first().value<_SubPageData>().count, 32760);
    }
    void contract()
    {
        QFETCH(QVariant, actual);
        QFETCH(QVariant, expected);
        QCOMPARE(actual, expected);
    }

    void relaysEverySignalOnce_data()
    {
        QTest::addColumn<int>("which");
        QTest::newRow("sigSubPages(SubPageData)") << 0;
        QTest::newRow("sigSubPages(QStringList)") << 1;
        QTest::newRow("sigTableViewClicked") << 2;
        QTest::newRow("sigTableViewDoubleClicked") << 3;
        QTest::newRow("sigSortTableData") << 4;
        QTest::newRow("sigCustomContextMenuRequested") << 5;
    }

    void relaysEverySignalOnce()
    {
        QFETCH(int, which);

        UxCustomTableWidget w;
        UxTableView* view = viewOf(w);
        QSignalSpy pages(&w, SIGNAL(sigSubPages(SubPageData)));
        QSignalSpy codes(&w, SIGNAL(sigSubPages(QStringList)));
        QSignalSpy clicked(&w, &UxCustomTableWidget::sigTableViewClicked);
        QSignalSpy doubleClicked(&w, &UxCustomTableWidget::sigTableViewDoubleClicked);
        QSignalSpy sorted(&w, &UxCustomTableWidget::sigSortTableData);
        QSignalSpy menu(&w, &UxCustomTableWidget::sigCustomContextMenuRequested);
        QVERIFY(pages.isValid() && codes.isValid());
        QSignalSpy* spies[] = {&pages, &codes, &clicked, &doubleClicked, &sorted, &menu};

        _SubPageData page;
        page.start = 30;
        page.count = 90;
        page.blockId = QStringLiteral("block-7");
        page.sortFeild = QStringLiteral("Rise");
        page.sortMode = UxSortDescending;
        const _TableData data = row(QStringLiteral("600000"));
        const QStringList list{"600000", "000001"};
        const QModelIndex index; // the relay does not look at it

        switch (which) {
        case 0:
            emit view->sigSubPages(page);
            break;
        case 1:
            emit view->sigSubPages(list);
            break;
        case 2:
            emit view->sigTableViewClicked(data, index);
            break;
        case 3:
            emit view->sigTableViewDoubleClicked(data, index);
            break;
        case 4:
            emit view->sigSortTableData(page);
            break;
        case 5:
            emit view->sigCustomContextMenuRequested(data, index);
            break;
        }

        for (int i = 0; i < 6; ++i)
            QCOMPARE(spies[i]->count(), i == which ? 1 : 0);
        const QList<QVariant> args = spies[which]->takeFirst();
        if (which == 0 || which == 4)
            QCOMPARE(args.at(0).value<_SubPageData>(), page);
        else if (which == 1)
            QCOMPARE(args.at(0).toStringList(), list);
        else
            QCOMPARE(args.at(0).value<_TableData>(), data);
    }

    void initTableReadsTheDefaultFiles()
    {
        writeTemplate(QStringLiteral("hsstocktemplatetable.json"), columnFile(kTemplate, {"Amount"}));
        {
            UxCustomTableWidget w;
            QCOMPARE(feildsOf(w.getHHeaderData()), kTemplate.mid(0, 6));
            QCOMPARE(w.columnCount(), 6);
        }
        // A user file that holds columns replaces the template wholesale.
        UxTest::writeFile(userFile(), columnFile({"Index", "Code", "Name", "Amount"}));
        UxCustomTableWidget w;
        QCOMPARE(feildsOf(w.getHHeaderData()), QStringList({"Index", "Code", "Name", "Amount"}));
    }

    void namedFilesGoUnderTheirFolders()
    {
        writeTemplate(QStringLiteral("tst_tablewidget_tpl.json"), columnFile({"A", "B", "C", "D"}));
        writeTemplate(QStringLiteral("tst_tablewidget_ro.json"), columnFile({"X", "Y", "Z", "W"}, {"W"}));
        UxCustomTableWidget w;
        w.setHHeaderData(QStringLiteral("tst_user.json"), QStringLiteral("tst_tablewidget_tpl.json"));
        QCOMPARE(feildsOf(w.getHHeaderData()), QStringList({"A", "B", "C", "D"}));

        // The one-file overload shows that file's shown columns and leaves the manager's files alone.
        w.setHHeaderData(QStringLiteral("tst_tablewidget_ro.json"));
        QCOMPARE(feildsOf(w.getHHeaderData()), QStringList({"X", "Y", "Z"}));
        QCOMPARE(feildsOf(UxTableDataManager::getInstance()->getTableHeaderData()), QStringList({"A", "B", "C", "D"}));
        QVERIFY(!QFile::exists(userFile(QStringLiteral("tst_user.json"))));

        UxTest::writeFile(userFile(QStringLiteral("tst_user.json")), columnFile({"A", "B", "C", "E", "F"}));
        w.setHHeaderData(QStringLiteral("tst_user.json"), QStringLiteral("tst_tablewidget_tpl.json"));
        QCOMPARE(feildsOf(w.getHHeaderData()), QStringList({"A", "B", "C", "E", "F"}));
        QFile::remove(userFile(QStringLiteral("tst_user.json")));
    }

    void badColumnFilesLeaveAnEmptyTable_data()
    {
        QTest::addColumn<QByteArray>("content"); // empty: no file at all
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("broken") << QByteArray("{\"horizontalHeader\": [ {\"feild\": ");
        QTest::newRow("not an object") << QByteArray("[1, 2, 3]");
        QTest::newRow("no columns") << columnFile({});
    }

    void badColumnFilesLeaveAnEmptyTable()
    {
        QFETCH(QByteArray, content);
        if (!content.isEmpty())
            writeTemplate(QStringLiteral("tst_tablewidget_bad.json"), content);
        const QByteArray saved = columnFile({"A", "B", "C", "D"});
        UxTest::writeFile(userFile(QStringLiteral("tst_keep.json")), saved);

        UxCustomTableWidget w;
        w.setHHeaderData(QStringLiteral("tst_absent_user.json"), QStringLiteral("tst_tablewidget_bad.json"));
        QCOMPARE(w.columnCount(), 0);
        w.setHHeaderData(QStringLiteral("tst_tablewidget_bad.json"));
        QCOMPARE(w.columnCount(), 0);
        w.setColumnHidden(0, true); // out of range now: ignored
        // Reading never writes: the user's other file is untouched.
        QCOMPARE(UxTest::readFile(userFile(QStringLiteral("tst_keep.json"))), saved);
        QFile::remove(userFile(QStringLiteral("tst_keep.json")));
    }

    void dialogDropsDownUnderTheButton_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<bool>("alignRight");
        QTest::newRow("right edges aligned") << 300 << true;
        // Far enough left that the dialog fits right of the button.
        QTest::newRow("left edge under the button") << -700 << false;
    }

    void dialogDropsDownUnderTheButton()
    {
        QFETCH(int, x);
        QFETCH(bool, alignRight);

        writeTemplate(QStringLiteral("hsstocktemplatetable.json"), columnFile(kTemplate));
        UxCustomTableWidget w;
        w.move(x, 100);
        w.setSettingBtnVisible(true);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QPushButton* btn = settingBtn(w);

        QPoint pos;
        int listed = -1;
        QVERIFY(withDialog(w, [&](UxSettingDialog* d) {
            pos = d->pos();
            listed = d->findChild<QListWidget*>(QStringLiteral("listWidget"))->count();
            d->reject();
        }));
        const int dialogWidth = 320;
        const QPoint expected = btn->mapToGlobal(QPoint(alignRight ? btn->width() - dialogWidth : 0, btn->height()));
        QCOMPARE(pos, expected);
        QCOMPARE(listed, kTemplate.size() - 3);
    }

    void columnChangesApplyAndSaveWhileTheDialogIsOpen()
    {
        writeTemplate(QStringLiteral("hsstocktemplatetable.json"), columnFile(kTemplate));
        UxCustomTableWidget w;
        w.setSettingBtnVisible(true);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));

        QStringList whileOpen;
        QStringList savedWhileOpen;
        QVERIFY(withDialog(w, [&](UxSettingDialog* d) {
            auto* list = d->findChild<QListWidget*>(QStringLiteral("listWidget"));
            list->item(1)->setCheckState(Qt::Unchecked); // "Rise"
            whileOpen = feildsOf(w.getHHeaderData());
            const QByteArray saved = UxTest::readFile(userFile());
            savedWhileOpen = feildsOf(UxTableDataManager::getInstance()->getTableHeaderData(userFile()), true);
            QVERIFY(!saved.isEmpty());
            d->reject(); // Cancel does not undo what was applied
        }));
        const QStringList expected{"Index", "Code", "Name", "Now", "Volume", "Amount"};
        QCOMPARE(whileOpen, expected);
        QCOMPARE(savedWhileOpen, expected);
        QCOMPARE(feildsOf(w.getHHeaderData()), expected);
        QCOMPARE(feildsOf(UxTableDataManager::getInstance()->getTableHeaderData(userFile()), true), expected);

        // A later widget starts from the user's columns, hidden one included.
        UxCustomTableWidget next;
        QCOMPARE(feildsOf(next.getHHeaderData()), expected);
        QCOMPARE(feildsOf(UxTableDataManager::getInstance()->getTableHeaderData()), kTemplate);
    }

    void movesApplyLiveAndOkSavesTheFinalList()
    {
        writeTemplate(QStringLiteral("hsstocktemplatetable.json"), columnFile(kTemplate));
        UxCustomTableWidget w;
        w.setSettingBtnVisible(true);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));

        QStringList afterMove;
        QVERIFY(withDialog(w, [&](UxSettingDialog* d) {
            auto* list = d->findChild<QListWidget*>(QStringLiteral("listWidget"));
            list->setCurrentRow(3); // "Amount"
            QTest::mouseClick(d->findChild<QPushButton*>(QStringLiteral("btnTop")), Qt::LeftButton);
            afterMove = feildsOf(w.getHHeaderData());
            list->setCurrentRow(1); // "Now"
            QTest::mouseClick(d->findChild<QPushButton*>(QStringLiteral("btnDown")), Qt::LeftButton);
            d->accept();
        }));
        QCOMPARE(afterMove, QStringList({"Index", "Code", "Name", "Amount", "Now", "Rise", "Volume"}));
        const QStringList final{"Index", "Code", "Name", "Amount", "Rise", "Now", "Volume"};
        QCOMPARE(feildsOf(w.getHHeaderData()), final);
        QCOMPARE(feildsOf(UxTableDataManager::getInstance()->getTableHeaderData(userFile())), final);
    }

    void unwritableUserFolderStillAppliesChanges()
    {
        writeTemplate(QStringLiteral("hsstocktemplatetable.json"), columnFile(kTemplate));
        // A plain file where the folder should be: nothing can be written below it.
        const QString blocker = UxTest::writeFile(UxTest::rootDir() + QStringLiteral("/not-a-dir"), "x");
        UxCfg::instance()->setPath(QString(), blocker + QStringLiteral("/config"));
        UxCustomTableWidget w;
        w.setSettingBtnVisible(true);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QVERIFY(withDialog(w, [&](UxSettingDialog* d) {
            d->findChild<QListWidget*>(QStringLiteral("listWidget"))->item(0)->setCheckState(Qt::Unchecked);
            d->accept();
        }));
        QVERIFY(!feildsOf(w.getHHeaderData()).contains(QStringLiteral("Now")));
        QCOMPARE(w.columnCount(), kTemplate.size() - 1);
        QFile::remove(blocker);
    }

    void columnVisibilityPerPart()
    {
        writeTemplate(QStringLiteral("hsstocktemplatetable.json"), columnFile(kTemplate));
        UxCustomTableWidget w;
        w.show();
        UxTableView* view = viewOf(w);
        QTableView* frozen = view->frozenView();
        QVERIFY(frozen);

        w.setColumnHidden(5, true);
        QVERIFY(view->isColumnHidden(5));
        w.setColumnHidden(1, true);
        QVERIFY(view->isColumnHidden(1));
        QVERIFY(!frozen->isColumnHidden(1));
        w.setColumnHidden(1, false);
        QVERIFY(!view->isColumnHidden(1));

        w.setFrozenViewColumnHidden(2, true);
        QVERIFY(frozen->isColumnHidden(2));
        QVERIFY(!view->isColumnHidden(2));

        w.setColumnHidden(-1, true);
        w.setColumnHidden(w.columnCount(), true);
        QVERIFY(!view->isColumnHidden(w.columnCount()));

        w.setHHeaderResizeMode(QHeaderView::Stretch);
        QCOMPARE(view->horizontalHeader()->sectionResizeMode(4), QHeaderView::Stretch);
        QCOMPARE(frozen->horizontalHeader()->sectionResizeMode(1), QHeaderView::Interactive);
        w.setFrozenViewHHeaderResizeMode(QHeaderView::Fixed);
        QCOMPARE(frozen->horizontalHeader()->sectionResizeMode(1), QHeaderView::Fixed);
    }

    void forwardsRowsAndState()
    {
        writeTemplate(QStringLiteral("hsstocktemplatetable.json"), columnFile(kTemplate));
        UxCustomTableWidget w;
        w.setBlockId(QStringLiteral("hs-a"));
        QCOMPARE(w.blockId(), QStringLiteral("hs-a"));
        QMap<QString, QVariant> m;
        w.save(m);
        QCOMPARE(m.value(QStringLiteral("blockId")).toString(), QStringLiteral("hs-a"));
        w.restore({{QStringLiteral("blockId"), QStringLiteral("hs-b")}});
        QCOMPARE(w.blockId(), QStringLiteral("hs-b"));

        const _TableData a = row("A"), b = row("B"), c = row("C");
        w.slotCreateTableData({a, b});
        QCOMPARE(w.rowCount(), 2);
        w.add(c);
        QCOMPARE(w.getTableDatas(), QList<_TableData>({a, b, c}));
        w.moveUp(c, 2, true);
        QCOMPARE(w.getTableDatas(), QList<_TableData>({c, a, b}));
        w.moveDown(c, 0);
        QCOMPARE(w.getTableDatas(), QList<_TableData>({a, c, b}));
        w.remove(a);
        QCOMPARE(w.getTableDatas(), QList<_TableData>({c, b}));

        _TableData update = b;
        update.values.insert(QStringLiteral("Now"), QStringLiteral("12.5"));
        w.slotUpdateTable({update});
        QCOMPARE(w.getTableDatas().at(1).values.value(QStringLiteral("Now")), QStringLiteral("12.5"));

        w.setTableViewCustomContexrtMenuEnable(true);
        QCOMPARE(viewOf(w)->contextMenuPolicy(), Qt::CustomContextMenu);
        w.setIsIndexSelected(true);
        QVERIFY(viewOf(w)->isSortingEnabled());
    }

    void skinSheetIsApplied()
    {
        UxTest::writeSkin(QStringLiteral("tblskin"), {{QStringLiteral("quote/customtable.css"),
                                                       QByteArray("QPushButton#settingBtn { color: red; }")}});
        UxCore::instance()->setCurrentSkin(QStringLiteral("tblskin"));
        UxCustomTableWidget w;
        QCOMPARE(w.styleSheet(), QStringLiteral("QPushButton#settingBtn { color: red; }"));
        UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
        QVERIFY(w.styleSheet().contains(QStringLiteral("settingBtn")));
        QVERIFY(!w.styleSheet().contains(QStringLiteral("red")));
    }
};

UX_TEST_MAIN(TstTableWidget)
#include "tst_tablewidget.moc"

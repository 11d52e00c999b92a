// The exported quote table widget and its column-settings dialog, alone and as the widget drives it.

#include "uxtestenv.h"
#include "rows.h"

#include "uxcustomtablewidget.h"
#include "uxsettingdialog.h"
#include "uxtabledatamanager.h"
#include "uxtableview.h"
#include "uxviewscrollbarexpand.h"

#include <QtWidgets>


namespace {

using Columns = QList<_TableHHeaderData>;

const QStringList kTemplate{"Index", "Code", "Name", "Now", "Rise", "Volume", "Amount"};
const QStringList kEight{"c0", "c1", "c2", "c3", "c4", "c5", "c6", "c7"};

QByteArray columnFile(const QStringList& feilds, const QStringList& hidden = {})
{
    QJsonArray header;
    for (const QString& f : feilds)
        header.append(QJsonObject{{"text", f + QStringLiteral(" 列")}, {"feild", f}, {"isShow", !hidden.contains(f)}});
    return QJsonDocument(QJsonObject{{"defaultColor", "#000000"}, {"horizontalHeader", header}}).toJson();
}

// The records such a file reads as.
Columns columns(const QStringList& feilds, const QStringList& hidden = {})
{
    const QString path = UxTest::writeFile(UxTest::rootDir() + QStringLiteral("/c.json"), columnFile(feilds, hidden));
    return UxTableDataManager::getInstance()->getTableHeaderData(path);
}

QStringList feildsOf(const Columns& list, bool shownOnly = false)
{
    QStringList out;
    for (const auto& d : list)
        if (!shownOnly || d.isShow) out << d.feild;
    return out;
}

QString userFile(const QString& name = QStringLiteral("userhsstocktable.json"))
{ return UxCfg::instance()->path(QString()) + QLatin1Char('/') + name; }

using Rows::child; // by object name (or text), a push button unless said otherwise

} // namespace

class TstTableWidget : public QObject
{
    Q_OBJECT

    const QString m_templateDir = QCoreApplication::applicationDirPath() + QStringLiteral("/config/");
    QStringList m_created;
    UxTableDataManager* const manager = UxTableDataManager::getInstance();

    void writeTemplate(const QString& name, const QByteArray& c)
    { m_created << UxTest::writeFile(m_templateDir + name, c); }

private Q_SLOTS:
    void init()
    {
        QFile::remove(userFile());
        UxCfg::instance()->setPath(QString(), UxTest::configDir());
        writeTemplate(QStringLiteral("hsstocktemplatetable.json"), columnFile(kTemplate));
    }
    void cleanup()
    {
        for (const QString& path : qAsConst(m_created))
            QFile::remove(path);
        m_created.clear();
    }
    void cleanupTestCase() { QDir().rmdir(m_templateDir); } // only when the tests left it empty

    // What clients and skins rely on, in one place.
    void contract_data()
    {
        Rows::actualExpected();
        using Rows::row;
        UxTest::writeSkin(QStringLiteral("t"), {{QStringLiteral("quote/customtable.css"), QByteArray("QFrame { }")},
                                                {QStringLiteral("quote/settingdlg.css"), QByteArray("QDialog { }")}});
        UxCore::instance()->setCurrentSkin(QStringLiteral("t"));
        UxCustomTableWidget w;
        QScopedPointer<UxSettingDialog> dlg(new UxSettingDialog);
        row("skin sheets", w.styleSheet() + dlg->styleSheet(), QStringLiteral("QFrame { }QDialog { }"));
        UxCore::instance()->setCurrentSkin(QStringLiteral("light"));

        row("widget, button hidden", QVariantList{w.objectName(), child(&w, "settingBtn")->isHidden()},
            QVariantList{QStringLiteral("UxCustomTableWidget"), true});

        auto* list = child<QListWidget>(dlg.data(), "listWidget");
        row("dialog names", QStringList{dlg->objectName(), dlg->windowTitle(), list->verticalScrollBar()->objectName()},
            QStringList{"PRICE_FRAME", "Dialog", "PRICE_LIST_WIDGET_V_SCROLLBAR"});
        row("dialog list expanded", list->verticalScrollBar()->singleStep() == 28
                && dlg->findChild<UxViewScrollbarExpand*>() && child<QWidget>(list, "UxViewScrollbarExpandV"), true);
        row("dialog flags, size, modal, frames hidden", QVariantList{int(dlg->windowFlags() & 0x81B), dlg->size(),
            dlg->isModal(), child<QWidget>(dlg.data(), "fmTop")->isHidden() && child<QWidget>(dlg.data(), "fmBottom")->isHidden()},
            QVariantList{0x81B, QSize(320, 502), true, true});
        for (QString b : {"btnTop||置顶", "btnUp||上移", "btnDown||下移", "btnOK|确定|", "btnCancel|取消|", "btnClose||"}) {
            auto* btn = dlg->findChild<QPushButton*>(b.section(QLatin1Char('|'), 0, 0));
            row(qPrintable(b), btn ? btn->objectName() + '|' + btn->text() + '|' + btn->toolTip() : QString(), b);
        }
        row("titles", child<QLabel>(dlg.data(), "lbTitle1")->text() + child<QLabel>(dlg.data(), "lbTitle2")->text(),
            QStringLiteral("列操作显示/隐藏"));

        // The signals are checked by the relay test, sigItemChanged by dialogMoves.
        for (const char* m : {"slotCreateTableData(QList<TableData>)", "moveUp(TableData,int,bool)",
                              "moveDown(TableData,int,bool)"})
            row(m, UxCustomTableWidget::staticMetaObject.indexOfMethod(m) >= 0, true);
        for (const char* m : {"slotValueChanged(int)", "slotHorizentalValueChanged(int)"})
            row(m, UxViewScrollbarExpand::staticMetaObject.indexOfMethod(m) >= 0, true);
    }
    void contract() { Rows::compareActual(); }

    // Every signal of the view reaches the widget's of the same signature, once.
    void relaysEverySignalOnce()
    {
        UxCustomTableWidget w;
        auto* view = child<UxTableView>(&w, "tableView");
        const _SubPageData page{30, 90, QStringLiteral("block-7"), QStringLiteral("Rise"), UxSortDescending};
        const _TableData data{0, QStringLiteral("k"), QStringLiteral("600000"), QStringLiteral("浦发"), 1, 0, {}};
        const QStringList list{"600000", "000001"};
        const std::pair<const char*, std::function<void()>> relayed[] = {
            {SIGNAL(sigSubPages(SubPageData)), [&] { emit view->sigSubPages(page); }},
            {SIGNAL(sigSubPages(QStringList)), [&] { emit view->sigSubPages(list); }},
            {SIGNAL(sigTableViewClicked(TableData,QModelIndex)), [&] { emit view->sigTableViewClicked(data, {}); }},
            {SIGNAL(sigTableViewDoubleClicked(TableData,QModelIndex)), [&] { emit view->sigTableViewDoubleClicked(data, {}); }},
            {SIGNAL(sigSortTableData(SubPageData)), [&] { emit view->sigSortTableData(page); }},
            {SIGNAL(sigCustomContextMenuRequested(TableData,QModelIndex)),
             [&] { emit view->sigCustomContextMenuRequested(data, {}); }}};
        std::vector<std::unique_ptr<QSignalSpy>> spies;
        for (const auto& s : relayed)
            spies.emplace_back(new QSignalSpy(&w, s.first));
        for (int which = 0; which < 6; ++which) {
            relayed[which].second();
            for (int i = 0; i < 6; ++i)
                QCOMPARE(spies[i]->count(), i == which ? 1 : 0);
            const QVariant arg = spies[which]->takeFirst().at(0);
            QVERIFY(which == 1 ? arg.toStringList() == list
                               : which % 4 ? arg.value<_TableData>() == data : arg.value<_SubPageData>() == page);
        }
    }

    // The user file replaces the template; the one-file overload and the dialog read "config/", the manager untouched.
    void columnFilesAndTheirFolders()
    {
        UxTest::writeFile(userFile(), columnFile({"Index", "Code", "Name", "Amount"}, {"Code"}));
        UxCustomTableWidget w;
        QCOMPARE(feildsOf(manager->getTableHeaderData()), QStringList({"Index", "Code", "Name", "Amount"}));
        QCOMPARE(feildsOf(w.getHHeaderData()), QStringList({"Index", "Name", "Amount"}));
        writeTemplate(QStringLiteral("tst_tpl.json"), columnFile({"A", "B", "C", "D"}));
        writeTemplate(QStringLiteral("tst_ro.json"), columnFile({"X", "Y", "Z", "W"}, {"W"}));
        m_created << UxTest::writeFile(userFile(QStringLiteral("tst_user.json")), columnFile({"A", "B", "C", "E"}));
        w.setHHeaderData(QStringLiteral("tst_absent.json"), QStringLiteral("tst_tpl.json"));
        QCOMPARE(feildsOf(w.getHHeaderData()), QStringList({"A", "B", "C", "D"}));
        w.setHHeaderData(QStringLiteral("tst_user.json"), QStringLiteral("tst_tpl.json"));
        QCOMPARE(feildsOf(w.getHHeaderData()), QStringList({"A", "B", "C", "E"}));
        w.setHHeaderData(QStringLiteral("tst_ro.json"));
        QCOMPARE(feildsOf(w.getHHeaderData()), QStringList({"X", "Y", "Z"}));
        QCOMPARE(feildsOf(manager->getTableHeaderData()), QStringList({"A", "B", "C", "E"}));
        UxSettingDialog dlg;
        dlg.createItems(QStringLiteral("tst_ro.json"));
        QCOMPARE(dlg.getAllItems(), manager->getTableHeaderData(m_templateDir + QStringLiteral("tst_ro.json")));
    }

    void columnVisibility_data()
    {
        QTest::addColumn<int>("column");
        Rows::columns<bool>({"frozenPart", "hidden"}); // hidden: in the part addressed; the other part never changes
        QTest::newRow("first") << 0 << false << true;
        QTest::newRow("last") << 6 << false << true;
        QTest::newRow("past the end") << 7 << false << false;
        QTest::newRow("negative") << -1 << false << false;
        QTest::newRow("frozen part") << 2 << true << true;
    }
    void columnVisibility()
    {
        QFETCH(int, column);
        QFETCH(bool, frozenPart);
        QFETCH(bool, hidden);
        UxCustomTableWidget w;
        auto* view = child<UxTableView>(&w, "tableView");
        const bool frozenBefore = view->frozenView()->isColumnHidden(column);
        frozenPart ? w.setFrozenViewColumnHidden(column, true) : w.setColumnHidden(column, true);
        QCOMPARE(view->isColumnHidden(column), hidden && !frozenPart);
        QCOMPARE(view->frozenView()->isColumnHidden(column), frozenPart ? hidden : frozenBefore);
        w.setColumnHidden(column, false);
        QVERIFY(!view->isColumnHidden(column));
        // The block id is read back through the view's saved state.
        w.restore({{QStringLiteral("blockId"), QStringLiteral("hs-b")}});
        QCOMPARE(w.blockId(), QStringLiteral("hs-b"));
    }

    // The dialog drops down under the button, applies and saves each change at once (Cancel keeps them); OK always saves.
    void settingsFlow_data()
    {
        QTest::addColumn<int>("x");
        Rows::columns<QString>({"change", "button"});
        QTest::addColumn<QStringList>("expected"); // shown columns afterwards
        QTest::addColumn<bool>("saved");
        QTest::newRow("OK unchanged saves") << 300 << "" << "btnOK" << kTemplate << true;
        QTest::newRow("Cancel unchanged writes nothing") << -700 << "" << "btnCancel" << kTemplate << false;
        const QStringList noRise{"Index", "Code", "Name", "Now", "Volume", "Amount"};
        const QStringList moved{"Index", "Code", "Name", "Amount", "Rise", "Now", "Volume"};
        QTest::newRow("uncheck, Cancel keeps it") << 300 << "uncheck" << "btnCancel" << noRise << true;
        QTest::newRow("moves, then OK") << 300 << "move" << "btnOK" << moved << true;
    }
    void settingsFlow()
    {
        QFETCH(int, x);
        QFETCH(QString, change);
        QFETCH(QStringList, expected);
        QFETCH(bool, saved);
        UxCustomTableWidget w;
        w.move(x, 100);
        w.setSettingBtnVisible(true);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        auto* btn = child<QPushButton>(&w, "settingBtn");

        UxSettingDialog* d = nullptr;
        QPoint pos;
        QStringList live, liveSaved;
        QTimer::singleShot(0, &w, [&]() {
            if (!(d = qobject_cast<UxSettingDialog*>(QApplication::activeModalWidget())))
                return;
            pos = d->pos();
            auto* list = child<QListWidget>(d, "listWidget");
            if (change == QLatin1String("uncheck")) {
                list->item(1)->setCheckState(Qt::Unchecked); // "Rise"
            } else if (change == QLatin1String("move")) {
                list->setCurrentRow(3); // "Amount"
                QTest::mouseClick(child(d, "btnTop"), Qt::LeftButton);
                list->setCurrentRow(1); // "Now"
                QTest::mouseClick(child(d, "btnDown"), Qt::LeftButton);
            }
            live = feildsOf(w.getHHeaderData());
            liveSaved = feildsOf(manager->getTableHeaderData(userFile()), true);
            child<QPushButton>(d, Rows::cell<QString>("button"))->click();
        });
        bool stuck = false; // the button left the dialog open
        QTimer::singleShot(5000, &w, [&]() { d ? (stuck = true, d->done(-1)) : void(); }); // never hang the suite
        QTest::mouseClick(btn, Qt::LeftButton);
        QVERIFY(d && !stuck);
        QCOMPARE(pos, btn->mapToGlobal(QPoint(x > 0 ? btn->width() - 320 : 0, btn->height())));
        QCOMPARE(live, expected);
        QCOMPARE(liveSaved, change.isEmpty() ? QStringList() : expected);
        QCOMPARE(feildsOf(w.getHHeaderData()), expected);
        QCOMPARE(QFile::exists(userFile()), saved);
        QCOMPARE(feildsOf(manager->getTableHeaderData(userFile()), true), saved ? expected : QStringList());
    }

    // The first three columns are never listed and come back first, unchanged.
    void dialogKeepsTheFixedColumnsAside()
    {
        UxSettingDialog dlg;
        auto* list = child<QListWidget>(&dlg, "listWidget");
        for (int count : {8, 0, 3, 4, 8}) { // a previous list must not leak into the next
            const Columns input = columns(kEight.mid(0, count), {"c0", "c4"});
            dlg.createItems(input);
            QCOMPARE(list->count(), qMax(0, count - 3));
            QCOMPARE(dlg.getAllItems(), count > 3 ? input : Columns());
            QCOMPARE(feildsOf(dlg.getAllSelectedItems()), feildsOf(input.mid(3), true));
        }
    }

    void dialogMoves_data()
    {
        QTest::addColumn<QString>("hidden");
        QTest::addColumn<int>("selectRow"); // -1: nothing selected
        QTest::addColumn<QString>("button"); // "check": check the hidden one, then to top
        QTest::addColumn<QStringList>("expected"); // listed feilds afterwards
        const QStringList start{"c3", "c4", "c5", "c6", "c7"}, swapped{"c3", "c5", "c4", "c6", "c7"};
        QTest::newRow("to top") << "" << 3 << "btnTop" << QStringList{"c6", "c3", "c4", "c5", "c7"};
        QTest::newRow("to top from the top") << "" << 0 << "btnTop" << start;
        QTest::newRow("up to the top") << "" << 1 << "btnUp" << QStringList{"c4", "c3", "c5", "c6", "c7"};
        QTest::newRow("up from the top") << "" << 0 << "btnUp" << start;
        QTest::newRow("down from the top") << "" << 0 << "btnDown" << QStringList{"c4", "c3", "c5", "c6", "c7"};
        QTest::newRow("down to the bottom") << "" << 3 << "btnDown" << QStringList{"c3", "c4", "c5", "c7", "c6"};
        QTest::newRow("down from the bottom") << "" << 4 << "btnDown" << start;
        QTest::newRow("unchecked cannot go to top") << "c6" << 3 << "btnTop" << start;
        QTest::newRow("unchecked cannot go down") << "c4" << 1 << "btnDown" << start;
        QTest::newRow("nothing selected") << "" << -1 << "btnUp" << start;
        QTest::newRow("over an unchecked one") << "c5" << 1 << "btnDown" << swapped;
        QTest::newRow("checked first") << "c5" << 2 << "check" << QStringList{"c5", "c3", "c4", "c6", "c7"};
    }
    void dialogMoves()
    {
        QFETCH(int, selectRow);
        QFETCH(QString, button);
        QFETCH(QStringList, expected);
        UxSettingDialog dlg;
        Columns input = columns(kEight, {Rows::cell<QString>("hidden")});
        dlg.createItems(input);
        auto* list = child<QListWidget>(&dlg, "listWidget");
        list->setCurrentRow(selectRow);
        if (button == QLatin1String("check")) {
            list->item(selectRow)->setCheckState(Qt::Checked);
            input[selectRow + 3].isShow = true;
            button = QStringLiteral("btnTop");
        }
        QSignalSpy changed(&dlg, &UxSettingDialog::sigItemChanged);
        QTest::mouseClick(child(&dlg, qPrintable(button)), Qt::LeftButton);

        const Columns all = dlg.getAllItems();
        QCOMPARE(feildsOf(all), kEight.mid(0, 3) + expected);
        QCOMPARE(changed.isEmpty(), expected == kEight.mid(3));
        for (int row = 0; row < list->count(); ++row) { // each item still shows its own record
            const _TableHHeaderData& d = input.at(kEight.indexOf(all.at(row + 3).feild));
            QCOMPARE(all.at(row + 3), d);
            QCOMPARE(list->item(row)->text() + QString::number(list->item(row)->checkState()),
                     d.text + QString::number(d.isShow ? Qt::Checked : Qt::Unchecked));
        }
        if (!changed.isEmpty()) { // the moved one stays selected
            const int moved = expected.indexOf(input.at(selectRow + 3).feild);
            QVERIFY(list->currentRow() == moved && list->item(moved)->isSelected());
        }
    }
};

UX_TEST_MAIN(TstTableWidget)
#include "tst_tablewidget.moc"

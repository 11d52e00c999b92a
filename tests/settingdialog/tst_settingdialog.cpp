#include "uxtestenv.h"

#include "uxsettingdialog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

namespace {

// N columns "c0".."c(n-1)"; the columns whose index is in HIDDEN are not shown.
QList<_TableHHeaderData> columns(int n, const QList<int>& hidden = {})
{
    QList<_TableHHeaderData> list;
    for (int i = 0; i < n; ++i) {
        _TableHHeaderData d;
        d.text = QStringLiteral("Column %1").arg(i);
        d.feild = QStringLiteral("c%1").arg(i);
        d.isShow = !hidden.contains(i);
        d.isChangeColor = i % 2;
        d.alignment = Qt::AlignRight | Qt::AlignVCenter;
        list << d;
    }
    return list;
}

QStringList feilds(const QList<_TableHHeaderData>& list)
{
    QStringList out;
    for (const auto& d : list)
        out << d.feild;
    return out;
}

QListWidget* listOf(UxSettingDialog& dlg)
{
    return dlg.findChild<QListWidget*>(QStringLiteral("listWidget"));
}

QPushButton* button(UxSettingDialog& dlg, const char* name)
{
    return dlg.findChild<QPushButton*>(QLatin1String(name));
}

} // namespace

class TstSettingDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheFixedColumnsAside_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("listed");
        QTest::addColumn<int>("returned");

        QTest::newRow("empty") << 0 << 0 << 0;
        QTest::newRow("two") << 2 << 0 << 0;
        QTest::newRow("three") << 3 << 0 << 0;
        QTest::newRow("four") << 4 << 1 << 4;
        QTest::newRow("ten") << 10 << 7 << 10;
    }

    void keepsTheFixedColumnsAside()
    {
        QFETCH(int, count);
        QFETCH(int, listed);
        QFETCH(int, returned);

        UxSettingDialog dlg;
        dlg.createItems(columns(6)); // a previous list must not leak into the next
        const QList<_TableHHeaderData> input = columns(count, {0, 4});
        dlg.createItems(input);

        QListWidget* list = listOf(dlg);
        QCOMPARE(list->count(), listed);
        for (int row = 0; row < list->count(); ++row) {
            QCOMPARE(list->item(row)->text(), input.at(row + 3).text);
            QCOMPARE(list->item(row)->checkState(), input.at(row + 3).isShow ? Qt::Checked : Qt::Unchecked);
        }
        const QList<_TableHHeaderData> all = dlg.getAllItems();
        QCOMPARE(all.size(), returned);
        if (returned)
            QCOMPARE(all, input); // fixed columns first and unchanged, every record intact
        for (const auto& d : dlg.getAllSelectedItems()) {
            QVERIFY(!feilds(input.mid(0, 3)).contains(d.feild));
            QVERIFY(d.isShow);
        }
    }

    void checkBoxesUpdateTheRecords()
    {
        UxSettingDialog dlg;
        dlg.createItems(columns(6, {1}));
        QSignalSpy changed(&dlg, &UxSettingDialog::sigItemChanged);
        QListWidget* list = listOf(dlg);

        list->item(1)->setCheckState(Qt::Unchecked); // column c4
        QCOMPARE(changed.count(), 1);
        QList<_TableHHeaderData> all = dlg.getAllItems();
        QCOMPARE(all.at(4).isShow, false);
        QCOMPARE(all.at(1).isShow, false); // the fixed column keeps its own state
        QCOMPARE(feilds(dlg.getAllSelectedItems()), QStringList({"c3", "c5"}));

        list->item(1)->setCheckState(Qt::Checked);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(dlg.getAllItems().at(4).isShow, true);
        QCOMPARE(feilds(dlg.getAllSelectedItems()), QStringList({"c3", "c4", "c5"}));
    }

    void moves_data()
    {
        QTest::addColumn<QList<int>>("hidden"); // indexes into the 8-column input
        QTest::addColumn<int>("selectRow");     // -1: nothing selected
        QTest::addColumn<QString>("button");
        QTest::addColumn<QStringList>("expected"); // listed feilds afterwards
        QTest::addColumn<bool>("emits");

        const QStringList start{"c3", "c4", "c5", "c6", "c7"};
        QTest::newRow("to top") << QList<int>{} << 3 << "btnTop" << QStringList{"c6", "c3", "c4", "c5", "c7"} << true;
        QTest::newRow("to top from the top") << QList<int>{} << 0 << "btnTop" << start << false;
        QTest::newRow("up") << QList<int>{} << 2 << "btnUp" << QStringList{"c3", "c5", "c4", "c6", "c7"} << true;
        QTest::newRow("up from the top") << QList<int>{} << 0 << "btnUp" << start << false;
        QTest::newRow("down") << QList<int>{} << 1 << "btnDown" << QStringList{"c3", "c5", "c4", "c6", "c7"} << true;
        QTest::newRow("down from the bottom") << QList<int>{} << 4 << "btnDown" << start << false;
        QTest::newRow("unchecked cannot go to top") << QList<int>{6} << 3 << "btnTop" << start << false;
        QTest::newRow("unchecked cannot go up") << QList<int>{5} << 2 << "btnUp" << start << false;
        QTest::newRow("unchecked cannot go down") << QList<int>{4} << 1 << "btnDown" << start << false;
        QTest::newRow("nothing selected") << QList<int>{} << -1 << "btnUp" << start << false;
        QTest::newRow("over an unchecked one")
            << QList<int>{5} << 1 << "btnDown" << QStringList{"c3", "c5", "c4", "c6", "c7"} << true;
    }

    void moves()
    {
        QFETCH(QList<int>, hidden);
        QFETCH(int, selectRow);
        QFETCH(QString, button);
        QFETCH(QStringList, expected);
        QFETCH(bool, emits);

        UxSettingDialog dlg;
        const QList<_TableHHeaderData> input = columns(8, hidden);
        dlg.createItems(input);
        QListWidget* list = listOf(dlg);
        if (selectRow >= 0)
            list->setCurrentRow(selectRow);
        QSignalSpy changed(&dlg, &UxSettingDialog::sigItemChanged);

        QTest::mouseClick(::button(dlg, button.toLatin1().constData()), Qt::LeftButton);

        const QList<_TableHHeaderData> all = dlg.getAllItems();
        QCOMPARE(feilds(all.mid(3)), expected);
        QCOMPARE(all.mid(0, 3), input.mid(0, 3));
        QCOMPARE(changed.count() > 0, emits);
        // Each listed item still shows its own record.
        for (int row = 0; row < list->count(); ++row) {
            const auto& d = all.at(row + 3);
            const int index = d.feild.mid(1).toInt();
            QCOMPARE(d, input.at(index));
            QCOMPARE(list->item(row)->text(), d.text);
            QCOMPARE(list->item(row)->checkState(), d.isShow ? Qt::Checked : Qt::Unchecked);
        }
        if (emits) {
            const int moved = expected.indexOf(input.at(selectRow + 3).feild);
            QCOMPARE(list->currentRow(), moved);
            QVERIFY(list->item(moved)->isSelected());
        }
    }

    void checkingMakesAColumnMovable()
    {
        UxSettingDialog dlg;
        dlg.createItems(columns(6, {5}));
        QListWidget* list = listOf(dlg);
        list->setCurrentRow(2);
        list->item(2)->setCheckState(Qt::Checked);
        QTest::mouseClick(button(dlg, "btnTop"), Qt::LeftButton);
        QCOMPARE(feilds(dlg.getAllItems()), QStringList({"c0", "c1", "c2", "c5", "c3", "c4"}));
        QVERIFY(dlg.getAllItems().at(3).isShow);
    }

    void execResult_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("result");
        QTest::newRow("OK") << "btnOK" << int(QDialog::Accepted);
        QTest::newRow("Cancel") << "btnCancel" << int(QDialog::Rejected);
        QTest::newRow("close button") << "btnClose" << int(QDialog::Rejected);
        QTest::newRow("Escape") << "escape" << int(QDialog::Rejected);
    }

    void execResult()
    {
        QFETCH(QString, how);
        QFETCH(int, result);

        UxSettingDialog dlg;
        dlg.setBottomVisible(true);
        dlg.setTopVisible(true);
        dlg.createItems(columns(5));
        bool fired = false;
        QTimer::singleShot(50, &dlg, [&]() {
            fired = true;
            if (how == QLatin1String("escape"))
                QTest::keyClick(&dlg, Qt::Key_Escape);
            else
                QTest::mouseClick(button(dlg, how.toLatin1().constData()), Qt::LeftButton);
        });
        QTimer::singleShot(5000, &dlg, [&]() { dlg.done(-1); }); // never hang the suite
        QCOMPARE(dlg.exec(), result);
        QVERIFY(fired);
        QCOMPARE(dlg.getAllItems().size(), 5);
    }

    void closeButtonClosesTheParent()
    {
        QWidget parent;
        parent.show();
        auto* dlg = new UxSettingDialog(&parent);
        dlg->setTopVisible(true);
        dlg->show();
        QTest::mouseClick(button(*dlg, "btnClose"), Qt::LeftButton);
        QVERIFY(!parent.isVisible());
    }

    void titlesAndSections()
    {
        UxSettingDialog dlg;
        dlg.show();
        dlg.setTitle(0, QStringLiteral("Columns"));
        dlg.setTitle(3, QStringLiteral("three"));
        dlg.setTitle(4, QStringLiteral("ignored"));
        dlg.setTitle(-1, QStringLiteral("ignored"));
        QCOMPARE(dlg.findChild<QLabel*>(QStringLiteral("lbTitle0"))->text(), QStringLiteral("Columns"));
        QCOMPARE(dlg.findChild<QLabel*>(QStringLiteral("lbTitle3"))->text(), QStringLiteral("three"));
        for (const QLabel* l : dlg.findChildren<QLabel*>())
            QVERIFY(l->text() != QStringLiteral("ignored"));

        dlg.setTitleVisible(2, false);
        QVERIFY(dlg.findChild<QLabel*>(QStringLiteral("lbTitle2"))->isHidden());
        dlg.setTitleVisible(7, false); // ignored
        dlg.setMidTipsVisible(false);
        QVERIFY(dlg.findChild<QWidget*>(QStringLiteral("wMidTips"))->isHidden());
        dlg.setTopVisible(true);
        dlg.setBottomVisible(true);
        QVERIFY(dlg.findChild<QFrame*>(QStringLiteral("fmTop"))->isVisible());
        QVERIFY(dlg.findChild<QFrame*>(QStringLiteral("fmBottom"))->isVisible());
    }

    void readsColumnFilesFromTheApplicationConfig()
    {
        const QString dir = QCoreApplication::applicationDirPath() + QStringLiteral("/config");
        const QString name = QStringLiteral("tst_settingdialog_%1.json").arg(QCoreApplication::applicationPid());
        const bool madeDir = !QDir(dir).exists();
        const QByteArray json("{\"defaultColor\": \"#000000\", \"riseColor\": \"#ff0000\", \"fallColor\": \"#00ff00\",\n"
                              " \"horizontalHeader\": [\n"
                              "  {\"text\": \"代码\", \"feild\": \"Code\", \"isShow\": true},\n"
                              "  {\"text\": \"名称\", \"feild\": \"Name\", \"isShow\": true},\n"
                              "  {\"text\": \"最新\", \"feild\": \"Last\", \"isShow\": true},\n"
                              "  {\"text\": \"涨幅\", \"feild\": \"Rise\", \"isShow\": false},\n"
                              "  {\"text\": \"成交量\", \"feild\": \"Volume\", \"isShow\": true}]}");
        const QString path = UxTest::writeFile(dir + QLatin1Char('/') + name, json);
        UxSettingDialog dlg;
        dlg.createItems(name);
        QFile::remove(path);
        if (madeDir)
            QDir().rmdir(dir);

        QListWidget* list = listOf(dlg);
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->item(0)->text(), QStringLiteral("涨幅"));
        QCOMPARE(list->item(0)->checkState(), Qt::Unchecked);
        QCOMPARE(feilds(dlg.getAllItems()), QStringList({"Code", "Name", "Last", "Rise", "Volume"}));

        dlg.createItems(QStringLiteral("no-such-file.json"));
        QCOMPARE(list->count(), 0);
        QVERIFY(dlg.getAllItems().isEmpty());
    }
};

UX_TEST_MAIN(TstSettingDialog)
#include "tst_settingdialog.moc"

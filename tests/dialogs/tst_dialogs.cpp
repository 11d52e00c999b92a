#include "uxtestenv.h"
#include "rows.h"

#include "uxfiledialog.h"
#include "uxmessagebox.h"

#include <QtWidgets>

#include <functional>

namespace {

// Runs STEP on the modal dialog of type T that exec() is about to show, until STEP
// ends it; after about 10 s every open dialog is closed so that a broken case fails.
template <typename T>
void drive(std::function<bool(T*)> step, int attempts = 400)
{
    QTimer::singleShot(25, qApp, [step, attempts]() {
        auto* dlg = qobject_cast<T*>(QApplication::activeModalWidget());
        if (dlg && dlg->isVisible() && step(dlg))
            return;
        if (attempts > 0)
            return drive<T>(step, attempts - 1);
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* open = qobject_cast<QDialog*>(w); open && open->isVisible())
                open->done(-7);
    });
}

const QList<QPair<QMessageBox::StandardButton, const char*>> kButtons{
    {QMessageBox::Ok, "确定"}, {QMessageBox::Save, "Save"}, {QMessageBox::SaveAll, "Save All"}, {QMessageBox::Open, "Open"},
    {QMessageBox::Yes, "确定"}, {QMessageBox::YesToAll, "Yes to All"}, {QMessageBox::No, "取消"}, {QMessageBox::NoToAll, "No to All"},
    {QMessageBox::Abort, "Abort"}, {QMessageBox::Retry, "Retry"}, {QMessageBox::Ignore, "Ignore"}, {QMessageBox::Close, "Close"},
    {QMessageBox::Cancel, "取消"}, {QMessageBox::Discard, "Discard"}, {QMessageBox::Help, "Help"}, {QMessageBox::Apply, "Apply"},
    {QMessageBox::Reset, "Reset"}, {QMessageBox::RestoreDefaults, "Restore Defaults"}};

QAbstractButton* boxButton(QWidget* box, int b) { return box->findChild<QDialogButtonBox*>("BtnBox")->button(QDialogButtonBox::StandardButton(b)); }

using Rows::cell;
using Rows::child;
using Rows::row;
QFileDialog* chooser(QWidget* dlg) { return dlg->findChild<QFileDialog*>(); }
bool click(QWidget* dlg, const QString& name) { return child(dlg, name) && (child(dlg, name)->click(), true); }

// Types NAME into the chooser and presses Open once the chooser allows it.
bool typeAndOpen(QWidget* dlg, const QString& name) { return child<QLineEdit>(dlg, "fileNameEdit")->setText(name), child(dlg, "openButton")->isEnabled() && click(dlg, "openButton"); }

} // namespace

class TstDialogs : public QObject
{
    Q_OBJECT
    QTemporaryDir m_files;

private Q_SLOTS:
    void initTestCase()
    {
        for (const char* name : {"a.txt", "c.log", "sub/x"}) // writing sub/x makes the folder sub
            UxTest::writeFile(m_files.filePath(name), name);
    }

    void contract_data()
    {
        Rows::actualExpected();
        QWidget owner;
        UxMessageBox box(&owner);
        UxFileDialog dlg(&owner);
        auto missing = [](QWidget* w, const QString& names) { // those of NAMES not found in W
            QStringList out;
            for (const QString& n : names.split(' '))
                out << (w->findChild<QObject*>(n) ? QString() : n);
            return out.join(' ').simplified();
        };
        row("box names", missing(&box, "gridLayout_2 baseFrame gridLayout verticalLayout_4 verticalLayout_3 horizontalLayout titleLabel verticalLayout "
                                       "closeBtn hLine verticalLayout_2 contentsLabel btnHLayout horizontalLayout_2 checkBox BtnBox"), "");
        row("box form", QVariantList{box.objectName(), box.size(), box.windowTitle(), box.isWindow(), int(box.windowFlags() & 0x812), box.checkBoxVisible(),
                                     box.findChild<UxFramelessHelper*>()->isMovable(), box.findChild<UxFramelessHelper*>()->isResizable()},
            QVariantList{"UxMessageBox", QSize(454, 233), "RkMessageBox", true, 0x812, false, true, false});
        const QMetaObject& mo = UxMessageBox::staticMetaObject;
        row("box meta", QStringList{mo.method(mo.methodOffset()).methodSignature(), mo.method(mo.methodOffset() + 1).methodSignature(),
                                    mo.method(mo.methodOffset() + 2).methodSignature(), mo.property(mo.propertyOffset()).name(),
                                    QString::number(mo.methodCount() - mo.methodOffset())},
            QStringList{"sigCheckBoxVisibleChanged(bool)", "exec()", "slotButtonClicked(QAbstractButton*)", "checkBoxVisible", "3"});
        for (const auto& b : kButtons)
            row(QString("button %1").arg(b.first, 0, 16), UxMessageBox().addButton(b.first)->text(), QString::fromUtf8(b.second));
        row("dialog names", missing(&dlg, "verticalLayout topFrame horizontalLayout_3 titleLabel sysMin sysClose bodyWidget bodylayout "
                                          "openButton cancelButton"), "");
        row("dialog form", QVariantList{dlg.objectName(), dlg.size(), dlg.windowTitle(), int(dlg.windowFlags()), dlg.testAttribute(Qt::WA_TranslucentBackground)},
            QVariantList{"UxFileDialog", QSize(761, 489), "CustomFileDialog", int(Qt::FramelessWindowHint), true});
        row("title bar", QVariantList{child(&dlg, "sysMin")->toolTip(), child(&dlg, "sysClose")->toolTip(), child(&dlg, "sysMin")->maximumSize(),
                                      child<QLabel>(&dlg, "titleLabel")->maximumHeight(), child<QLabel>(&dlg, "lookInLabel")->text()},
            QVariantList{"最小化", "关闭", QSize(23, 23), 36, "文件目录："});
        row("chooser", QVariantList{chooser(&dlg)->testOption(QFileDialog::DontUseNativeDialog), chooser(&dlg)->isSizeGripEnabled(),
                                    child<QComboBox>(&dlg, "lookInCombo")->minimumHeight(), child<QLineEdit>(&dlg, "fileNameEdit")->minimumHeight()},
            QVariantList{true, QFileDialog().isSizeGripEnabled(), 24, 24});
        row("open button", QVariantList{child(&dlg, "openButton")->size(), child(&dlg, "openButton")->styleSheet().left(24), child(&dlg, "cancelButton")->text()},
            QVariantList{QSize(68, 24), "#openButton{border:none;", "取消"});
    }
    void contract() { QTEST(cell<QVariant>("actual"), "expected"); }

    void returnCodes_data()
    {
        Rows::columns<int>({"runner", "buttons"}); // runner: 0 constructed, 1 information, 2 warning, 3 critical, 4 question
        Rows::columns<QString>({"exit"}); // a button value, returned; or "close" or "escape", which return 0
        const int okCancel = QMessageBox::Ok | QMessageBox::Cancel;
        const int yesNo = QMessageBox::Yes | QMessageBox::No;
        QTest::newRow("information ok") << 1 << okCancel << "1024";
        QTest::newRow("information close") << 1 << okCancel << "close";
        QTest::newRow("warning escape") << 2 << okCancel << "escape";
        QTest::newRow("critical cancel") << 3 << okCancel << "4194304";
        QTest::newRow("question yes") << 4 << yesNo << "16384";
        QTest::newRow("constructed help") << 0 << int(QMessageBox::Help | QMessageBox::Ok) << "16777216";
        QTest::newRow("constructed escape") << 0 << okCancel << "escape";
    }
    void returnCodes()
    {
        const QString exit = cell<QString>("exit");
        const int runner = cell<int>("runner"), expected = exit.toInt();
        QAbstractButton* clicked = nullptr;
        drive<UxMessageBox>([&](UxMessageBox* box) {
            return exit == "escape" ? QTest::keyClick(box, Qt::Key_Escape) : (exit == "close" ? child(box, "closeBtn") : (clicked = boxButton(box, exit.toInt())))->click(), true;
        });
        const auto flags = QFlags<QMessageBox::StandardButton>(cell<int>("buttons"));
        using Helper = int (*)(const QString&, const QString&, QFlags<QMessageBox::StandardButton>);
        const Helper helpers[] = {nullptr, UxMessageBox::information, UxMessageBox::warning, UxMessageBox::critical, UxMessageBox::question};
        UxMessageBox box("t", "m", flags);
        QCOMPARE(runner ? helpers[runner]("t", "m", flags) : box.exec(), expected);
        if (runner)
            return;
        QCOMPARE(box.clickedButton(), clicked);
        // A second run left by Escape still reports the button that closed the first.
        drive<UxMessageBox>([](UxMessageBox* b) { return QTest::keyClick(b, Qt::Key_Escape), true; });
        QCOMPARE(box.exec(), expected);
    }

    // The check box shows on request, signalling changes only; the closing button dies first, and
    // a clicked button the caller deleted is not deleted twice.
    void checkBoxAndClickedButton()
    {
        auto* box = new UxMessageBox("t", "m", QMessageBox::Ok | QMessageBox::Cancel);
        auto* check = child<QCheckBox>(box, "checkBox");
        QSignalSpy spy(box, &UxMessageBox::sigCheckBoxVisibleChanged);
        box->setCheckBoxVisible(true);
        check->hide();
        box->setCheckBoxVisible(true); // unchanged: no signal, but shown again
        QVERIFY(!check->isHidden());
        QVERIFY(box->setProperty("checkBoxVisible", false));
        box->setCheckBoxVisible(false);
        QVERIFY(spy == QList<QVariantList>({{true}, {false}}) && check->isHidden());
        for (Qt::CheckState state : {Qt::Unchecked, Qt::PartiallyChecked, Qt::Checked}) {
            check->setCheckState(state);
            QCOMPARE(box->checkBoxChecked(), state == Qt::Checked);
        }
        QStringList deaths;
        for (const auto& w : QList<QPair<QObject*, QString>>{{child<QLabel>(box, "contentsLabel"), "label"}, {boxButton(box, QMessageBox::Cancel), "cancel"}})
            QObject::connect(w.first, &QObject::destroyed, [&deaths, name = w.second]() { deaths << name; });
        drive<UxMessageBox>([](UxMessageBox* b) { return boxButton(b, QMessageBox::Cancel)->click(), true; });
        QCOMPARE(box->exec(), int(QMessageBox::Cancel));
        delete box;
        QCOMPARE(deaths, QStringList({"cancel", "label"}));
        UxMessageBox again("t", "m", QMessageBox::Ok);
        drive<UxMessageBox>([](UxMessageBox* b) { return boxButton(b, QMessageBox::Ok)->click(), true; });
        QCOMPARE(again.exec(), int(QMessageBox::Ok));
        delete again.clickedButton();
        QVERIFY(!again.clickedButton());
    }

    void modes()
    {
        UxFileDialog dlg;
        dlg.setAcceptMode(QFileDialog::AcceptOpen);
        QCOMPARE(QVariantList({child<QLabel>(&dlg, "titleLabel")->text(), dlg.windowTitle()}), QVariantList({"文件选择框", "文件选择框"}));
        dlg.setFileMode(QFileDialog::ExistingFiles);
        auto* tree = child<QTreeView>(&dlg, "treeView");
        for (QAbstractItemView* view : {static_cast<QAbstractItemView*>(child<QListView>(&dlg, "listView")), static_cast<QAbstractItemView*>(tree)})
            QVERIFY(view->selectionMode() == QAbstractItemView::ExtendedSelection && view->itemDelegate()->inherits("NoFocusDelegate"));
        QCOMPARE(tree->header()->defaultAlignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QMetaObject::invokeMethod(child<QDialogButtonBox>(&dlg, "buttonBox"), "accepted"); // the chooser's buttons end this dialog directly
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        dlg.setAcceptMode(QFileDialog::AcceptSave); // the chooser's new buttons wait for the next setFileMode
        QCOMPARE(QVariantList({child<QLabel>(&dlg, "titleLabel")->text(), int(chooser(&dlg)->fileMode()), child(&dlg, "saveButton") == nullptr}),
                 QVariantList({"文件保存框", int(QFileDialog::AnyFile), true}));
        dlg.setFileMode(QFileDialog::ExistingFiles); // ignored in save mode but for the buttons
        QCOMPARE(QVariantList({int(chooser(&dlg)->fileMode()), child(&dlg, "saveButton")->maximumSize(), child(&dlg, "saveButton")->styleSheet().contains("#saveButton:disabled{")}),
                 QVariantList({int(QFileDialog::AnyFile), QSize(68, 24), true}));
        chooser(&dlg)->setDirectory(m_files.path());
        QCOMPARE(dlg.selectedFiles(), QStringList({QString()}));
        child<QLineEdit>(&dlg, "fileNameEdit")->setText("new.txt");
        QCOMPARE(dlg.selectedFiles(), QStringList({QDir(m_files.path()).absoluteFilePath("new.txt")}));
    }

    void helpers_data()
    {
        Rows::columns<int>({"helper"}); // 0 open, 1 save, 2 folder, 3 save without the filter out-parameter
        // filter: in, the preselected one; out, the choice. exit: a file to accept or a button.
        Rows::columns<QString>({"caption", "filter", "exit", "answer", "chosenFilter"});
        QTest::newRow("open, nothing preselected") << 0 << "Open" << "" << "a.txt" << "a.txt" << "Text (*.txt)";
        QTest::newRow("open, preselected") << 0 << "" << "Logs (*.log)" << "c.log" << "c.log" << "Logs (*.log)";
        QTest::newRow("save, offered from dir") << 1 << "" << "" << "saveButton" << "new.csv" << "Tables (*.csv)";
        QTest::newRow("save, no filter asked back") << 3 << "" << "" << "saveButton" << "new.csv" << "";
        QTest::newRow("folder, chosen") << 2 << "Folder" << "" << "openButton" << "sub" << "";
        QTest::newRow("folder, close") << 2 << "Folder" << "" << "sysClose" << "" << "";
    }
    void helpers()
    {
        QFETCH(int, helper); QFETCH(QString, caption); QFETCH(QString, filter);
        QFETCH(QString, exit); QFETCH(QString, answer); QFETCH(QString, chosenFilter);
        QString shownTitle = "<unset>", offered;
        drive<UxFileDialog>([&](UxFileDialog* d) {
            shownTitle = child<QLabel>(d, "titleLabel")->text();
            offered = child<QLineEdit>(d, "fileNameEdit")->text();
            return exit.contains('.') && helper == 0 ? typeAndOpen(d, exit) : click(d, exit);
        });
        const QString filters = helper ? "Tables (*.csv)" : "Text (*.txt);;Logs (*.log)";
        const QString got = helper == 0 ? UxFileDialog::getOpenFileName(nullptr, caption, m_files.path(), filters, &filter)
            : helper != 2 ? UxFileDialog::getSaveFileName(nullptr, caption, m_files.filePath("new.csv"), filters, helper == 1 ? &filter : nullptr)
                          : UxFileDialog::getExistingDirectory(nullptr, caption, m_files.filePath("sub"));
        QCOMPARE(shownTitle, caption); // the caption replaces the mode's title, even when empty
        QCOMPARE(got.isEmpty() ? QString() : QFileInfo(got).fileName(), answer);
        QCOMPARE(helper < 2 ? filter : QString(), chosenFilter);
        QVERIFY(helper != 1 || offered == "new.csv"); // dir is offered as the file name too
    }

};

UX_TEST_MAIN(TstDialogs)
#include "tst_dialogs.moc"

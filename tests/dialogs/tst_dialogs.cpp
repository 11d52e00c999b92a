#include "uxtestenv.h"

#include "nofocusdelegate.h"
#include "uxfiledialog.h"
#include "uxmessagebox.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QTimer>
#include <QTreeView>

#include <functional>

namespace {

// Polls for the modal dialog of type T that exec() is about to show and runs
// STEP on it until STEP reports that it has ended it. After about 20 s every
// open dialog is closed, so a broken case fails instead of hanging the suite.
template <typename T>
void drive(std::function<bool(T*)> step, int attempts = 800)
{
    QTimer::singleShot(25, qApp, [step, attempts]() {
        auto* dlg = qobject_cast<T*>(QApplication::activeModalWidget());
        if (dlg && dlg->isVisible() && step(dlg))
            return;
        if (attempts > 0) {
            drive<T>(step, attempts - 1);
            return;
        }
        qWarning("the modal dialog was never driven to an end");
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget* w : windows) {
            auto* open = qobject_cast<QDialog*>(w);
            if (open && open->isVisible())
                open->done(-7);
        }
    });
}

struct ButtonCase
{
    QMessageBox::StandardButton button;
    const char* name;
    const char* text; // UTF-8
};

const ButtonCase kButtons[] = {
    {QMessageBox::Ok, "Ok", "确定"},
    {QMessageBox::Save, "Save", "Save"},
    {QMessageBox::SaveAll, "SaveAll", "Save All"},
    {QMessageBox::Open, "Open", "Open"},
    {QMessageBox::Yes, "Yes", "确定"},
    {QMessageBox::YesToAll, "YesToAll", "Yes to All"},
    {QMessageBox::No, "No", "取消"},
    {QMessageBox::NoToAll, "NoToAll", "No to All"},
    {QMessageBox::Abort, "Abort", "Abort"},
    {QMessageBox::Retry, "Retry", "Retry"},
    {QMessageBox::Ignore, "Ignore", "Ignore"},
    {QMessageBox::Close, "Close", "Close"},
    {QMessageBox::Cancel, "Cancel", "取消"},
    {QMessageBox::Discard, "Discard", "Discard"},
    {QMessageBox::Help, "Help", "Help"},
    {QMessageBox::Apply, "Apply", "Apply"},
    {QMessageBox::Reset, "Reset", "Reset"},
    {QMessageBox::RestoreDefaults, "RestoreDefaults", "Restore Defaults"},
};

QAbstractButton* boxButton(QWidget* box, int standard)
{
    auto* buttons = box->findChild<QDialogButtonBox*>(QStringLiteral("BtnBox"));
    return buttons ? buttons->button(QDialogButtonBox::StandardButton(standard)) : nullptr;
}

QByteArray solidPng(const QColor& color)
{
    QImage image(4, 4, QImage::Format_ARGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// Switches to SKIN for one test and back to "light" afterwards.
struct SkinGuard
{
    explicit SkinGuard(const QString& skin) { UxCore::instance()->setCurrentSkin(skin); }
    ~SkinGuard() { UxCore::instance()->setCurrentSkin(QStringLiteral("light")); }
};

QFileDialog* chooser(QWidget* dlg)
{
    return dlg->findChild<QFileDialog*>();
}

QString titleOf(QWidget* dlg)
{
    auto* label = dlg->findChild<QLabel*>(QStringLiteral("titleLabel"));
    return label ? label->text() : QStringLiteral("<no title label>");
}

// Types NAME into the chooser and presses its accept button once it allows it.
bool typeAndAccept(QWidget* dlg, const QString& name, const char* buttonName)
{
    auto* edit = dlg->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    auto* button = dlg->findChild<QPushButton*>(QLatin1String(buttonName));
    if (!edit || !button)
        return false;
    if (edit->text() != name)
        edit->setText(name);
    if (!button->isEnabled())
        return false;
    button->click();
    return true;
}

bool clickChild(QWidget* dlg, const char* name)
{
    auto* button = dlg->findChild<QPushButton*>(QLatin1String(name));
    if (!button)
        return false;
    button->click();
    return true;
}

QString canonical(const QString& path)
{
    return QFileInfo(path).canonicalFilePath();
}

} // namespace

class TstDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    // message box
    void returnCodes_data();
    void returnCodes();
    void buttonTexts_data();
    void buttonTexts();
    void boxWithoutButtonsStartsEmpty();
    void unknownButtonsAreNotAdded_data();
    void unknownButtonsAreNotAdded();
    void checkBoxPropertySignalsOncePerChange();
    void checkBoxChecked_data();
    void checkBoxChecked();
    void panelIsPaintedInsideTheShadow();
    void missingShadowImagesLeaveTheBorderClear();
    void boxIsAFramelessMovableSkinnedWindow();
    void clickedButtonDiesFirst();
    void longAndEmptyTextsStillClose_data();
    void longAndEmptyTextsStillClose();

    // file dialog
    void titlePerAcceptMode_data();
    void titlePerAcceptMode();
    void chooserIsEmbeddedAndRestyled();
    void saveModeIgnoresFileMode();
    void multiSelectionEndsTheDialogDirectly();
    void saveSelectionWithoutNameIsOneEmptyEntry();
    void openFileNameOnAcceptance();
    void openFileNameKeepsPreselectedFilter();
    void saveFileNameOfferedFromDir();
    void existingDirectoryOnAcceptance();
    void helpersAnswerEmptyUnlessAccepted_data();
    void helpersAnswerEmptyUnlessAccepted();
    void dialogCanBeShownAgain();
    void minimiseAndCloseButtons();
    void chineseTextsIgnoreTheLocaleCodec();
    void delegateDrawsNoFocusFrame();

private:
    QTemporaryDir m_files;
};

void TstDialogs::initTestCase()
{
    QVERIFY(m_files.isValid());
    UxTest::writeFile(m_files.filePath(QStringLiteral("a.txt")), "a");
    UxTest::writeFile(m_files.filePath(QStringLiteral("b.txt")), "b");
    UxTest::writeFile(m_files.filePath(QStringLiteral("c.log")), "c");
    QVERIFY(QDir(m_files.path()).mkpath(QStringLiteral("sub")));
}

// ---- message box ------------------------------------------------------------

enum Runner { Constructed, Information, Warning, Critical, Question };
enum ExitBy { ClickButton, CloseButton, EscapeKey };

void TstDialogs::returnCodes_data()
{
    QTest::addColumn<int>("runner");
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("exitBy");
    QTest::addColumn<int>("click");
    QTest::addColumn<int>("expected");

    const int okCancel = QMessageBox::Ok | QMessageBox::Cancel;
    const int yesNo = QMessageBox::Yes | QMessageBox::No;
    QTest::newRow("information ok") << int(Information) << okCancel << int(ClickButton) << int(QMessageBox::Ok)
                                    << 0x00000400;
    QTest::newRow("information cancel") << int(Information) << okCancel << int(ClickButton)
                                        << int(QMessageBox::Cancel) << 0x00400000;
    QTest::newRow("information close button") << int(Information) << okCancel << int(CloseButton) << 0 << 0;
    QTest::newRow("warning escape") << int(Warning) << okCancel << int(EscapeKey) << 0 << 0;
    QTest::newRow("critical ok") << int(Critical) << int(QMessageBox::Ok) << int(ClickButton)
                                 << int(QMessageBox::Ok) << 0x00000400;
    QTest::newRow("question yes") << int(Question) << yesNo << int(ClickButton) << int(QMessageBox::Yes)
                                  << 0x00004000;
    QTest::newRow("question no") << int(Question) << yesNo << int(ClickButton) << int(QMessageBox::No)
                                 << 0x00010000;
    QTest::newRow("question close button") << int(Question) << yesNo << int(CloseButton) << 0 << 0;
    QTest::newRow("question escape") << int(Question) << yesNo << int(EscapeKey) << 0 << 0;
    QTest::newRow("constructed close button") << int(Constructed) << okCancel << int(CloseButton) << 0 << 0;
    QTest::newRow("constructed escape") << int(Constructed) << okCancel << int(EscapeKey) << 0 << 0;
    for (const ButtonCase& c : kButtons) {
        QTest::addRow("constructed %s", c.name)
            << int(Constructed) << int(c.button | QMessageBox::Help | QMessageBox::Ok) << int(ClickButton)
            << int(c.button) << int(c.button);
    }
}

void TstDialogs::returnCodes()
{
    QFETCH(int, runner);
    QFETCH(int, buttons);
    QFETCH(int, exitBy);
    QFETCH(int, click);
    QFETCH(int, expected);

    bool driven = false;
    QAbstractButton* clicked = nullptr;
    drive<UxMessageBox>([&](UxMessageBox* box) {
        if (exitBy == ClickButton) {
            clicked = boxButton(box, click);
            if (!clicked)
                return false;
            clicked->click();
        } else if (exitBy == CloseButton) {
            if (!clickChild(box, "closeBtn"))
                return false;
        } else {
            QTest::keyClick(box, Qt::Key_Escape);
        }
        driven = true;
        return true;
    });

    const auto flags = QFlags<QMessageBox::StandardButton>(buttons);
    const QString title = QStringLiteral("Title");
    const QString text = QStringLiteral("Text");
    int code = -100;
    switch (runner) {
    case Information:
        code = UxMessageBox::information(title, text, flags);
        break;
    case Warning:
        code = UxMessageBox::warning(title, text, flags);
        break;
    case Critical:
        code = UxMessageBox::critical(title, text, flags);
        break;
    case Question:
        code = UxMessageBox::question(title, text, flags);
        break;
    default: {
        UxMessageBox box(title, text, flags);
        code = box.exec();
        QCOMPARE(box.clickedButton(), clicked);
        QCOMPARE(int(box.standardButton(box.clickedButton())), expected);
        break;
    }
    }
    QVERIFY(driven);
    QCOMPARE(code, expected);
}

void TstDialogs::buttonTexts_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("text");
    for (const ButtonCase& c : kButtons)
        QTest::addRow("%s", c.name) << int(c.button) << QString::fromUtf8(c.text);
}

void TstDialogs::buttonTexts()
{
    QFETCH(int, button);
    QFETCH(QString, text);

    UxMessageBox built(QStringLiteral("t"), QStringLiteral("m"), QFlags<QMessageBox::StandardButton>(button));
    QAbstractButton* fromFlags = boxButton(&built, button);
    QVERIFY(fromFlags);
    QCOMPARE(fromFlags->text(), text);

    UxMessageBox empty;
    QPushButton* added = empty.addButton(QMessageBox::StandardButton(button));
    QVERIFY(added);
    QCOMPARE(added->text(), text);
    QCOMPARE(boxButton(&empty, button), added);
    QCOMPARE(int(empty.standardButton(added)), button);
}

void TstDialogs::boxWithoutButtonsStartsEmpty()
{
    UxMessageBox box;
    auto* buttons = box.findChild<QDialogButtonBox*>(QStringLiteral("BtnBox"));
    QVERIFY(buttons);
    QVERIFY(buttons->buttons().isEmpty());
    QVERIFY(!box.clickedButton());

    box.addButton(QMessageBox::Yes);
    box.addButton(QMessageBox::No);
    QCOMPARE(buttons->buttons().size(), 2);
    QCOMPARE(boxButton(&box, QMessageBox::Yes)->text(), QString::fromUtf8("确定"));
    QCOMPARE(boxButton(&box, QMessageBox::No)->text(), QString::fromUtf8("取消"));
}

void TstDialogs::unknownButtonsAreNotAdded_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("no button") << int(QMessageBox::NoButton);
    QTest::newRow("not a button bit") << 0x3;
    QTest::newRow("two buttons at once") << int(QMessageBox::Ok | QMessageBox::Cancel);
    QTest::newRow("beyond the last button") << 0x10000000;
    QTest::newRow("negative") << -1;
}

void TstDialogs::unknownButtonsAreNotAdded()
{
    QFETCH(int, value);
    UxMessageBox box(QString(), QString(), QFlags<QMessageBox::StandardButton>(value | QMessageBox::Ok));
    auto* buttons = box.findChild<QDialogButtonBox*>(QStringLiteral("BtnBox"));
    const int before = buttons->buttons().size();
    QVERIFY(before >= 1);
    QVERIFY(!box.addButton(QMessageBox::StandardButton(value)));
    QCOMPARE(buttons->buttons().size(), before);
    QCOMPARE(box.standardButton(nullptr), QMessageBox::NoButton);
    QPushButton stranger;
    QCOMPARE(box.standardButton(&stranger), QMessageBox::NoButton);
}

void TstDialogs::checkBoxPropertySignalsOncePerChange()
{
    UxMessageBox box(QStringLiteral("t"), QStringLiteral("m"));
    auto* check = box.findChild<QCheckBox*>(QStringLiteral("checkBox"));
    QVERIFY(check);
    QSignalSpy spy(&box, &UxMessageBox::sigCheckBoxVisibleChanged);
    QVERIFY(!box.checkBoxVisible());
    QVERIFY(check->isHidden());

    box.setCheckBoxVisible(true);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), true);
    QVERIFY(!check->isHidden());

    // Unchanged value: no signal, but the box is shown again all the same.
    check->hide();
    box.setCheckBoxVisible(true);
    QCOMPARE(spy.count(), 1);
    QVERIFY(!check->isHidden());

    QVERIFY(box.setProperty("checkBoxVisible", false));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toBool(), false);
    QVERIFY(check->isHidden());
    QCOMPARE(box.property("checkBoxVisible").toBool(), false);

    box.setCheckBoxVisible(false);
    QCOMPARE(spy.count(), 2);
}

void TstDialogs::checkBoxChecked_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("checked");
    QTest::newRow("unchecked") << int(Qt::Unchecked) << false;
    QTest::newRow("partially checked") << int(Qt::PartiallyChecked) << false;
    QTest::newRow("checked") << int(Qt::Checked) << true;
}

void TstDialogs::checkBoxChecked()
{
    QFETCH(int, state);
    QFETCH(bool, checked);
    UxMessageBox box;
    box.setCheckBoxText(QStringLiteral("Do not ask again"));
    box.setCheckBoxVisible(true);
    auto* check = box.findChild<QCheckBox*>(QStringLiteral("checkBox"));
    check->setCheckState(Qt::CheckState(state));
    QCOMPARE(box.checkBoxChecked(), checked);
}

void TstDialogs::panelIsPaintedInsideTheShadow()
{
    const QByteArray red = solidPng(Qt::red);
    UxTest::writeSkin(QStringLiteral("painted"),
                      {{"bg/shadow_top_left.png", red},
                       {"bg/shadow_left.png", red},
                       {"bg/shadow_bottom_left.png", red},
                       {"bg/shadow_top.png", red},
                       {"bg/shadow_bottom.png", red},
                       {"bg/shadow_right.png", red},
                       {"bg/shadow_top_right.png", red},
                       {"bg/shadow_bottom_right.png", red},
                       // Let the painted panel show through the frame on top of it.
                       {"controls/messagebox.css", "#baseFrame { border: none; background: transparent; }"}});
    SkinGuard skin(QStringLiteral("painted"));

    UxMessageBox box(QString(), QString(), QMessageBox::Ok);
    QCOMPARE(box.size(), QSize(454, 233));
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QImage image(box.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    box.render(&image);

    const int w = box.width();
    const int h = box.height();
    const QRgb white = qRgba(255, 255, 255, 255);
    const QRgb shadow = qRgba(255, 0, 0, 255);
    // The panel spans (4, 4) to (w - 4, h - 4); the 4-pixel border is shadow.
    QCOMPARE(image.pixel(4, h / 2), white);
    QCOMPARE(image.pixel(3, h / 2), shadow);
    QCOMPARE(image.pixel(w - 5, h / 2), white);
    QCOMPARE(image.pixel(w - 4, h / 2), shadow);
    QCOMPARE(image.pixel(w / 2, 4), white);
    QCOMPARE(image.pixel(w / 2, 3), shadow);
    QCOMPARE(image.pixel(w / 2, h - 5), white);
    QCOMPARE(image.pixel(w / 2, h - 4), shadow);
    for (const QPoint& corner : {QPoint(0, 0), QPoint(w - 1, 0), QPoint(0, h - 1), QPoint(w - 1, h - 1)})
        QCOMPARE(image.pixel(corner), shadow);
}

void TstDialogs::missingShadowImagesLeaveTheBorderClear()
{
    UxTest::writeSkin(QStringLiteral("bare"), {{"controls/messagebox.css", "#baseFrame { border: none; }"}});
    SkinGuard skin(QStringLiteral("bare"));

    UxMessageBox box(QStringLiteral("t"), QStringLiteral("m"));
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QImage image(box.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    box.render(&image);
    QCOMPARE(qAlpha(image.pixel(2, box.height() / 2)), 0);
    QCOMPARE(qAlpha(image.pixel(box.width() / 2, 1)), 0);
    QCOMPARE(image.pixel(4, box.height() / 2), qRgba(255, 255, 255, 255));
}

void TstDialogs::boxIsAFramelessMovableSkinnedWindow()
{
    UxTest::writeSkin(QStringLiteral("styled"), {{"controls/messagebox.css", "#titleLabel { color: #123456; }"}});
    UxMessageBox box(QStringLiteral("t"), QStringLiteral("m"));
    QVERIFY(box.isWindow());
    QVERIFY(box.windowFlags() & Qt::FramelessWindowHint);
    QVERIFY(box.testAttribute(Qt::WA_TranslucentBackground));
    auto* helper = box.findChild<UxFramelessHelper*>();
    QVERIFY(helper);
    QVERIFY(helper->isMovable());
    QVERIFY(!helper->isResizable());
    QWidget owner;
    UxMessageBox owned(&owner);
    QVERIFY(owned.isWindow());
    // The test skins are empty: the compiled-in default look applies.
    QVERIFY(box.styleSheet().contains(QStringLiteral("#BtnBox QPushButton")));
    QVERIFY(!box.styleSheet().contains(QStringLiteral("#123456")));

    SkinGuard skin(QStringLiteral("styled"));
    QCOMPARE(box.styleSheet(), QStringLiteral("#titleLabel { color: #123456; }"));
}

void TstDialogs::clickedButtonDiesFirst()
{
    QStringList deaths;
    auto* box = new UxMessageBox(QStringLiteral("t"), QStringLiteral("m"), QMessageBox::Ok | QMessageBox::Cancel);
    QObject::connect(box->findChild<QLabel*>(QStringLiteral("contentsLabel")), &QObject::destroyed,
                     [&deaths]() { deaths << QStringLiteral("label"); });
    QObject::connect(boxButton(box, QMessageBox::Cancel), &QObject::destroyed,
                     [&deaths]() { deaths << QStringLiteral("cancel"); });
    QObject::connect(boxButton(box, QMessageBox::Ok), &QObject::destroyed,
                     [&deaths]() { deaths << QStringLiteral("ok"); });
    drive<UxMessageBox>([](UxMessageBox* b) {
        boxButton(b, QMessageBox::Cancel)->click();
        return true;
    });
    QCOMPARE(box->exec(), int(QMessageBox::Cancel));
    delete box;
    // The closing button goes before the form the button box was laid out after.
    QCOMPARE(deaths, QStringList({"cancel", "label", "ok"}));

    // A clicked button the caller already deleted is not deleted twice.
    auto* again = new UxMessageBox(QStringLiteral("t"), QStringLiteral("m"), QMessageBox::Ok);
    drive<UxMessageBox>([](UxMessageBox* b) {
        boxButton(b, QMessageBox::Ok)->click();
        return true;
    });
    QCOMPARE(again->exec(), int(QMessageBox::Ok));
    delete again->clickedButton();
    QVERIFY(!again->clickedButton());

    // Shown again and left by Escape: the earlier click is forgotten.
    drive<UxMessageBox>([](UxMessageBox* b) {
        QTest::keyClick(b, Qt::Key_Escape);
        return true;
    });
    QCOMPARE(again->exec(), int(QMessageBox::NoButton));
    QVERIFY(!again->clickedButton());
    delete again;
}

void TstDialogs::longAndEmptyTextsStillClose_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("long words") << QStringLiteral("Title") << QStringLiteral("word ").repeated(4000);
    QTest::newRow("one long word") << QString::fromUtf8("标题") << QStringLiteral("x").repeated(5000);
}

void TstDialogs::longAndEmptyTextsStillClose()
{
    QFETCH(QString, title);
    QFETCH(QString, text);
    QString shownText;
    drive<UxMessageBox>([&shownText](UxMessageBox* box) {
        shownText = box->findChild<QLabel*>(QStringLiteral("contentsLabel"))->text();
        boxButton(box, QMessageBox::Ok)->click();
        return true;
    });
    QCOMPARE(UxMessageBox::warning(title, text, QMessageBox::Ok), int(QMessageBox::Ok));
    QCOMPARE(shownText, text);
}

// ---- file dialog ------------------------------------------------------------

void TstDialogs::titlePerAcceptMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("title");
    QTest::newRow("open") << int(QFileDialog::AcceptOpen) << QString::fromUtf8("文件选择框");
    QTest::newRow("save") << int(QFileDialog::AcceptSave) << QString::fromUtf8("文件保存框");
}

void TstDialogs::titlePerAcceptMode()
{
    QFETCH(int, mode);
    QFETCH(QString, title);
    UxFileDialog dlg;
    QCOMPARE(dlg.windowTitle(), QStringLiteral("CustomFileDialog"));
    dlg.setAcceptMode(QFileDialog::AcceptMode(mode));
    QCOMPARE(titleOf(&dlg), title);
    QCOMPARE(dlg.windowTitle(), title);
    QCOMPARE(chooser(&dlg)->acceptMode(), QFileDialog::AcceptMode(mode));
}

void TstDialogs::chooserIsEmbeddedAndRestyled()
{
    UxFileDialog dlg;
    QFileDialog* fileDlg = chooser(&dlg);
    QVERIFY(fileDlg);
    QVERIFY(!fileDlg->isWindow());
    QVERIFY(fileDlg->testOption(QFileDialog::DontUseNativeDialog));
    QCOMPARE(fileDlg->parentWidget(), dlg.findChild<QWidget*>(QStringLiteral("bodyWidget")));
    QVERIFY(dlg.isWindow());
    QVERIFY(dlg.windowFlags() & Qt::FramelessWindowHint);
    QVERIFY(dlg.styleSheet().contains(QStringLiteral("#topFrame")));
    // Given a parent it is still a window of its own, not a child drawn inside it.
    QWidget owner;
    UxFileDialog owned(&owner);
    QVERIFY(owned.isWindow());
    QVERIFY(owned.windowFlags() & Qt::FramelessWindowHint);

    QCOMPARE(dlg.findChild<QLabel*>(QStringLiteral("lookInLabel"))->text(), QString::fromUtf8("文件目录："));
    QCOMPARE(dlg.findChild<QComboBox*>(QStringLiteral("lookInCombo"))->minimumHeight(), 24);
    QCOMPARE(dlg.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))->minimumHeight(), 24);
    QCOMPARE(dlg.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->minimumHeight(), 24);

    auto* open = dlg.findChild<QPushButton*>(QStringLiteral("openButton"));
    auto* cancel = dlg.findChild<QPushButton*>(QStringLiteral("cancelButton"));
    QVERIFY(open);
    QVERIFY(cancel);
    QCOMPARE(open->size(), QSize(68, 24));
    QCOMPARE(open->minimumSize(), QSize(68, 24));
    QCOMPARE(cancel->maximumSize(), QSize(68, 24));
    QCOMPARE(cancel->text(), QString::fromUtf8("取消"));
    QVERIFY(open->styleSheet().startsWith(QStringLiteral("#openButton{border:none;")));
    QVERIFY(cancel->styleSheet().startsWith(QStringLiteral("#cancelButton{border: 1px solid #DDDDDD;")));

    // Switching to save mode rebuilds the chooser's buttons; they are restyled too.
    dlg.setAcceptMode(QFileDialog::AcceptSave);
    auto* save = dlg.findChild<QPushButton*>(QStringLiteral("saveButton"));
    QVERIFY(save);
    QCOMPARE(save->maximumSize(), QSize(68, 24));
    QVERIFY(save->styleSheet().contains(QStringLiteral("#saveButton:disabled{")));
    QCOMPARE(dlg.findChild<QPushButton*>(QStringLiteral("cancelButton"))->text(), QString::fromUtf8("取消"));
}

void TstDialogs::saveModeIgnoresFileMode()
{
    UxFileDialog dlg;
    dlg.setAcceptMode(QFileDialog::AcceptSave);
    auto* list = dlg.findChild<QListView*>(QStringLiteral("listView"));
    const auto selection = list->selectionMode();
    dlg.setFileMode(QFileDialog::ExistingFiles);
    QCOMPARE(chooser(&dlg)->fileMode(), QFileDialog::AnyFile);
    QCOMPARE(list->selectionMode(), selection);
    QVERIFY(!qobject_cast<NoFocusDelegate*>(list->itemDelegate()));
    QVERIFY(dlg.findChild<QPushButton*>(QStringLiteral("saveButton")));
}

void TstDialogs::multiSelectionEndsTheDialogDirectly()
{
    UxFileDialog dlg;
    dlg.setAcceptMode(QFileDialog::AcceptOpen);
    dlg.setFileMode(QFileDialog::ExistingFiles);
    auto* list = dlg.findChild<QListView*>(QStringLiteral("listView"));
    auto* tree = dlg.findChild<QTreeView*>(QStringLiteral("treeView"));
    QCOMPARE(list->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(tree->selectionMode(), QAbstractItemView::ExtendedSelection);
    QVERIFY(qobject_cast<NoFocusDelegate*>(list->itemDelegate()));
    QVERIFY(qobject_cast<NoFocusDelegate*>(tree->itemDelegate()));
    QCOMPARE(tree->header()->defaultAlignment(), Qt::AlignLeft | Qt::AlignVCenter);

    chooser(&dlg)->setDirectory(m_files.path());
    drive<UxFileDialog>([](UxFileDialog* d) {
        return typeAndAccept(d, QStringLiteral("\"a.txt\" \"b.txt\""), "openButton");
    });
    QCOMPARE(dlg.exec(), int(QDialog::Accepted));
    QStringList files = dlg.selectedFiles();
    for (QString& f : files)
        f = canonical(f);
    files.sort();
    QCOMPARE(files, QStringList({canonical(m_files.filePath(QStringLiteral("a.txt"))),
                                 canonical(m_files.filePath(QStringLiteral("b.txt")))}));
}

void TstDialogs::saveSelectionWithoutNameIsOneEmptyEntry()
{
    UxFileDialog dlg;
    dlg.setAcceptMode(QFileDialog::AcceptSave);
    chooser(&dlg)->setDirectory(m_files.path());
    QCOMPARE(dlg.selectedFiles(), QStringList({QString()}));

    dlg.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("new.txt"));
    const QStringList files = dlg.selectedFiles();
    QCOMPARE(files.size(), 1);
    QCOMPARE(QFileInfo(files.first()).fileName(), QStringLiteral("new.txt"));
    QCOMPARE(QFileInfo(files.first()).absolutePath(), QDir(m_files.path()).absolutePath());
}

void TstDialogs::openFileNameOnAcceptance()
{
    QString shownTitle;
    drive<UxFileDialog>([&shownTitle](UxFileDialog* d) {
        shownTitle = titleOf(d);
        return typeAndAccept(d, QStringLiteral("a.txt"), "openButton");
    });
    QString filter; // empty: nothing preselected, but the choice is still reported
    const QString path = UxFileDialog::getOpenFileName(nullptr, QStringLiteral("Open quotes"), m_files.path(),
                                                       QStringLiteral("Text (*.txt);;Logs (*.log)"), &filter);
    QCOMPARE(canonical(path), canonical(m_files.filePath(QStringLiteral("a.txt"))));
    QCOMPARE(filter, QStringLiteral("Text (*.txt)"));
    QCOMPARE(shownTitle, QStringLiteral("Open quotes"));
}

void TstDialogs::openFileNameKeepsPreselectedFilter()
{
    QString shownFilter;
    drive<UxFileDialog>([&shownFilter](UxFileDialog* d) {
        shownFilter = d->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))->currentText();
        return typeAndAccept(d, QStringLiteral("c.log"), "openButton");
    });
    QString filter = QStringLiteral("Logs (*.log)");
    const QString path = UxFileDialog::getOpenFileName(nullptr, QString(), m_files.path(),
                                                       QStringLiteral("Text (*.txt);;Logs (*.log)"), &filter);
    QCOMPARE(shownFilter, QStringLiteral("Logs (*.log)"));
    QCOMPARE(canonical(path), canonical(m_files.filePath(QStringLiteral("c.log"))));
    QCOMPARE(filter, QStringLiteral("Logs (*.log)"));
}

void TstDialogs::saveFileNameOfferedFromDir()
{
    QString offered;
    QString shownTitle = QStringLiteral("<unset>");
    drive<UxFileDialog>([&](UxFileDialog* d) {
        offered = d->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
        shownTitle = titleOf(d);
        return clickChild(d, "saveButton");
    });
    QString filter;
    const QString target = m_files.filePath(QStringLiteral("new.csv"));
    const QString path =
        UxFileDialog::getSaveFileName(nullptr, QString(), target, QStringLiteral("Tables (*.csv)"), &filter);
    QCOMPARE(offered, QStringLiteral("new.csv"));
    // An empty caption still replaces the mode's own title.
    QCOMPARE(shownTitle, QString());
    QCOMPARE(QFileInfo(path).fileName(), QStringLiteral("new.csv"));
    QCOMPARE(canonical(QFileInfo(path).absolutePath()), canonical(m_files.path()));
    QCOMPARE(filter, QStringLiteral("Tables (*.csv)"));
    QVERIFY(!QFile::exists(target)); // the dialog only answers; saving is the caller's
}

void TstDialogs::existingDirectoryOnAcceptance()
{
    const QString sub = m_files.filePath(QStringLiteral("sub"));
    bool filesShown = true;
    drive<UxFileDialog>([&filesShown](UxFileDialog* d) {
        filesShown = !chooser(d)->testOption(QFileDialog::ShowDirsOnly);
        return clickChild(d, "openButton");
    });
    const QString path = UxFileDialog::getExistingDirectory(nullptr, QStringLiteral("Folder"), sub,
                                                            QFileDialog::Options());
    QCOMPARE(canonical(path), canonical(sub));
    QVERIFY(!filesShown);
}

enum Helper { OpenHelper, SaveHelper, DirectoryHelper };

void TstDialogs::helpersAnswerEmptyUnlessAccepted_data()
{
    QTest::addColumn<int>("helper");
    QTest::addColumn<QString>("dir");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("button");

    const QString here = m_files.path();
    const QString missing = here + QStringLiteral("/does/not/exist");
    QTest::newRow("open, cancel") << int(OpenHelper) << here << QStringLiteral("Text (*.txt)")
                                  << QStringLiteral("cancelButton");
    QTest::newRow("open, close") << int(OpenHelper) << here << QString() << QStringLiteral("sysClose");
    QTest::newRow("open, escape") << int(OpenHelper) << here << QString() << QString();
    QTest::newRow("open, missing dir") << int(OpenHelper) << missing << QString() << QStringLiteral("cancelButton");
    QTest::newRow("open, filter matches nothing") << int(OpenHelper) << here << QStringLiteral("None (*.zzz)")
                                                  << QStringLiteral("cancelButton");
    QTest::newRow("open, unreadable dir") << int(OpenHelper) << here + QStringLiteral("/locked") << QString()
                                          << QStringLiteral("cancelButton");
    QTest::newRow("save, cancel") << int(SaveHelper) << here << QString() << QStringLiteral("cancelButton");
    QTest::newRow("save, close") << int(SaveHelper) << here << QString() << QStringLiteral("sysClose");
    QTest::newRow("save, missing dir") << int(SaveHelper) << missing << QStringLiteral("None (*.zzz)")
                                       << QStringLiteral("cancelButton");
    QTest::newRow("directory, cancel") << int(DirectoryHelper) << here << QString() << QStringLiteral("cancelButton");
    QTest::newRow("directory, close") << int(DirectoryHelper) << missing << QString() << QStringLiteral("sysClose");
}

void TstDialogs::helpersAnswerEmptyUnlessAccepted()
{
    QFETCH(int, helper);
    QFETCH(QString, dir);
    QFETCH(QString, filter);
    QFETCH(QString, button);

    const QString locked = m_files.filePath(QStringLiteral("locked"));
    QDir().mkpath(locked);
    QFile::setPermissions(locked, QFileDevice::Permissions());

    bool driven = false;
    drive<UxFileDialog>([&](UxFileDialog* d) {
        if (button.isEmpty())
            QTest::keyClick(d, Qt::Key_Escape);
        else if (!clickChild(d, button.toLatin1().constData()))
            return false;
        driven = true;
        return true;
    });
    QString selectedFilter = QStringLiteral("keep");
    QString answer = QStringLiteral("<unset>");
    switch (helper) {
    case OpenHelper:
        answer = UxFileDialog::getOpenFileName(nullptr, QStringLiteral("Open"), dir, filter, &selectedFilter);
        break;
    case SaveHelper:
        answer = UxFileDialog::getSaveFileName(nullptr, QStringLiteral("Save"), dir, filter, &selectedFilter);
        break;
    default:
        answer = UxFileDialog::getExistingDirectory(nullptr, QStringLiteral("Folder"), dir);
        break;
    }
    QFile::setPermissions(locked, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QVERIFY(driven);
    QCOMPARE(answer, QString());
    QCOMPARE(selectedFilter, QStringLiteral("keep"));
}

void TstDialogs::dialogCanBeShownAgain()
{
    UxFileDialog dlg;
    dlg.setAcceptMode(QFileDialog::AcceptOpen);
    chooser(&dlg)->setDirectory(m_files.path());
    drive<UxFileDialog>([](UxFileDialog* d) { return clickChild(d, "cancelButton"); });
    QCOMPARE(dlg.exec(), int(QDialog::Rejected));

    bool chooserShown = false;
    drive<UxFileDialog>([&chooserShown](UxFileDialog* d) {
        chooserShown = chooser(d)->isVisible();
        return typeAndAccept(d, QStringLiteral("b.txt"), "openButton");
    });
    QCOMPARE(dlg.exec(), int(QDialog::Accepted));
    QVERIFY(chooserShown);
    QCOMPARE(dlg.selectedFiles().size(), 1);
    QCOMPARE(canonical(dlg.selectedFiles().first()), canonical(m_files.filePath(QStringLiteral("b.txt"))));
}

void TstDialogs::minimiseAndCloseButtons()
{
    UxFileDialog dlg;
    QSignalSpy finished(&dlg, &QDialog::finished);
    dlg.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dlg));
    QVERIFY(clickChild(&dlg, "sysMin"));
    QTRY_VERIFY(dlg.isMinimized());

    dlg.showNormal();
    QVERIFY(clickChild(&dlg, "sysClose"));
    QTRY_VERIFY(!dlg.isVisible());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).toInt(), int(QDialog::Rejected));
}

void TstDialogs::chineseTextsIgnoreTheLocaleCodec()
{
    QTextCodec* gbk = QTextCodec::codecForName("GBK");
    if (!gbk)
        QSKIP("no GBK codec in this Qt build");
    QTextCodec* previous = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(gbk);
    UxFileDialog dlg;
    dlg.setAcceptMode(QFileDialog::AcceptSave);
    UxMessageBox box(QString(), QString(), QMessageBox::Ok | QMessageBox::No);
    QTextCodec::setCodecForLocale(previous);

    QCOMPARE(titleOf(&dlg), QString::fromUtf8("文件保存框"));
    QCOMPARE(dlg.findChild<QLabel*>(QStringLiteral("lookInLabel"))->text(), QString::fromUtf8("文件目录："));
    QCOMPARE(dlg.findChild<QPushButton*>(QStringLiteral("cancelButton"))->text(), QString::fromUtf8("取消"));
    QCOMPARE(dlg.findChild<QPushButton*>(QStringLiteral("sysClose"))->toolTip(), QString::fromUtf8("关闭"));
    QCOMPARE(boxButton(&box, QMessageBox::Ok)->text(), QString::fromUtf8("确定"));
    QCOMPARE(boxButton(&box, QMessageBox::No)->text(), QString::fromUtf8("取消"));
}

namespace {
// Counts the focus frames a style is asked to draw.
class FocusCountingStyle : public QProxyStyle
{
public:
    mutable int focusFrames = 0;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element == PE_FrameFocusRect)
            ++focusFrames;
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
};
} // namespace

void TstDialogs::delegateDrawsNoFocusFrame()
{
    QStandardItemModel model(1, 1);
    model.setItem(0, 0, new QStandardItem(QStringLiteral("quotes.csv")));
    FocusCountingStyle style; // outlives the view that uses it
    QListView view;
    view.setStyle(&style);
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.widget = &view;
    option.rect = QRect(0, 0, 120, 20);
    option.state |= QStyle::State_HasFocus | QStyle::State_Selected;
    QImage canvas(120, 20, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&canvas);

    QStyledItemDelegate plain;
    plain.paint(&painter, option, model.index(0, 0));
    QCOMPARE(style.focusFrames, 1);

    NoFocusDelegate noFocus;
    noFocus.paint(&painter, option, model.index(0, 0));
    QCOMPARE(style.focusFrames, 1);
}

UX_TEST_MAIN(TstDialogs)
#include "tst_dialogs.moc"

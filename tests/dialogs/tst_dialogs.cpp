#include "uxtestenv.h"

#include "nofocusdelegate.h"
#include "uxfiledialog.h"
#include "uxmessagebox.h"
#include "uxqtcompat.h"

#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include <functional>
#include <memory>

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

QFileDialog* chooser(QWidget* dlg) { return dlg->findChild<QFileDialog*>(); }

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

QString canonical(const QString& path) { return QFileInfo(path).canonicalFilePath(); }

QImage rendered(QWidget* w)
{
    w->show();
    if (!QTest::qWaitForWindowExposed(w))
        qWarning("not exposed");
    QImage image(w->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    w->render(&image);
    return image;
}

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

enum Runner { Constructed, Information, Warning, Critical, Question };
enum ExitBy { ClickButton, CloseButton, EscapeKey };
enum Helper { OpenHelper, SaveHelper, DirectoryHelper };

} // namespace

class TstDialogs : public QObject
{
    Q_OBJECT

    QTemporaryDir m_files;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_files.isValid());
        for (const char* name : {"a.txt", "b.txt", "c.log"})
            UxTest::writeFile(m_files.filePath(QLatin1String(name)), name);
        QVERIFY(QDir(m_files.path()).mkpath(QStringLiteral("sub")));
    }

    // ---- message box ----

    void returnCodes_data()
    {
        QTest::addColumn<int>("runner");
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("exitBy");
        QTest::addColumn<int>("click");
        QTest::addColumn<int>("expected");
        const int okCancel = QMessageBox::Ok | QMessageBox::Cancel;
        const int yesNo = QMessageBox::Yes | QMessageBox::No;
        QTest::newRow("information ok") << int(Information) << okCancel << int(ClickButton) << int(QMessageBox::Ok) << 0x00000400;
        QTest::newRow("information cancel") << int(Information) << okCancel << int(ClickButton) << int(QMessageBox::Cancel) << 0x00400000;
        QTest::newRow("information close button") << int(Information) << okCancel << int(CloseButton) << 0 << 0;
        QTest::newRow("warning escape") << int(Warning) << okCancel << int(EscapeKey) << 0 << 0;
        QTest::newRow("critical ok") << int(Critical) << int(QMessageBox::Ok) << int(ClickButton) << int(QMessageBox::Ok) << 0x00000400;
        QTest::newRow("question yes") << int(Question) << yesNo << int(ClickButton) << int(QMessageBox::Yes) << 0x00004000;
        QTest::newRow("question no") << int(Question) << yesNo << int(ClickButton) << int(QMessageBox::No) << 0x00010000;
        QTest::newRow("question close button") << int(Question) << yesNo << int(CloseButton) << 0 << 0;
        QTest::newRow("question escape") << int(Question) << yesNo << int(EscapeKey) << 0 << 0;
        QTest::newRow("constructed close button") << int(Constructed) << okCancel << int(CloseButton) << 0 << 0;
        QTest::newRow("constructed escape") << int(Constructed) << okCancel << int(EscapeKey) << 0 << 0;
        for (const ButtonCase& c : kButtons)
            QTest::addRow("constructed %s", c.name) << int(Constructed) << int(c.button | QMessageBox::Help | QMessageBox::Ok)
                                                    << int(ClickButton) << int(c.button) << int(c.button);
    }
    void returnCodes()
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
                if (!(clicked = boxButton(box, click)))
                    return false;
                clicked->click();
            } else if (exitBy == CloseButton) {
                if (!clickChild(box, "closeBtn"))
                    return false;
            } else {
                QTest::keyClick(box, Qt::Key_Escape);
            }
            return driven = true;
        });
        const auto flags = QFlags<QMessageBox::StandardButton>(buttons);
        const QString title = QStringLiteral("Title");
        const QString text = QStringLiteral("Text");
        int code = -100;
        switch (runner) {
        case Information: code = UxMessageBox::information(title, text, flags); break;
        case Warning: code = UxMessageBox::warning(title, text, flags); break;
        case Critical: code = UxMessageBox::critical(title, text, flags); break;
        case Question: code = UxMessageBox::question(title, text, flags); break;
        default: {
            UxMessageBox box(title, text, flags);
            code = box.exec();
            QCOMPARE(box.clickedButton(), clicked);
            QCOMPARE(int(box.standardButton(box.clickedButton())), expected);
        }
        }
        QVERIFY(driven);
        QCOMPARE(code, expected);
    }

    // The same text whether the button comes from the constructor's flags or addButton.
    void buttonTexts_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<QString>("text");
        for (const ButtonCase& c : kButtons)
            QTest::addRow("%s", c.name) << int(c.button) << QString::fromUtf8(c.text);
    }
    void buttonTexts()
    {
        QFETCH(int, button);
        QFETCH(QString, text);
        UxMessageBox built(QStringLiteral("t"), QStringLiteral("m"), QFlags<QMessageBox::StandardButton>(button));
        QVERIFY(boxButton(&built, button));
        QCOMPARE(boxButton(&built, button)->text(), text);

        UxMessageBox empty;
        QVERIFY(empty.findChild<QDialogButtonBox*>(QStringLiteral("BtnBox"))->buttons().isEmpty());
        QPushButton* added = empty.addButton(QMessageBox::StandardButton(button));
        QVERIFY(added);
        QCOMPARE(added->text(), text);
        QCOMPARE(boxButton(&empty, button), added);
        QCOMPARE(int(empty.standardButton(added)), button);
    }

    void unknownButtonsAreNotAdded_data()
    {
        QTest::addColumn<int>("value");
        QTest::newRow("no button") << int(QMessageBox::NoButton);
        QTest::newRow("not a button bit") << 0x3;
        QTest::newRow("two buttons at once") << int(QMessageBox::Ok | QMessageBox::Cancel);
        QTest::newRow("beyond the last button") << 0x10000000;
        QTest::newRow("negative") << -1;
    }
    void unknownButtonsAreNotAdded()
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

    void checkBoxSignalsOncePerChange()
    {
        UxMessageBox box(QStringLiteral("t"), QStringLiteral("m"));
        auto* check = box.findChild<QCheckBox*>(QStringLiteral("checkBox"));
        QVERIFY(check && check->isHidden());
        QSignalSpy spy(&box, &UxMessageBox::sigCheckBoxVisibleChanged);
        box.setCheckBoxVisible(true);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toBool(), true);
        QVERIFY(!check->isHidden());
        // Unchanged value: no signal, but the box is shown again all the same.
        check->hide();
        box.setCheckBoxVisible(true);
        QCOMPARE(spy.count(), 1);
        QVERIFY(!check->isHidden());
        // Only a full check counts as checked.
        for (Qt::CheckState state : {Qt::Unchecked, Qt::PartiallyChecked, Qt::Checked}) {
            check->setCheckState(state);
            QCOMPARE(box.checkBoxChecked(), state == Qt::Checked);
        }
        QVERIFY(box.setProperty("checkBoxVisible", false));
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.at(1).at(0).toBool(), false);
        QVERIFY(check->isHidden());
        box.setCheckBoxVisible(false);
        QCOMPARE(spy.count(), 2);
    }

    // The white panel spans (4, 4) to (w - 4, h - 4); the skin's images fill
    // the 4-pixel border, which stays clear when the skin has none.
    void panelIsPaintedInsideTheShadow_data()
    {
        QTest::addColumn<QString>("skin");
        QTest::addColumn<QRgb>("border");
        QTest::newRow("shadow images") << "painted" << qRgba(255, 0, 0, 255);
        QTest::newRow("no images") << "bare" << qRgba(0, 0, 0, 0);
    }
    void panelIsPaintedInsideTheShadow()
    {
        QFETCH(QString, skin);
        QFETCH(QRgb, border);
        // Let the painted panel show through the frame on top of it.
        QMap<QString, QByteArray> files{{"controls/messagebox.css", "#baseFrame { border: none; background: transparent; }"}};
        if (skin == QLatin1String("painted"))
            for (const char* piece : {"top_left", "left", "bottom_left", "top", "bottom", "right", "top_right", "bottom_right"})
                files.insert(QStringLiteral("bg/shadow_%1.png").arg(QLatin1String(piece)), solidPng(Qt::red));
        UxTest::writeSkin(skin, files);
        SkinGuard guard(skin);

        UxMessageBox box(QString(), QString(), QMessageBox::Ok);
        QCOMPARE(box.size(), QSize(454, 233));
        const QImage image = rendered(&box);
        const int w = box.width();
        const int h = box.height();
        const QRgb white = qRgba(255, 255, 255, 255);
        const QList<QPair<QPoint, QPoint>> edges{{{4, h / 2}, {3, h / 2}}, {{w - 5, h / 2}, {w - 4, h / 2}},
                                                 {{w / 2, 4}, {w / 2, 3}}, {{w / 2, h - 5}, {w / 2, h - 4}}};
        for (const auto& edge : edges) {
            QCOMPARE(image.pixel(edge.first), white);
            QCOMPARE(image.pixel(edge.second), border);
        }
        for (const QPoint& corner : {QPoint(0, 0), QPoint(w - 1, 0), QPoint(0, h - 1), QPoint(w - 1, h - 1)})
            QCOMPARE(image.pixel(corner), border);
    }

    void boxIsAFramelessMovableSkinnedWindow()
    {
        UxTest::writeSkin(QStringLiteral("styled"), {{"controls/messagebox.css", "#titleLabel { color: #123456; }"}});
        QWidget owner;
        UxMessageBox box(&owner);
        QVERIFY(box.isWindow());
        QVERIFY(box.windowFlags() & Qt::FramelessWindowHint);
        QVERIFY(box.testAttribute(Qt::WA_TranslucentBackground));
        auto* helper = box.findChild<UxFramelessHelper*>();
        QVERIFY(helper && helper->isMovable() && !helper->isResizable());
        // The test skins are empty: the compiled-in default look applies.
        QVERIFY(box.styleSheet().contains(QStringLiteral("#BtnBox QPushButton")));
        SkinGuard skin(QStringLiteral("styled"));
        QCOMPARE(box.styleSheet(), QStringLiteral("#titleLabel { color: #123456; }"));
    }

    void clickedButtonDiesFirst()
    {
        QStringList deaths;
        auto* box = new UxMessageBox(QStringLiteral("t"), QStringLiteral("m"), QMessageBox::Ok | QMessageBox::Cancel);
        const QList<QPair<QObject*, QString>> watched{{box->findChild<QLabel*>(QStringLiteral("contentsLabel")), "label"},
                                                      {boxButton(box, QMessageBox::Cancel), "cancel"},
                                                      {boxButton(box, QMessageBox::Ok), "ok"}};
        for (const auto& w : watched)
            QObject::connect(w.first, &QObject::destroyed, [&deaths, name = w.second]() { deaths << name; });
        drive<UxMessageBox>([](UxMessageBox* b) { return boxButton(b, QMessageBox::Cancel)->click(), true; });
        QCOMPARE(box->exec(), int(QMessageBox::Cancel));
        delete box;
        // The closing button goes before the form the button box was laid out after.
        QCOMPARE(deaths, QStringList({"cancel", "label", "ok"}));

        // A clicked button the caller already deleted is not deleted twice.
        auto* again = new UxMessageBox(QStringLiteral("t"), QStringLiteral("m"), QMessageBox::Ok);
        drive<UxMessageBox>([](UxMessageBox* b) { return boxButton(b, QMessageBox::Ok)->click(), true; });
        QCOMPARE(again->exec(), int(QMessageBox::Ok));
        delete again->clickedButton();
        QVERIFY(!again->clickedButton());
        // Shown again and left by Escape: the earlier click is forgotten.
        drive<UxMessageBox>([](UxMessageBox* b) { return QTest::keyClick(b, Qt::Key_Escape), true; });
        QCOMPARE(again->exec(), int(QMessageBox::NoButton));
        QVERIFY(!again->clickedButton());
        delete again;
    }

    void longAndEmptyTextsStillClose_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("long words") << QStringLiteral("Title") << QStringLiteral("word ").repeated(4000);
        QTest::newRow("one long word") << QString::fromUtf8("标题") << QStringLiteral("x").repeated(5000);
    }
    void longAndEmptyTextsStillClose()
    {
        QFETCH(QString, title);
        QFETCH(QString, text);
        QString shownText;
        drive<UxMessageBox>([&shownText](UxMessageBox* box) {
            shownText = box->findChild<QLabel*>(QStringLiteral("contentsLabel"))->text();
            return boxButton(box, QMessageBox::Ok)->click(), true;
        });
        QCOMPARE(UxMessageBox::warning(title, text, QMessageBox::Ok), int(QMessageBox::Ok));
        QCOMPARE(shownText, text);
    }

    // ---- file dialog ----

    void titlePerAcceptMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("title");
        QTest::newRow("open") << int(QFileDialog::AcceptOpen) << QString::fromUtf8("文件选择框");
        QTest::newRow("save") << int(QFileDialog::AcceptSave) << QString::fromUtf8("文件保存框");
    }
    void titlePerAcceptMode()
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

    void chooserIsEmbeddedAndRestyled()
    {
        QWidget owner;
        UxFileDialog dlg(&owner); // still a window of its own, not drawn inside the owner
        QFileDialog* fileDlg = chooser(&dlg);
        QVERIFY(fileDlg && !fileDlg->isWindow());
        QVERIFY(fileDlg->testOption(QFileDialog::DontUseNativeDialog));
        QCOMPARE(fileDlg->parentWidget(), dlg.findChild<QWidget*>(QStringLiteral("bodyWidget")));
        QVERIFY(dlg.isWindow());
        QVERIFY(dlg.windowFlags() & Qt::FramelessWindowHint);
        QVERIFY(dlg.styleSheet().contains(QStringLiteral("#topFrame")));
        QCOMPARE(dlg.findChild<QLabel*>(QStringLiteral("lookInLabel"))->text(), QString::fromUtf8("文件目录："));
        QCOMPARE(dlg.findChild<QComboBox*>(QStringLiteral("lookInCombo"))->minimumHeight(), 24);
        QCOMPARE(dlg.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->minimumHeight(), 24);
        auto* open = dlg.findChild<QPushButton*>(QStringLiteral("openButton"));
        QVERIFY(open);
        QCOMPARE(open->size(), QSize(68, 24));
        QVERIFY(open->styleSheet().startsWith(QStringLiteral("#openButton{border:none;")));

        // Switching to save mode rebuilds the chooser's buttons; they are restyled too.
        dlg.setAcceptMode(QFileDialog::AcceptSave);
        auto* save = dlg.findChild<QPushButton*>(QStringLiteral("saveButton"));
        QVERIFY(save);
        QCOMPARE(save->maximumSize(), QSize(68, 24));
        QVERIFY(save->styleSheet().contains(QStringLiteral("#saveButton:disabled{")));
        auto* cancel = dlg.findChild<QPushButton*>(QStringLiteral("cancelButton"));
        QCOMPARE(cancel->text(), QString::fromUtf8("取消"));
        QVERIFY(cancel->styleSheet().startsWith(QStringLiteral("#cancelButton{border: 1px solid #DDDDDD;")));
    }

    void saveModeIgnoresFileMode()
    {
        UxFileDialog dlg;
        dlg.setAcceptMode(QFileDialog::AcceptSave);
        auto* list = dlg.findChild<QListView*>(QStringLiteral("listView"));
        const auto selection = list->selectionMode();
        dlg.setFileMode(QFileDialog::ExistingFiles);
        QCOMPARE(chooser(&dlg)->fileMode(), QFileDialog::AnyFile);
        QCOMPARE(list->selectionMode(), selection);
        QVERIFY(!qobject_cast<NoFocusDelegate*>(list->itemDelegate()));
    }

    void multiSelectionEndsTheDialogDirectly()
    {
        UxFileDialog dlg;
        dlg.setAcceptMode(QFileDialog::AcceptOpen);
        dlg.setFileMode(QFileDialog::ExistingFiles);
        auto* list = dlg.findChild<QListView*>(QStringLiteral("listView"));
        auto* tree = dlg.findChild<QTreeView*>(QStringLiteral("treeView"));
        for (QAbstractItemView* view : {static_cast<QAbstractItemView*>(list), static_cast<QAbstractItemView*>(tree)}) {
            QCOMPARE(view->selectionMode(), QAbstractItemView::ExtendedSelection);
            QVERIFY(qobject_cast<NoFocusDelegate*>(view->itemDelegate()));
        }
        QCOMPARE(tree->header()->defaultAlignment(), Qt::AlignLeft | Qt::AlignVCenter);

        chooser(&dlg)->setDirectory(m_files.path());
        drive<UxFileDialog>([](UxFileDialog* d) { return typeAndAccept(d, QStringLiteral("\"a.txt\" \"b.txt\""), "openButton"); });
        QCOMPARE(dlg.exec(), int(QDialog::Accepted));
        QStringList files = dlg.selectedFiles();
        for (QString& f : files)
            f = canonical(f);
        files.sort();
        QCOMPARE(files, QStringList({canonical(m_files.filePath(QStringLiteral("a.txt"))),
                                     canonical(m_files.filePath(QStringLiteral("b.txt")))}));
    }

    void saveSelectionWithoutNameIsOneEmptyEntry()
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

    void openFileNameOnAcceptance_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("filter"); // in: preselected; out: the choice
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("shownFilter");
        QTest::newRow("nothing preselected") << "Open quotes" << QString() << "a.txt" << "Text (*.txt)";
        QTest::newRow("preselected filter") << QString() << "Logs (*.log)" << "c.log" << "Logs (*.log)";
    }
    void openFileNameOnAcceptance()
    {
        QFETCH(QString, caption);
        QFETCH(QString, filter);
        QFETCH(QString, file);
        QFETCH(QString, shownFilter);
        QString shownTitle;
        QString shown;
        drive<UxFileDialog>([&](UxFileDialog* d) {
            shownTitle = titleOf(d);
            shown = d->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))->currentText();
            return typeAndAccept(d, file, "openButton");
        });
        const QString path = UxFileDialog::getOpenFileName(nullptr, caption, m_files.path(),
                                                           QStringLiteral("Text (*.txt);;Logs (*.log)"), &filter);
        QCOMPARE(canonical(path), canonical(m_files.filePath(file)));
        QCOMPARE(filter, shownFilter);
        QCOMPARE(shown, shownFilter);
        QCOMPARE(shownTitle, caption);
    }

    void saveFileNameOfferedFromDir()
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
        const QString path = UxFileDialog::getSaveFileName(nullptr, QString(), target, QStringLiteral("Tables (*.csv)"), &filter);
        QCOMPARE(offered, QStringLiteral("new.csv"));
        QCOMPARE(shownTitle, QString()); // an empty caption still replaces the mode's own title
        QCOMPARE(QFileInfo(path).fileName(), QStringLiteral("new.csv"));
        QCOMPARE(canonical(QFileInfo(path).absolutePath()), canonical(m_files.path()));
        QCOMPARE(filter, QStringLiteral("Tables (*.csv)"));
        QVERIFY(!QFile::exists(target)); // the dialog only answers; saving is the caller's
    }

    void existingDirectoryOnAcceptance()
    {
        const QString sub = m_files.filePath(QStringLiteral("sub"));
        bool filesShown = true;
        drive<UxFileDialog>([&filesShown](UxFileDialog* d) {
            filesShown = !chooser(d)->testOption(QFileDialog::ShowDirsOnly);
            return clickChild(d, "openButton");
        });
        QCOMPARE(canonical(UxFileDialog::getExistingDirectory(nullptr, QStringLiteral("Folder"), sub, QFileDialog::Options())),
                 canonical(sub));
        QVERIFY(!filesShown);
    }

    void helpersAnswerEmptyUnlessAccepted_data()
    {
        QTest::addColumn<int>("helper");
        QTest::addColumn<QString>("dir");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("button"); // empty: Escape
        const QString here = m_files.path();
        const QString missing = here + QStringLiteral("/does/not/exist");
        QTest::newRow("open, cancel") << int(OpenHelper) << here << "Text (*.txt)" << "cancelButton";
        QTest::newRow("open, close") << int(OpenHelper) << here << QString() << "sysClose";
        QTest::newRow("open, escape") << int(OpenHelper) << here << QString() << QString();
        QTest::newRow("open, missing dir") << int(OpenHelper) << missing << QString() << "cancelButton";
        QTest::newRow("open, filter matches nothing") << int(OpenHelper) << here << "None (*.zzz)" << "cancelButton";
        QTest::newRow("open, unreadable dir") << int(OpenHelper) << here + "/locked" << QString() << "cancelButton";
        QTest::newRow("save, cancel") << int(SaveHelper) << here << QString() << "cancelButton";
        QTest::newRow("save, close") << int(SaveHelper) << here << QString() << "sysClose";
        QTest::newRow("save, missing dir") << int(SaveHelper) << missing << "None (*.zzz)" << "cancelButton";
        QTest::newRow("directory, cancel") << int(DirectoryHelper) << here << QString() << "cancelButton";
        QTest::newRow("directory, close") << int(DirectoryHelper) << missing << QString() << "sysClose";
    }
    void helpersAnswerEmptyUnlessAccepted()
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
            return driven = true;
        });
        QString selectedFilter = QStringLiteral("keep");
        QString answer = QStringLiteral("<unset>");
        if (helper == OpenHelper)
            answer = UxFileDialog::getOpenFileName(nullptr, QStringLiteral("Open"), dir, filter, &selectedFilter);
        else if (helper == SaveHelper)
            answer = UxFileDialog::getSaveFileName(nullptr, QStringLiteral("Save"), dir, filter, &selectedFilter);
        else
            answer = UxFileDialog::getExistingDirectory(nullptr, QStringLiteral("Folder"), dir);
        QFile::setPermissions(locked, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        QVERIFY(driven);
        QCOMPARE(answer, QString());
        QCOMPARE(selectedFilter, QStringLiteral("keep"));
    }

    void dialogCanBeShownAgain()
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

    void minimiseAndCloseButtons()
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

    void chineseTextsIgnoreTheLocaleCodec()
    {
        std::unique_ptr<UxQtCompat::LocaleCodecOverride> gbk(new UxQtCompat::LocaleCodecOverride("GBK"));
        if (!gbk->active())
            QSKIP("no settable GBK locale codec in this Qt build");
        UxFileDialog dlg;
        dlg.setAcceptMode(QFileDialog::AcceptSave);
        UxMessageBox box(QString(), QString(), QMessageBox::Ok | QMessageBox::No);
        gbk.reset();
        QCOMPARE(titleOf(&dlg), QString::fromUtf8("文件保存框"));
        QCOMPARE(dlg.findChild<QPushButton*>(QStringLiteral("sysClose"))->toolTip(), QString::fromUtf8("关闭"));
        QCOMPARE(boxButton(&box, QMessageBox::No)->text(), QString::fromUtf8("取消"));
    }

    void delegateDrawsNoFocusFrame()
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
        QStyledItemDelegate().paint(&painter, option, model.index(0, 0));
        QCOMPARE(style.focusFrames, 1);
        NoFocusDelegate().paint(&painter, option, model.index(0, 0));
        QCOMPARE(style.focusFrames, 1);
    }
};

UX_TEST_MAIN(TstDialogs)
#include "tst_dialogs.moc"

#include "uxtestenv.h"

#include "uxcalendartimewidget.h"
#include "uxcustomtablewidget.h"
#include "uxfiledialog.h"
#include "uxmessagebox.h"
#include "uxminiclockpannel.h"
#include "uxsettingdialog.h"

#include <QtWidgets>

#include <functional>
#include <memory>

using Factory = std::function<QWidget*(QWidget* holder)>;
Q_DECLARE_METATYPE(Factory)

namespace {

// Every text a user can see on W and its children, digits blanked so that clock texts compare across a
// tick, mnemonics dropped (the file chooser's own buttons gain or lose theirs on a language change).
QStringList visibleTexts(QWidget* w)
{
    QStringList texts;
    QList<QWidget*> all = w->findChildren<QWidget*>();
    all.prepend(w);
    for (QWidget* c : all) {
        texts << c->windowTitle() << c->toolTip();
        if (auto* l = qobject_cast<QLabel*>(c))
            texts << l->text();
        if (auto* b = qobject_cast<QAbstractButton*>(c))
            texts << b->text();
        if (auto* e = qobject_cast<QLineEdit*>(c))
            texts << e->text() << e->placeholderText();
        if (auto* box = qobject_cast<QComboBox*>(c))
            for (int i = 0; i < box->count(); ++i)
                texts << box->itemText(i);
        for (QAction* a : c->actions())
            texts << a->text();
    }
    // The weekday captions live in the day grid's first row.
    if (auto* grid = w->findChild<QTableView*>(QStringLiteral("qt_calendar_calendarview")))
        for (int col = 0; col < grid->model()->columnCount(); ++col)
            texts << grid->model()->index(0, col).data().toString();
    texts.replaceInStrings(QRegularExpression(QStringLiteral("\\d")), QStringLiteral("0"));
    texts.replaceInStrings(QStringLiteral("&"), QString());
    return texts;
}

QStringList chinese(const QStringList& texts)
{
    const QRegularExpression cjk(QStringLiteral("[\\x{4E00}-\\x{9FFF}\\x{3000}-\\x{303F}\\x{FF00}-\\x{FFEF}]"));
    return texts.filter(cjk);
}

} // namespace

class TestI18n : public QObject
{
    Q_OBJECT
private slots:
    void followsTranslation_data()
    {
        QTest::addColumn<Factory>("make");
        QTest::addColumn<QString>("chineseText"); // shown without the translation
        auto fileDialog = [](QFileDialog::AcceptMode mode) {
            return Factory([mode](QWidget*) -> QWidget* {
                auto* dlg = new UxFileDialog;
                dlg->setAcceptMode(mode);
                // setAcceptMode leaves Qt's own button captions; a language
                // change puts the dialog's own on, so start from that state.
                QEvent change(QEvent::LanguageChange);
                QCoreApplication::sendEvent(dlg, &change);
                QCoreApplication::sendPostedEvents();
                return dlg;
            });
        };
        QTest::newRow("message box") << Factory([](QWidget*) -> QWidget* {
            auto* box = new UxMessageBox(QStringLiteral("Title"), QStringLiteral("Body"),
                                         QMessageBox::Ok | QMessageBox::Yes | QMessageBox::No);
            box->setCheckBoxText(QStringLiteral("Do not ask again"));
            box->addButton(QMessageBox::Cancel);
            return box;
        }) << QStringLiteral("确定");
        // A child: the change reaches it through its parent.
        QTest::newRow("calendar") << Factory([](QWidget* holder) -> QWidget* { return new UxCalendarTimeWidget(holder, false, true); })
                                  << QStringLiteral("现在");
        QTest::newRow("setting dialog") << Factory([](QWidget*) -> QWidget* {
            auto* dlg = new UxSettingDialog;
            dlg->setTitle(0, QStringLiteral("Quotes"));
            return dlg;
        }) << QStringLiteral("置顶");
        for (bool hostNames : {false, true})
            QTest::newRow(hostNames ? "mini clock, host names" : "mini clock") << Factory([hostNames](QWidget*) -> QWidget* {
                auto* clock = new UxMiniClockPannel;
                if (hostNames)
                    clock->setTimeZoneMap({{9, QStringLiteral("Tokyo")}, {-5, QStringLiteral("New York")}});
                clock->slotUpdateDt();
                return clock;
            }) << QString::fromUtf8(hostNames ? "小时钟" : "北京");
        QTest::newRow("file dialog open") << fileDialog(QFileDialog::AcceptOpen) << QStringLiteral("文件选择框");
        QTest::newRow("file dialog save") << fileDialog(QFileDialog::AcceptSave) << QStringLiteral("文件保存框");
        QTest::newRow("table widget") << Factory([](QWidget*) -> QWidget* { return new UxCustomTableWidget; }) << QString();
    }

    // Widgets made before and after the translator is installed show no Chinese; removing it brings the originals back.
    void followsTranslation()
    {
        QFETCH(Factory, make);
        QFETCH(QString, chineseText);
        QWidget holder;
        std::unique_ptr<QWidget> before(make(&holder));
        const QStringList original = visibleTexts(before.get());
        QVERIFY(original.join(QLatin1Char('|')).contains(chineseText));

        QTranslator english;
        QVERIFY(english.load(QStringLiteral("uicomponents_en"), QStringLiteral(UX_TRANSLATIONS_DIR))
                && QCoreApplication::installTranslator(&english));
        QCoreApplication::sendPostedEvents();
        std::unique_ptr<QWidget> after(make(&holder));
        QCOMPARE(chinese(visibleTexts(before.get())), QStringList());
        QCOMPARE(visibleTexts(after.get()), visibleTexts(before.get()));
        if (auto* calendar = qobject_cast<QCalendarWidget*>(before.get()))
            QCOMPARE(calendar->locale().language(), QLocale::English);

        QVERIFY(QCoreApplication::removeTranslator(&english));
        QCoreApplication::sendPostedEvents();
        QCOMPARE(visibleTexts(before.get()), original);
        QCOMPARE(visibleTexts(after.get()), original);
        if (auto* calendar = qobject_cast<QCalendarWidget*>(before.get()))
            QCOMPARE(calendar->locale(), QLocale(QLocale::Chinese, QLocale::AnyCountry));
    }
};

UX_TEST_MAIN(TestI18n)
#include "tst_i18n.moc"

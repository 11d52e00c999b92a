#include "uxtestenv.h"

#include "datadelegate.h"
#include "datamodel.h"
#include "quickmacroitem.h"
#include "quickmacroview.h"
#include "uxcompleter.h"
#include "uxkeyboradlineedit.h"
#include "uxkeyboradsprit.h"
#include "uxnewsearchlineedit.h"
#include "uxquickmacromatcher.h"
#include "uxquickmacrosearchwidget.h"

#include <QCompleter>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <memory>
#include <vector>

namespace {

// Owns the records a test hands out as pointers, as a client would.
struct Dict
{
    void add(const QString& code, const QString& name, const QString& key = QString(), const QString& kind = "A")
    {
        addRaw({kind, code, name, key}, "url:" + code);
    }
    void addRaw(const QStringList& texts, const QString& url = QString())
    {
        m_items.emplace_back(new quickMacroItem{texts, url});
        m_ptrs.append(m_items.back().get());
    }
    void addNull() { m_ptrs.append(nullptr); }
    const QVector<quickMacroItem*>& items() const { return m_ptrs; }
    std::vector<std::unique_ptr<quickMacroItem>> m_items;
    QVector<quickMacroItem*> m_ptrs;
};

QStringList codesOf(const QVector<quickMacroItem*>& items)
{
    QStringList codes;
    for (const quickMacroItem* i : items)
        codes << i->texts.at(1);
    return codes;
}

// The ranking rule written the plain way, for non-empty texts.
QVector<quickMacroItem*> referenceRank(const QVector<quickMacroItem*>& dict, const QString& text)
{
    QMap<int, QVector<quickMacroItem*>> ranks; // -1: code or name equal, then match position, INT_MAX: rest
    for (quickMacroItem* r : dict) {
        if (ranks.value(-1).size() >= 200)
            break;
        if (!r || r->texts.size() < 4)
            continue;
        const QStringList& t = r->texts;
        const int p = t[1].indexOf(text, 0, Qt::CaseInsensitive);
        if (!text.compare(t[1], Qt::CaseInsensitive) || !text.compare(t[2], Qt::CaseInsensitive))
            ranks[-1] << r;
        else if (p >= 0)
            ranks[p] << r;
        else if (t[2].contains(text, Qt::CaseInsensitive) || t[3].contains(text, Qt::CaseInsensitive))
            ranks[INT_MAX] << r;
    }
    QVector<quickMacroItem*> result;
    for (const auto& list : ranks)
        result << list;
    return result.mid(0, 200);
}

QString randomText(QRandomGenerator& rng, int minLen, int maxLen)
{
    static const QString alphabet = QString::fromUtf8("aAbB01 éÉσΣςßẞıİ");
    const int len = minLen + int(rng.bounded(maxLen - minLen + 1));
    QString s;
    for (int i = 0; i < len; ++i)
        s += alphabet.at(int(rng.bounded(alphabet.size())));
    return s;
}

UxKeyBoradSprit* wizard() { return UxKeyBoradSprit::initance(); }
QuickMacroView* wizardView() { return wizard()->findChild<QuickMacroView*>(); }

void sendFocus(QWidget* w, QEvent::Type type)
{
    QFocusEvent ev(type, Qt::OtherFocusReason);
    QApplication::sendEvent(w, &ev);
}

// The shared overlay over a shown panel it watches, optionally with a replace
// line edit at EDITRECT; detached again so the next test finds it intact.
struct OverlayScene
{
    OverlayScene(const QVector<quickMacroItem*>& dict, const QSize& size, const QRect& editRect = QRect())
        : panel(new QWidget)
        , overlay(QuickMacroSearchWidget::initance())
    {
        panel->resize(size);
        overlay->setDictData(dict);
        overlay->setParent(panel.get());
        panel->installEventFilter(overlay);
        if (editRect.isValid()) {
            edit = new QLineEdit(panel.get());
            edit->setGeometry(editRect);
            overlay->setReplaceLineEdit(edit);
            QObject::connect(edit, SIGNAL(textChanged(QString)), overlay, SLOT(searchTextChanged(QString)));
        }
        panel->show();
    }
    ~OverlayScene()
    {
        overlay->setReplaceLineEdit(nullptr);
        overlay->hide();
        overlay->setParent(nullptr);
    }
    std::unique_ptr<QWidget> panel;
    QuickMacroSearchWidget* overlay;
    QLineEdit* edit = nullptr;
};

// A shown window whose line edits feed the wizard.
struct WizardScene
{
    WizardScene(const QSize& size = QSize(400, 600)) { window.resize(size); }
    QLineEdit* addEdit(const QRect& rect = QRect(10, 10, 320, 24))
    {
        auto* edit = new QLineEdit(&window);
        edit->setGeometry(rect);
        edit->installEventFilter(wizard());
        window.show();
        return edit;
    }
    QWidget window;
};

void typeInto(QLineEdit* edit, const QString& text)
{
    sendFocus(edit, QEvent::FocusIn);
    edit->setText(text);
}

QTreeWidget* showSearchEdit(UxNewSearchLineEdit& edit, const QVector<quickMacroItem*>& dict)
{
    edit.setDictData(dict);
    edit.show();
    return edit.findChild<QTreeWidget*>();
}

} // namespace

class TstQuickMacro : public QObject
{
    Q_OBJECT

    Dict m_dict;

    QVector<quickMacroItem*> stockDict()
    {
        m_dict = Dict();
        m_dict.add("600000", "浦发银行", "pfyh");
        m_dict.add("000600", "建投能源", "jtny");
        m_dict.add("160060", "Fund One", "fo");
        m_dict.add("300750", "宁德时代", "ndsd");
        return m_dict.items();
    }

private slots:
    void init()
    {
        wizard()->hide();
        wizard()->setParent(nullptr);
        wizard()->setDictData({});
    }

    void cleanup()
    {
        QuickMacroSearchWidget* overlay = QuickMacroSearchWidget::initance();
        overlay->searchEdit()->clear(); // a failed row must not leave its text to the next
        overlay->hide();
        overlay->setParent(nullptr);
        overlay->setReplaceLineEdit(nullptr);
        QStringList names;
        QList<QList<QStringList>> groups;
        overlay->setExtendItems(names, groups);
    }

    // ---------------------------------------- list view

    void groupRows()
    {
        QuickMacroView view;
        view.setTableData({}, {"功能"}, {{{"F10"}, {"61", "上证A股"}, {"K"}}}, true);
        QAbstractItemModel* m = view.model();
        QCOMPARE(m->rowCount(), 3);
        QCOMPARE(m->columnCount(), 3);
        for (int r = 0; r < 3; ++r) {
            QCOMPARE(m->index(r, 0).data(Qt::UserRole).toString(), QString("功能"));
            QCOMPARE(m->index(r, 0).data().toString(), QString());
            QCOMPARE(m->index(r, 1).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignLeft | Qt::AlignVCenter));
        }
        QCOMPARE(m->index(1, 2).data().toString(), QString("上证A股"));
        QVERIFY(!m->index(0, 2).data().isValid());
        QVERIFY(!m->index(3, 0).data(Qt::UserRole).isValid());
        QCOMPARE(view.columnSpan(1, 1), 2);
        QCOMPARE(view.columnSpan(0, 1), 1);

        // Group names beyond the group lists are dropped.
        view.setTableData({}, {"only"}, {{{"x"}}, {{"y"}}}, true);
        QCOMPARE(m->rowCount(), 1);

        // Spans count from the first group entry, so they land on hit rows.
        Dict dict;
        dict.add("600000", "浦发银行");
        dict.add("000001", "平安银行");
        view.setTableData(dict.items(), {"g"}, {{{"a", "b"}, {"c"}}}, true);
        QCOMPARE(view.columnSpan(0, 1), 2);
        QCOMPARE(view.columnSpan(2, 1), 1);
        QCOMPARE(view.model()->index(2, 1).data().toString(), QString("a"));
    }

    void rowBudget_data()
    {
        QTest::addColumn<int>("hits");
        QTest::addColumn<int>("groupRows");
        QTest::newRow("no hits") << 0 << 20;
        QTest::newRow("190 hits") << 190 << 10;
        QTest::newRow("195 hits") << 195 << 5;
        QTest::newRow("200 hits") << 200 << 0;
        QTest::newRow("300 hits") << 300 << 0;
    }

    void rowBudget()
    {
        QFETCH(int, hits);
        QFETCH(int, groupRows);
        Dict dict;
        for (int i = 0; i < hits; ++i)
            dict.add(QString::number(i), "n");
        QList<QStringList> group;
        for (int i = 0; i < 10; ++i)
            group << QStringList{QString::number(i)};
        QuickMacroView view;
        view.setTableData(dict.items(), {"g1", "g2"}, {group, group}, true);
        QCOMPARE(view.model()->rowCount(), hits + groupRows);
        if (groupRows > 0)
            QCOMPARE(view.model()->index(hits, 0).data(Qt::UserRole).toString(), QString("g1"));
    }

    void delegatePaintsTag_data()
    {
        QTest::addColumn<bool>("selected");
        QTest::newRow("selected") << true;
        QTest::newRow("plain") << false;
    }

    void delegatePaintsTag()
    {
        QFETCH(bool, selected);
        Dict dict;
        dict.add("600000", "浦发银行", "pfyh", "沪A");
        DataModel model;
        model.resetData(dict.items(), {}, {});
        QImage image(74, 30, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 74, 30);
        option.state = QStyle::State_Enabled | QStyle::State_HasFocus;
        if (selected)
            option.state |= QStyle::State_Selected;
        DataDelegate().paint(&painter, option, model.index(0, 0));
        painter.end();

        // Inside the tag, right of its text: blue fill when selected, else untouched
        // with the outline in the tag colour.
        if (selected) {
            QCOMPARE(image.pixelColor(58, 15), QColor(76, 159, 255));
        } else {
            QCOMPARE(image.pixelColor(58, 15), QColor(Qt::white));
            QCOMPARE(image.pixelColor(3, 15), QColor(Qt::white));
            QVERIFY(image.pixelColor(37, 25).blue() > image.pixelColor(37, 25).red());
        }
    }

    // ---------------------------------------- ranking

    void ranking_data()
    {
        QTest::addColumn<QStringList>("records"); // "code/name/key"
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("codes");
        const QStringList stocks{"600000/浦发银行/pfyh", "000600/建投能源/jtny", "160060/Fund One/fo"};
        QTest::newRow("by match position") << stocks << "600" << QStringList{"600000", "160060", "000600"};
        QTest::newRow("key, any case") << stocks << "JTN" << QStringList{"000600"};
        QTest::newRow("empty lists all") << stocks << "" << QStringList{"600000", "000600", "160060"};
        QTest::newRow("whole code") << stocks << "600000" << QStringList{"600000"};
        QTest::newRow("no hit") << stocks << "7" << QStringList();
        QTest::newRow("blank") << stocks << "   " << QStringList();
        // Name equal (any case) first, then code matches by position, then keys.
        QTest::newRow("name equal first") << QStringList{"000ABC/Alpha/x", "123456/Beta/abc", "ABC000/Gamma/y", "999999/abc/z"}
                                          << "ABC" << QStringList{"999999", "ABC000", "000ABC", "123456"};
    }

    void ranking()
    {
        QFETCH(QStringList, records);
        QFETCH(QString, text);
        QFETCH(QStringList, codes);
        Dict dict;
        for (const QString& r : records) {
            const QStringList f = r.split('/');
            dict.add(f[0], f[1], f[2]);
        }
        UxQuickMacroMatcher matcher;
        matcher.setDictionary(dict.items());
        QCOMPARE(codesOf(matcher.search(text)), codes);
    }

    void largeDictionaryAndCap()
    {
        Dict big;
        for (int i = 0; i < 100000; ++i)
            big.add(QString::number(i).rightJustified(6, '0'), QStringLiteral("N%1").arg(i), "k");
        UxQuickMacroMatcher matcher;
        matcher.setDictionary(big.items());
        const QVector<quickMacroItem*> hits = matcher.search("9999");
        QCOMPARE(hits.size(), 19);
        QCOMPARE(hits.first()->texts.at(1), QString("099990"));
        QCOMPARE(hits.last()->texts.at(1), QString("089999"));
        QCOMPARE(matcher.search("1").size(), 200);
        QCOMPARE(matcher.search(QString()).size(), 100000);
    }

    void skipsBadRecords()
    {
        Dict dict;
        dict.addNull();
        dict.addRaw({"A", "600001"});
        dict.addRaw({});
        dict.add("600002", "ok");
        dict.add("", "", "");
        UxQuickMacroMatcher matcher;
        matcher.setDictionary(dict.items());
        QCOMPARE(codesOf(matcher.search("600")), QStringList({"600002"}));
        QCOMPARE(matcher.search(QString()).size(), 2);

        // The wizard shows only usable records too.
        wizard()->setDictData(dict.items());
        QCOMPARE(wizardView()->model()->rowCount(), 2);
        QCOMPARE(wizard()->dbClicked(wizardView()->model()->index(0, 1)), QString("600002"));
    }

    void matchesReferenceOnRandomData()
    {
        QRandomGenerator rng(20240611);
        for (int round = 0; round < 5; ++round) {
            Dict dict;
            const int count = 500 + int(rng.bounded(3000));
            for (int i = 0; i < count; ++i)
                dict.add(randomText(rng, 1, 6), randomText(rng, 1, 6), randomText(rng, 0, 6));
            UxQuickMacroMatcher matcher;
            matcher.setDictionary(dict.items());
            for (int q = 0; q < 60; ++q) {
                // Later on the client edits records in place after handing them over.
                for (int e = 0; q >= 30 && e < 50; ++e) {
                    quickMacroItem* r = dict.items().at(int(rng.bounded(count)));
                    if (r->texts.size() < 4)
                        r->texts = QStringList{"A", randomText(rng, 1, 6), randomText(rng, 1, 6), QString()};
                    else if (rng.bounded(50) == 0)
                        r->texts = QStringList{"A", "short"};
                    else
                        r->texts[1 + int(rng.bounded(3))] = randomText(rng, 1, 6);
                }
                const QString text = randomText(rng, 1, 3);
                QCOMPARE(matcher.search(text), referenceRank(dict.items(), text));
            }
        }
    }

    // ---------------------------------------- wizard

    void wizardRowMovement()
    {
        wizard()->setDictData(stockDict());
        QuickMacroView* view = wizardView();
        wizard()->focusRowChanged(0); // Up with no current row
        QVERIFY(!view->currentIndex().isValid());
        wizard()->focusRowChanged(1); // Down with no current row
        QCOMPARE(view->currentIndex().row(), 0);
        wizard()->focusRowChanged(0); // Up on the first row stays
        QCOMPARE(view->currentIndex().row(), 0);
        for (int i = 0; i < 6; ++i)
            wizard()->focusRowChanged(1);
        QCOMPARE(view->currentIndex().row(), 3);
        wizard()->focusRowChanged(7); // unknown direction leaves the row
        QCOMPARE(view->currentIndex().row(), 3);
        QVERIFY(view->selectionModel()->isRowSelected(3, QModelIndex()));
    }

    void wizardEnter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("needOpen");
        QTest::addColumn<QString>("code");
        QTest::newRow("needopen") << "600" << true << "160060";
        QTest::newRow("plain") << "600" << false << "160060";
        QTest::newRow("empty list") << "zzz" << false << "";
    }

    void wizardEnter()
    {
        QFETCH(QString, text);
        QFETCH(bool, needOpen);
        QFETCH(QString, code);
        wizard()->setDictData(stockDict());
        WizardScene scene;
        QLineEdit* edit = scene.addEdit();
        if (needOpen)
            edit->setProperty("needopen", true);
        QSignalSpy spy(wizard(), &UxKeyBoradSprit::signalStockSelected);

        typeInto(edit, text);
        QVERIFY(wizard()->isVisible());
        QCOMPARE(wizard()->parentWidget(), &scene.window);
        QCOMPARE(wizard()->property("root").value<QLineEdit*>(), edit);
        if (!code.isEmpty()) {
            QCOMPARE(wizardView()->currentIndex().row(), 0);
            QTest::keyClick(edit, Qt::Key_Down);
            QCOMPARE(wizardView()->currentIndex().row(), 1);
        }
        QTest::keyClick(edit, code.isEmpty() ? Qt::Key_Enter : Qt::Key_Return);
        QCOMPARE(edit->text(), code);
        QVERIFY(!wizard()->isVisible());
        QCOMPARE(spy.count(), needOpen ? 1 : 0);
        if (!spy.isEmpty())
            QCOMPARE(spy.first(), QVariantList({QString("url:160060"), 0}));
    }

    void wizardFocusOut_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("stays");
        QTest::newRow("hits") << "600" << true;
        QTest::newRow("no hits") << "zzz" << false;
    }

    void wizardFocusOut()
    {
        QFETCH(QString, text);
        QFETCH(bool, stays);
        wizard()->setDictData(stockDict());
        WizardScene scene;
        QLineEdit* edit = scene.addEdit();
        typeInto(edit, text);
        QVERIFY(wizard()->isVisible());
        sendFocus(edit, QEvent::FocusOut);
        QCOMPARE(wizard()->isVisible(), stays);
        // Typing again reaches the popup only while the line edit is still attached.
        wizard()->hide();
        edit->setText("60");
        QCOMPARE(wizard()->isVisible(), stays);
    }

    void wizardPlacement_data()
    {
        QTest::addColumn<bool>("nested");
        QTest::addColumn<int>("windowHeight");
        QTest::newRow("direct, capped") << false << 900;
        QTest::newRow("direct, gap") << false << 300;
        QTest::newRow("nested, capped") << true << 900;
        QTest::newRow("nested, gap") << true << 300;
    }

    void wizardPlacement()
    {
        QFETCH(bool, nested);
        QFETCH(int, windowHeight);
        wizard()->setDictData(stockDict());
        WizardScene scene(QSize(500, windowHeight));
        QLineEdit* edit = nullptr;
        if (nested) {
            auto* outer = new QVBoxLayout(&scene.window);
            outer->setContentsMargins(20, 40, 20, 20);
            auto* panel = new QWidget(&scene.window);
            auto* inner = new QHBoxLayout(panel);
            inner->setContentsMargins(15, 7, 15, 7);
            edit = new QLineEdit(panel);
            edit->installEventFilter(wizard());
            inner->addWidget(edit);
            outer->addWidget(panel);
            outer->addStretch();
            scene.window.show();
        } else {
            edit = scene.addEdit(QRect(30, 50, 250, 24));
        }
        QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
        typeInto(edit, "6");
        QVERIFY(wizard()->isVisible());

        const QPoint origin = edit->mapTo(&scene.window, QPoint(0, 0));
        const int below = nested ? windowHeight - 30 - origin.y() : windowHeight - (origin.y() + edit->height()) - 30;
        QCOMPARE(wizard()->pos(), QPoint(origin.x(), origin.y() + edit->height()));
        QCOMPARE(wizard()->size(), QSize(edit->width(), qMin(below, 400)));
        QCOMPARE(wizardView()->size(), wizard()->size());
        QCOMPARE(wizardView()->isColumnHidden(0), !nested); // no room for the tag under a narrow edit
    }

    void wizardSurvivesWindow_data()
    {
        QTest::addColumn<bool>("nested");
        QTest::addColumn<bool>("deleteEditOnly");
        QTest::newRow("window, direct") << false << false;
        QTest::newRow("window, nested") << true << false;
        QTest::newRow("line edit only") << false << true;
    }

    void wizardSurvivesWindow()
    {
        QFETCH(bool, nested);
        QFETCH(bool, deleteEditOnly);
        wizard()->setDictData(stockDict());
        UxKeyBoradSprit* before = wizard();
        QPointer<UxKeyBoradSprit> alive(before);

        auto* window = new QWidget;
        window->resize(400, 500);
        QWidget* holder = window;
        if (nested) {
            holder = new QWidget(window);
            holder->setGeometry(0, 0, 400, 400);
        }
        auto* edit = new QLineEdit(holder);
        edit->setGeometry(5, 5, 300, 24);
        edit->installEventFilter(before);
        window->show();
        typeInto(edit, "6");
        QCOMPARE(before->parentWidget(), window);

        if (deleteEditOnly)
            delete edit;
        delete window;
        QVERIFY(alive);
        QCOMPARE(wizard(), before);
        QVERIFY(!before->parentWidget());
        QVERIFY(!before->property("root").value<QLineEdit*>());
        before->updateResult("600");
        QCOMPARE(wizardView()->model()->rowCount(), 3);
    }

    // ---------------------------------------- overlay

    void overlayOpensOnTypedLetter_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("opens");
        QTest::newRow("plain") << int(Qt::NoModifier) << true;
        QTest::newRow("shift") << int(Qt::ShiftModifier) << false;
        QTest::newRow("control") << int(Qt::ControlModifier) << false;
        QTest::newRow("alt") << int(Qt::AltModifier) << false;
        QTest::newRow("keypad") << int(Qt::KeypadModifier) << true;
        QTest::newRow("control+shift") << int(Qt::ControlModifier | Qt::ShiftModifier) << true;
    }

    void overlayOpensOnTypedLetter()
    {
        QFETCH(int, modifiers);
        QFETCH(bool, opens);
        OverlayScene scene(stockDict(), QSize(800, 600));
        QuickMacroSearchWidget* overlay = scene.overlay;
        QSignalSpy count(overlay, &QuickMacroSearchWidget::newSearchResultCount);
        QTest::keyClick(scene.panel.get(), Qt::Key_A, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(overlay->isVisible(), opens);
        if (opens) {
            QCOMPARE(overlay->searchEdit()->text().toLower(), QString("a"));
            QCOMPARE(overlay->geometry(), QRect(0, 0, 800, 600));
            QCOMPARE(overlay->searchEdit()->parentWidget()->geometry(), QRect(500, 600 - 27 - 362, 300, 27 + 362));
            QVERIFY(!count.isEmpty());
            QCOMPARE(count.last().first().toInt(), 0); // no code, name or key holds "a"
            overlay->searchEdit()->setText("6");
            QCOMPARE(count.last().first().toInt(), 3);
            QTest::keyClick(overlay->searchEdit(), Qt::Key_Down);
            QCOMPARE(overlay->tableView()->currentIndex().row(), 1);
            QTest::keyClick(overlay->searchEdit(), Qt::Key_Up);
            QTest::keyClick(overlay->searchEdit(), Qt::Key_Up);
            QCOMPARE(overlay->tableView()->currentIndex().row(), 0);
        }
        // Keys without text never open it.
        overlay->hide();
        for (Qt::Key key : {Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_F5})
            QTest::keyClick(scene.panel.get(), key);
        QVERIFY(!overlay->isVisible());
    }

    void overlayClosesOnKey_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("closes");
        QTest::newRow("backspace, one letter") << "6" << int(Qt::Key_Backspace) << true;
        QTest::newRow("backspace, two letters") << "60" << int(Qt::Key_Backspace) << false;
        QTest::newRow("escape") << "60" << int(Qt::Key_Escape) << true;
    }

    void overlayClosesOnKey()
    {
        QFETCH(QString, text);
        QFETCH(int, key);
        QFETCH(bool, closes);
        OverlayScene scene(stockDict(), QSize(640, 480));
        QWidget* chart = scene.panel.get();
        chart->setFocusPolicy(Qt::StrongFocus);
        QVERIFY(QTest::qWaitForWindowActive(chart));
        QTest::keyClick(chart, Qt::Key_6);
        QVERIFY(scene.overlay->isVisible());
        scene.overlay->searchEdit()->setText(text);
        QTest::keyClick(scene.overlay->searchEdit(), Qt::Key(key));
        QCOMPARE(scene.overlay->isVisible(), !closes);
        if (closes)
            QTRY_VERIFY(chart->hasFocus());
    }

    void overlayUnderReplaceLineEdit()
    {
        OverlayScene scene(stockDict(), QSize(500, 600), QRect(300, 8, 180, 24));
        QuickMacroSearchWidget* overlay = scene.overlay;
        QWidget chart(scene.panel.get());
        chart.setGeometry(0, 40, 500, 560);
        chart.installEventFilter(overlay);
        chart.show();

        QTest::keyClick(&chart, Qt::Key_6);
        QCOMPARE(scene.edit->text(), QString("6"));
        QVERIFY(overlay->isVisible());
        QVERIFY(!overlay->searchEdit()->isVisible());
        QCOMPARE(overlay->geometry(), QRect(0, 0, 500, 600));
        // Pushed left so that it ends at the panel's right edge, just under the line edit.
        QCOMPARE(overlay->searchEdit()->parentWidget()->geometry(), QRect(200, 8 + 24, 300, 362));

        QSignalSpy chosen(overlay, &QuickMacroSearchWidget::stockSelected);
        QVERIFY(overlay->enterIsEnabled());
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.first().first().toString(), QString("url:600000"));
        scene.edit->clear();
        QVERIFY(!overlay->isVisible());
        QVERIFY(!overlay->enterIsEnabled());
    }

    void overlayHidesWithoutHits()
    {
        OverlayScene scene(stockDict(), QSize(500, 600), QRect(10, 10, 320, 24));
        QuickMacroSearchWidget* overlay = scene.overlay;
        scene.edit->setText("60");
        QVERIFY(overlay->isVisible());
        scene.edit->setText("60x");
        QVERIFY(!overlay->isVisible());

        // Extend groups alone keep it open.
        QStringList names{"功能"};
        QList<QList<QStringList>> groups{{{"F10", "资料"}}};
        overlay->setExtendItems(names, groups);
        scene.edit->setText("60xy");
        QVERIFY(overlay->isVisible());
        delete scene.edit; // the client's line edit may go away first
        overlay->searchTextChanged("6");
        QCOMPARE(overlay->tableView()->model()->rowCount(), 3 + 1);

        // More group names than group lists: the extra names are dropped.
        names = QStringList{"a", "b", "c"};
        groups = {{{"x"}}};
        overlay->setExtendItems(names, groups);
        overlay->searchTextChanged("zzz");
        QCOMPARE(overlay->tableView()->model()->rowCount(), 1);
        QCOMPARE(overlay->tableView()->model()->index(0, 0).data(Qt::UserRole).toString(), QString("a"));
    }

    void overlayChoosesHitsAndExtends()
    {
        QuickMacroSearchWidget* overlay = QuickMacroSearchWidget::initance();
        overlay->setDictData(stockDict());
        overlay->setType(3);
        QStringList names{"功能", "页面"};
        QList<QList<QStringList>> groups{{{"F10", "资料"}, {"F5"}}, {{"61"}, {"63"}, {"65"}}};
        overlay->setExtendItems(names, groups);
        overlay->searchTextChanged("600000");
        QAbstractItemModel* model = overlay->tableView()->model();
        QCOMPARE(model->rowCount(), 1 + 5);
        QVERIFY(!overlay->tableView()->isColumnHidden(0));

        QSignalSpy stock(overlay, &QuickMacroSearchWidget::stockSelected);
        QSignalSpy extend(overlay, &QuickMacroSearchWidget::extendSelected);
        for (const QModelIndex& index : {model->index(0, 1), model->index(4, 1), QModelIndex()})
            QMetaObject::invokeMethod(overlay, "dbClicked", Q_ARG(QModelIndex, index));
        QCOMPARE(stock.count(), 1);
        QCOMPARE(stock.first(), QVariantList({QString("url:600000"), 3}));
        QCOMPARE(extend.count(), 1);
        QCOMPARE(extend.first(), QVariantList({QString("页面"), 1, 3}));

        // Enter on the own search line chooses the current row.
        overlay->tableView()->setCurrentIndex(model->index(2, 0));
        QTest::keyClick(overlay->searchEdit(), Qt::Key_Return);
        QCOMPARE(extend.count(), 2);
        QCOMPARE(extend.last(), QVariantList({QString("功能"), 1, 3}));
        overlay->setType(0);
    }

    void overlayLogsLineEditFocus()
    {
        QuickMacroSearchWidget* overlay = QuickMacroSearchWidget::initance();
        QWidget panel;
        auto* edit = new QLineEdit(&panel);
        edit->setObjectName("clientEdit");
        edit->installEventFilter(overlay);
        const QString line = QStringLiteral("eventFilter.* object  QLineEdit\\(0x[0-9a-f]+, name = \"%1\"\\)$");
        for (QLineEdit* e : {overlay->searchEdit(), edit}) {
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(line.arg(e->objectName())));
            sendFocus(e, QEvent::FocusIn);
        }
        QVERIFY(!overlay->isVisible());
    }

    // ---------------------------------------- completer

    void completerDebounce()
    {
        UxNewSearchLineEdit edit;
        QTreeWidget* popup = showSearchEdit(edit, stockDict());
        QVERIFY(QTest::qWaitForWindowExposed(&edit));

        QTest::keyClicks(&edit, "N"); // keys jtny and ndsd, any case
        QVERIFY(!popup->isVisible()); // waits for the typing to stop
        QTRY_VERIFY_WITH_TIMEOUT(popup->isVisible(), 10000);
        QCOMPARE(popup->topLevelItemCount(), 2);
        QCOMPARE(popup->topLevelItem(0)->text(0), QString("000600"));
        QCOMPARE(popup->topLevelItem(0)->text(1), QString("建投能源"));
        QCOMPARE(popup->topLevelItem(1)->text(0), QString("300750"));
        QCOMPARE(popup->width(), edit.width());
        // Just under the line edit (offscreen may shift windows by a 2-pixel frame).
        const QPoint under = edit.mapToGlobal(QPoint(0, edit.height()));
        QVERIFY((popup->pos() - under).manhattanLength() <= 4);
    }

    void completerVisibleRows_data()
    {
        QTest::addColumn<int>("suggestions");
        QTest::addColumn<int>("rows");
        QTest::newRow("twelve") << 12 << 7;
        QTest::newRow("three") << 3 << 3;
    }

    void completerVisibleRows()
    {
        QFETCH(int, suggestions);
        QFETCH(int, rows);
        Dict dict;
        for (int i = 0; i < suggestions; ++i)
            dict.add(QStringLiteral("6%1").arg(i, 5, 10, QChar('0')), "n");
        dict.add("000001", "n");
        UxNewSearchLineEdit edit;
        QTreeWidget* popup = showSearchEdit(edit, dict.items());
        edit.setText("6");
        edit.findChild<UxCompleter*>()->autoSuggest();
        QVERIFY(popup->isVisible());
        QCOMPARE(popup->topLevelItemCount(), suggestions);
        QCOMPARE(popup->height(), popup->sizeHintForRow(0) * rows + 3);
    }

    void completerKeys()
    {
        UxNewSearchLineEdit edit;
        QTreeWidget* popup = showSearchEdit(edit, stockDict());
        auto* completer = edit.findChild<UxCompleter*>();

        edit.setText("600");
        completer->autoSuggest();
        QVERIFY(popup->isVisible());
        QTest::keyClick(popup, Qt::Key_Escape);
        QVERIFY(!popup->isVisible());
        QCOMPARE(edit.text(), QString("600"));

        completer->autoSuggest();
        popup->setCurrentItem(popup->topLevelItem(1));
        QTest::keyClick(popup, Qt::Key_Return);
        QVERIFY(!popup->isVisible());
        QCOMPARE(edit.text(), QString("000600"));

        // A letter typed in the list goes on into the line edit.
        edit.setText("60");
        completer->autoSuggest();
        QTest::keyClick(popup, Qt::Key_0);
        QVERIFY(!popup->isVisible());
        QCOMPARE(edit.text(), QString("600"));
    }

    void completerWithoutLineEdit()
    {
        QPointer<QTreeWidget> popup;
        {
            UxCompleter completer(nullptr);
            for (QWidget* w : QApplication::topLevelWidgets()) {
                if (auto* tree = qobject_cast<QTreeWidget*>(w); tree && !tree->parent())
                    popup = tree;
            }
            QVERIFY(popup);
            completer.showSuggestions({"600000"}, {"浦发银行"});
            QVERIFY(!popup->isVisible());
            completer.autoSuggest();
            completer.doneCompletion();
        }
        QVERIFY(!popup); // nothing else owns it
    }

    void keyboardLineEditStartsEmpty()
    {
        UxKeyBoradLineEdit edit;
        edit.setDictData(stockDict());
        auto* popup = qobject_cast<QuickMacroView*>(edit.completer() ? edit.completer()->popup() : nullptr);
        QVERIFY(popup);
        QCOMPARE(popup->model()->rowCount(), 0);
        QCOMPARE(edit.dbClicked(QModelIndex(), true), QString());
        // Enter through its filter writes the (empty) choice back.
        edit.setText("600");
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QVERIFY(edit.eventFilter(&edit, &enter));
        QCOMPARE(edit.text(), QString());
    }
};

UX_TEST_MAIN(TstQuickMacro)
#include "tst_quickmacro.moc"

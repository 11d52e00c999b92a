#include "uxtestenv.h"

#include "datadelegate.h"
#include "datamodel.h"
#include "quickmacroview.h"
#include "uxcompleter.h"
#include "uxkeyboradlineedit.h"
#include "uxkeyboradsprit.h"
#include "uxnewsearchlineedit.h"
#include "uxquickmacromatcher.h"
#include "uxquickmacrosearchwidget.h"

#include <QCompleter>
#include <QHeaderView>
#include <QPainter>
#include <QPointer>
#include <QRandomGenerator>
#include <QRegularExpressionValidator>
#include <QTreeWidget>

#include <memory>
#include <vector>

namespace {

// Owns the records a test hands out as pointers, as a client would.
struct Dict
{
    Dict& add(const QString& code, const QString& name, const QString& key = QString(), const QString& kind = "A")
    {
        items.emplace_back(new quickMacroItem{{kind, code, name, key}, "url:" + code});
        ptrs.append(items.back().get());
        return *this;
    }
    std::vector<std::unique_ptr<quickMacroItem>> items;
    QVector<quickMacroItem*> ptrs;
};

Dict stocks()
{
    Dict d;
    d.add("600000", "浦发银行", "pfyh").add("000600", "建投能源", "jtny").add("160060", "Fund One", "fo");
    d.add("300750", "宁德时代", "ndsd");
    return d;
}

QStringList codesOf(const QVector<quickMacroItem*>& items)
{
    QStringList codes;
    for (const quickMacroItem* i : items)
        codes << i->texts.at(1);
    return codes;
}

// The ranking written the plain way: equal first, then by code match position, then name or key.
QStringList referenceRank(const QVector<quickMacroItem*>& dict, const QString& text)
{
    QMap<int, QStringList> ranks;
    for (const quickMacroItem* r : dict) {
        if (ranks.value(-1).size() >= 200)
            break;
        const QStringList& t = r->texts;
        const int p = t[1].indexOf(text, 0, Qt::CaseInsensitive);
        if (!text.compare(t[1], Qt::CaseInsensitive) || !text.compare(t[2], Qt::CaseInsensitive))
            ranks[-1] << t[1];
        else if (p >= 0)
            ranks[p] << t[1];
        else if (t[2].contains(text, Qt::CaseInsensitive) || t[3].contains(text, Qt::CaseInsensitive))
            ranks[INT_MAX] << t[1];
    }
    QStringList all;
    for (const QStringList& l : ranks)
        all << l;
    return all.mid(0, 200);
}

QString randomText(QRandomGenerator& rng, int minLen, int maxLen)
{
    static const QString alphabet = QString::fromUtf8("aAbB01 éÉσΣςßẞıİ");
    QString s;
    for (int i = minLen + int(rng.bounded(maxLen - minLen + 1)); i > 0; --i)
        s += alphabet.at(int(rng.bounded(alphabet.size())));
    return s;
}

UxKeyBoradSprit* wizard() { return UxKeyBoradSprit::initance(); }
QuickMacroView* wizardView() { return wizard()->findChild<QuickMacroView*>(); }
QuickMacroSearchWidget* overlay() { return QuickMacroSearchWidget::initance(); }
QWidget* container() { return overlay()->searchEdit()->parentWidget(); }

void sendFocus(QWidget* w, QEvent::Type type)
{
    QFocusEvent ev(type, Qt::OtherFocusReason);
    QApplication::sendEvent(w, &ev);
}

void typeInto(QLineEdit* edit, const QString& text)
{
    sendFocus(edit, QEvent::FocusIn);
    edit->setText(text);
}

// Own methods of MO in declaration order, as "kind:signature".
QStringList ownMethods(const QMetaObject& mo)
{
    QStringList out;
    for (int i = mo.methodOffset(); i < mo.methodCount(); ++i) {
        const QMetaMethod m = mo.method(i);
        out << QString::fromLatin1(m.methodType() == QMetaMethod::Signal ? "signal:" : "method:") + m.methodSignature();
    }
    return out;
}

// A shown panel the overlay covers and watches, optionally with a replace line edit.
struct OverlayScene
{
    OverlayScene(const QSize& size, const QRect& editRect = QRect())
    {
        panel.resize(size);
        overlay()->setDictData(dict.ptrs);
        overlay()->setParent(&panel);
        panel.installEventFilter(overlay());
        if (editRect.isValid()) {
            edit = new QLineEdit(&panel);
            edit->setGeometry(editRect);
            overlay()->setReplaceLineEdit(edit);
            QObject::connect(edit, SIGNAL(textChanged(QString)), overlay(), SLOT(searchTextChanged(QString)));
        }
        panel.show();
    }
    ~OverlayScene()
    {
        overlay()->searchEdit()->clear();
        overlay()->hide();
        overlay()->setParent(nullptr);
        overlay()->setReplaceLineEdit(nullptr);
        overlay()->showSearchEdit(true);
        QStringList names;
        QList<QList<QStringList>> groups;
        overlay()->setExtendItems(names, groups);
    }
    Dict dict = stocks();
    QWidget panel;
    QLineEdit* edit = nullptr;
};

} // namespace

class TstQuickMacro : public QObject
{
    Q_OBJECT
    Dict m_dict = stocks();

private slots:
    void init()
    {
        wizard()->hide();
        wizard()->setParent(nullptr);
        wizard()->setDictData(m_dict.ptrs);
    }

    // What clients and skins rely on: names, signatures, defaults, timing.
    void contract_data()
    {
        QTest::addColumn<QVariant>("actual");
        QTest::addColumn<QVariant>("expected");
        QuickMacroView view;
        UxNewSearchLineEdit search;
        auto* timer = search.findChild<QTimer*>();
        auto add = [](const char* name, const QVariant& a, const QVariant& e) { QTest::newRow(name) << a << e; };
        add("initance is one", QVariant::fromValue<QObject*>(wizard()), QVariant::fromValue<QObject*>(UxKeyBoradSprit::initance()));
        add("wizard form", QStringList{wizard()->objectName(), wizard()->windowTitle()}, QStringList{"UxKeyBoradSprit", "Frame"});
        add("wizard meta", ownMethods(UxKeyBoradSprit::staticMetaObject),
            QStringList{"signal:signalStockSelected(QString,int)", "method:clear()", "method:focusRowChanged(int)",
                        "method:dbClicked(QModelIndex,bool)", "method:dbClicked(QModelIndex)"});
        add("wizard list height, focus", QVariantList{wizardView()->height(), int(wizardView()->focusPolicy())},
            QVariantList{362, int(QTableView().focusPolicy())});
        add("overlay meta", ownMethods(QuickMacroSearchWidget::staticMetaObject),
            QStringList{"signal:newSearchResultCount(int)", "signal:stockSelected(QString,int)",
                        "signal:extendSelected(QString,int,int)", "method:searchTextChanged(QString)",
                        "method:focusRowChanged(int)", "method:enterIsEnabled()", "method:dbClicked(QModelIndex)"});
        add("overlay initance", QVariant::fromValue<QObject*>(overlay()), QVariant::fromValue<QObject*>(QuickMacroSearchWidget::initance()));
        add("overlay heights", QVariantList{overlay()->searchEdit()->height(), overlay()->tableView()->height()}, QVariantList{27, 362});
        add("completer meta", ownMethods(UxCompleter::staticMetaObject),
            QStringList{"method:doneCompletion()", "method:preventSuggest()", "method:autoSuggest()", "method:slotRspCodeSearchs()"});
        add("line edit meta", ownMethods(UxKeyBoradLineEdit::staticMetaObject), QStringList{"signal:signalStockSelected(QString,int)"});
        add("completer wait", QVariantList{timer->interval(), timer->isSingleShot(), int(timer->timerType())},
            QVariantList{400, true, int(Qt::CoarseTimer)});
        add("search edit width, pattern", QVariantList{search.width(), qobject_cast<const QRegularExpressionValidator*>(search.validator())->regularExpression().pattern()},
            QVariantList{120, QString("^[a-zA-Z0-9.\\w]+$")});
        add("view rows", QVariantList{view.verticalHeader()->defaultSectionSize(), view.columnWidth(0), view.columnWidth(1), view.horizontalHeader()->stretchLastSection()},
            QVariantList{30, 74, 100, true});
        add("view look", QVariantList{view.horizontalHeader()->isHidden(), view.verticalHeader()->isHidden(), view.showGrid(), view.hasAutoScroll(), int(view.selectionBehavior()), int(view.selectionMode()), int(view.horizontalScrollBarPolicy())},
            QVariantList{true, true, false, false, int(QAbstractItemView::SelectRows), int(QAbstractItemView::SingleSelection), int(Qt::ScrollBarAlwaysOff)});
    }
    void contract()
    {
        QFETCH(QVariant, actual);
        QFETCH(QVariant, expected);
        QCOMPARE(actual, expected);
    }

    void listRows()
    {
        QuickMacroView view;
        view.setTableData({}, {"功能"}, {{{"F10"}, {"61", "上证A股"}, {"K"}}}, true);
        QAbstractItemModel* m = view.model();
        QCOMPARE(m->rowCount(), 3);
        QCOMPARE(m->columnCount(), 3);
        for (int r = 0; r < 3; ++r) {
            QCOMPARE(m->index(r, 0).data(Qt::UserRole).toString(), QString("功能"));
            QCOMPARE(m->index(r, 0).data().toString(), QString());
            QCOMPARE(m->index(r, 1).data(Qt::TextAlignmentRole).toInt(), 129);
            QVERIFY(!m->index(r, 1).data(Qt::ToolTipRole).isValid());
        }
        QCOMPARE(m->index(1, 2).data().toString(), QString("上证A股"));
        QVERIFY(!m->index(0, 2).data().isValid());
        QCOMPARE(QVector<int>({view.columnSpan(0, 1), view.columnSpan(1, 1)}), QVector<int>({1, 2}));
        // Hits come first; spans count from the first group entry, so they land on hit rows.
        view.setTableData(m_dict.ptrs.mid(0, 2), {"g"}, {{{"a", "b"}, {"c"}}}, false);
        QVERIFY(view.isColumnHidden(0));
        QCOMPARE(m->index(1, 2).data().toString(), QString("建投能源"));
        QCOMPARE(m->index(0, 0).data(Qt::UserRole).toString(), QString("A"));
        QCOMPARE(QVector<int>({view.columnSpan(0, 1), view.columnSpan(2, 1)}), QVector<int>({2, 1}));
        QCOMPARE(m->index(2, 1).data().toString(), QString("a"));
        QVERIFY(!m->index(4, 0).data(Qt::UserRole).isValid());
    }

    void rowBudget_data()
    {
        QTest::addColumn<int>("hits");
        QTest::addColumn<int>("groupRows");
        QTest::newRow("no hits") << 0 << 20;
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
        view.setTableData(dict.ptrs, {"g1", "g2"}, {group, group}, true);
        QCOMPARE(view.model()->rowCount(), hits + groupRows);
        if (groupRows)
            QCOMPARE(view.model()->index(hits + 10, 0).data(Qt::UserRole).toString(), QString(groupRows > 10 ? "g2" : ""));
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
        DataModel model;
        model.resetData(m_dict.ptrs, {}, {});
        QImage image(74, 30, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 74, 30);
        option.state = QStyle::State_Enabled | (selected ? QStyle::State_Selected : QStyle::State_None);
        DataDelegate().paint(&painter, option, model.index(0, 0));
        painter.end();
        // Filled blue inside the tag when selected; otherwise only the outline, 10 px in and 5 px down.
        QCOMPARE(image.pixelColor(58, 15), selected ? QColor(76, 159, 255) : QColor(Qt::white));
        QCOMPARE(image.pixelColor(8, 15), QColor(Qt::white));
        QCOMPARE(image.pixelColor(37, 3), QColor(Qt::white));
        QVERIFY(image.pixelColor(37, 25).blue() > image.pixelColor(37, 25).red());
    }

    void ranking_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("codes");
        QTest::newRow("by match position") << "600" << QStringList{"600000", "160060", "000600"};
        QTest::newRow("key, any case") << "JTN" << QStringList{"000600"};
        QTest::newRow("name equal first") << "fund one" << QStringList{"160060"};
        QTest::newRow("name part") << "银行" << QStringList{"600000"};
        QTest::newRow("empty lists all") << "" << QStringList{"600000", "000600", "160060", "300750"};
        QTest::newRow("no hit") << "7x" << QStringList();
    }
    void ranking()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, codes);
        Dict dict = stocks();
        dict.add("0", "0").ptrs << nullptr; // short and null records never show
        dict.items.back()->texts.removeLast();
        UxQuickMacroMatcher matcher;
        matcher.setDictionary(dict.ptrs);
        QCOMPARE(codesOf(matcher.search(text)), codes);
    }

    void rankingMatchesReference()
    {
        QRandomGenerator rng(20240611);
        Dict big;
        for (int i = 0; i < 1000; ++i)
            big.add(QString::number(i).rightJustified(4, '0'), "n", "k");
        UxQuickMacroMatcher matcher;
        matcher.setDictionary(big.ptrs);
        QCOMPARE(matcher.search("0").size(), 200);
        for (int round = 0; round < 3; ++round) {
            Dict dict;
            const int count = 500 + int(rng.bounded(2000));
            for (int i = 0; i < count; ++i)
                dict.add(randomText(rng, 1, 6), randomText(rng, 1, 6), randomText(rng, 0, 6));
            matcher.setDictionary(dict.ptrs);
            for (int q = 0; q < 40; ++q) {
                // The client may edit records in place after handing them over.
                if (q >= 20)
                    dict.ptrs.at(int(rng.bounded(count)))->texts[1 + int(rng.bounded(3))] = randomText(rng, 1, 6);
                const QString text = randomText(rng, 1, 3);
                QCOMPARE(codesOf(matcher.search(text)), referenceRank(dict.ptrs, text));
            }
        }
    }

    void wizardRowMovement()
    {
        QuickMacroView* view = wizardView();
        const QList<QPair<int, int>> steps{{0, -1}, {1, 0}, {0, 0}, {1, 1}, {1, 2}, {1, 3}, {1, 3}, {7, 3}, {0, 2}};
        for (const auto& step : steps) {
            wizard()->focusRowChanged(step.first);
            QCOMPARE(view->currentIndex().row(), step.second);
        }
        QVERIFY(view->selectionModel()->isRowSelected(2, QModelIndex()));
    }

    void wizardEnter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("needOpen");
        QTest::addColumn<QString>("code");
        QTest::newRow("needopen") << "600" << QVariant(true) << "160060";
        QTest::newRow("needopen false") << "600" << QVariant(false) << "160060";
        QTest::newRow("no property") << "600" << QVariant() << "160060";
        QTest::newRow("empty list") << "zzz" << QVariant(true) << "";
    }
    void wizardEnter()
    {
        QFETCH(QString, text);
        QFETCH(QVariant, needOpen);
        QFETCH(QString, code);
        QWidget window;
        window.resize(400, 600);
        auto* edit = new QLineEdit(&window);
        edit->setGeometry(10, 10, 320, 24);
        edit->installEventFilter(wizard());
        edit->setProperty("needopen", needOpen);
        window.show();
        QSignalSpy spy(wizard(), &UxKeyBoradSprit::signalStockSelected);
        typeInto(edit, text);
        QVERIFY(wizard()->isVisible());
        QCOMPARE(wizard()->parentWidget(), &window);
        QCOMPARE(wizard()->property("root").value<QLineEdit*>(), edit);
        QTest::keyClick(edit, Qt::Key_Down);
        QCOMPARE(wizardView()->currentIndex().row(), code.isEmpty() ? -1 : 1);
        QTest::keyClick(edit, code.isEmpty() ? Qt::Key_Enter : Qt::Key_Return);
        QCOMPARE(edit->text(), code);
        QVERIFY(!wizard()->isVisible());
        QCOMPARE(spy.count(), needOpen.toBool() && !code.isEmpty() ? 1 : 0);
        if (!spy.isEmpty())
            QCOMPARE(spy.first(), QVariantList({"url:160060", 0}));

        // Focus leaving with hits keeps the popup; with none it hides and detaches.
        typeInto(edit, text);
        sendFocus(edit, QEvent::FocusOut);
        QCOMPARE(wizard()->isVisible(), !code.isEmpty());
        wizard()->hide();
        edit->setText("60");
        QCOMPARE(wizard()->isVisible(), !code.isEmpty());
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
        QWidget window;
        window.resize(500, windowHeight);
        QWidget* holder = &window;
        if (nested) {
            holder = new QWidget(&window);
            holder->setGeometry(20, 40, 460, 200);
        }
        auto* edit = new QLineEdit(holder);
        edit->setGeometry(nested ? QRect(15, 7, 430, 24) : QRect(30, 50, 250, 24));
        edit->installEventFilter(wizard());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        typeInto(edit, "6");
        const QPoint origin = edit->mapTo(&window, QPoint(0, 0));
        // The nested rule does not subtract the line edit's height from the room below.
        const int below = windowHeight - 30 - origin.y() - (nested ? 0 : edit->height());
        QCOMPARE(wizard()->geometry(), QRect(origin.x(), origin.y() + 24, edit->width(), qMin(below, 400)));
        QCOMPARE(wizardView()->size(), wizard()->size());
        QCOMPARE(wizardView()->isColumnHidden(0), !nested); // a popup under 300 px shows no tag
    }

    void wizardSurvivesWindow_data()
    {
        QTest::addColumn<bool>("nested");
        QTest::addColumn<bool>("detached");
        QTest::newRow("direct") << false << false;
        QTest::newRow("nested") << true << false;
        QTest::newRow("detached by focus out") << false << true;
    }
    void wizardSurvivesWindow()
    {
        QFETCH(bool, nested);
        QFETCH(bool, detached);
        QPointer<UxKeyBoradSprit> alive(wizard());
        auto* window = new QWidget;
        window->resize(400, 500);
        QWidget* holder = nested ? new QWidget(window) : window;
        auto* edit = new QLineEdit(holder);
        edit->setGeometry(5, 5, 300, 24);
        edit->installEventFilter(wizard());
        window->show();
        typeInto(edit, detached ? "zzz" : "6");
        QCOMPARE(wizard()->parentWidget(), window);
        if (detached)
            sendFocus(edit, QEvent::FocusOut);
        delete window;
        QVERIFY(alive);
        QCOMPARE(wizard(), alive.data());
        QVERIFY(!wizard()->parentWidget());
        QVERIFY(!wizard()->property("root").value<QLineEdit*>());
        wizard()->updateResult("600");
        QCOMPARE(wizardView()->model()->rowCount(), 3);
    }

    void overlayOpensOnTypedKey_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("opens");
        QTest::newRow("plain") << int(Qt::Key_6) << int(Qt::NoModifier) << true;
        QTest::newRow("keypad") << int(Qt::Key_6) << int(Qt::KeypadModifier) << true;
        QTest::newRow("control+shift") << int(Qt::Key_6) << int(Qt::ControlModifier | Qt::ShiftModifier) << true;
        QTest::newRow("shift") << int(Qt::Key_A) << int(Qt::ShiftModifier) << false;
        QTest::newRow("control") << int(Qt::Key_6) << int(Qt::ControlModifier) << false;
        QTest::newRow("alt") << int(Qt::Key_6) << int(Qt::AltModifier) << false;
        QTest::newRow("escape") << int(Qt::Key_Escape) << 0 << false;
        QTest::newRow("backspace") << int(Qt::Key_Backspace) << 0 << false;
        QTest::newRow("delete") << int(Qt::Key_Delete) << 0 << false;
        QTest::newRow("return") << int(Qt::Key_Return) << 0 << false;
        QTest::newRow("F5") << int(Qt::Key_F5) << 0 << false;
    }
    void overlayOpensOnTypedKey()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(bool, opens);
        OverlayScene scene(QSize(800, 600));
        QSignalSpy count(overlay(), &QuickMacroSearchWidget::newSearchResultCount);
        QTest::keyClick(&scene.panel, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QCOMPARE(overlay()->isVisible(), opens);
        if (!opens)
            return;
        QCOMPARE(overlay()->searchEdit()->text(), QString("6"));
        QCOMPARE(overlay()->geometry(), QRect(0, 0, 800, 600));
        QCOMPARE(container()->geometry(), QRect(500, 600 - 27 - 362, 300, 27 + 362));
        QCOMPARE(count.last().first().toInt(), 3);
        QTest::keyClick(overlay()->searchEdit(), Qt::Key_Down);
        QCOMPARE(overlay()->tableView()->currentIndex().row(), 1);
        QTest::keyClick(overlay()->searchEdit(), Qt::Key_Up);
        QTest::keyClick(overlay()->searchEdit(), Qt::Key_Up);
        QCOMPARE(overlay()->tableView()->currentIndex().row(), 0);
    }

    void overlayCloses_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("action"); // key name or "press:<target>:<button>"
        QTest::addColumn<bool>("closes");
        QTest::newRow("backspace, one letter") << "6" << "backspace" << true;
        QTest::newRow("backspace, two letters") << "60" << "backspace" << false;
        QTest::newRow("escape") << "60" << "escape" << true;
        QTest::newRow("left press on search line") << "60" << "press:search:left" << true;
        QTest::newRow("left press on panel") << "60" << "press:panel:left" << true;
        QTest::newRow("right press on panel") << "60" << "press:panel:right" << false;
    }
    void overlayCloses()
    {
        QFETCH(QString, text);
        QFETCH(QString, action);
        QFETCH(bool, closes);
        OverlayScene scene(QSize(640, 480));
        scene.panel.setFocusPolicy(Qt::StrongFocus);
        QVERIFY(QTest::qWaitForWindowActive(&scene.panel));
        QTest::keyClick(&scene.panel, Qt::Key_6);
        QVERIFY(overlay()->isVisible());
        overlay()->searchEdit()->setText(text);
        QLineEdit* search = overlay()->searchEdit();
        if (action.startsWith("press")) {
            QWidget* target = action.contains("search") ? static_cast<QWidget*>(search) : &scene.panel;
            QTest::mousePress(target, action.endsWith("left") ? Qt::LeftButton : Qt::RightButton, {}, QPoint(2, 2));
            QCOMPARE(overlay()->isVisible(), !closes);
            if (closes)
                QTRY_VERIFY(target->hasFocus() || target == search);
            return;
        }
        QTest::keyClick(search, action == "escape" ? Qt::Key_Escape : Qt::Key_Backspace);
        QCOMPARE(overlay()->isVisible(), !closes);
        if (closes)
            QTRY_VERIFY(scene.panel.hasFocus());
    }

    void overlayUnderReplaceLineEdit()
    {
        OverlayScene scene(QSize(500, 600), QRect(300, 8, 180, 24));
        QWidget chart(&scene.panel);
        chart.setGeometry(0, 40, 500, 560);
        chart.installEventFilter(overlay());
        chart.show();
        QTest::keyClick(&chart, Qt::Key_6);
        QCOMPARE(scene.edit->text(), QString("6"));
        QVERIFY(overlay()->isVisible());
        QVERIFY(!overlay()->searchEdit()->isVisible());
        QCOMPARE(overlay()->geometry(), QRect(0, 0, 500, 600));
        // At least 300 wide, pushed left to end at the panel's right edge, just under the line edit.
        QCOMPARE(container()->geometry(), QRect(200, 32, 300, 362));
        scene.panel.resize(250, 600); // narrower than the list: it starts left of the panel
        scene.edit->setText("60");
        QCOMPARE(container()->geometry(), QRect(-50, 32, 300, 362));

        QSignalSpy chosen(overlay(), &QuickMacroSearchWidget::stockSelected);
        QVERIFY(overlay()->enterIsEnabled());
        QCOMPARE(chosen, QList<QVariantList>({{"url:600000", 0}}));
        scene.edit->setText("60x"); // no hits and no extend groups
        QVERIFY(!overlay()->isVisible());
        QVERIFY(!overlay()->enterIsEnabled());
        QStringList names{"功能"};
        QList<QList<QStringList>> groups{{{"F10", "资料"}}};
        overlay()->setExtendItems(names, groups);
        scene.edit->setText("60xy");
        QVERIFY(overlay()->isVisible());
        delete scene.edit; // the client's line edit may go away first
        overlay()->searchTextChanged("6");
        QCOMPARE(overlay()->tableView()->model()->rowCount(), 3 + 1);
    }

    void overlayChoosesHitsAndExtends()
    {
        OverlayScene scene(QSize(400, 400));
        overlay()->setType(3);
        QStringList names{"功能", "页面", "spare"};
        QList<QList<QStringList>> groups{{{"F10", "资料"}, {"F5"}}, {{"61"}, {"63"}, {"65"}}};
        overlay()->setExtendItems(names, groups); // a name without a group is dropped
        overlay()->searchTextChanged("600000");
        QAbstractItemModel* model = overlay()->tableView()->model();
        QCOMPARE(model->rowCount(), 1 + 5);
        QVERIFY(!overlay()->tableView()->isColumnHidden(0));
        QSignalSpy stock(overlay(), &QuickMacroSearchWidget::stockSelected);
        QSignalSpy extend(overlay(), &QuickMacroSearchWidget::extendSelected);
        for (int row : {0, 4, 6, -1})
            QMetaObject::invokeMethod(overlay(), "dbClicked", Q_ARG(QModelIndex, model->index(row, 1)));
        QCOMPARE(stock, QList<QVariantList>({{"url:600000", 3}}));
        QCOMPARE(extend, QList<QVariantList>({{"页面", 1, 3}}));
        overlay()->tableView()->setCurrentIndex(model->index(2, 0));
        QTest::keyClick(overlay()->searchEdit(), Qt::Key_Return);
        QCOMPARE(extend.last(), QVariantList({"功能", 1, 3}));
        overlay()->setType(0);
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("eventFilter.* object  QLineEdit\\(0x[0-9a-f]+, name = \"searchEdit\"\\)$"));
        sendFocus(overlay()->searchEdit(), QEvent::FocusIn);
    }

    void completerWaitsThenSuggests()
    {
        UxNewSearchLineEdit edit;
        edit.setDictData(m_dict.ptrs);
        edit.show();
        QVERIFY(QTest::qWaitForWindowExposed(&edit));
        auto* popup = edit.findChild<QTreeWidget*>();
        auto* timer = edit.findChild<QTimer*>();
        QTest::keyClicks(&edit, "N"); // keys jtny and ndsd, any case
        QVERIFY(timer->isActive());
        QVERIFY(!popup->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(popup->isVisible(), 1000);
        QCOMPARE(popup->topLevelItemCount(), 2);
        QCOMPARE(QStringList({popup->topLevelItem(0)->text(0), popup->topLevelItem(0)->text(1), popup->topLevelItem(1)->text(0)}),
                 QStringList({"000600", "建投能源", "300750"}));
        QCOMPARE(popup->width(), edit.width());
        QVERIFY((popup->pos() - edit.mapToGlobal(QPoint(0, edit.height()))).manhattanLength() <= 4);
        popup->hide();
        edit.setText(" "); // a blank text trims to nothing, which every record holds
        edit.findChild<UxCompleter*>()->slotRspCodeSearchs();
        QCOMPARE(popup->topLevelItemCount(), 4);
    }

    void completerVisibleRows_data()
    {
        QTest::addColumn<int>("suggestions");
        QTest::addColumn<int>("rows");
        QTest::newRow("twelve") << 12 << 7;
        QTest::newRow("seven") << 7 << 7;
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
        edit.setDictData(dict.ptrs);
        edit.setText("6");
        edit.findChild<UxCompleter*>()->autoSuggest();
        auto* popup = edit.findChild<QTreeWidget*>();
        QCOMPARE(popup->topLevelItemCount(), suggestions);
        QCOMPARE(popup->height(), popup->sizeHintForRow(0) * rows + 3);
    }

    void completerKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("consumed");
        QTest::newRow("escape") << int(Qt::Key_Escape) << "600" << true;
        QTest::newRow("return") << int(Qt::Key_Return) << "000600" << true;
        QTest::newRow("enter") << int(Qt::Key_Enter) << "000600" << true;
        QTest::newRow("letter goes on") << int(Qt::Key_0) << "6000" << false;
    }
    void completerKeys()
    {
        QFETCH(int, key);
        QFETCH(QString, text);
        QFETCH(bool, consumed);
        UxNewSearchLineEdit edit;
        edit.setDictData(m_dict.ptrs);
        auto* completer = edit.findChild<UxCompleter*>();
        auto* popup = edit.findChild<QTreeWidget*>();
        edit.setText("600");
        completer->autoSuggest();
        QVERIFY(popup->isVisible());
        popup->setCurrentItem(popup->topLevelItem(1));
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_0 ? "0" : "");
        QCOMPARE(completer->eventFilter(popup, &press), consumed);
        QVERIFY(!popup->isVisible());
        QCOMPARE(edit.text(), text);
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QVERIFY(!completer->eventFilter(popup, &down));
        QVERIFY(!completer->eventFilter(&edit, &press));
    }

    void completerWithoutLineEdit()
    {
        UxCompleter completer(nullptr);
        completer.showSuggestions({"600000"}, {"浦发银行"});
        completer.autoSuggest();
        completer.doneCompletion();
        QVERIFY(!completer.findChild<QTimer*>()->isActive());
    }

    void keyboardLineEditStartsEmpty()
    {
        UxKeyBoradLineEdit edit;
        edit.setDictData(m_dict.ptrs);
        auto* popup = qobject_cast<QuickMacroView*>(edit.completer()->popup());
        QVERIFY(popup);
        QCOMPARE(popup->model()->rowCount(), 0);
        QCOMPARE(edit.completer()->filterMode(), Qt::MatchContains);
        QCOMPARE(edit.completer()->maxVisibleItems(), 100);
        edit.loadSkin(QString("QLineEdit { color: red; }"));
        QCOMPARE(popup->styleSheet(), QString()); // the skin reaches the line edit only
        edit.setText("600");
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QVERIFY(edit.eventFilter(&edit, &enter));
        QCOMPARE(edit.text(), QString());
    }
};

UX_TEST_MAIN(TstQuickMacro)
#include "tst_quickmacro.moc"

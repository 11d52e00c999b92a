#include "uxtestenv.h"
#include "rows.h"

#include "datadelegate.h"
#include "datamodel.h"
#include "quickmacroview.h"
#include "uxcompleter.h"
#include "uxkeyboradlineedit.h"
#include "uxkeyboradsprit.h"
#include "uxnewsearchlineedit.h"
#include "uxquickmacromatcher.h"
#include "uxquickmacrosearchwidget.h"

#include <QtWidgets>

#include <memory>
#include <vector>

namespace {

// Owns the records a test hands out as pointers, as a client would.
struct Dict
{
    Dict& add(const QString& code, const QString& name, const QString& key = QString())
    {
        return items.emplace_back(new quickMacroItem{{"A", code, name, key}, "url:" + code}), ptrs.append(items.back().get()), *this;
    }
    Dict& stocks() { return add("600000", "浦发银行", "pfyh").add("000600", "建投能源", "jtny").add("160060", "Fund One", "fo").add("300750", "宁德时代", "ndsd"); }
    std::vector<std::unique_ptr<quickMacroItem>> items; // ptrs point into items
    QVector<quickMacroItem*> ptrs;
};

UxKeyBoradSprit* wizard() { return UxKeyBoradSprit::initance(); }
QuickMacroView* wizardView() { return wizard()->findChild<QuickMacroView*>(); }
QuickMacroSearchWidget* overlay() { return QuickMacroSearchWidget::initance(); }
QWidget* container() { return overlay()->searchEdit()->parentWidget(); }

void sendFocus(QWidget* w, QEvent::Type type) { QFocusEvent ev(type, Qt::OtherFocusReason); QApplication::sendEvent(w, &ev); }

// Own methods of MO in declaration order, in Qt's text form (2 signal, 1 other).
QString ownMethods(const QMetaObject& mo)
{
    QStringList out;
    for (int i = mo.methodOffset(); i < mo.methodCount(); ++i)
        out << (mo.method(i).methodType() == QMetaMethod::Signal ? "2" : "1") + mo.method(i).methodSignature();
    return out.join(' ');
}

// A shown panel that the overlay covers and watches.
struct OverlayScene
{
    explicit OverlayScene(const QSize& size)
    {
        panel.resize(size);
        overlay()->setDictData(dict.stocks().ptrs);
        overlay()->setParent(&panel);
        panel.installEventFilter(overlay());
        panel.show();
    }
    ~OverlayScene()
    {
        overlay()->searchEdit()->clear();
        overlay()->hide();
        overlay()->setParent(nullptr);
        overlay()->setReplaceLineEdit(nullptr);
        overlay()->showSearchEdit(true);
    }
    Dict dict;
    QWidget panel;
};

using Rows::cell;
using Rows::row;

} // namespace

class TstQuickMacro : public QObject
{
    Q_OBJECT
    Dict m_dict;

private slots:
    void initTestCase() { m_dict.stocks(); }
    void init() { wizard()->hide(), wizard()->setParent(nullptr), wizard()->setDictData(m_dict.ptrs); }

    // What clients and skins rely on: names, signatures, defaults, the completer's wait.
    void contract_data()
    {
        Rows::actualExpected();
        QuickMacroView v;
        UxNewSearchLineEdit search;
        auto* timer = search.findChild<QTimer*>();
        row("wizard form", QVariantList{wizard()->objectName(), wizard()->windowTitle(), wizardView()->height(), int(wizardView()->focusPolicy()),
                                        wizard() == UxKeyBoradSprit::initance()},
            QVariantList{"UxKeyBoradSprit", "Frame", 362, int(QTableView().focusPolicy()), true});
        row("wizard meta", ownMethods(UxKeyBoradSprit::staticMetaObject),
            "2signalStockSelected(QString,int) 1clear() 1focusRowChanged(int) 1dbClicked(QModelIndex,bool) 1dbClicked(QModelIndex)");
        row("overlay meta", ownMethods(QuickMacroSearchWidget::staticMetaObject),
            "2newSearchResultCount(int) 2stockSelected(QString,int) 2extendSelected(QString,int,int) 1searchTextChanged(QString) 1focusRowChanged(int) "
            "1enterIsEnabled() 1dbClicked(QModelIndex)");
        row("completer, line edit meta", ownMethods(UxCompleter::staticMetaObject) + " " + ownMethods(UxKeyBoradLineEdit::staticMetaObject),
            "1doneCompletion() 1preventSuggest() 1autoSuggest() 1slotRspCodeSearchs() 2signalStockSelected(QString,int)");
        row("completer wait", QVariantList{timer->interval(), timer->isSingleShot(), int(timer->timerType())}, QVariantList{400, true, int(Qt::CoarseTimer)});
        row("search edit", QVariantList{search.width(), qobject_cast<const QRegularExpressionValidator*>(search.validator())->regularExpression().pattern(),
                                        search.findChild<QTreeWidget*>()->rootIsDecorated(), overlay() == QuickMacroSearchWidget::initance(),
                                        overlay()->searchEdit()->height(), overlay()->tableView()->height()},
            QVariantList{120, "^[a-zA-Z0-9.\\w]+$", false, true, 27, 362});
        DataModel model;
        model.resetData(m_dict.ptrs, {}, {});
        QImage tag(74, 30, QImage::Format_ARGB32);
        tag.fill(Qt::white);
        QPainter painter(&tag);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 74, 30);
        option.state = QStyle::State_Selected; // a filled box 10 px in and 5 px down
        DataDelegate().paint(&painter, option, model.index(0, 0));
        QString edges; // across each side of the box: white, fill or a blend
        for (const QPoint& p : {QPoint(7, 15), QPoint(61, 15), QPoint(37, 2), QPoint(37, 22)})
            for (int i = 0; i < 6; ++i) {
                const QColor c = tag.pixelColor(p + (p.x() == 37 ? QPoint(0, i) : QPoint(i, 0)));
                edges += c == Qt::white ? 'w' : c == QColor(76, 159, 255) ? 'f' : 'b';
            }
        row("tag", edges, "wwbffffffbwwwwbffffffbww");
        UxKeyBoradLineEdit edit;
        edit.loadSkin(QString("QLineEdit { color: red; }")); // the skin reaches the line edit only
        auto* popup = qobject_cast<QuickMacroView*>(edit.completer()->popup());
        row("keyboard line edit", QVariantList{popup->model()->rowCount(), int(edit.completer()->filterMode()), edit.completer()->maxVisibleItems(),
                                               popup->styleSheet()}, QVariantList{0, int(Qt::MatchContains), 100, ""});
        row("view", QVariantList{v.verticalHeader()->defaultSectionSize(), v.columnWidth(0), v.columnWidth(1), v.horizontalHeader()->stretchLastSection(),
                                 [] { QuickMacroView w; w.horizontalHeader()->setStretchLastSection(false); return w.columnWidth(2); }(), // set width under the stretch
                                 v.horizontalHeader()->isHidden(), v.verticalHeader()->isHidden(), v.showGrid(), v.hasAutoScroll(), int(v.selectionBehavior()),
                                 int(v.selectionMode()), int(v.horizontalScrollBarPolicy())},
            QVariantList{30, 74, 100, true, 150, true, true, false, false, int(QAbstractItemView::SelectRows), int(QAbstractItemView::SingleSelection),
                         int(Qt::ScrollBarAlwaysOff)});
    }
    void contract() { QTEST(cell<QVariant>("actual"), "expected"); }

    void listRows()
    {
        QVERIFY(!QuickMacroView::stepCurrentRow(nullptr, 1, QAbstractItemView::EnsureVisible).isValid());
        for (const auto& [hits, groupRows] : QList<std::pair<int, int>>{{0, 20}, {1, 20}, {195, 5}, {200, 0}, {300, 0}}) {
            Dict dict;
            for (int i = 0; i < hits; ++i)
                dict.add(QString::number(i), "n" + QString::number(i));
            QList<QStringList> group{{"F10"}, {"61", "上证A股"}, {}, {}, {}, {}, {}, {}, {}, {}};
            QuickMacroView view;
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression("group names and groups differ in number 3 2$"));
            view.setTableData(dict.ptrs, {"g1", "g2", "g3"}, {group, group}, hits % 2 == 0); // a name without a group is dropped
            QAbstractItemModel* m = view.model();
                QCOMPARE(QVariantList({m->rowCount(), m->columnCount(), view.isColumnHidden(0), m->index(0, 0).data(Qt::UserRole), m->index(0, 2).data()}),
                     QVariantList({hits + groupRows, 3, hits % 2 != 0, hits ? "A" : "g1", hits ? QVariant("n0") : QVariant()}));
            // Spans count from the first group entry, not after the hits.
            QCOMPARE(QVector<int>({view.columnSpan(0, 1), view.columnSpan(1, 1), view.columnSpan(11, 1)}), QVector<int>({1, groupRows ? 2 : 1, groupRows > 10 ? 2 : 1}));
            if (groupRows)
                QCOMPARE(QVariantList({m->index(hits + 1, 0).data(Qt::UserRole), m->index(hits + 1, 0).data(), m->index(hits + 1, 1).data(), m->index(hits + 1, 2).data(),
                                   m->index(hits, 2).data(), m->index(hits + 2, 1).data(), m->index(hits, 1).data(Qt::ToolTipRole), m->index(hits, 2).data(Qt::TextAlignmentRole),
                                   m->index(hits + groupRows - 1, 0).data(Qt::UserRole)}),
                         QVariantList({"g1", "", "61", "上证A股", QVariant(), QVariant(), QVariant(), 129, groupRows > 10 ? "g2" : "g1"}));
        }
    }

    void ranking()
    {
        Dict dict;
        // Short and null records never show; a stray low surrogate does not swallow the letter before it.
        dict.stocks().add("999999", QStringLiteral("Q") + QChar(0xDC00) + "Z", "x").add("0", "0").ptrs << nullptr;
        dict.items.back()->texts.removeLast();
        UxQuickMacroMatcher matcher;
        matcher.setDictionary(dict.ptrs);
        const QList<QPair<QString, QStringList>> cases{{"600", {"600000", "160060", "000600"}}, {"JTN", {"000600"}}, {"NDSD", {"300750"}}, {"fund one", {"160060"}},
                                                       {"银行", {"600000"}}, {"", {"600000", "000600", "160060", "300750", "999999"}}, {"7x", {}}, {"q", {"999999"}}};
        for (const auto& c : cases) { // by match position, key in any case (part or whole), name equal first, name part, empty, no hit, folded name
            QStringList got;
            for (const quickMacroItem* i : matcher.search(c.first))
                got << i->texts.at(1);
            QCOMPARE(got, c.second);
        }
        // A row past the hits (an extend group's) chooses nothing.
        QVector<quickMacroItem*> hits = matcher.search("600");
        hits.append(dict.ptrs[0]);
        hits.removeLast(); // the slot just past the end holds a usable record, so reading it shows
        QStandardItemModel rows(9, 1);
        QCOMPARE((QVector<const void*>{UxQuickMacroMatcher::hitAt(hits, rows.index(2, 0)), UxQuickMacroMatcher::hitAt(hits, rows.index(3, 0)), UxQuickMacroMatcher::hitAt(hits, {})}),
                 (QVector<const void*>{hits[2], nullptr, nullptr}));
        // Records edited in place are folded again; once dead text dominates it is compacted, fields still apart.
        Dict edited;
        for (int i = 0; i < 12; ++i)
            edited.add(QString::number(700000 + i), QString(400, QLatin1Char('x')));
        matcher.setDictionary(edited.ptrs);
        for (auto& item : edited.items)
            item->texts[2] = QStringLiteral("名") + item->texts[1];
        QCOMPARE(matcher.search(QStringLiteral("名700003")), QVector<quickMacroItem*>({edited.ptrs[3]}));
        QVERIFY(matcher.search(QStringLiteral("3名7")).isEmpty()); // across a code and its name
    }

    // Placed under its line edit in the top-level window, chosen from with the keys, kept while
    // focus leaves with hits and detached without; survives that window either way.
    void wizardFlow_data()
    {
        QTest::addColumn<bool>("nested");
        Rows::columns<int>({"height"});
        Rows::columns<QString>({"text", "code"});
        for (bool nested : {false, true})
            for (int height : {900, 300})
                QTest::addRow("%s, %d high", nested ? "nested" : "direct", height) << nested << height << "600" << "160060";
        QTest::newRow("no hits") << false << 900 << "zzz" << "";
    }
    void wizardFlow()
    {
        const bool nested = cell<bool>("nested");
        const int height = cell<int>("height");
        const QString text = cell<QString>("text"), code = cell<QString>("code");
        QPointer<UxKeyBoradSprit> alive(wizard());
        auto* window = new QWidget;
        window->resize(500, height);
        auto* holder = new QWidget(window);
        holder->setGeometry(20, 40, 460, 200);
        auto* edit = new QLineEdit(nested ? holder : window); // focused and fed to the wizard
        edit->setGeometry(nested ? QRect(15, 7, 300, 24) : QRect(30, 50, 250, 24));
        edit->installEventFilter(wizard());
        window->show();
        sendFocus(edit, QEvent::FocusIn);
        edit->setText(text);
        edit->setProperty("needopen", true);
        QSignalSpy spy(alive, &UxKeyBoradSprit::signalStockSelected);
        const QPoint origin = edit->mapTo(window, QPoint(0, 0));
        // The nested rule does not subtract the line edit's height from the room below.
        const int below = height - 30 - origin.y() - (nested ? 0 : 24);
        QCOMPARE(alive->geometry(), QRect(origin.x(), origin.y() + 24, edit->width(), qMin(below, 400)));
        QCOMPARE(QVariantList({wizardView()->size(), wizardView()->isColumnHidden(0), alive->isVisible(), alive->parentWidget() == window, alive->property("root").value<QLineEdit*>() == edit}),
                 QVariantList({alive->size(), !nested, true, true, true})); // a popup under 300 px shows no tag, one of 300 does
        QTest::keyClick(edit, Qt::Key_Down);
        QCOMPARE(wizardView()->currentIndex().row(), code.isEmpty() ? -1 : 1);
        QSignalSpy returned(edit, &QLineEdit::returnPressed); // the wizard keeps the key
        QTest::keyClick(edit, code.isEmpty() ? Qt::Key_Enter : Qt::Key_Return);
        QVERIFY(edit->text() == code && !alive->isVisible() && returned.isEmpty());
        QCOMPARE(spy, !code.isEmpty() ? QList<QVariantList>({{"url:160060", 0}}) : QList<QVariantList>());
        sendFocus(edit, QEvent::FocusIn);
        edit->setText(text);
        sendFocus(edit, QEvent::FocusOut);
        QCOMPARE(alive->isVisible(), !code.isEmpty());
        alive->hide();
        edit->setText("60");
        QCOMPARE(alive->isVisible(), !code.isEmpty());
        sendFocus(edit, QEvent::FocusOut);
        delete window;
        QVERIFY(alive && wizard() == alive.data() && !alive->parentWidget() && !alive->property("root").value<QLineEdit*>());
    }

    // A typed key opens the overlay at the panel's bottom right; keys and left presses close it.
    void overlayKeys_data()
    {
        Rows::columns<int>({"key", "modifiers"}); // typed on the panel
        Rows::columns<QString>({"text", "action"}); // then the search line's text and a key, or a press on a target
        QTest::addColumn<bool>("visible");
        QTest::newRow("plain") << int(Qt::Key_6) << int(Qt::NoModifier) << "" << "" << true;
        QTest::newRow("shift") << int(Qt::Key_A) << int(Qt::ShiftModifier) << "" << "" << false;
        QTest::newRow("control") << int(Qt::Key_6) << int(Qt::ControlModifier) << "" << "" << false;
        QTest::newRow("alt") << int(Qt::Key_6) << int(Qt::AltModifier) << "" << "" << false;
        for (Qt::Key key : {Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_F5, Qt::Key_Return})
            QTest::addRow("key %x", key) << int(key) << 0 << "" << "" << false;
        auto closing = [](const char* tag, const char* text, const char* action, bool visible) { QTest::newRow(tag) << int(Qt::Key_6) << 0 << text << action << visible; };
        closing("backspace, one letter", "6", "backspace", false);
        closing("backspace, two letters", "60", "backspace", true);
        closing("escape", "60", "escape", false);
        closing("left press on search line", "60", "press search left", false);
        closing("left press on panel", "60", "press panel left", false);
        closing("right press on panel", "60", "press panel right", true);
    }
    void overlayKeys()
    {
        const QString action = cell<QString>("action");
        OverlayScene scene(QSize(800, 600));
        scene.panel.setFocusPolicy(Qt::StrongFocus);
        QVERIFY(QTest::qWaitForWindowActive(&scene.panel));
        QSignalSpy count(overlay(), &QuickMacroSearchWidget::newSearchResultCount);
        QTest::keyClick(&scene.panel, Qt::Key(cell<int>("key")), Qt::KeyboardModifiers(cell<int>("modifiers")));
        QLineEdit* search = overlay()->searchEdit();
        QWidget* target = action.contains("search") ? static_cast<QWidget*>(search) : &scene.panel;
        if (action.isEmpty() && overlay()->isVisible()) {
            QCOMPARE(QVariantList({search->text(), overlay()->geometry(), container()->geometry(), count.last().first()}),
                     QVariantList({"6", QRect(0, 0, 800, 600), QRect(500, 600 - 27 - 362, 300, 27 + 362), 3}));
            for (const auto& step : QList<QPair<Qt::Key, int>>{{Qt::Key_Down, 1}, {Qt::Key_Up, 0}, {Qt::Key_Up, 0}}) {
                QTest::keyClick(search, step.first);
                QCOMPARE(overlay()->tableView()->currentIndex().row(), step.second);
            }
        } else if (!action.isEmpty()) {
            search->setText(cell<QString>("text"));
            if (action.startsWith("press"))
                QTest::mousePress(target, action.endsWith("left") ? Qt::LeftButton : Qt::RightButton, {}, QPoint(2, 2));
            else
                QTest::keyClick(search, action == "escape" ? Qt::Key_Escape : Qt::Key_Backspace);
        }
        QCOMPARE(overlay()->isVisible(), cell<bool>("visible"));
        if (!action.isEmpty() && !cell<bool>("visible") && target != search)
            QTRY_VERIFY(scene.panel.hasFocus());
    }

    // Under a client's line edit: placed below it, fed by it, surviving it; then choosing hits and extends.
    void overlayUnderReplaceLineEdit()
    {
        OverlayScene scene(QSize(500, 600));
        auto* edit = new QLineEdit(&scene.panel);
        edit->setGeometry(300, 8, 180, 24);
        overlay()->setReplaceLineEdit(edit);
        QObject::connect(edit, SIGNAL(textChanged(QString)), overlay(), SLOT(searchTextChanged(QString)));
        QWidget chart(&scene.panel);
        chart.installEventFilter(overlay());
        chart.show();
        QTest::keyClick(&chart, Qt::Key_6);
        // At least 300 wide, pushed left to end at the panel's right edge, just under the line edit.
        QCOMPARE(QVariantList({edit->text(), overlay()->isVisible(), overlay()->searchEdit()->isVisible(), overlay()->geometry(), container()->geometry()}),
                 QVariantList({"6", true, false, QRect(0, 0, 500, 600), QRect(200, 32, 300, 362)}));
        scene.panel.resize(250, 600); // narrower than the list: it starts left of the panel
        edit->setText("60");
        QCOMPARE(container()->geometry(), QRect(-50, 32, 300, 362));
        QSignalSpy stock(overlay(), &QuickMacroSearchWidget::stockSelected);
        QVERIFY(overlay()->enterIsEnabled() && stock == QList<QVariantList>({{"url:600000", 0}}));
        QStringList names{"功能"};
        QList<QList<QStringList>> groups{{{"F10"}}};
        overlay()->setExtendItems(names, groups);
        edit->setText("600000"); // as many groups as hits still shows
        QVERIFY(overlay()->isVisible());
        names.clear(), groups.clear();
        overlay()->setExtendItems(names, groups);
        edit->setText("60x"); // no hits and no extend groups
        QVERIFY(!overlay()->isVisible() && !overlay()->enterIsEnabled());
        delete edit; // the client's line edit may go away first
        overlay()->searchTextChanged("6");
        QCOMPARE(overlay()->tableView()->model()->rowCount(), 3);
        // Choosing, by double click or Return, a hit or an extend group's entry.
        overlay()->setReplaceLineEdit(nullptr);
        overlay()->showSearchEdit(true);
        overlay()->setType(3);
        names = QStringList{"功能", "页面", "spare"};
        groups = {{{"F10", "资料"}, {"F5"}}, {{"61"}, {"63"}, {"65"}}};
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("setExtendItems.* names and groups differ in number 3 2$"));
        overlay()->setExtendItems(names, groups); // a name without a group is dropped, and logged
        overlay()->searchTextChanged("600000");
        QAbstractItemModel* model = overlay()->tableView()->model();
        QCOMPARE(model->rowCount(), 1 + 5);
        stock.clear();
        QSignalSpy extend(overlay(), &QuickMacroSearchWidget::extendSelected);
        QStandardItemModel rows(9, 2); // a row past the groups chooses nothing
        for (const QModelIndex& index : {model->index(0, 1), model->index(4, 1), model->index(6, 1), QModelIndex(), rows.index(6, 1)})
            QMetaObject::invokeMethod(overlay(), "dbClicked", Q_ARG(QModelIndex, index));
        overlay()->tableView()->setCurrentIndex(model->index(2, 0));
        QTest::keyClick(overlay()->searchEdit(), Qt::Key_Return);
        QCOMPARE(stock, QList<QVariantList>({{"url:600000", 3}}));
        QCOMPARE(extend, QList<QVariantList>({{"页面", 1, 3}, {"功能", 1, 3}}));
        overlay()->setType(0);
        names.clear();
        groups.clear();
        overlay()->setExtendItems(names, groups);
    }

    // The popup waits, then lists the hits under the edit; keys on it choose, close or pass through.
    void completerAndLineEdit()
    {
        UxNewSearchLineEdit lonely; // codes without names change nothing
        lonely.findChild<UxCompleter*>()->showSuggestions({"1"}, {});
        QCOMPARE(lonely.findChild<QTreeWidget*>()->topLevelItemCount(), 0);
        UxNewSearchLineEdit edit;
        edit.setDictData(m_dict.ptrs);
        edit.show();
        auto* completer = edit.findChild<UxCompleter*>();
        auto* popup = edit.findChild<QTreeWidget*>();
        QTest::keyClicks(&edit, "N"); // keys jtny and ndsd, any case
        QVERIFY(edit.findChild<QTimer*>()->isActive() && !popup->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(popup->isVisible(), 1000);
        QCOMPARE(QVariantList({popup->topLevelItem(0)->text(0), popup->topLevelItem(0)->text(1), popup->topLevelItem(1)->text(0), popup->width(),
                               (popup->pos() - edit.mapToGlobal(QPoint(0, edit.height()))).manhattanLength() <= 4}),
                 QVariantList({"000600", "建投能源", "300750", edit.width(), true}));
        edit.setText(" "); // trims to nothing, which every record holds
        completer->slotRspCodeSearchs();
        QCOMPARE(popup->topLevelItemCount(), 4);
        const QList<std::tuple<int, QString, bool>> cases{{Qt::Key_Escape, "600", true}, {Qt::Key_Return, "000600", true}, {Qt::Key_Enter, "000600", true}, {Qt::Key_0, "6000", false}};
        for (const auto& [key, text, consumed] : cases) { // key, text after, consumed
            edit.setText("600");
            completer->autoSuggest();
            popup->setCurrentItem(popup->topLevelItem(1));
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_0 ? "0" : "");
            QCOMPARE(completer->eventFilter(popup, &press), consumed);
            QVERIFY(!popup->isVisible() && edit.text() == text);
            QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
            QVERIFY(!completer->eventFilter(popup, &down) && !completer->eventFilter(&edit, &press));
        }
        QMouseEvent click(QEvent::MouseButtonPress, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        completer->autoSuggest();
        QVERIFY(completer->eventFilter(popup, &click) && !popup->isVisible());
        // Enter on the keyboard line edit writes its list's choice back and opens nothing.
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        struct : UxKeyBoradLineEdit { using UxKeyBoradLineEdit::setTableData; } lineEdit; // its list starts empty: Enter writes the empty choice back
        lineEdit.setText("600");
        QVERIFY(lineEdit.eventFilter(&lineEdit, &enter) && lineEdit.text().isEmpty());
        QVector<quickMacroItem*> items = m_dict.ptrs; // with a list, Enter writes the choice and opens nothing
        lineEdit.setDictData(items);
        lineEdit.setTableData(items, {}, {}, true);
        QSignalSpy opened(&lineEdit, &UxKeyBoradLineEdit::signalStockSelected);
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QVERIFY(!lineEdit.eventFilter(&lineEdit, &down) && lineEdit.eventFilter(&lineEdit, &enter));
        QVERIFY(lineEdit.text() == "600000" && opened.isEmpty());
    }
};

UX_TEST_MAIN(TstQuickMacro)
#include "tst_quickmacro.moc"

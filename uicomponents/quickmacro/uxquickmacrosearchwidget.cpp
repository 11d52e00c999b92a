#include "uxquickmacrosearchwidget.h"

#include "datamodel.h"
#include "quickmacroview.h"
#include "uxcore.h"
#include "uxquickmacromatcher.h"
#include "uxwidgetsingleton_p.h"

#include <QDebug>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace {
const int SearchEditHeight = 27;
const int ListHeight = 362;
const int MinWidth = 300;
} // namespace

QuickMacroSearchWidget* QuickMacroSearchWidget::initance()
{
    static UxWidgetSingleton<QuickMacroSearchWidget> instance;
    return instance.get();
}

QuickMacroSearchWidget::QuickMacroSearchWidget(QWidget* parent)
    : QWidget(parent)
    , m_matcher(new UxQuickMacroMatcher)
{
    hide();
    setObjectName(QStringLiteral("QuickMacroSearchWidget"));
    m_dict.clear();
    m_result.clear();
    m_extendNames.clear();
    m_extendGroups.clear();
    m_type = 0;

    m_container = new QWidget(this);
    m_container->setObjectName(QStringLiteral("searchContainer"));
    m_container->setAttribute(Qt::WA_StyledBackground, true);
    m_searchEdit = new QLineEdit(m_container);
    m_searchEdit->setObjectName(QStringLiteral("searchEdit"));
    m_searchEdit->installEventFilter(this);
    m_view = new QuickMacroView(m_container);
    m_view->setObjectName(QStringLiteral("searchView"));
    m_searchEdit->setFixedHeight(SearchEditHeight);
    m_view->setFixedHeight(ListHeight);

    auto* layout = new QVBoxLayout(m_container);
    layout->setObjectName(QStringLiteral("searchLayout"));
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_searchEdit);
    layout->addWidget(m_view);

    connect(m_searchEdit, SIGNAL(textChanged(QString)), this, SLOT(searchTextChanged(QString)));
    connect(m_view, SIGNAL(doubleClicked(QModelIndex)), this, SLOT(dbClicked(QModelIndex)));
    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/quickmacro.css"));
}

QuickMacroSearchWidget::~QuickMacroSearchWidget() = default;

void QuickMacroSearchWidget::setDictData(const QVector<quickMacroItem*>& items)
{
    m_dict = items;
    m_matcher->setDictionary(m_dict);
    m_result = m_matcher->search(QString());
    m_view->setTableData(m_result, m_extendNames, m_extendGroups, true);
    emit newSearchResultCount(m_result.size());
}

void QuickMacroSearchWidget::setExtendItems(QStringList& names, QList<QList<QStringList>>& groups)
{
    m_extendNames.clear();
    m_extendGroups.clear();
    if (names.size() != groups.size())
        qDebug() << Q_FUNC_INFO << "names and groups differ in number" << names.size() << groups.size();
    const int count = qMin(names.size(), groups.size());
    for (int i = 0; i < count; ++i) {
        m_extendNames.append(names.at(i));
        m_extendGroups.append(groups.at(i));
    }
    m_view->setTableData(m_result, m_extendNames, m_extendGroups, true);
}

void QuickMacroSearchWidget::setReplaceLineEdit(QLineEdit* lineEdit)
{
    m_replaceLineEdit = lineEdit;
}

void QuickMacroSearchWidget::setType(int type)
{
    m_type = type;
}

void QuickMacroSearchWidget::fitToContainer()
{
    m_container->adjustSize();
    resize(m_container->size());
    m_container->move(0, 0);
}

void QuickMacroSearchWidget::setWidth(int w)
{
    m_container->setFixedWidth(qMax(w, MinWidth));
    fitToContainer();
}

void QuickMacroSearchWidget::showSearchEdit(bool show)
{
    m_searchEdit->setVisible(show);
    m_searchEdit->setFixedHeight(show ? SearchEditHeight : 0);
    fitToContainer();
}

QLineEdit* QuickMacroSearchWidget::searchEdit()
{
    return m_searchEdit;
}

QTableView* QuickMacroSearchWidget::tableView()
{
    return m_view;
}

bool QuickMacroSearchWidget::enterIsEnabled()
{
    if (!isVisible())
        return false;
    const QModelIndex current = m_view->currentIndex();
    if (!current.isValid() || current.row() < 0)
        return false;
    dbClicked(current);
    return true;
}

void QuickMacroSearchWidget::dbClicked(QModelIndex index)
{
    if (!index.isValid())
        return;
    const int row = index.row();
    if (row >= 0 && row < m_result.size()) {
        const quickMacroItem* hit = m_result.at(row);
        if (hit)
            emit stockSelected(hit->url, m_type);
        return;
    }
    int group = 0;
    int entry = 0;
    if (DataModel::locateGroupEntry(m_extendGroups, row - m_result.size(), &group, &entry)
        && group < m_extendNames.size()) {
        emit extendSelected(m_extendNames.at(group), entry, m_type);
    }
}

void QuickMacroSearchWidget::focusRowChanged(int nDirection)
{
    const QModelIndex index = QuickMacroView::stepCurrentRow(m_view, nDirection, QAbstractItemView::EnsureVisible);
    qDebug() << Q_FUNC_INFO << index;
}

void QuickMacroSearchWidget::placeUnder(QWidget* lineEdit)
{
    m_searchEdit->hide();
    m_searchEdit->setFixedHeight(0);
    fitToContainer();
    setWidth(lineEdit->width());

    QWidget* panel = parentWidget();
    if (!panel)
        return;
    setGeometry(0, 0, panel->width(), panel->height());
    const QPoint origin = panel->mapFromGlobal(lineEdit->mapToGlobal(QPoint(0, 0)));
    int x = origin.x();
    if (x + m_container->width() > width())
        x = width() - m_container->width();
    m_container->move(x, origin.y() + lineEdit->height());
}

void QuickMacroSearchWidget::searchTextChanged(QString text)
{
    QWidget* from = qobject_cast<QWidget*>(sender());
    const bool fromClient = from && from != m_searchEdit;
    if (fromClient && m_replaceLineEdit && from == m_replaceLineEdit.data())
        placeUnder(m_replaceLineEdit);

    m_result = m_matcher->search(text);
    m_view->setTableData(m_result, m_extendNames, m_extendGroups, true);
    emit newSearchResultCount(m_result.size());

    if (fromClient)
        setVisible(!text.isEmpty() && m_extendNames.size() + m_result.size() != 0);

    const QModelIndex first = m_view->model()->index(0, 0, m_view->rootIndex());
    if (first.isValid()) {
        m_view->setCurrentIndex(first);
        m_view->scrollTo(first, QAbstractItemView::EnsureVisible);
    }
}

void QuickMacroSearchWidget::closeToParent()
{
    hide();
    if (QWidget* parent = parentWidget())
        parent->setFocus(Qt::OtherFocusReason);
}

bool QuickMacroSearchWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (!event)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn && qobject_cast<QLineEdit*>(watched))
        qDebug() << Q_FUNC_INFO << " object " << watched;

    if (event->type() == QEvent::MouseButtonPress) {
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && isVisible()) {
            hide();
            if (auto* w = qobject_cast<QWidget*>(watched))
                w->setFocus(Qt::OtherFocusReason);
        }
        return QWidget::eventFilter(watched, event);
    }

    if (watched == m_searchEdit) {
        if (event->type() != QEvent::KeyPress)
            return QWidget::eventFilter(watched, event);
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
            focusRowChanged(0);
            break;
        case Qt::Key_Down:
            focusRowChanged(1);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            dbClicked(m_view->currentIndex());
            return true;
        case Qt::Key_Escape:
            if (isVisible())
                closeToParent();
            break;
        case Qt::Key_Backspace:
            // The key is about to empty the line.
            if (m_searchEdit->text().size() < 2)
                closeToParent();
            break;
        default:
            break;
        }
        return QWidget::eventFilter(watched, event);
    }

    switch (event->type()) {
    case QEvent::KeyPress: {
        auto* key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers mods = key->modifiers();
        if (mods == Qt::ControlModifier || mods == Qt::ShiftModifier || mods == Qt::AltModifier)
            break;
        const QString typed = key->text();
        const QChar only = typed.size() == 1 ? typed.at(0) : QChar();
        if (typed.isEmpty() || only == QChar(0x1B) || only == QChar(0x08) || only == QChar(0x7F) || only == QChar(0x0D))
            break;
        if (m_replaceLineEdit) {
            m_replaceLineEdit->setFocus(Qt::OtherFocusReason);
            m_replaceLineEdit->setText(typed);
            break;
        }
        m_container->setFixedWidth(MinWidth);
        fitToContainer();
        m_searchEdit->setFocus(Qt::OtherFocusReason);
        m_searchEdit->setText(typed);
        if (auto* w = qobject_cast<QWidget*>(watched)) {
            setGeometry(0, 0, w->width(), w->height());
            m_container->move(w->width() - m_container->width(), w->height() - m_container->height());
            show();
        }
        break;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

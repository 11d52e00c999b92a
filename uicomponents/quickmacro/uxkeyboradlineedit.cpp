#include "uxkeyboradlineedit.h"

#include "datamodel.h"
#include "quickmacroview.h"
#include "uxcore.h"
#include "uxquickmacromatcher.h"

#include <QCompleter>
#include <QDebug>
#include <QKeyEvent>
#include <QSortFilterProxyModel>

UxKeyBoradLineEdit::UxKeyBoradLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setObjectName(QStringLiteral("UxKeyBoradLineEdit"));
    m_type = 0;
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!text.isEmpty())
            searchTextChanged(this->text());
    });
    initUi();
    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/quickmacro.css"));
}

// The completer (a child) deletes its popup window with it.
UxKeyBoradLineEdit::~UxKeyBoradLineEdit() = default;

void UxKeyBoradLineEdit::initUi()
{
    m_dict.clear();
    m_result.clear();
    m_groupNames.clear();
    m_groups.clear();

    m_view = new QuickMacroView(this);
    m_view->setFixedHeight(362);
    m_listModel = new DataModel(this);
    m_proxy = new QSortFilterProxyModel(this);
    m_proxy->setSourceModel(m_listModel);
    m_proxy->setSortRole(Qt::DisplayRole);
    m_proxy->setFilterKeyColumn(1);
    m_proxy->setRecursiveFilteringEnabled(true);
    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);

    if (!m_completer) {
        m_completer = new QCompleter(this);
        m_completer->setPopup(m_view);
        m_completer->setCaseSensitivity(Qt::CaseInsensitive);
        m_completer->setCompletionMode(QCompleter::PopupCompletion);
        m_completer->setFilterMode(Qt::MatchContains);
        m_completer->setMaxVisibleItems(100);
        m_completer->setModel(m_proxy);
    }
    m_view->setModel(m_proxy);
    setCompleter(m_completer);
}

void UxKeyBoradLineEdit::setDictData(const QVector<quickMacroItem*>& items)
{
    m_dict = items;
    m_result = m_dict;
}

void UxKeyBoradLineEdit::updateResult(const QString& text)
{
    if (!text.isEmpty())
        searchTextChanged(text);
}

void UxKeyBoradLineEdit::searchTextChanged(const QString& text)
{
    qDebug() << Q_FUNC_INFO << text;
}

void UxKeyBoradLineEdit::setTableData(QVector<quickMacroItem*>& items, const QStringList& groupNames,
                                      const QList<QList<QStringList>>& groups, bool showKindColumn)
{
    QuickMacroView::fillTable(m_view, m_listModel, items, groupNames, groups, showKindColumn);
}

QString UxKeyBoradLineEdit::dbClicked(const QModelIndex& index, bool needOpenPage)
{
    const quickMacroItem* hit = UxQuickMacroMatcher::hitAt(m_result, index);
    if (!hit)
        return QString();
    if (needOpenPage)
        emit signalStockSelected(hit->url, m_type);
    return hit->texts.at(1);
}

void UxKeyBoradLineEdit::focusRowChanged(int nDirection)
{
    const QModelIndex index = QuickMacroView::stepCurrentRow(m_view, nDirection, QAbstractItemView::PositionAtTop);
    qDebug() << Q_FUNC_INFO << index;
}

bool UxKeyBoradLineEdit::eventFilter(QObject* obj, QEvent* ev)
{
    if (ev && ev->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(ev)->key();
        if (key == Qt::Key_Up) {
            focusRowChanged(0);
            return false;
        }
        if (key == Qt::Key_Down) {
            focusRowChanged(1);
            return false;
        }
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            setText(dbClicked(m_view->currentIndex(), false));
            return true;
        }
    }
    return QLineEdit::eventFilter(obj, ev);
}

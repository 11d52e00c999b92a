#include "quickmacroview.h"

#include "datadelegate.h"
#include "datamodel.h"
#include "uxviewscrollbarexpand.h"

#include <QDebug>
#include <QHeaderView>

namespace {
const int MaxRows = 200;
}

QuickMacroView::QuickMacroView(QWidget* parent)
    : QTableView(parent)
{
    setObjectName(QStringLiteral("QuickMacroView"));
    horizontalHeader()->hide();
    verticalHeader()->hide();
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setAutoScroll(false);
    setShowGrid(false);

    m_model = new DataModel(this);
    m_delegate = new DataDelegate(this);
    setModel(m_model);
    setItemDelegate(m_delegate);

    verticalHeader()->setDefaultSectionSize(30);
    setColumnWidth(0, 74);
    setColumnWidth(1, 100);
    setColumnWidth(2, 150);
    horizontalHeader()->setStretchLastSection(true);

    new UxViewScrollbarExpand(this, this);
}

void QuickMacroView::setTableData(const QVector<quickMacroItem*>& items, const QStringList& groupNames,
                                  const QList<QList<QStringList>>& groups, bool showKindColumn)
{
    fillTable(this, m_model, items, groupNames, groups, showKindColumn);
}

void QuickMacroView::fillTable(QTableView* view, DataModel* model, const QVector<quickMacroItem*>& items,
                               const QStringList& groupNames, const QList<QList<QStringList>>& groups,
                               bool showKindColumn)
{
    if (!view || !model)
        return;
    view->clearSpans();
    view->setColumnHidden(0, !showKindColumn);

    if (groupNames.size() != groups.size())
        qDebug() << Q_FUNC_INFO << "group names and groups differ in number" << groupNames.size() << groups.size();

    int budget = MaxRows - items.size();
    int row = 0;
    QStringList keptNames;
    QList<QList<QStringList>> keptGroups;
    const int groupCount = qMin(groupNames.size(), groups.size());
    for (int i = 0; i < groupCount && budget > 0; ++i) {
        keptNames.append(groupNames.at(i));
        QList<QStringList> kept;
        for (const QStringList& entry : groups.at(i)) {
            if (budget <= 0)
                break;
            kept.append(entry);
            if (entry.size() > 1)
                view->setSpan(row, 1, 1, 2);
            --budget;
            ++row;
        }
        keptGroups.append(kept);
    }
    model->resetData(items, keptNames, keptGroups);
}

QModelIndex QuickMacroView::stepCurrentRow(QAbstractItemView* view, int nDirection, ScrollHint hint)
{
    if (!view || !view->model())
        return QModelIndex();
    QAbstractItemModel* model = view->model();
    const QModelIndex current = view->currentIndex();
    int row = current.isValid() ? current.row() : -1;
    if (nDirection == 0)
        --row;
    else if (nDirection == 1)
        ++row;

    const int rows = model->rowCount(view->rootIndex());
    if (row < -1)
        row = -1;
    if (row >= rows)
        row = rows - 1;

    const QModelIndex target = model->index(row, 0, view->rootIndex());
    if (target.isValid()) {
        view->setCurrentIndex(target);
        view->scrollTo(target, hint);
    }
    return target;
}

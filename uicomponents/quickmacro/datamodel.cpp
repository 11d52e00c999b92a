#include "datamodel.h"

DataModel::DataModel(QObject* parent)
    : QAbstractTableModel(parent)
{
}

int DataModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid())
        return 0;
    int rows = m_items.size();
    for (const QList<QStringList>& group : m_groups)
        rows += group.size();
    return rows;
}

int DataModel::columnCount(const QModelIndex&) const
{
    return 3;
}

bool DataModel::locateGroupEntry(const QList<QList<QStringList>>& groups, int entry, int* group, int* index)
{
    if (entry < 0)
        return false;
    for (int g = 0; g < groups.size(); ++g) {
        const int size = groups.at(g).size();
        if (entry < size) {
            *group = g;
            *index = entry;
            return true;
        }
        entry -= size;
    }
    return false;
}

QVariant DataModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::UserRole && role != Qt::DisplayRole)
        return QVariant();

    const int row = index.row();
    const int column = index.column();
    if (role == Qt::DisplayRole && (column == 0 || column > 2))
        return QString();

    if (row < m_items.size()) {
        const quickMacroItem* item = m_items.at(row);
        const int field = role == Qt::UserRole ? 0 : column;
        if (!item || field >= item->texts.size())
            return QVariant();
        return item->texts.at(field);
    }

    int g = 0;
    int k = 0;
    if (!locateGroupEntry(m_groups, row - m_items.size(), &g, &k))
        return QVariant();
    if (role == Qt::UserRole)
        return g < m_groupNames.size() ? QVariant(m_groupNames.at(g)) : QVariant();

    const QStringList& entry = m_groups.at(g).at(k);
    const int field = column - 1;
    if (field < entry.size())
        return entry.at(field);
    return QVariant();
}

void DataModel::resetData(const QVector<quickMacroItem*>& items, QStringList groupNames,
                          const QList<QList<QStringList>>& groups)
{
    beginResetModel();
    if (m_items != items)
        m_items = items;
    if (m_groupNames != groupNames)
        m_groupNames = groupNames;
    if (m_groups != groups)
        m_groups = groups;
    endResetModel();
}

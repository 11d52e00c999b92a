#ifndef DATAMODEL_H
#define DATAMODEL_H

#include "quickmacroitem.h"
#include "uicomponents_export.h"

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>
#include <QVector>

/// The rows of the quick-macro list: first the dictionary hits, then the
/// entries of the named groups, group after group. Three columns: the tag
/// (painted by DataDelegate from Qt::UserRole), the code and the name.
///
/// Choices of our own, each against a crash:
/// - A valid parent has no rows, as for any flat table. Counting the rows
///   under every index would make a proxy with recursive filtering (the
///   keyboard line edit's) descend without end.
/// - A null or short hit record shows as an empty row instead of reading past
///   its texts; a group row whose name is missing shows an empty tag.
class UICOMPONENTS_EXPORT DataModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit DataModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    void resetData(const QVector<quickMacroItem*>& items, QStringList groupNames,
                   const QList<QList<QStringList>>& groups);

    /// Finds entry ENTRY (counted over all groups, from 0) in GROUPS: its group
    /// and its index inside it. False when ENTRY lies past the last group.
    static bool locateGroupEntry(const QList<QList<QStringList>>& groups, int entry, int* group, int* index);

private:
    QVector<quickMacroItem*> m_items;
    QStringList m_groupNames;
    QList<QList<QStringList>> m_groups;
};

#endif // DATAMODEL_H

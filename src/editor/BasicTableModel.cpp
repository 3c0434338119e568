// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/BasicTableModel.h"

#include "editor/CellHits.h"
#include "editor/EditorSearchController.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"

namespace tavrin {

BasicTableModel::BasicTableModel(EditorWindowController &window) : g_window(window) {}

int BasicTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : g_rowCount;
}

int BasicTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant BasicTableModel::data(const QModelIndex &index, int role) const
{
    const QList<FieldDefinition> &fields = g_window.document().datafileSettings().fields();
    if (!index.isValid() || index.row() >= fields.size())
        return {};
    if (role == Qt::FontRole)
        return g_window.tableController().fieldsFont();
    const EditorFinding &finding = g_window.search().finding();
    if (role == CellRole::hitColor)
        return finding.hitColor();
    if (role == CellRole::hitRanges && index.column() == ValueColumn)
        return QVariant::fromValue(finding.hitsInField(index.row()));
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    const FieldDefinition &field = fields.at(index.row());
    if (index.column() == FieldColumn)
        return field.name();
    const RecordData *record = g_window.currentRecord();
    return record ? record->fieldValue(field.identifier()) : QString();
}

QVariant BasicTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == FieldColumn ? tr("Field") : tr("Value");
}

Qt::ItemFlags BasicTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && index.column() == ValueColumn && g_window.tableController().mayEdit())
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool BasicTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const QList<FieldDefinition> &fields = g_window.document().datafileSettings().fields();
    if (role != Qt::EditRole || !index.isValid() || index.column() != ValueColumn
        || index.row() >= fields.size())
        return false;
    const QString identifier = fields.at(index.row()).identifier();
    if (!g_window.tableController().editFieldValue(g_window.currentRecord(), identifier, value.toString()))
        return false;
    Q_EMIT dataChanged(index, index);
    return true;
}

bool BasicTableModel::dropText(const QModelIndex &index, const QString &text)
{
    if (!flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    const FieldDefinition &field = g_window.document().datafileSettings().fields().at(index.row());
    return g_window.tableController().dropText(g_window.currentRecord(), field.identifier(), text);
}

void BasicTableModel::reset()
{
    beginResetModel();
    g_rowCount = static_cast<int>(g_window.document().datafileSettings().fields().size());
    endResetModel();
}

void BasicTableModel::reload()
{
    if (g_rowCount > 0)
        Q_EMIT dataChanged(index(0, ValueColumn), index(g_rowCount - 1, ValueColumn));
}

} // namespace tavrin

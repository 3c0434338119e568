// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/ListTableModel.h"

#include "editor/CellHits.h"
#include "editor/EditorExporting.h"
#include "editor/EditorSearchController.h"
#include "editor/EditorTableController.h"
#include "editor/EditorWindowController.h"

#include <QMimeData>

namespace tavrin {

namespace {

/// What the text's column shows of a text.
QString firstLine(const QString &text)
{
    constexpr qsizetype longest = 300;
    const QStringView start = QStringView(text).left(longest);
    const qsizetype end = start.indexOf(u'\n');
    return (end < 0 ? start : start.first(end)).toString();
}

} // namespace

ListTableModel::ListTableModel(EditorWindowController &window) : g_window(window) {}

int ListTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : g_rowCount;
}

int ListTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(g_shownFields.size()) + 1;
}

QVariant ListTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::FontRole)
        return g_window.tableController().fieldsFont();
    const EditorFinding &finding = g_window.search().finding();
    if (role == CellRole::hitColor)
        return finding.hitColor();
    if (role == CellRole::hitRanges && !isTextColumn(index.column())
        && index.row() == g_window.indexOfCurrentRecord())
        return QVariant::fromValue(finding.hitsInField(g_shownFields.at(index.column())));
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    const std::optional<RecordView> record = g_window.recordViewAtIndex(index.row());
    if (!record)
        return {};
    if (isTextColumn(index.column()))
        return firstLine(record->textString().toString());
    const FieldDefinition &field =
        g_window.document().datafileSettings().fields().at(g_shownFields.at(index.column()));
    return record->fieldValue(field.identifier()).toString();
}

QVariant ListTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section > g_shownFields.size())
        return {};
    if (role == Qt::FontRole)
        return g_window.tableController().fieldsFont();
    if (role != Qt::DisplayRole)
        return {};
    if (isTextColumn(section))
        return g_window.textName();
    return g_window.document().datafileSettings().fields().at(g_shownFields.at(section)).name();
}

Qt::ItemFlags ListTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid())
        flags |= Qt::ItemIsDragEnabled;
    if (!index.isValid() || isTextColumn(index.column()))
        return flags;
    const std::optional<RecordView> record = g_window.recordViewAtIndex(index.row());
    if (record && !record->recordLocked() && !g_window.nowSyncing() && !g_window.isClone())
        flags |= Qt::ItemIsEditable;
    return flags;
}

QStringList ListTableModel::mimeTypes() const
{
    return {QStringLiteral("text/csv"), QStringLiteral("text/plain"), QStringLiteral("text/uri-list")};
}

QMimeData *ListTableModel::mimeData(const QModelIndexList &indexes) const
{
    QList<qint64> rows;
    for (const QModelIndex &index : indexes) {
        if (!rows.contains(index.row()))
            rows.append(index.row());
    }
    return g_window.exporting().draggedRecords(rows).release();
}

bool ListTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || isTextColumn(index.column()))
        return false;
    const FieldDefinition &field =
        g_window.document().datafileSettings().fields().at(g_shownFields.at(index.column()));
    const RecordData *record = g_window.recordAtIndex(index.row());
    if (!g_window.tableController().editFieldValue(record, field.identifier(), value.toString()))
        return false;
    Q_EMIT dataChanged(index, index);
    return true;
}

bool ListTableModel::dropText(const QModelIndex &index, const QString &text)
{
    if (!flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    const FieldDefinition &field =
        g_window.document().datafileSettings().fields().at(g_shownFields.at(index.column()));
    return g_window.tableController().dropText(g_window.recordAtIndex(index.row()), field.identifier(), text);
}

void ListTableModel::reset()
{
    beginResetModel();
    const QList<FieldDefinition> &fields = g_window.document().datafileSettings().fields();
    g_shownFields.clear();
    for (int i = 0; i < fields.size(); ++i) {
        if (fields.at(i).show())
            g_shownFields.append(i);
    }
    g_rowCount = static_cast<int>(g_window.countSelected());
    endResetModel();
}

void ListTableModel::reload()
{
    if (g_rowCount != g_window.countSelected())
        reset();
    else if (g_rowCount > 0)
        Q_EMIT dataChanged(index(0, 0), index(g_rowCount - 1, columnCount() - 1));
}

void ListTableModel::reloadRow(int row)
{
    if (row >= 0 && row < g_rowCount)
        Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

} // namespace tavrin

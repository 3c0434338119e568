// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/MultiFileResults.h"

#include "editor/CellHits.h"

#include <QDir>

namespace tavrin {

using Kind = MultiFileRow::Kind;

int MultiFileResults::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(g_rows.size());
}

int MultiFileResults::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MultiFileResults::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= g_rows.size())
        return {};
    const MultiFileRow &row = g_rows.at(index.row());
    const bool isHit = row.kind == Kind::Hit;
    if (role == EndRole)
        return row.kind == Kind::End;
    if (role == Qt::ToolTipRole)
        return index.column() == Datafile ? QDir::toNativeSeparators(row.path) : data(index, Qt::DisplayRole);
    if (role == CellRole::hitColor)
        return g_hitColor;
    if (role == CellRole::hitRanges && isHit && index.column() == Context)
        return QVariant::fromValue(QList{row.context.hit});
    if (role == Qt::TextAlignmentRole && index.column() == Record)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Datafile:
        return row.datafile;
    case Record:
        return isHit ? QVariant(row.record) : QVariant();
    case Title:
        return row.title;
    case Field:
        return row.field;
    default:
        return row.context.text;
    }
}

QVariant MultiFileResults::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Datafile:
        return tr("Datafile");
    case Record:
        return tr("Record");
    case Title:
        return tr("Title");
    case Field:
        return tr("Field");
    default:
        return tr("Found");
    }
}

void MultiFileResults::clear()
{
    beginResetModel();
    g_rows.clear();
    g_hits = 0;
    g_datafiles = 0;
    g_lastDatafile.clear();
    endResetModel();
}

void MultiFileResults::append(const QList<MultiFileRow> &rows)
{
    if (rows.isEmpty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
    g_rows += rows;
    for (const MultiFileRow &row : rows) {
        if (row.kind != Kind::Hit)
            continue;
        ++g_hits;
        // The hits of a datafile come together.
        const QString datafile = row.path + u'/' + row.datafile;
        if (datafile != g_lastDatafile)
            ++g_datafiles;
        g_lastDatafile = datafile;
    }
    endInsertRows();
}

} // namespace tavrin

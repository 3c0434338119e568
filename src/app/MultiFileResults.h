// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "search/MultiFileSearch.h"

#include <QAbstractTableModel>

namespace tavrin {

/// What a search of several datafiles has found so far, a row each.
class MultiFileResults : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Datafile, Record, Title, Field, Context, ColumnCount };
    /// A number to sort by that puts the last row behind all others, whatever the order of the others.
    static constexpr int EndRole = Qt::UserRole + 100;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const MultiFileRow &row(int row) const { return g_rows.at(row); }
    void clear();
    void append(const QList<MultiFileRow> &rows);
    /// How many hits there are, and in how many datafiles.
    std::pair<qint64, qint64> counts() const { return {g_hits, g_datafiles}; }
    void setHitColor(const QVariant &color) { g_hitColor = color; }

private:
    QList<MultiFileRow> g_rows;
    QVariant g_hitColor;
    qint64 g_hits = 0;
    qint64 g_datafiles = 0;
    QString g_lastDatafile;
};

} // namespace tavrin

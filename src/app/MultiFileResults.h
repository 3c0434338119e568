// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/BackgroundWork.h"
#include "search/MultiFileSearch.h"

#include <QAbstractTableModel>

#include <vector>

namespace tavrin {

/// What a search of several datafiles has found so far, a row each.
///
/// Rows are sorted by any column on another thread, texts as people order them: there may be very many. Rows
/// that come in later stand behind until they are sorted, too. What tells of the end is always the last row.
class MultiFileResults : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Datafile, Record, Title, Field, Context, ColumnCount };

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The rows stand as they were found until a column is chosen, and with -1 again.
    void sort(int column, Qt::SortOrder order) override;

    const MultiFileRow &row(int row) const { return g_rows.at(g_places[static_cast<size_t>(row)]); }
    void clear();
    void append(const QList<MultiFileRow> &rows);
    /// How many hits there are, and in how many datafiles.
    std::pair<qint64, qint64> counts() const { return {g_hits, g_datafiles}; }
    void setHitColor(const QVariant &color) { g_hitColor = color; }

private:
    void sortAnew();
    void setPlaces(std::vector<int> places);
    QVariant content(const MultiFileRow &row, int column) const;

    QList<MultiFileRow> g_rows;
    std::vector<int> g_places; ///< In g_rows, of the rows as they stand.
    int g_sortColumn = -1;
    Qt::SortOrder g_sortOrder = Qt::AscendingOrder;
    bool g_isSortedAsWanted = true; ///< Or is about to be, by the work that is under way.
    BackgroundWork g_sorting;
    QVariant g_hitColor;
    qint64 g_hits = 0;
    qint64 g_datafiles = 0;
    QString g_lastDatafile;
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/MultiFileResults.h"

#include "editor/CellHits.h"

#include <QCollator>
#include <QDir>

#include <algorithm>
#include <numeric>

namespace tavrin {

using Kind = MultiFileRow::Kind;

namespace {

/// What the rows are sorted by, and then their places.
struct Sorting
{
    std::vector<QVariant> contents;
    Qt::SortOrder order;
    std::vector<int> places;

    void run();
    void sortBy(const auto &keys);
};

void Sorting::sortBy(const auto &keys)
{
    const auto isBefore = [&keys](int left, int right) {
        return keys[static_cast<size_t>(left)] < keys[static_cast<size_t>(right)];
    };
    if (order == Qt::AscendingOrder)
        std::ranges::stable_sort(places, isBefore);
    else
        std::ranges::stable_sort(places, [&](int left, int right) { return isBefore(right, left); });
}

void Sorting::run()
{
    places.resize(contents.size());
    std::iota(places.begin(), places.end(), 0);
    const bool areTexts = std::ranges::any_of(
        contents, [](const QVariant &content) { return content.typeId() == QMetaType::QString; });
    if (!areTexts) {
        std::vector<qint64> numbers;
        numbers.reserve(contents.size());
        for (const QVariant &content : contents)
            numbers.push_back(content.toLongLong());
        sortBy(numbers);
        return;
    }
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> keys;
    keys.reserve(contents.size());
    for (const QVariant &content : contents)
        keys.push_back(collator.sortKey(content.toString()));
    sortBy(keys);
}

} // namespace

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
    const MultiFileRow &row = this->row(index.row());
    const bool isHit = row.kind == Kind::Hit;
    if (role == Qt::ToolTipRole)
        return index.column() == Datafile ? QDir::toNativeSeparators(row.path) : data(index, Qt::DisplayRole);
    if (role == CellRole::hitColor)
        return g_hitColor;
    if (role == CellRole::hitRanges && isHit && index.column() == Context)
        return QVariant::fromValue(QList{row.context.hit});
    if (role == Qt::TextAlignmentRole && index.column() == Record)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? content(row, index.column()) : QVariant();
}

QVariant MultiFileResults::content(const MultiFileRow &row, int column) const
{
    switch (column) {
    case Datafile:
        return row.datafile;
    case Record:
        return row.kind == Kind::Hit ? QVariant(row.record) : QVariant();
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
    g_places.clear();
    g_isSortedAsWanted = false; // What is being sorted is gone.
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
    while (g_places.size() < static_cast<size_t>(g_rows.size()))
        g_places.push_back(static_cast<int>(g_places.size()));
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
    if (g_sortColumn >= 0)
        sortAnew();
}

void MultiFileResults::sort(int column, Qt::SortOrder order)
{
    g_sortColumn = column;
    g_sortOrder = order;
    sortAnew();
}

void MultiFileResults::sortAnew()
{
    g_isSortedAsWanted = false;
    if (g_sorting.isRunning())
        return;
    g_isSortedAsWanted = true;
    if (g_sortColumn < 0) {
        setPlaces({});
        return;
    }
    const auto sorting = std::make_shared<Sorting>();
    sorting->order = g_sortOrder;
    for (const MultiFileRow &row : g_rows) {
        if (row.kind != Kind::End)
            sorting->contents.push_back(content(row, g_sortColumn));
    }
    g_sorting.begin([sorting] { sorting->run(); },
                    [this, sorting] {
                        // What is out of date by now is at least nearer to what is wanted, unless it is
                        // about rows that are gone.
                        if (sorting->places.size() <= g_places.size())
                            setPlaces(std::move(sorting->places));
                        if (!g_isSortedAsWanted)
                            sortAnew();
                    });
}

/// The rows without a place follow as they were found.
void MultiFileResults::setPlaces(std::vector<int> places)
{
    while (places.size() < g_places.size())
        places.push_back(static_cast<int>(places.size()));
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    std::vector<int> rows(places.size());
    for (size_t row = 0; row < places.size(); ++row)
        rows[static_cast<size_t>(places[row])] = static_cast<int>(row);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex &index : before) {
        const int place = g_places[static_cast<size_t>(index.row())];
        after.append(this->index(rows[static_cast<size_t>(place)], index.column()));
    }
    g_places = std::move(places);
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

} // namespace tavrin

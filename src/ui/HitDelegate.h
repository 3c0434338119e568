// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

namespace tavrin {

/// Shows cells whose model tells of hits with these in their colour.
class HitDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Whether texts that are longer than their cells take more lines, also while they are edited.
    void setWraps(bool wraps) { g_wraps = wraps; }

    void
    paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    bool wraps() const { return g_wraps; }

private:
    void paintWithHits(QPainter *painter, QStyleOptionViewItem option, const QModelIndex &index) const;

    bool g_wraps = false;
};

} // namespace tavrin

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

    void
    paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void paintWithHits(QPainter *painter, QStyleOptionViewItem option, const QModelIndex &index) const;
};

} // namespace tavrin

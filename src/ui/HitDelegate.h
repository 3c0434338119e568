// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>
#include <QTextOption>

namespace tavrin {

/// Shows cells whose model tells of hits with these in their colour.
class HitDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// How texts that are longer than their cells take more lines, also while they are edited; or NoWrap.
    void setWrapMode(QTextOption::WrapMode mode) { g_wrapMode = mode; }

    void
    paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    QTextOption::WrapMode wrapMode() const { return g_wrapMode; }
    bool wraps() const { return g_wrapMode != QTextOption::NoWrap; }

private:
    void paintText(QPainter *painter, QStyleOptionViewItem option, const QModelIndex &index) const;

    QTextOption::WrapMode g_wrapMode = QTextOption::NoWrap;
};

} // namespace tavrin

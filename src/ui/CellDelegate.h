// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/HitDelegate.h"

namespace tavrin {

/// Edits the cells of both tables in place. Return, Tab and Backtab commit and say which way to go; Escape
/// puts the old value back.
class CellDelegate : public HitDelegate
{
    Q_OBJECT

public:
    using HitDelegate::HitDelegate;

    QWidget *createEditor(QWidget *parent,
                          const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void
    paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool eventFilter(QObject *object, QEvent *event) override;

Q_SIGNALS:
    void editingBegan(const QModelIndex &index) const;
    void textEdited() const;
    /// A link in the cell being edited is to be followed.
    void linkFollowed(const QString &link) const;
    /// The caret has come to a link, or left one.
    void caretLinkChanged() const;
    /// The editing ended with Return, Tab (forward) or Backtab.
    void moved(bool forward, bool byReturn);

private:
    static QString accessibleName(const QModelIndex &index);
    void typed(QWidget *editor) const;
    void commitAndMove(QWidget *editor, bool forward, bool byReturn);
};

/// Shows the fields' names: quieter than their values, beside them, never edited.
class FieldNameDelegate : public CellDelegate
{
    Q_OBJECT

public:
    using CellDelegate::CellDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractTableModel>
#include <QList>

namespace tavrin {

class EditorWindowController;

/// The selected records as rows; a column for each shown field, then the text's first line.
///
/// Virtual: nothing is kept for a row, so a million rows cost nothing until they are seen.
class ListTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit ListTableModel(EditorWindowController &window);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    // Rows dragged out are CSV, as text and as a file.
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

    /// Puts a dropped text into a cell; false where it may not be edited.
    bool dropText(const QModelIndex &index, const QString &text);

    /// The definition's index for each field column, in order; the text's column is one more.
    const QList<int> &shownFields() const { return g_shownFields; }
    bool isTextColumn(int column) const { return column == g_shownFields.size(); }

    /// Definitions, order or selection changed.
    void reset();
    /// Content of some rows changed.
    void reload();
    void reloadRow(int row);

private:
    EditorWindowController &g_window;
    QList<int> g_shownFields;
    int g_rowCount = 0; ///< As last told to the views.
};

} // namespace tavrin

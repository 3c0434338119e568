// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractTableModel>

namespace tavrin {

class EditorWindowController;

/// The fields of the current record: column 0 their names, column 1 their values.
class BasicTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int FieldColumn = 0;
    static constexpr int ValueColumn = 1;

    explicit BasicTableModel(EditorWindowController &window);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    /// Puts a dropped text into a value; false where it may not be edited.
    bool dropText(const QModelIndex &index, const QString &text);

    /// The definitions changed.
    void reset();
    /// Another record, or another content of this one.
    void reload();

private:
    EditorWindowController &g_window;
    int g_rowCount = 0; ///< As last told to the views.
};

} // namespace tavrin

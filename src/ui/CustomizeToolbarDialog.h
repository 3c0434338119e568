// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QComboBox;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace tavrin {

class EditorToolbarController;

/// Arranges the toolbar: what could be there on the left, what is there on the right, moved by dragging, by
/// double click or by the buttons between. The toolbar follows at once.
class CustomizeToolbarDialog : public QDialog
{
    Q_OBJECT

public:
    CustomizeToolbarDialog(EditorToolbarController &controller, QWidget *parent);

private:
    void buildLists();
    void fill();
    void addSelected();
    void removeSelected();
    void moveSelected(int by);
    void store();
    void updateButtons();
    QListWidgetItem *newItem(const QString &identifier) const;

    EditorToolbarController &g_controller;
    QListWidget *g_available;
    QListWidget *g_shown;
    QPushButton *g_add;
    QPushButton *g_remove;
    QPushButton *g_up;
    QPushButton *g_down;
    QComboBox *g_display;
};

} // namespace tavrin

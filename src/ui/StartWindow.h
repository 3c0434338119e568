// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/WidgetSheetHost.h"

#include <QMainWindow>

class QLabel;
class QListWidget;
class QListWidgetItem;

namespace tavrin {

class ApplicationMenus;
class MainController;

/// What is on screen while no datafile is open: ways to open one, and the datafiles at hand.
class StartWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// The controller and the menus outlive the window.
    StartWindow(MainController &controller, ApplicationMenus &menus);

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *makeWelcome();
    QWidget *makeLists();
    void fillLists();
    void openItem(const QListWidgetItem *item);

    MainController &g_controller;
    QListWidget *g_datafiles = nullptr;
    QLabel *g_empty = nullptr;
};

} // namespace tavrin

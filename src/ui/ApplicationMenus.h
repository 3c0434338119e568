// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class QAction;
class QMenu;
class QMenuBar;

namespace tavrin {

class EditorWindowController;
class MainController;
struct DatafilesMenuItem;

/// The menus that every window shows: opening datafiles, the Datafiles menu, windows, help, quitting.
class ApplicationMenus : public QObject
{
    Q_OBJECT

public:
    /// The controller outlives the menus.
    explicit ApplicationMenus(MainController &controller) : g_controller(controller) {}

    void addOpeningItems(QMenu &file);
    /// Into a new datafile or, when the menu is that of a datafile's window, into that.
    void addImportMenu(QMenu &file, EditorWindowController *window);
    void addQuitItem(QMenu &file);
    /// The panel for finding and replacing, behind an editor window's own items.
    void addFindItems(QMenu &find);
    /// A window may have to disable it.
    QAction *addMultiFileFindItem(QMenu &find);
    void addDatafilesMenu(QMenuBar &bar);
    void addWindowMenu(QMenuBar &bar);
    void addHelpMenu(QMenuBar &bar);

Q_SIGNALS:
    void findAndReplaceRequested();
    void multiFileFindRequested();

private:
    void fillRecentMenu(QMenu &menu);
    void fillDatafilesMenu(QMenu &menu);
    void addDatafiles(QMenu &menu, const QList<DatafilesMenuItem> &items);
    void fillWindowMenu(QMenu &menu);
    void showAbout();

    MainController &g_controller;
};

} // namespace tavrin

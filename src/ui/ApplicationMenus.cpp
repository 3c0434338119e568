// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ApplicationMenus.h"

#include "app/ImportController.h"
#include "app/MainController.h"
#include "editor/EditorWindowController.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>

namespace tavrin {

namespace {

/// A path as a menu item's text: an ampersand is no mnemonic, the home folder is "~".
QString shownPath(const QString &path)
{
    QString shown = path;
    const QString home = QDir::homePath();
    if (shown.startsWith(home + u'/'))
        shown.replace(0, home.size(), u'~');
    return shown.replace(u'&', QStringLiteral("&&"));
}

} // namespace

void ApplicationMenus::addOpeningItems(QMenu &file)
{
    file.addAction(tr("&New Datafile…"),
                   QKeySequence(Qt::CTRL | Qt::Key_N),
                   &g_controller,
                   &MainController::newDatafile);
    file.addAction(
        tr("&Open…"), QKeySequence(Qt::CTRL | Qt::Key_O), &g_controller, &MainController::openDocument);
    QMenu *recent = file.addMenu(tr("Open Rec&ent"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecentMenu(*recent); });
    if (g_controller.hasSample())
        file.addAction(tr("Open Sa&mple Address Book"), &g_controller, &MainController::openSample);
}

void ApplicationMenus::fillRecentMenu(QMenu &menu)
{
    menu.clear();
    const QStringList paths = g_controller.recentDatafiles();
    for (const QString &path : paths) {
        QAction *action =
            menu.addAction(shownPath(path), this, [this, path] { g_controller.openDatafile(path); });
        action->setEnabled(QFileInfo::exists(path));
    }
    menu.addSeparator();
    QAction *clear = menu.addAction(tr("&Clear List"), &g_controller, &MainController::clearRecentDatafiles);
    clear->setEnabled(!paths.isEmpty());
}

void ApplicationMenus::addImportMenu(QMenu &file, EditorWindowController *window)
{
    QMenu *menu = file.addMenu(tr("&Import"));
    ImportController &imports = g_controller.imports();
    const auto add = [&](const QString &text, void (ImportController::*run)(EditorWindowController *)) {
        menu->addAction(text, &imports, [&imports, window, run] { (imports.*run)(window); });
    };
    add(tr("&Delimited Text…"), &ImportController::importDelimitedText);
    menu->addSeparator();
    add(tr("&CSV File…"), &ImportController::importCSV);
    add(tr("&SSV File…"), &ImportController::importSSV);
    add(tr("&Tab-Delimited File…"), &ImportController::importTabDelimited);
    add(tr("C&ustom-Delimited File…"), &ImportController::importCustomDelimited);
    menu->addSeparator();
    add(tr("&Folder of Text Files…"), &ImportController::importFolderOfTextFiles);
    add(tr("Folder of Text Files with File &Names…"),
        &ImportController::importFolderOfTextFilesWithFileNames);
    menu->addSeparator();
    add(tr("&JSON File…"), &ImportController::importJSON);
    add(tr("&Markdown Folder…"), &ImportController::importMarkdownFolder);
}

void ApplicationMenus::addQuitItem(QMenu &file)
{
    QAction *quit = file.addAction(tr("&Quit"),
                                   QKeySequence(Qt::CTRL | Qt::Key_Q),
                                   &g_controller,
                                   &MainController::applicationShouldTerminate);
    quit->setMenuRole(QAction::QuitRole);
}

void ApplicationMenus::addFindItems(QMenu &find)
{
    find.addSeparator();
    find.addAction(tr("Find and R&eplace…"),
                   QKeySequence(Qt::CTRL | Qt::Key_H),
                   this,
                   &ApplicationMenus::findAndReplaceRequested);
}

QAction *ApplicationMenus::addMultiFileFindItem(QMenu &find)
{
    QAction *item = find.addAction(tr("&Multi-File Find…"),
                                   QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F),
                                   this,
                                   &ApplicationMenus::multiFileFindRequested);
    item->setObjectName(QStringLiteral("startMultiFileFind:"));
    return item;
}

void ApplicationMenus::addDatafilesMenu(QMenuBar &bar)
{
    QMenu *menu = bar.addMenu(tr("&Datafiles"));
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { fillDatafilesMenu(*menu); });
}

void ApplicationMenus::fillDatafilesMenu(QMenu &menu)
{
    menu.clear();
    addDatafiles(menu, g_controller.datafilesMenu());
    if (g_controller.datafilesMenu().isEmpty())
        menu.addAction(tr("No Datafiles in the Folder"))->setEnabled(false);
    menu.addSeparator();
    menu.addAction(tr("&Change Datafiles Folder…"), &g_controller, &MainController::resetDatafilesFolder);
}

void ApplicationMenus::addDatafiles(QMenu &menu, const QList<DatafilesMenuItem> &items)
{
    for (const DatafilesMenuItem &item : items) {
        QString title = item.title;
        title.replace(u'&', QStringLiteral("&&"));
        if (item.path.isEmpty())
            addDatafiles(*menu.addMenu(title), item.children);
        else
            menu.addAction(title, this, [this, path = item.path] { g_controller.openDatafile(path); });
    }
}

void ApplicationMenus::addWindowMenu(QMenuBar &bar)
{
    QMenu *menu = bar.addMenu(tr("&Window"));
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { fillWindowMenu(*menu); });
}

void ApplicationMenus::fillWindowMenu(QMenu &menu)
{
    menu.clear();
    for (DatafileDocument *document : g_controller.documents()) {
        DatafileWindow *window = g_controller.windowOf(*document);
        if (!window)
            continue;
        QString title = document->displayName();
        menu.addAction(title.replace(u'&', QStringLiteral("&&")), this, [this, document] {
            // The menu may outlive the document: look again.
            if (!g_controller.documents().contains(document))
                return;
            if (DatafileWindow *chosen = g_controller.windowOf(*document))
                chosen->bringToFront();
        });
    }
    menu.addSeparator();
    menu.addAction(tr("Close A&ll Datafiles"), &g_controller, &MainController::closeAllOpenDatafiles)
        ->setEnabled(g_controller.openDatafileCount() > 0);
}

void ApplicationMenus::addHelpMenu(QMenuBar &bar)
{
    QMenu *menu = bar.addMenu(tr("&Help"));
    menu->addAction(tr("&About Tavrin"), this, &ApplicationMenus::showAbout)->setMenuRole(QAction::AboutRole);
    menu->addAction(tr("About &Qt"), qApp, &QApplication::aboutQt)->setMenuRole(QAction::AboutQtRole);
}

void ApplicationMenus::showAbout()
{
    auto *box = new QMessageBox(QApplication::activeWindow());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setIconPixmap(QApplication::windowIcon().pixmap(64));
    box->setText(tr("<b>Tavrin %1</b>").arg(QApplication::applicationVersion()));
    box->setInformativeText(
        tr("Keeps records: a few named fields and a text for each, all in one file of yours."));
    box->open();
}

} // namespace tavrin

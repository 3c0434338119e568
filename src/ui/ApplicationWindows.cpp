// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/ApplicationWindows.h"

#include "app/FindAndReplaceController.h"
#include "app/MainController.h"
#include "app/MultiFileFindController.h"
#include "editor/EditorFormatting.h"
#include "ui/ApplicationMenus.h"
#include "ui/EditorWindow.h"
#include "ui/FindAndReplacePanel.h"
#include "ui/MultiFileFindWindow.h"
#include "ui/RecordInfoPalette.h"
#include "ui/StartWindow.h"

#include <QApplication>

namespace tavrin {

ApplicationWindows::ApplicationWindows(Preferences &preferences)
    : g_preferences(preferences)
    , g_sheets([this]() -> QWidget * {
        if (g_startWindow && g_startWindow->isVisible())
            return g_startWindow.get();
        // A dialog goes before long, and what stands on it goes with it.
        QWidget *window = QApplication::activeWindow();
        while (window && window->isWindow() && window->windowType() == Qt::Dialog)
            window = window->parentWidget();
        return window;
    })
    , g_spelling(preferences)
    , g_copiedStyles(std::make_shared<CopiedStyles>())
    , g_findAndReplace(std::make_unique<FindAndReplaceController>(preferences))
{}

ApplicationWindows::~ApplicationWindows() = default;

void ApplicationWindows::setController(MainController &controller)
{
    g_controller = &controller;
    g_menus = std::make_unique<ApplicationMenus>(controller);
    connect(g_menus.get(),
            &ApplicationMenus::findAndReplaceRequested,
            this,
            &ApplicationWindows::openFindAndReplaceDialog);
    connect(g_menus.get(),
            &ApplicationMenus::multiFileFindRequested,
            this,
            &ApplicationWindows::openMultiFileFind);
    connect(&controller, &MainController::openDatafilesChanged, this, &ApplicationWindows::updateStartWindow);
}

std::unique_ptr<DatafileWindow> ApplicationWindows::makeWindow(DatafileDocument &document,
                                                               const QString &firstRecord)
{
    auto window = std::make_unique<EditorWindow>(document, g_preferences, *g_menus, firstRecord);
    connect(window.get(), &EditorWindow::datafilesDropped, g_controller, &MainController::openDatafiles);
    connect(window.get(), &EditorWindow::activated, g_findAndReplace.get(), [this, window = window.get()] {
        g_findAndReplace->setDatafileWindowController(&window->controller());
        g_searchedWindow = window;
        if (g_findAndReplacePanel)
            g_findAndReplacePanel->standBefore(*window);
    });
    if (!g_recordInfoPalette)
        g_recordInfoPalette = std::make_unique<RecordInfoPalette>(g_recordInfo);
    window->setRecordInfoPalette(g_recordInfo);
    window->setSpelling(g_spelling);
    window->controller().formatting().shareCopied(g_copiedStyles);
    window->show();
    return window;
}

void ApplicationWindows::openFindAndReplaceDialog()
{
    if (!g_findAndReplacePanel)
        g_findAndReplacePanel = std::make_unique<FindAndReplacePanel>(*g_findAndReplace);
    if (g_searchedWindow)
        g_findAndReplacePanel->standBefore(*g_searchedWindow);
    g_findAndReplacePanel->openFindAndReplaceDialog();
}

void ApplicationWindows::openMultiFileFind()
{
    if (!g_multiFileFind) {
        g_multiFileFind = std::make_unique<MultiFileFindController>(*g_controller);
        g_multiFileFindWindow = std::make_unique<MultiFileFindWindow>(*g_multiFileFind);
    }
    using Where = MultiFileFindController::Where;
    if (g_controller->openDatafileCount() == 0 && g_multiFileFind->where() == Where::OpenDatafiles)
        g_multiFileFind->setWhere(Where::DatafilesFolder);
    g_multiFileFindWindow->bringToFront();
}

void ApplicationWindows::updateStartWindow()
{
    if (!g_controller->isFullyStarted())
        return;
    if (g_controller->openDatafileCount() == 0)
        g_recordInfo.setShown(false);
    if (g_controller->openDatafileCount() > 0) {
        if (g_startWindow)
            g_startWindow->hide();
        return;
    }
    if (g_controller->isOpening())
        return;
    if (!g_startWindow)
        g_startWindow = std::make_unique<StartWindow>(*g_controller, *g_menus);
    g_startWindow->show();
}

void ApplicationWindows::bringToFront()
{
    const QList<DatafileDocument *> documents = g_controller->documents();
    if (!documents.isEmpty()) {
        if (DatafileWindow *window = g_controller->windowOf(*documents.first()))
            window->bringToFront();
    } else if (g_startWindow) {
        g_startWindow->raise();
        g_startWindow->activateWindow();
    }
}

} // namespace tavrin

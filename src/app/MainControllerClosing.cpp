// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/MainController.h"
#include "base/Log.h"
#include "editor/AlertSheetController.h"
#include "editor/EditorWindowController.h"
#include "editor/FileSheetController.h"
#include "model/StringOperations.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

// What is open.

QList<DatafileDocument *> MainController::documents() const
{
    QList<DatafileDocument *> documents;
    for (const OpenDatafile &open : g_open)
        documents.append(open.document.get());
    return documents;
}

DatafileWindow *MainController::windowOf(const DatafileDocument &document) const
{
    for (const OpenDatafile &open : g_open) {
        if (open.document.get() == &document)
            return open.window.get();
    }
    return nullptr;
}

OpenDatafile *MainController::find(const DatafileDocument &document)
{
    const auto found = std::find_if(
        g_open.begin(), g_open.end(), [&](const auto &open) { return open.document.get() == &document; });
    return found == g_open.end() ? nullptr : &*found;
}

// The datafiles folder and the recent datafiles.

void MainController::setupDatafilesMenu()
{
    QList<DatafilesMenuItem> menu = g_datafilesFolder->scan();
    if (menu == g_datafilesMenu)
        return;
    g_datafilesMenu = std::move(menu);
    Q_EMIT datafilesMenuChanged();
}

void MainController::resetDatafilesFolder()
{
    auto sheet = std::make_unique<AlertSheetController>(
        tr("Are you sure you want to change your Datafiles folder?"),
        tr("If you change it, be sure to move or copy any datafiles into the new Datafiles folder."),
        QStringList{tr("Change It"), tr("Cancel")});
    connect(sheet.get(), &QVSheetController::finished, this, [this](int returnCode) {
        if (returnCode == QVSheetController::FirstButton)
            chooseDatafilesFolder();
    });
    ask(std::move(sheet));
}

void MainController::chooseDatafilesFolder()
{
    FileSheetController::Request request;
    request.purpose = FileSheetController::Purpose::OpenFolder;
    request.title = tr("Select Your Datafiles Folder (Shown in the Popup Menu).");
    request.acceptLabel = tr("Select");
    request.folder = validatedDirectoryPath(g_datafilesFolder->path());
    auto sheet = std::make_unique<FileSheetController>(request);
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int returnCode) {
        if (returnCode != QVSheetController::FirstButton)
            return;
        g_datafilesFolder->setPath(sheet->path());
        setupDatafilesMenu();
    });
    ask(std::move(sheet));
}

QStringList MainController::recentDatafiles() const
{
    return g_recentDatafiles.paths();
}

void MainController::clearRecentDatafiles()
{
    g_recentDatafiles.clear();
}

// Closing.

void MainController::removeDatafile(DatafileDocument &document)
{
    const auto found = std::find_if(
        g_open.begin(), g_open.end(), [&](const auto &open) { return open.document.get() == &document; });
    if (found == g_open.end())
        return;
    found->window->controller().windowWillClose();
    const OpenDatafile closed = std::move(*found);
    g_open.erase(found);
    closed.document->disconnect(this);
    closed.window->controller().disconnect(this);
}

void MainController::documentWindowClosed(DatafileDocument &document)
{
    const bool wasAsked = g_askedClose == &document;
    removeDatafile(document);
    g_lastDatafileClosing = g_open.empty();
    Q_EMIT openDatafilesChanged();
    if (wasAsked)
        closeNext();
    if (!g_quitting && applicationShouldTerminateAfterLastWindowClosed())
        applicationShouldTerminate();
}

/// Save As has written another file: it takes the place of this window, at the same record.
void MainController::openInPlaceOf(DatafileDocument &document, const QString &path)
{
    if (g_askedClose == &document) {
        documentWindowClosed(document);
        return;
    }
    const OpenDatafile *open = find(document);
    if (!open)
        return;
    const RecordData *record = open->window->controller().currentRecord();
    const QString identifier = record ? record->identifier() : QString();
    removeDatafile(document);
    openDatafile(path, identifier);
    Q_EMIT openDatafilesChanged();
}

void MainController::closeAllOpenDatafiles()
{
    closeAllThat([](const DatafileDocument &) { return true; });
}

void MainController::closeAllReadOnlyDatafiles()
{
    closeAllThat([](const DatafileDocument &document) { return document.openedReadOnly(); });
}

void MainController::closeAllThat(DatafileTest test)
{
    g_closing = std::move(test);
    closeNext();
}

/// Asks one datafile at a time, those with unsaved changes first: so that a "Cancel" leaves as much open as
/// was.
void MainController::closeNext()
{
    const OpenDatafile *next = nullptr;
    for (const OpenDatafile &open : g_open) {
        if (g_closing(*open.document)
            && (!next || (open.document->isModified() && !next->document->isModified())))
            next = &open;
    }
    if (next) {
        g_askedClose = next->document.get();
        if (next->document->isModified())
            next->window->bringToFront();
        next->window->controller().requestClose();
        return;
    }
    g_closing = nullptr;
    g_askedClose = nullptr;
    if (g_quitting)
        Q_EMIT terminate();
}

void MainController::closeWasRefused(const DatafileDocument &document)
{
    if (g_askedClose != &document)
        return;
    g_closing = nullptr;
    g_askedClose = nullptr;
    g_quitting = false;
    g_lastDatafileClosing = false;
}

// Quitting.

bool MainController::applicationShouldTerminateAfterLastWindowClosed() const
{
    return g_lastDatafileClosing && g_openQuestions == 0 && !isOpening()
           && g_preferences.boolForKey(u"GeneralQuitAfterLastFile"_s);
}

void MainController::applicationShouldTerminate()
{
    if (g_quitting) {
        if (g_askedClose && windowOf(*g_askedClose))
            windowOf(*g_askedClose)->bringToFront();
        return;
    }
    g_quitting = true;
    if (!g_fullyStarted || g_preferences.integerForKey(u"SharedConfirmQuit"_s) == 0)
        quit();
    else
        confirmQuit();
}

void MainController::confirmQuit()
{
    auto sheet = std::make_unique<AlertSheetController>(
        tr("Are you sure you want to quit?"), QString(), QStringList{tr("Quit"), tr("Cancel")});
    connect(sheet.get(), &QVSheetController::finished, this, [this](int returnCode) {
        if (returnCode == QVSheetController::FirstButton) {
            g_preferences.setObject(g_environment.now(), u"SharedQuitDate"_s);
            quit();
        } else {
            g_lastDatafileClosing = false;
            g_quitting = false;
        }
    });
    ask(std::move(sheet));
}

void MainController::quit()
{
    finishQuittingStuff();
    closeAllThat([](const DatafileDocument &) { return true; });
}

/// What must be kept is kept before the first window goes.
void MainController::finishQuittingStuff()
{
    saveCurrentSession();
    if (const Result<> written = g_preferences.synchronize(); !written)
        qCWarning(log) << "the preferences were not written:" << written.error().detail;
}

} // namespace tavrin

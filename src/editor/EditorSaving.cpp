// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorSaving.h"

#include "base/FilledIn.h"
#include "document/DatafileBackups.h"
#include "editor/AlertSheetController.h"
#include "editor/DatafileReading.h"
#include "editor/EditorWindowController.h"
#include "editor/FileSheetController.h"

#include <QDir>
#include <QFileInfo>
#include <QTime>

#include <chrono>
#include <memory>
#include <utility>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

// A save that is over sooner needs no word before "Saved".
constexpr std::chrono::milliseconds longSave{300};

} // namespace

EditorSaving::EditorSaving(EditorWindowController &window, SheetHost &sheets, WorkHost &work)
    : g_window(window)
    , g_document(window.document())
    , g_sheets(sheets)
    , g_work(work)
{
    g_longSave.setSingleShot(true);
    g_longSave.setInterval(longSave);
    connect(&g_longSave, &QTimer::timeout, this, [this] { Q_EMIT g_window.statusMessage(tr("Saving…")); });
    connect(&g_document, &DatafileDocument::savingFinished, this, [this](const Result<> &saved) {
        g_longSave.stop();
        tellWaiting(saved);
    });
}

void EditorSaving::whenFree(const std::function<void()> &next)
{
    if (isBusy())
        g_waiting.emplace_back([this, next](const Result<> &) { whenFree(next); });
    else
        next();
}

void EditorSaving::tellWaiting(const Result<> &ended)
{
    // Those who hear of it may have to wait again.
    const std::vector<Ended> waiting = std::exchange(g_waiting, {});
    for (const Ended &tell : waiting)
        tell(ended);
}

void EditorSaving::ask(std::unique_ptr<AlertSheetController> alert,
                       const std::function<void(int returnCode)> &answered)
{
    connect(alert.get(), &QVSheetController::finished, this, answered);
    g_sheets.begin(std::move(alert));
}

void EditorSaving::askForFile(const QString &title, const std::function<void(const QString &path)> &chosen)
{
    const DatafileBackups backups(g_document);
    const QString path = g_document.filePath();
    const QFileInfo present(backups.isOfBackup() ? backups.pathForCopyOf(path) : path);
    const QString extension = extensionOf(g_document.kind());
    const QString name = present.completeBaseName();
    FileSheetController::Request request;
    request.purpose = FileSheetController::Purpose::SaveFile;
    request.title = title;
    request.folder = path.isEmpty() ? datafilesFolderPath(&g_window.preferences()) : present.absolutePath();
    request.suggestedName = (name.isEmpty() ? g_document.displayName() : name) + u'.' + extension;
    request.requiredExtension = extension;
    request.nameFilters = {u"%1 (*.%2)"_s.arg(typeNameOf(g_document.kind()), extension)};
    auto sheet = std::make_unique<FileSheetController>(request);
    connect(sheet.get(), &QVSheetController::finished, this, [chosen, sheet = sheet.get()](int returnCode) {
        chosen(returnCode == QVSheetController::FirstButton ? sheet->path() : QString());
    });
    g_sheets.begin(std::move(sheet));
}

void EditorSaving::reportFailure(const Error &error)
{
    showAlert(g_sheets,
              error.message,
              tr("The datafile was not saved. The file on the disk is as it was before, and your changes are "
                 "still in this window."));
}

// Save.

void EditorSaving::saveDocument()
{
    if (g_window.validateAction(u"saveDocument:"_s))
        saveQuietly();
}

void EditorSaving::autoSave()
{
    if (g_document.isModified() && !g_document.isMobile() && !g_document.openedReadOnly()
        && !g_document.filePath().isEmpty())
        saveQuietly();
}

/// However often that is asked for during a save, one more save is enough. After one that failed, none: the
/// person has just been told.
void EditorSaving::saveQuietly()
{
    if (g_isClosing)
        return;
    if (!isBusy()) {
        save([](bool) {});
        return;
    }
    if (std::exchange(g_saveAgain, true))
        return;
    g_waiting.emplace_back([this](const Result<> &ended) {
        g_saveAgain = false;
        if (ended)
            saveQuietly();
    });
}

void EditorSaving::save(const Written &done)
{
    if (isBusy()) {
        whenFree([this, done] { save(done); });
        return;
    }
    if (g_document.openedReadOnly()) {
        saveAs(done);
        return;
    }
    if (g_document.filePath().isEmpty()) {
        saveFirst(done);
        return;
    }
    if (!g_document.isModified() || !g_document.changedOnDisk()) {
        writeToOwnFile(done);
        return;
    }
    auto alert = std::make_unique<AlertSheetController>(tr("This datafile was changed by another program."),
                                                        tr("Saving replaces those changes."),
                                                        QStringList{tr("Save Anyway"), tr("Cancel")});
    alert->setDestructiveButton(0);
    ask(std::move(alert), [this, done](int returnCode) {
        if (returnCode == QVSheetController::FirstButton)
            writeToOwnFile(done);
        else
            done(false);
    });
}

void EditorSaving::writeToOwnFile(const Written &done)
{
    const auto ended = [this, done](const Result<> &saved) {
        if (saved)
            tellSaved();
        else
            reportFailure(saved.error());
        done(saved.has_value());
    };
    const Result<SaveOutcome> begun = g_document.beginSaving();
    if (!begun) {
        ended(begun.error());
        return;
    }
    switch (*begun) {
    case SaveOutcome::Begun:
        g_longSave.start();
        g_waiting.emplace_back(ended);
        break;
    case SaveOutcome::NeedsSaveAs:
        saveAs(done);
        break;
    case SaveOutcome::NotByThisCommand:
        Q_EMIT g_window.statusMessage(tr("A Tavrin Mobile datafile is saved with Save As."));
        done(!g_document.isModified());
        break;
    case SaveOutcome::NothingToSave:
        Q_EMIT g_window.statusMessage(tr("There are no changes to save."));
        [[fallthrough]];
    case SaveOutcome::Saved:
        done(!g_document.isModified());
        break;
    }
}

/// A datafile without a file gets one; it is no Save As, whose alert comes even when all went well.
void EditorSaving::saveFirst(const Written &done)
{
    askForFile(tr("Save"), [this, done](const QString &path) {
        if (path.isEmpty()) {
            done(false);
            return;
        }
        g_window.updateCurrentRecord();
        begun(g_document.beginSavingToFirstFile(path), [this, done](const Result<> &saved) {
            if (saved)
                tellSaved();
            else
                reportFailure(saved.error());
            done(saved.has_value());
        });
    });
}

/// Calls `ended` when the save that was begun has ended, or at once when it could not be.
void EditorSaving::begun(const Result<> &begun, const Ended &ended)
{
    if (!begun) {
        ended(begun);
        return;
    }
    g_longSave.start();
    g_waiting.emplace_back(ended);
}

void EditorSaving::tellSaved()
{
    Q_EMIT g_window.statusMessage(tr("Saved at %1").arg(QTime::currentTime().toString(u"HH:mm"_s)));
}

// Save As, Save a Copy As.

void EditorSaving::saveDocumentAs()
{
    if (g_window.validateAction(u"saveDocumentAs:"_s))
        saveAs([](bool) {});
}

void EditorSaving::saveAs(const Written &done)
{
    askForFile(tr("Save As"), [this, done](const QString &path) {
        if (path.isEmpty())
            done(false);
        else
            whenFree([this, path, done] { didSaveAs(path, done); });
    });
}

void EditorSaving::didSaveAs(const QString &path, const Written &done)
{
    g_window.updateCurrentRecord();
    g_longSave.start();
    g_document.beginSavingAs(
        path, [this, path, done](const SaveAsOutcome &outcome) { tellSavedAs(path, outcome, done); });
}

void EditorSaving::tellSavedAs(const QString &path, const SaveAsOutcome &outcome, const Written &done)
{
    g_longSave.stop();
    if (outcome.errorCode != 0) {
        Q_EMIT g_window.openInPlace(path);
        done(outcome.written);
        return;
    }
    // The code tells, not whether the file was written: so the alert also comes when it was.
    auto alert = std::make_unique<AlertSheetController>(
        g_window.windowTitle(), filledIn(tr("Datafile cannot be saved. Error: %@"), {outcome.failureReason}));
    ask(std::move(alert), [done, written = outcome.written](int) { done(written); });
}

void EditorSaving::saveCopyAs()
{
    if (!g_window.validateAction(u"saveCopyAs:"_s))
        return;
    askForFile(tr("Save a Copy As"), [this](const QString &path) {
        if (!path.isEmpty())
            whenFree([this, path] { saveCopy(path); });
    });
}

void EditorSaving::saveCopy(const QString &path)
{
    g_window.updateCurrentRecord();
    begun(g_document.beginSavingCopy(path), [this, path](const Result<> &written) {
        if (!written)
            showAlert(g_sheets, written.error().message, tr("No copy was saved."));
        else
            Q_EMIT g_window.statusMessage(tr("A copy was saved: %1").arg(QDir::toNativeSeparators(path)));
    });
}

// Revert.

void EditorSaving::revertDocumentToSaved()
{
    if (!g_window.validateAction(u"revertDocumentToSaved:"_s))
        return;
    auto alert = std::make_unique<AlertSheetController>(
        filledIn(tr("Do you want to revert to the most recently saved version of the document “%@”?"),
                 {g_document.displayName()}),
        tr("Your current changes will be lost."),
        QStringList{tr("Revert"), tr("Cancel")});
    alert->setDestructiveButton(0);
    ask(std::move(alert), [this](int returnCode) {
        if (returnCode == QVSheetController::FirstButton)
            whenFree([this] { revert(); });
    });
}

void EditorSaving::revert()
{
    g_reverting = true;
    auto reading = std::make_unique<DatafileReading>(g_document.filePath(), tr("Reverting to “%1”…"));
    connect(reading.get(), &LongWork::ended, this, [this, reading = reading.get()] {
        didReadForRevert(reading->takeContents());
    });
    g_work.begin(std::move(reading));
}

void EditorSaving::didReadForRevert(Result<DatafileContents> contents)
{
    g_reverting = false;
    if (contents) {
        // What is on the screen belongs to the records that go: it must not be stored into those that come.
        g_window.updateCurrentRecord();
        g_document.revertToContents(*std::move(contents));
    } else if (contents.error().kind != Error::Kind::Cancelled) {
        showAlert(g_sheets, contents.error().message, tr("The datafile was not reverted."));
    }
    tellWaiting({});
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorPermission.h"

#include "base/FilledIn.h"
#include "editor/AlertSheetController.h"
#include "editor/EnterPasswordSheetController.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <chrono>

namespace tavrin {

using namespace std::chrono_literals;

namespace {

// Questions about the opening come when the window is up, not before.
constexpr auto alertDelay = 100ms;
constexpr auto permissionDelay = 1000ms;

} // namespace

EditorPermission::EditorPermission(DatafileDocument &document, SheetHost &sheets)
    : g_document(document)
    , g_sheets(sheets)
{
    g_timer.setSingleShot(true);
    g_timer.setInterval(permissionDelay);
    connect(&g_timer, &QTimer::timeout, this, &EditorPermission::decide);
}

void EditorPermission::setUpReadOnlyAndLock()
{
    const DatafileSettingsData &settings = g_document.datafileSettings();
    if (settings.readOnly()) {
        g_readOnlyByOpening = true;
        if (settings.readOnlyWarning())
            QTimer::singleShot(alertDelay, this, &EditorPermission::datafileReadOnly);
    } else if (settings.networkShared() && !g_document.filePath().isEmpty()) {
        setUpLock();
    }
    g_document.setOpenedReadOnly(g_readOnlyByOpening);
    // What was never saved has nothing to protect: an import, for one, saves it at once.
    if (g_document.filePath().isEmpty() && settings.password().isEmpty())
        decide();
}

void EditorPermission::setUpLock()
{
    const Result<> made = g_lockFile.create(g_document.filePath(), QCoreApplication::applicationFilePath());
    if (made)
        return;
    g_readOnlyByOpening = true;
    if (LockFile::exists(g_document.filePath())) {
        g_lockedBySomebodyElse = true;
        QTimer::singleShot(alertDelay, this, &EditorPermission::datafileLocked);
    } else {
        // Without a lock the others could not tell that we are writing.
        QTimer::singleShot(alertDelay, this, [this, error = made.error()] { lockFailed(error); });
    }
}

void EditorPermission::datafileReadOnly()
{
    showAlert(g_sheets,
              tr("This datafile is set to always open read-only."),
              tr("You will not be able to save any changes."));
}

void EditorPermission::datafileLocked()
{
    showAlert(g_sheets,
              tr("This datafile is locked."),
              filledIn(tr("It is already in use, so you will not be able to save any changes.\n\nIf you "
                          "believe that it is not actually in use, you can close this datafile, drag \"%@\" "
                          "to the trash, and reopen this datafile"),
                       {LockFile::shownNameFor(g_document.filePath())}));
}

void EditorPermission::lockFailed(const Error &error)
{
    showAlert(g_sheets, error.message, tr("You will not be able to save any changes."));
}

void EditorPermission::warnWhenTooLarge()
{
    constexpr qint64 gibibyte = 1073741824;
    constexpr qint64 oneAndAHalf = 1610612736;
    constexpr qint64 megabyte = 1000000;
    constexpr qint64 largestMobile = 400 * megabyte;
    if (!g_document.datafileSettings().warnWhenTooLarge() || g_document.filePath().isEmpty())
        return;
    const qint64 size = QFileInfo(g_document.filePath()).size();
    if (g_document.isMobile() && size > largestMobile) {
        showAlert(g_sheets,
                  filledIn(tr("This Tavrin Mobile datafile is %@ MB."), {QString::number(size / megabyte)}),
                  tr("A datafile of more than 400 MB may be too large to open in Tavrin Mobile."));
        return;
    }
    if (size < gibibyte)
        return;
    showAlert(g_sheets,
              size <= oneAndAHalf ? tr("This datafile is over 1 GB in size.")
                                  : tr("This datafile is over 1.5 GB in size."),
              tr("Warning: To avoid having this datafile become too large to open in Tavrin Pro, you should "
                 "consider splitting it into two or more smaller datafiles. See the User Guide article for "
                 "the Split Datafile item in the File menu."));
}

void EditorPermission::windowDidBecomeMain()
{
    if (!g_passwordChecked && !g_timer.isActive())
        g_timer.start();
}

void EditorPermission::decide()
{
    if (g_passwordChecked)
        return;
    g_passwordChecked = true;
    g_timer.stop();
    const QString password = g_document.datafileSettings().password();
    if (password.isEmpty()) {
        g_canSaveChanges = true;
        Q_EMIT changed();
        return;
    }
    g_askingPassword = true;
    // A backup is read-only by whoever opened it, and stays so.
    g_readOnlyByOpening = g_readOnlyByOpening || g_document.openedReadOnly();
    auto sheet = std::make_unique<EnterPasswordSheetController>(password);
    connect(sheet.get(), &QVSheetController::finished, this, [this, sheet = sheet.get()](int returnCode) {
        enterPasswordSheetDidEnd(*sheet, returnCode);
    });
    g_sheets.begin(std::move(sheet));
}

void EditorPermission::enterPasswordSheetDidEnd(const EnterPasswordSheetController &sheet, int returnCode)
{
    g_askingPassword = false;
    g_canSaveChanges = returnCode == QVSheetController::FirstButton && sheet.goodPasswordEntered();
    // A password opens the datafile, not somebody else's lock.
    g_document.setOpenedReadOnly(!g_canSaveChanges || g_readOnlyByOpening);
    Q_EMIT changed();
}

void EditorPermission::releaseLock()
{
    g_lockFile.remove();
}

} // namespace tavrin

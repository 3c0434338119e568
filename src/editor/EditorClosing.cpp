// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Closing a window whose datafile may have changes.

#include "base/FilledIn.h"
#include "editor/AlertSheetController.h"
#include "editor/EditorSaving.h"
#include "editor/EditorWindowController.h"

#include <utility>

namespace tavrin {

void EditorSaving::requestClose()
{
    // Whoever asks again, as quitting does, gets the answer to the question that is on the screen.
    if (g_askingAboutClosing)
        return;
    if (isBusy()) {
        g_askingAboutClosing = true;
        g_waiting.emplace_back([this](const Result<> &ended) { closeAfter(ended.has_value()); });
        return;
    }
    if (!g_document.isModified()) {
        answerClose(true);
        return;
    }
    // Whoever closes at once after opening does not wait for the permission to save.
    g_window.setCanSaveChanges();
    if (g_window.isAskingPassword())
        answerClose(false);
    else if (g_window.canSaveChanges())
        askWhetherToSave();
    else
        askWhetherToLoseChanges();
}

/// What was changed while the file was being written is asked about like all that is not saved.
void EditorSaving::closeAfter(bool saved)
{
    g_askingAboutClosing = false;
    if (saved)
        requestClose();
    else
        answerClose(false);
}

void EditorSaving::askAboutClosing(std::unique_ptr<AlertSheetController> alert,
                                   const std::function<void(int returnCode)> &answered)
{
    g_askingAboutClosing = true;
    ask(std::move(alert), answered);
}

void EditorSaving::answerClose(bool allowed)
{
    if (!allowed) {
        g_askingAboutClosing = false;
        Q_EMIT g_window.closeRefused();
        return;
    }
    // From now on nothing that was not to be saved is saved any more.
    g_isClosing = true;
    // What closing writes is written while the window still stands, so that the others need not wait for it.
    g_askingAboutClosing = true;
    const bool wasModified = g_document.isModified();
    if (!g_window.beginWritingClosingSettings()) {
        allowClose();
        return;
    }
    g_longSave.start();
    g_waiting.emplace_back([this, wasModified](const Result<> &) {
        if (g_document.isModified() && !wasModified) {
            g_isClosing = false;
            closeAfter(true);
        } else
            allowClose();
    });
}

void EditorSaving::allowClose()
{
    g_askingAboutClosing = false;
    Q_EMIT g_window.closeAllowed();
}

void EditorSaving::askWhetherToSave()
{
    constexpr qsizetype cancelButton = 1;
    constexpr qsizetype loseButton = 2;
    // A datafile of the mobile kind is not saved by Save.
    const bool isFirst = g_document.filePath().isEmpty() && !g_document.openedReadOnly();
    const bool needsSaveAs = !isFirst && (g_document.isMobile() || g_document.openedReadOnly());
    const QString saveButton = isFirst ? tr("Save…") : needsSaveAs ? tr("Save As…") : tr("Save");
    auto alert = std::make_unique<AlertSheetController>(
        filledIn(tr("Do you want to save the changes made to the document “%@”?"),
                 {g_document.displayName()}),
        tr("Your changes will be lost if you don’t save them."),
        QStringList{saveButton, tr("Cancel"), tr("Don’t Save")});
    alert->setCancelButton(cancelButton);
    alert->setDestructiveButton(loseButton);
    askAboutClosing(std::move(alert), [this, needsSaveAs](int returnCode) {
        if (returnCode == QVSheetController::ThirdButton)
            answerClose(true);
        else if (returnCode != QVSheetController::FirstButton)
            answerClose(false);
        else if (needsSaveAs)
            saveAs([this](bool written) { answerClose(written); });
        else
            save([this](bool written) { closeAfter(written); });
    });
}

/// Without the password nothing can be saved, so saving is not offered.
void EditorSaving::askWhetherToLoseChanges()
{
    auto alert = std::make_unique<AlertSheetController>(
        filledIn(tr("The changes made to the document “%@” cannot be saved."), {g_document.displayName()}),
        tr("The datafile’s password was not entered. Your changes will be lost if you close it."),
        QStringList{tr("Close Without Saving"), tr("Cancel")});
    alert->setDestructiveButton(0);
    askAboutClosing(std::move(alert),
                    [this](int returnCode) { answerClose(returnCode == QVSheetController::FirstButton); });
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileDocument.h"
#include "editor/SheetHost.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

namespace tavrin {

class AlertSheetController;
class EditorWindowController;
class WorkHost;
struct DatafileContents;

/// Saving, reverting and closing as an editor window offers them: the questions and what comes of the
/// answers.
///
/// Nothing that the person did is given up without an answer that says so. The own file is written and reread
/// on another thread while the window goes on; whatever else is asked for meanwhile has its turn afterwards.
class EditorSaving : public QObject
{
    Q_OBJECT

public:
    EditorSaving(EditorWindowController &window, SheetHost &sheets, WorkHost &work);

    void saveDocument();
    void saveDocumentAs();
    void saveCopyAs();
    void revertDocumentToSaved();

    /// Saves without a word when that needs no question that the person has not asked for.
    void autoSave();

    /// Ends in the window's `closeAllowed` or `closeRefused`.
    void requestClose();

private:
    /// Called once, when it is clear whether the datafile was written.
    using Written = std::function<void(bool written)>;

    /// Called once, when a save or a revert has ended. Failed: a save did.
    using Ended = std::function<void(const Result<> &ended)>;

    bool isBusy() const { return g_reverting || g_document.isSaving(); }
    void whenFree(const std::function<void()> &next);
    void tellWaiting(const Result<> &ended);

    void saveQuietly();
    void save(const Written &done);
    void writeToOwnFile(const Written &done);
    void saveFirst(const Written &done);
    void begun(const Result<> &begun, const Ended &ended);
    void tellSaved();
    void saveAs(const Written &done);
    void didSaveAs(const QString &path, const Written &done);
    void tellSavedAs(const QString &path, const SaveAsOutcome &outcome, const Written &done);
    void saveCopy(const QString &path);
    void revert();
    void didReadForRevert(Result<DatafileContents> contents);
    void askWhetherToSave();
    void askWhetherToLoseChanges();
    void askAboutClosing(std::unique_ptr<AlertSheetController> alert,
                         const std::function<void(int returnCode)> &answered);
    void closeAfter(bool saved);
    void answerClose(bool allowed);
    void allowClose();
    void reportFailure(const Error &error);

    void ask(std::unique_ptr<AlertSheetController> alert,
             const std::function<void(int returnCode)> &answered);
    /// A null path when the person cancelled.
    void askForFile(const QString &title, const std::function<void(const QString &path)> &chosen);

    EditorWindowController &g_window;
    DatafileDocument &g_document;
    SheetHost &g_sheets;
    WorkHost &g_work;
    std::vector<Ended> g_waiting;
    QTimer g_longSave;
    bool g_reverting = false;
    bool g_saveAgain = false; ///< A save that nobody waits for is among those that have to wait.
    bool g_askingAboutClosing = false;
    bool g_isClosing = false; ///< It was decided that the window closes, and what becomes of the changes.
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/RecordLocking.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tavrin {

class DuplicateRemoval;
class EditorWindowController;
class FormPreview;
class SheetHost;
class WorkHost;

/// Adding, copying, deleting, ordering and locking records as an editor window offers it: the questions, what
/// is shown afterwards, and Undo.
///
/// What is being typed is stored first. Nothing happens while the datafile is synchronized; in one that is
/// read-only nothing is changed, and that is said.
class EditorRecords : public QObject
{
    Q_OBJECT

public:
    EditorRecords(EditorWindowController &window, SheetHost &sheets, WorkHost &work);
    ~EditorRecords() override;

    /// An empty record, shown and ready to be typed into. None while the current one is empty.
    void addRecord() { addEmptyRecord(); }
    void addRecordWithPaste() { addAndPaste(false); }
    void addRecordWithPasteAsPlainText() { addAndPaste(true); }
    /// With what is on the clipboard where a key says so.
    void addRecordWithToggle(bool toggled);
    void duplicateCurrentRecord();
    void addTOC();

    void deleteRecord(); ///< Asks first.
    void deleteRecordWithoutWarning();
    void deleteRecordWithToggle(bool toggled);
    /// Asks, writes a backup unless the person wants none, and then deletes.
    void deleteAllSelectedRecords();
    void removeDuplicateRecords();

    void makeThisTheFirstRecord();
    void makeThisTheLastRecord();
    void moveAfterRecordNumber();

    void lockAllRecords() { lockAll(RecordLocking::Kind::Lock); }
    void unlockAllRecords() { lockAll(RecordLocking::Kind::Unlock); }
    void revertAllRecordsLockedState() { lockAll(RecordLocking::Kind::Revert); }
    void toggleRecordLocked();

    /// Onto the clipboard, formatted and plain.
    void copyRecord();
    void copyRecordWithFieldNames();

    void saveCurrentDatafileToBackups();
    void browseBackups();
    /// Whoever knows them gives the paths of all open datafiles; no backup is restored in their place.
    void setOpenFiles(std::function<QStringList()> openFiles) { g_openFiles = std::move(openFiles); }

private:
    bool addEmptyRecord();
    void addAndPaste(bool plain);
    void backUpAndDelete();
    void deleteRecords(const std::vector<quint32> &records);
    bool showAfterDeletions(bool made);
    void move(bool toFirst);
    void showMoved(const QString &identifier);
    void lockAll(RecordLocking::Kind kind);
    void beginRemovingDuplicates();
    void removeDuplicates(const DuplicateRemoval &removal);
    /// Begins to write a backup; then `done`, or a word on why there is none.
    void backUp(const std::function<void()> &done);
    void restoreBackup(const QString &path);

    EditorWindowController &g_window;
    SheetHost &g_sheets;
    WorkHost &g_work;
    std::unique_ptr<FormPreview> g_preview;
    std::function<QStringList()> g_openFiles;
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileDocument.h"
#include "editor/EditorView.h"
#include "editor/RecordHistory.h"
#include "editor/SheetHost.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QTimer>

#include <memory>

namespace tavrin {

class EditorTableController;

/// The controller of one editor window: which record is shown, what the person did to it, which commands
/// may run now.
///
/// It knows no widget. The document, the hosts and the view outlive it; attachView() comes before prepare(),
/// and prepare() runs once, before anything else is asked. At all times the current record, if any, is among
/// the document's records.
class EditorWindowController : public QObject, public DatafileEditing
{
    Q_OBJECT

public:
    EditorWindowController(DatafileDocument &document, SheetHost &sheets, const Preferences &preferences);
    ~EditorWindowController() override;

    void attachView(EditorView &view) { g_view = &view; }

    /// Sets the window up from the settings, handles read-only opening and the lock file, and shows the
    /// record to open. `firstRecord`: show that record instead, if it is there (a restored session).
    void prepare(const QString &firstRecord = {});

    DatafileDocument &document() { return g_document; }
    const DatafileDocument &document() const { return g_document; }
    EditorTableController &tableController() { return *g_tableController; }

    // What the window shows.
    RecordData *currentRecord() { return g_currentRecord; }
    const RecordData *currentRecord() const { return g_currentRecord; }
    QString windowTitle() const;
    QString recordNumberText() const; ///< "#%lu"
    QString selectionText() const;    ///< "%lu of %lu selected"
    QString mode() const;             ///< "Basic" or "List"
    bool isBasicView() const;
    QString textName() const;
    QFont fieldsFont() const;
    QFont textFont() const;
    QColor freeformBackgroundColor() const;
    bool currentRecordLocked() const;
    /// The current record's text is stored with formatting that the window shows as plain characters. It can
    /// be read; editing it asks for editFreeformTextAsPlain() first, so that no formatting is lost unasked.
    bool isFreeformTextFormatted() const;
    bool isFreeformTextEditable() const;
    QStringList recordInfo() const;

    // Derived values. Positions count selected records from 0.
    qint64 countSelected() const;
    qint64 indexOfCurrentRecord() const;
    RecordData *recordAtIndex(qint64 index);
    bool isValidRecord(const RecordData *record) const;
    bool haveCurrentSelection() const;
    static bool isEmpty(const RecordData &record, const DatafileSettingsData &settings);
    static quint64 recordSize(const RecordData &record);

    // Loading and storing.
    void loadRecord(RecordData *record);
    void loadRecordAtIndex(qint64 index);
    void loadCurrentRecord();
    void saveIfDifferentRecord(RecordData *newRecord);
    void updateCurrentRecord();
    void setDatafileChanged();
    void autoSaveChanges(bool force);
    qint64 recordToOpen();

    // What the person does to the text and the cells, told by the view.
    void textDidChange();
    void cellTextDidChange();
    void editFreeformTextAsPlain();
    void viewGeometryDidChange(); ///< The window or the divider was moved.

    // Commands.
    void goToFirstRecord();
    void goToLastRecord();
    void goToNextRecord();
    void goToPreviousRecord();
    void goToRecordNumber();
    void goBackOneRecord();
    void goForwardOneRecord();
    void switchView();
    void setMode(const QString &mode);
    void addRecord();    ///< An empty record behind the current one, shown and ready to be typed into.
    void deleteRecord(); ///< Asks, then deletes the current record.
    void saveDocument();
    void saveDocumentAs();
    void saveCopyAs();
    void revertDocumentToSaved();

    /// Whether the command of that selector ("goToNextRecord:") may run now; false for an unknown one.
    bool validateAction(const QString &selector) const;

    /// Decides whether the window may close, asking where there are unsaved changes; then `closeAllowed` or
    /// nothing.
    void requestClose();
    /// The window is going: removes the lock file, remembers the record, writes changed settings.
    void windowWillClose();

    // DatafileEditing
    void storeRecordBeingEdited() override;
    void endListEditing() override;
    bool canSaveChanges() const override { return g_canSaveChanges; }
    bool nowSyncing() const override { return g_nowSyncing; }
    void markCurrentRecordClean() override { g_currentRecordDirty = false; }
    void setNowSaving(bool saving) override { g_nowSaving = saving; }

    /// The window became the active one; the first time starts the question whether saving is permitted.
    void windowDidBecomeMain();

Q_SIGNALS:
    void recordLoaded();
    void statusChanged();
    void modeChanged();
    void titleChanged();
    void operationsChanged();
    void closeAllowed();
    void closeRefused();
    /// A short line for the status bar, such as "Saved at 12:04".
    void statusMessage(const QString &message);
    /// Save As succeeded in a way that asks for the file to be opened in place of this window.
    void openInPlace(const QString &path);

private:
    void privateLoadValidatedRecord(RecordData *record);
    void cleanFieldValues();
    void insertInViewedRecordList(const RecordData *record);
    void deleteIfEmptyRecordAtIndex(qint64 index);
    void leaveRecordFor(qint64 target);
    void setUpReadOnlyAndLock();
    void setCanSaveChanges();
    void followDocument(const DatafileChange &change);
    void setUpViewForMode();

    DatafileDocument &g_document;
    SheetHost &g_sheets;
    const Preferences &g_preferences;
    EditorView *g_view = nullptr;
    std::unique_ptr<EditorTableController> g_tableController;
    RecordData *g_currentRecord = nullptr;
    RecordHistory g_viewedRecordList;
    class LockState;
    std::unique_ptr<LockState> g_lock;
    QTimer g_permissionTimer;
    QString g_firstOpenedRecordID;
    int g_lastHitField = -1;
    bool g_currentRecordDirty = false;
    bool g_movingInViewedRecordList = false;
    bool g_nowSaving = false;
    bool g_preparing = false;
    bool g_canSaveChanges = false;
    bool g_nowSyncing = false;
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileDocument.h"
#include "editor/EditorView.h"
#include "editor/RecordHistory.h"
#include "editor/SheetHost.h"
#include "editor/TextScale.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QTimer>

#include <memory>
#include <utility>

namespace tavrin {

class EditorChanges;
class EditorFields;
class EditorFormatting;
class EditorFreeformText;
class EditorLinks;
class EditorPermission;
class EditorRecords;
class EditorSaving;
class EditorSearchController;
class EditorExporting;
class EditorSelecting;
class EditorSorting;
class EditorTableController;
class EditorTextCommands;
class WorkHost;

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
    EditorWindowController(DatafileDocument &document,
                           SheetHost &sheets,
                           WorkHost &work,
                           Preferences &preferences);
    /// A clone window: a second window on the same datafile, for reading. It writes into no record and no
    /// setting. The main window's controller outlives it, and has no other clone.
    EditorWindowController(EditorWindowController &mainWindow, SheetHost &sheets, WorkHost &work);
    ~EditorWindowController() override;

    void attachView(EditorView &view) { g_view = &view; }

    /// Sets the window up from the settings, handles read-only opening and the lock file, and shows the
    /// record to open. `firstRecord`: show that record instead, if it is there (a restored session).
    void prepare(const QString &firstRecord = {});

    DatafileDocument &document() { return g_document; }
    const DatafileDocument &document() const { return g_document; }
    EditorTableController &tableController() { return *g_tableController; }
    EditorRecords &records() { return *g_records; }
    EditorChanges &changes() { return *g_changes; }
    EditorFields &fields() { return *g_fields; }
    EditorSelecting &selecting() { return *g_selecting; }
    EditorExporting &exporting() { return *g_exporting; }
    EditorSorting &sorting() { return *g_sorting; }
    const EditorSorting &sorting() const { return *g_sorting; }
    EditorSearchController &search() { return *g_search; }
    const EditorSearchController &search() const { return *g_search; }
    EditorTextCommands &textCommands() { return *g_textCommands; }

    bool isClone() const { return g_mainWindow != nullptr; }
    /// Of this datafile: 2 while there is a clone window.
    int windowControllerCount() const { return isClone() || g_cloneWindow ? 2 : 1; }

    EditorFreeformText &text() { return *g_text; }
    const EditorFreeformText &text() const { return *g_text; }
    EditorFormatting &formatting() { return *g_formatting; }
    const EditorFormatting &formatting() const { return *g_formatting; }
    EditorLinks &links() { return *g_links; }
    const EditorLinks &links() const { return *g_links; }
    EditorView &view() const { return *g_view; }
    /// Where the questions of this window are put.
    SheetHost &sheets() { return g_sheets; }

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
    bool isFreeformTextEditable() const;
    QStringList recordInfo() const; ///< Modified, viewed, created; by whom each; the size.
    int textScaleTag() const { return g_textScaleTag; }
    double textScale() const { return textScaleForTag(g_textScaleTag); }
    /// Also from the wheel: a tag beyond either end is that end's.
    void setTextScale(int tag);

    // Derived values. Positions count selected records from 0.
    qint64 countSelected() const { return g_document.datafileCatalog().countSelected(); }
    qint64 indexOfCurrentRecord() const;
    RecordData *recordAtIndex(qint64 index);
    /// The same without opening the record, as for a look at many.
    std::optional<RecordView> recordViewAtIndex(qint64 index) const;
    bool isValidRecord(const RecordData *record) const;
    bool haveCurrentSelection() const;
    const RecordHistory &viewedRecordList() const { return g_viewedRecordList; }
    static bool isEmpty(const RecordData &record, const DatafileSettingsData &settings);
    bool isCurrentRecordEmpty() const { return g_currentRecord && isEmpty(*g_currentRecord, settings()); }
    static quint64 recordSize(const RecordData &record);

    // Loading and storing.
    void loadRecord(RecordData *record);
    void loadRecordAtIndex(qint64 index);
    void loadCurrentRecord() { loadRecord(g_currentRecord); }
    void saveIfDifferentRecord(RecordData *newRecord);
    void updateCurrentRecord();
    /// Before a command on many records: what is being typed is stored. False while the datafile is being
    /// synchronized, when nothing may be done.
    bool leaveEditing();
    /// Whether records and fields may be changed; where the datafile is read-only, that is said.
    bool permitsChange();
    bool leaveEditingToChange() { return permitsChange() && leaveEditing(); }
    /// Shows a record, selecting it if it is omitted.
    void showRecord(const QString &identifier);
    void setDatafileChanged();
    void autoSaveChanges(bool force);
    qint64 recordToOpen();
    /// What the person typed into a cell: stores it and marks record and datafile.
    void storeFieldValue(const RecordData &record, const QString &fieldIdentifier, const QString &value);

    // What the person does to the text and the cells, told by the view.
    void textDidChange();
    void cellTextDidChange();
    void viewGeometryDidChange(); ///< The window or the divider was moved.
    void viewSettingsDidChange(); ///< A setting of the view was stored; saved unless the person prefers not.
    void showCurrentRow();        ///< In List View.
    /// Where the last search or the last editing of a field ended: a LastHitField, or the field's index.
    qint64 lastHitField() const { return g_lastHitField; }
    void setLastHitField(qint64 field) { g_lastHitField = field; }
    /// Searching begins anew, from the find box.
    void freshenWindowContentSettings();
    void focusFreeformText() { g_view->setFocus(EditorFocus::FreeformText); }

    Preferences &preferences() { return g_preferences; }
    const Preferences &preferences() const { return g_preferences; }
    // For the commands on records and fields.
    QString currentIdentifier() const { return identifierOf(g_currentRecord); }
    /// A new record, ready to be typed into.
    void showNewRecord(const QString &identifier);
    /// The record at the index was deleted: shows the one that followed, or the first, and saves where that
    /// is done without being asked.
    void showAfterDeletion(qint64 index);
    /// Many were deleted: shows the first.
    void showAfterDeletions();
    /// False when that could not be done.
    bool pasteIntoFreeformText(bool plain);
    void focusTable();
    bool isTableFocused() const;

    // What can be undone beside the typing; null names when there is nothing.
    QString undoName() const;
    QString redoName() const;
    void undo();
    void redo();

    // Commands.
    void goToFirstRecord();
    void goToLastRecord();
    void goToNextRecord();
    void goToPreviousRecord();
    void goToRecordNumber();
    void goBackOneRecord() { walkViewedRecordList(&RecordHistory::goBack); }
    void goForwardOneRecord() { walkViewedRecordList(&RecordHistory::goForward); }
    void switchView();
    void setMode(const QString &mode);
    void openCloneWindow();
    /// A command that concerns the window's looks alone, such as "showRecordInfo:".
    void askView(const QString &selector) { Q_EMIT viewAsked(selector); }
    /// While it is on, nothing may be done that changes records or leaves the one shown.
    void setEditingNonPrintableRecords(bool editing);
    bool editingNonPrintableRecords() const { return g_editingNonPrintableRecords; }
    void addRecord();
    void deleteRecord();
    void saveDocument();
    void saveDocumentAs();
    void saveCopyAs();
    void revertDocumentToSaved();

    /// Whether the command of that selector ("goToNextRecord:") may run now; false for an unknown one.
    bool validateAction(const QString &selector) const;
    /// The selectors of every command that a window is to have.
    static QStringList knownActions();

    /// Decides whether the window may close, asking where there are unsaved changes; then `closeAllowed` or
    /// `closeRefused`.
    void requestClose();
    /// Begins to write, on another thread, what windowWillClose() would; false when there is nothing.
    bool beginWritingClosingSettings();
    /// The window is going: removes the lock file, remembers the record, writes changed settings.
    void windowWillClose();

    // DatafileEditing
    void storeRecordBeingEdited() override;
    void endListEditing() override;
    bool canSaveChanges() const override;
    /// Also while a change of many records is being made.
    bool nowSyncing() const override;
    void markCurrentRecordClean() override { g_currentRecordDirty = false; }
    void setNowSaving(bool saving) override { g_nowSaving = saving; }

    /// The window became the active one; the first time starts the question whether saving is permitted.
    void windowDidBecomeMain();
    /// Decides that question now; later calls do nothing.
    void setCanSaveChanges();
    bool isAskingPassword() const;

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
    /// Another datafile is to be opened beside this one.
    void openDatafile(const QString &path);
    /// Save As succeeded in a way that asks for the file to be opened in place of this window.
    void openInPlace(const QString &path);
    void textScaleChanged();
    void viewAsked(const QString &selector);
    void cloneWindowRequested();
    /// Told by the main window when its clone has to go now.
    void cloneWindowMustClose();

private:
    DatafileSettingsData &settings() { return g_document.datafileSettings(); }
    const DatafileSettingsData &settings() const { return g_document.datafileSettings(); }
    QString identifierOf(const RecordData *record) const;
    bool isNavigable() const { return countSelected() >= 2; }

    void privateLoadValidatedRecord(RecordData *record);
    void showNothing();
    void cleanFieldValues();
    void storeFreeformText();
    void resumeTableEditing(std::pair<int, int> selection);
    void setUpTables();
    void updateFreeformTextEditability();
    void insertInViewedRecordList(const RecordData *record);
    void markEdited(const QString &identifier);

    void leaveRecordFor(qint64 target);
    void walkViewedRecordList(QString (RecordHistory::*step)());
    void deleteIfEmptyRecordAtIndex(qint64 index);
    void focusFirstField();

    void rememberRecordToOpen();
    QString currentViewFrame() const;
    void setCurrentViewFrame(const QString &frame);
    double currentSplitHeight() const;
    void setUpViewForMode();
    void restoreFocus(EditorFocus focus);

    void setUpCollaborators(WorkHost &work);
    void reloadClone();
    bool hasOldText() const;
    void showChangesInClone(const DatafileChange &change);
    void storeForClone();

    void followDocument();
    void documentDidChange(const DatafileChange &change);
    void recordWillBeDeleted(const QString &identifier);
    void recordDidChange(const QString &identifier);
    void fieldFormatDidChange();
    void recordsDidChange();
    void catalogDidChange();
    void datafileReverted();

    DatafileDocument &g_document;
    SheetHost &g_sheets;
    Preferences &g_preferences;
    EditorView *g_view = nullptr;
    std::unique_ptr<EditorTableController> g_tableController;
    std::unique_ptr<EditorPermission> g_permission;
    std::unique_ptr<EditorSaving> g_saving;
    std::unique_ptr<EditorChanges> g_changes;
    std::unique_ptr<EditorRecords> g_records;
    std::unique_ptr<EditorFields> g_fields;
    std::unique_ptr<EditorSelecting> g_selecting;
    std::unique_ptr<EditorSorting> g_sorting;
    std::unique_ptr<EditorFreeformText> g_text;
    std::unique_ptr<EditorFormatting> g_formatting;
    std::unique_ptr<EditorLinks> g_links;
    std::unique_ptr<EditorExporting> g_exporting;
    std::unique_ptr<EditorSearchController> g_search;
    std::unique_ptr<EditorTextCommands> g_textCommands;
    EditorWindowController *g_mainWindow = nullptr;  ///< Of a clone.
    EditorWindowController *g_cloneWindow = nullptr; ///< Of a main window that has one.
    QString g_cloneText;                             ///< What a clone shows, in its two stored forms.
    QByteArray g_cloneRTFD;
    QTimer g_cloneTimer; ///< Until the clone shows what is typed here.
    RecordData *g_currentRecord = nullptr;
    RecordHistory g_viewedRecordList;
    QString g_firstOpenedRecordID;
    QString g_mode; ///< Its own: a clone may stand in the other view.
    qint64 g_lastHitField = -1;
    int g_textScaleTag = usualTextScaleTag;
    bool g_currentRecordDirty = false;
    bool g_freeformTextEditable = false; ///< As last told to the view.
    bool g_movingInViewedRecordList = false;
    bool g_nowSaving = false;
    bool g_preparing = false;
    bool g_nowSyncing = false;
    bool g_editingNonPrintableRecords = false;
};

} // namespace tavrin

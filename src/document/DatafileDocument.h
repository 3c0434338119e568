// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "document/CatalogMismatch.h"
#include "document/DatafileChange.h"
#include "document/DatafileEditing.h"
#include "document/DatafileKind.h"
#include "document/DocumentServices.h"
#include "document/FileStamp.h"
#include "document/SaveOutcome.h"
#include "model/DatafileRecordsData.h"
#include "model/DatafileSettingsData.h"
#include "plist/Reader.h"
#include "sorting/SubsetSortedData.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tavrin {

class BackgroundSave;
struct DatafileContents;
struct DatafileSnapshot;
class UndoHistory;

/// One open datafile: its settings, records and catalog, the file they came from, and whether the file
/// may be written and needs to be.
///
/// It knows no window; a window registers itself as its DatafileEditing. Settings, records and catalog exist
/// from the moment the document does.
class DatafileDocument : public QObject
{
    Q_OBJECT

public:
    enum class ChangeCount { Done, Undone, Cleared };
    using SaveOutcome = tavrin::SaveOutcome;
    using SaveAsOutcome = tavrin::SaveAsOutcome;

    ~DatafileDocument() override;

    /// An empty document of a kind: no fields, no records, never saved.
    static std::unique_ptr<DatafileDocument> newDocument(const DocumentServices &services, DatafileKind kind);

    /// A new document with these fields and one empty record. An empty textName leaves the default name.
    static std::unique_ptr<DatafileDocument> newDatafile(const DocumentServices &services,
                                                         DatafileKind kind,
                                                         const QStringList &fieldNames,
                                                         const QString &textName);

    /// Reads a datafile. NotFound, Io, Corrupt (not a property list, or a part is missing), TooNew.
    /// A catalog that disagrees with the records is kept as read: see catalogMismatch().
    /// Without a kind the extension tells it; any other extension means the full kind.
    static Result<std::unique_ptr<DatafileDocument>> open(const DocumentServices &services,
                                                          const QString &path,
                                                          SelectionOnOpening selection,
                                                          std::optional<DatafileKind> kind = {});

    /// The document of contents that readDatafile() has read, perhaps on another thread.
    static std::unique_ptr<DatafileDocument> openContents(const DocumentServices &services,
                                                          DatafileContents contents,
                                                          SelectionOnOpening selection,
                                                          std::optional<DatafileKind> kind = {});

    /// What an alert says about a datafile of a format that is too new: the message, which TooNew errors
    /// carry, and the text below it.
    static QString tooNewMessage(const QString &fileName);
    static QString tooNewInformativeText();

    /// Reads the file into this document, in place of what it holds. A type name other than the two datafile
    /// kinds succeeds and reads nothing. On failure the document stays as it was.
    Result<> readFromURL(const QString &path, const QString &typeName);

    /// Writes the whole document in XML form. Refused for a document that is read-only by opening or by
    /// setting; Unsupported for a type name of another kind.
    Result<> writeToURL(const QString &path, const QString &typeName);

    /// As writeToURL, in the given form: for the command line.
    Result<> writeToURL(const QString &path, const QString &typeName, plist::Format format);

    /// Saves to the document's own file.
    Result<SaveOutcome> saveDocument();

    /// As saveDocument(), but the file is written on another thread while the document goes on changing:
    /// the outcome is Begun, and savingFinished() follows. What changes meanwhile is left to the next save.
    Result<SaveOutcome> beginSaving();

    /// A save that was begun is not finished yet. Whatever else reads or writes the file waits for it, the
    /// end of the document too.
    bool isSaving() const;
    void waitForSaving();

    /// Saves whenever the window permits saving; Refused when it does not, or there is no file yet.
    Result<> forceSave();
    /// As forceSave(), on another thread; savingFinished() follows unless this fails.
    Result<> beginForceSave();

    /// The first save of a document that has no file yet, of either kind: `path` becomes its file. When that
    /// fails it has none, as before.
    Result<> saveToFirstFile(const QString &path);
    /// As saveToFirstFile(), on another thread; savingFinished() follows unless this fails.
    Result<> beginSavingToFirstFile(const QString &path);

    /// Makes `path` the document's file, writable, and writes it there. The unsaved mark stays as it was, and
    /// is set when the file was not written. Nothing at all happens while the window does not permit saving.
    SaveAsOutcome saveDocumentAs(const QString &path);
    /// As saveDocumentAs(), on another thread: the document's file is another one at once, and
    /// savingFinished() comes after `ended`. When it is refused, `ended` is called at once.
    void beginSavingAs(const QString &path, const std::function<void(const SaveAsOutcome &)> &ended);

    /// Writes a copy; the document keeps its own file and its unsaved mark. A read-only document may be
    /// copied, but never onto its own file: Refused.
    Result<> saveCopyAs(const QString &path, plist::Format format = plist::Format::Xml);
    /// As saveCopyAs(), on another thread; savingFinished() follows unless this fails.
    Result<> beginSavingCopy(const QString &path);
    /// Writes a copy of what the document holds now, whenever and on whatever thread it is called.
    std::function<Result<>()> copyWriting(const QString &path);

    /// Rereads the document's file and announces it.
    Result<> revertToContents();
    /// As revertToContents(), to contents that readDatafile() has read from the document's file.
    void revertToContents(DatafileContents contents);

    /// Writes changed settings and leaves the records in the file as they are there, also in a read-only
    /// document. Nothing when no setting changed, the window does not permit saving, or there is no file.
    Result<> updateSettingsOnly(plist::Format format = plist::Format::Xml);
    /// As updateSettingsOnly(), on another thread: Begun, and savingFinished() follows, or NothingToSave.
    SaveOutcome beginUpdatingSettingsOnly();

    /// What the repair question asks about; empty when catalog and records agree, or after an answer.
    std::optional<CatalogMismatch> catalogMismatch() const;
    /// The question's message, for people.
    QString catalogMismatchMessage() const;
    static QString catalogMismatchMessage(const QString &fileName, const CatalogMismatch &counts);
    /// Answers "Correct the Problem": one entry for each record, all selected. The old order is lost.
    void correctCatalog();
    /// Answers "Don't Correct": the catalog is used as read.
    void keepCatalog();

    DatafileSettingsData &datafileSettings() { return *g_settings; }
    const DatafileSettingsData &datafileSettings() const { return *g_settings; }
    DatafileRecordsData &datafileRecords() { return *g_records; }
    const DatafileRecordsData &datafileRecords() const { return *g_records; }
    SubsetSortedData &datafileCatalog() { return *g_catalog; }
    const SubsetSortedData &datafileCatalog() const { return *g_catalog; }
    const DocumentServices &services() const { return g_services; }

    DatafileKind kind() const { return g_kind; }
    bool isMobile() const { return g_kind == DatafileKind::Mobile; }
    bool openedReadOnly() const { return g_openedReadOnly; }
    void setOpenedReadOnly(bool readOnly);
    bool correctedCatalog() const { return g_correctedCatalog; }
    /// Empty for a document that was never saved.
    QString filePath() const { return g_filePath; }
    /// The form in which the file was read; new documents are XML.
    plist::Format formatRead() const { return g_formatRead; }
    QString defaultDraftName() const { return g_defaultDraftName; }
    void setDefaultDraftName(const QString &name) { g_defaultDraftName = name; }
    /// Forgets the file it was read from: from now on a document of that draft name that was never saved.
    void makeUntitled(const QString &name);
    /// The file's name, or the draft name: what a window's title shows.
    QString displayName() const;
    /// Another program has written the file since we last read or wrote it. False while we are writing it.
    bool changedOnDisk() const;

    /// The window that edits the document; null when there is none. It must unregister before it goes.
    void setEditing(DatafileEditing *editing) { g_editing = editing; }

    /// What can be undone beside the typing. It begins anew when the file is read again.
    UndoHistory &undoHistory() { return *g_undoHistory; }
    const UndoHistory &undoHistory() const { return *g_undoHistory; }

    bool isModified() const { return g_changeCount != 0; }
    void updateChangeCount(ChangeCount change);

    /// Tells everybody. For operations that change the data themselves.
    void announce(const DatafileChange &change);
    /// Announces that the order or the selection of the catalog changed.
    void announceCatalogChange();

    /// Stores a field's content, or the text's plain content, and nothing else: no dates, no mark.
    void
    storeFieldValue(const QString &recordIdentifier, const QString &fieldIdentifier, const QString &value);
    void storeText(const QString &recordIdentifier, const QString &text);
    /// As storeText, with the rich text of which that is the plain text.
    void storeFormattedText(const QString &recordIdentifier, const QString &text, const QByteArray &textRTFD);
    /// As storeText, and empties the rich text: its formatting is lost.
    void storePlainText(const QString &recordIdentifier, const QString &text);
    /// Stamps the record as modified now by the user.
    void markRecordModified(const QString &recordIdentifier);

    /// Adds an empty record behind another (empty: at the beginning; unknown: at the end) and announces it.
    /// The identifier of the new record.
    QString addRecord(const QString &afterIdentifier);
    /// The same with a new record that was made and filled already.
    QString addRecord(std::unique_ptr<RecordData> record, const QString &afterIdentifier);
    /// Announces, removes from the records and the catalog, announces. Nothing for an unknown identifier.
    void deleteRecord(const QString &identifier);

    /// The content of the field of that name in the record at a catalog index; null when there is no such
    /// field or it is empty.
    QString contentOfField(const QString &name, qint64 catalogIndex) const;

    /// A definition with a fresh identifier for each name.
    QList<FieldDefinition> arrayForFieldNames(const QStringList &names) const;
    void addFieldNamesToDocument(const QStringList &names);

    /// The lines of a record's postal address, as the address settings say where it stands.
    QString freeformAddressBlockForRecord(const RecordData &record) const;
    QString fieldBasedAddressBlockForRecord(const RecordData &record) const;
    QString addressBlockAtIndex(qint64 catalogIndex) const;

Q_SIGNALS:
    void changed(const tavrin::DatafileChange &change);
    void modifiedChanged(bool modified);
    /// The file, its name or the permission to write it changed.
    void fileChanged();
    /// The file was written: the Datafiles menu may be out of date.
    void fileWritten();
    /// A save that was begun has ended; on failure the file is as it was.
    void savingFinished(const tavrin::Result<> &saved);

    // The same changes under the names by which the rest of the system knows them.
    void didAddRecord(const QString &newIdentifier, const QString &afterIdentifier);
    void willDeleteRecord(const QString &identifier);
    void didDeleteRecord(const QString &identifier);
    void datafileFieldFormatChanged();
    void revertedDatafileWindow();
    void selectionWouldBeEmptyError();

private:
    using Write = std::function<Result<FileStamp>()>;
    using Written = std::function<void(const Result<FileStamp> &written)>;

    DatafileDocument(const DocumentServices &services, DatafileKind kind);

    void takeContents(DatafileContents contents);
    DatafileSnapshot snapshot();
    bool canSaveChanges() const { return !g_editing || g_editing->canSaveChanges(); }
    void setCatalog(CatalogForms forms, std::vector<CatalogEntry> entries);
    void sortAnew();
    RecordData &recordToChange(const QString &identifier) const;
    bool isOwnFile(const QString &path) const;
    Result<> mayWrite(const QString &typeName) const;
    void setChangeCount(qint64 count);
    Result<> writeContents(const QString &path, plist::Format format);
    bool hasSettingsToUpdate() const;
    Write settingsWrite(plist::Format format);
    Result<SaveOutcome> saveBy(Result<> (DatafileDocument::*save)(), SaveOutcome done);
    Result<> mayForceSave() const;
    Result<> saveNormally();
    Result<> beginSavingNormally();
    Write snapshotWrite(const QString &path);
    void beginWriting(Write write, const Written &ended);
    void beginWritingOwnFile(Write write, const Written &ended);
    void didSave(const Result<FileStamp> &written);
    Result<> beginSaveAs(const QString &path);
    static SaveAsOutcome saveAsOutcome(const Result<> &written, const QString &path);
    void markUnsaved();

    DocumentServices g_services;
    DatafileKind g_kind;
    std::unique_ptr<DatafileSettingsData> g_settings;
    std::unique_ptr<DatafileRecordsData> g_records;
    std::unique_ptr<SubsetSortedData> g_catalog;
    plist::Dictionary g_rootEntries; ///< The root's keys in their order; the values of unknown ones.
    DatafileEditing *g_editing = nullptr;
    SelectionOnOpening g_selectionOnOpening = SelectionOnOpening::AllSelected;
    plist::Format g_formatRead = plist::Format::Xml;
    std::optional<CatalogMismatch> g_catalogMismatch;
    FileStamp g_stamp;
    QString g_filePath;
    QString g_defaultDraftName;
    std::unique_ptr<BackgroundSave> g_save;
    std::unique_ptr<UndoHistory> g_undoHistory;
    qint64 g_changeCount = 0;
    bool g_openedReadOnly = false;
    bool g_correctedCatalog = false;
};

} // namespace tavrin

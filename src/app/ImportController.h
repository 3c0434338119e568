// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/ImportSheetController.h"
#include "app/TableImporting.h"

namespace tavrin {

/// Importing as the application offers it: choosing the file, asking where the records go, the reading and
/// the adding, which are done on another thread and can be cancelled, and what is told afterwards.
///
/// Each operation is given the window whose datafile may take the records; null for none. Nothing is made
/// before the file was read.
class ImportController : public QObject
{
    Q_OBJECT

public:
    ImportController(MainController &controller, SheetHost &sheets, WorkHost &work);

    void importCSV(EditorWindowController *window) { importTable(TableKind::Csv, window); }
    void importSSV(EditorWindowController *window) { importTable(TableKind::Ssv, window); }
    void importTabDelimited(EditorWindowController *window) { importTable(TableKind::Tab, window); }
    void importCustomDelimited(EditorWindowController *window) { importTable(TableKind::Custom, window); }
    void importDelimitedText(EditorWindowController *window) { importTable(TableKind::Standard, window); }
    void importFolderOfTextFiles(EditorWindowController *window) { importFolder(false, window); }
    void importFolderOfTextFilesWithFileNames(EditorWindowController *window) { importFolder(true, window); }
    void importJSON(EditorWindowController *window);
    void importMarkdownFolder(EditorWindowController *window);

private:
    using Chosen = std::function<void(const QString &path)>;
    using ReadFiles = std::function<Result<ReadRecords>(Progress &progress)>;
    using Read = std::function<void(const ReadRecords &records)>;
    /// The answer to the question where records go.
    using Placed = std::function<void(ImportDestination destination, bool includingSubfolders)>;

    /// For files that match one of the filters; for a folder when there is none.
    void choose(const QString &title, const QStringList &filters, const Chosen &chosen);
    void importTable(TableKind kind, const ImportWindow &window);
    void importRichText(const QString &path, const ImportWindow &window);
    void importFolder(bool withFileNames, const ImportWindow &window);
    void importRecords(const ImportJob &job,
                       const ReadFiles &read,
                       const QString &name,
                       const ImportWindow &window);
    void readRecords(const ImportJob &job, const ReadFiles &read, const Read &next);
    void askWhereRecordsGo(const QString &name,
                           const ImportTarget &target,
                           bool asksForSubfolders,
                           const Placed &placed);
    void addRecords(const ReadRecords &records,
                    ImportDestination destination,
                    const QString &name,
                    const ImportWindow &window,
                    TableKind kind = TableKind::Standard);

    MainController &g_controller;
    SheetHost &g_sheets;
    ImportAdding g_adding;
    TableImporting g_tables;
};

} // namespace tavrin

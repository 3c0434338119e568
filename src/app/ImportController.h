// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/ImportSheetController.h"
#include "editor/EditorWindowController.h"
#include "editor/LongWork.h"
#include "editor/SheetHost.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

namespace tavrin {

class ImportAssistantSheetController;
class MainController;

/// Importing as the application offers it: choosing the file, the options sheet, the reading and the adding,
/// which are done on another thread and can be cancelled, and what is told afterwards.
///
/// Each operation is given the window whose datafile may take the records; null for none. Nothing is made
/// before there are records.
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
    using Window = QPointer<EditorWindowController>;
    using Chosen = std::function<void(const QString &path)>;
    using ReadFiles = std::function<Result<ReadRecords>(Progress &progress)>;

    void askForFile(const QString &title, const QStringList &filters, const Chosen &chosen);
    void askForFolder(const QString &title, const Chosen &chosen);
    /// Does a job on another thread and goes on with what came of it.
    template <typename T>
    void inBackground(const QString &title,
                      const std::function<Result<T>(Progress &progress)> &job,
                      const std::function<void(Result<T> outcome)> &next);

    void importTable(TableKind kind, const Window &window);
    void importFolder(bool withFileNames, const Window &window);
    void importRichText(const QString &path, const Window &window);
    void askForOptions(TableKind kind, const QString &path, const TextContent &content, const Window &window);
    void runAssistant(const QString &path, const TextContent &content, const Window &window);
    void
    finishAssistant(const ImportAssistantSheetController &sheet, const QString &name, const Window &window);
    void update(const ReadTable &table,
                const TableMapping &mapping,
                const QString &keyField,
                const Window &window);
    void convert(const ImportOptions &options,
                 const QString &path,
                 const TextContent &content,
                 const Window &window);
    void askWhereRecordsGo(const ReadRecords &records, const QString &name, const Window &window);
    void addRecords(const ReadRecords &records,
                    ImportDestination destination,
                    const QString &name,
                    const Window &window,
                    TableKind kind = TableKind::Standard);
    void readRecords(const ReadFiles &read, const QString &name, const Window &window);

    /// What is added, and what is told of it.
    struct Adding
    {
        RecordBatch batch;
        ImportDestination destination;
        TableKind kind = TableKind::Standard;
        quint64 malformed = 0;
        quint64 dropped = 0;
        qsizetype skipped = 0;
    };
    void
    showNewDatafile(std::unique_ptr<DatafileDocument> document, const QString &name, const Adding &adding);
    void addTo(const Window &window, const Adding &adding);
    static void tellAfterwards(EditorWindowController &window, const Adding &adding, quint64 removed);
    void tell(const Error &error);

    MainController &g_controller;
    SheetHost &g_sheets;
    WorkHost &g_work;
};

} // namespace tavrin

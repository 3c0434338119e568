// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/ImportController.h"

#include "app/ImportAssistantSheetController.h"
#include "app/ImportWork.h"
#include "app/MainController.h"
#include "editor/AlertSheetController.h"
#include "editor/EditorWindowController.h"
#include "editor/FileSheetController.h"
#include "io/FolderFiles.h"

#include <QFileInfo>
#include <QLocale>

#include <limits>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

QString panelTitle(TableKind kind)
{
    switch (kind) {
    case TableKind::Csv:
        return ImportController::tr("Select a CSV File to Import");
    case TableKind::Ssv:
        return ImportController::tr("Select an SSV File to Import");
    case TableKind::Tab:
        return ImportController::tr("Select a Tab-delimited File to Import");
    case TableKind::Custom:
        return ImportController::tr("Select a Custom-delimited File to Import");
    case TableKind::Standard:
        break;
    }
    return ImportController::tr("Select a Text File to Import");
}

QString panelFilter(TableKind kind)
{
    switch (kind) {
    case TableKind::Csv:
        return ImportController::tr("CSV files (*.csv *.txt *.text)");
    case TableKind::Ssv:
        return ImportController::tr("SSV files (*.ssv *.txt *.text)");
    case TableKind::Tab:
        return ImportController::tr("Tab-delimited files (*.tab)");
    case TableKind::Custom:
        return ImportController::tr("Texts (*.txt *.text *.rtf)");
    case TableKind::Standard:
        break;
    }
    return ImportController::tr("Delimited text (*.csv *.ssv *.tsv *.tab *.txt *.text)");
}

ImportTarget targetOf(const QPointer<EditorWindowController> &window)
{
    if (!window || !window->canSaveChanges())
        return {};
    return {window->windowTitle(), window->document().datafileSettings().fields()};
}

constexpr qint64 allRows = std::numeric_limits<qint64>::max();

/// Where the Import Assistant's records are added.
ImportDestination destinationOf(ImportAssistantSheetController::Destination destination)
{
    using Destination = ImportAssistantSheetController::Destination;
    return destination == Destination::NewDatafile ? ImportDestination::NewDatafile
           : destination == Destination::Merge     ? ImportDestination::Merge
                                                   : ImportDestination::Append;
}

} // namespace

ImportController::ImportController(MainController &controller, SheetHost &sheets, WorkHost &work)
    : g_controller(controller)
    , g_sheets(sheets)
    , g_work(work)
{}

template <typename T>
void ImportController::inBackground(const QString &title,
                                    const std::function<Result<T>(Progress &progress)> &job,
                                    const std::function<void(Result<T> outcome)> &next)
{
    auto work = std::make_unique<ImportWork<Result<T>>>(title, Error{Error::Kind::Cancelled}, job);
    connect(work.get(), &LongWork::ended, this, [next, work = work.get()] { next(work->takeOutcome()); });
    g_work.begin(std::move(work));
}

void ImportController::tell(const Error &error)
{
    if (error.kind == Error::Kind::Cancelled)
        return;
    // What could not be read has nothing to import.
    const bool isOurs = error.message == nothingImported().message;
    showAlert(g_sheets, nothingImported().message, isOurs ? error.detail : error.message);
}

// Choosing.

void ImportController::askForFile(const QString &title, const QStringList &filters, const Chosen &chosen)
{
    FileSheetController::Request request;
    request.purpose = FileSheetController::Purpose::OpenFiles;
    request.title = title;
    request.acceptLabel = tr("Import");
    request.nameFilters = filters + QStringList{tr("All files (*)")};
    auto sheet = std::make_unique<FileSheetController>(request);
    sheet->keepFolder(g_controller.preferences(), u"LastImportFolder"_s);
    connect(sheet.get(), &QVSheetController::finished, this, [chosen, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            chosen(sheet->path());
    });
    g_sheets.begin(std::move(sheet));
}

void ImportController::askForFolder(const QString &title, const Chosen &chosen)
{
    FileSheetController::Request request;
    request.purpose = FileSheetController::Purpose::OpenFolder;
    request.title = title;
    request.acceptLabel = tr("Import");
    auto sheet = std::make_unique<FileSheetController>(request);
    sheet->keepFolder(g_controller.preferences(), u"LastImportFolder"_s);
    connect(sheet.get(), &QVSheetController::finished, this, [chosen, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            chosen(sheet->path());
    });
    g_sheets.begin(std::move(sheet));
}

// Tables.

void ImportController::importTable(TableKind kind, const Window &window)
{
    askForFile(panelTitle(kind), {panelFilter(kind)}, [=, this](const QString &path) {
        const QString extension = QFileInfo(path).suffix().toLower();
        if (kind == TableKind::Custom && (extension == u"rtf" || extension == u"rtfd")) {
            importRichText(path, window);
            return;
        }
        const auto read = [path](Progress &progress) { return readTextFile(path, {}, progress); };
        inBackground<TextContent>(tr("Reading “%1”…").arg(QFileInfo(path).fileName()),
                                  read,
                                  [=, this](const Result<TextContent> &content) {
                                      if (!content)
                                          tell(content.error());
                                      else if (content->isEmpty())
                                          tell(nothingImported());
                                      else if (kind == TableKind::Standard)
                                          runAssistant(path, *content, window);
                                      else
                                          askForOptions(kind, path, *content, window);
                                  });
    });
}

void ImportController::askForOptions(TableKind kind,
                                     const QString &path,
                                     const TextContent &content,
                                     const Window &window)
{
    auto sheet =
        std::make_unique<ImportSheetController>(kind, QFileInfo(path).fileName(), content, targetOf(window));
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int code) {
        if (code == QVSheetController::ThirdButton)
            runAssistant(path, sheet->content(), window);
        else if (code == QVSheetController::FirstButton)
            convert(sheet->options(), path, sheet->content(), window);
    });
    g_sheets.begin(std::move(sheet));
}

void ImportController::convert(const ImportOptions &options,
                               const QString &path,
                               const TextContent &content,
                               const Window &window)
{
    const auto read = [=](Progress &progress) { return readTable(content, options, allRows, progress); };
    const auto next = [=, this](const Result<ReadTable> &table) {
        if (!table) {
            tell(table.error());
            return;
        }
        const bool isNew = options.destination == ImportDestination::NewDatafile;
        if (!isNew && !window)
            return;
        const QFileInfo file(path);
        if (table->table->rowCount() == 0) {
            tell(wrongFormat(file.fileName(), options.kind));
            return;
        }
        auto document = isNew ? newDatafileForImport(
                            g_controller.services(), DatafileKind::Pro, importedFieldNames(*table, options))
                              : nullptr;
        const DatafileDocument &target = isNew ? *document : window->document();
        const TableMapping mapping = usualMapping(*table, options, target.datafileSettings().fields());
        const Result<RecordBatch> batch =
            recordsOfTable(*table, mapping, g_controller.services().environment);
        if (!batch || batch->count() == 0) {
            tell(batch ? nothingImported() : batch.error());
            return;
        }
        const Adding adding{
            *batch, options.destination, options.kind, table->malformedCount, droppedCount(*table, mapping)};
        if (isNew)
            showNewDatafile(std::move(document),
                            options.kind == TableKind::Custom ? tr("Custom-Delimited")
                                                              : file.completeBaseName(),
                            adding);
        else
            addTo(window, adding);
    };
    inBackground<ReadTable>(tr("Importing records…"), read, next);
}

// The Import Assistant.

void ImportController::runAssistant(const QString &path, const TextContent &content, const Window &window)
{
    auto sheet = std::make_unique<ImportAssistantSheetController>(
        QFileInfo(path).fileName(), content, targetOf(window));
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            finishAssistant(*sheet, QFileInfo(path).completeBaseName(), window);
    });
    g_sheets.begin(std::move(sheet));
}

void ImportController::finishAssistant(const ImportAssistantSheetController &sheet,
                                       const QString &name,
                                       const Window &window)
{
    const auto destination = sheet.destination();
    const bool isNew = destination == ImportAssistantSheetController::Destination::NewDatafile;
    if (!isNew && !window)
        return;
    std::unique_ptr<DatafileDocument> made;
    if (isNew)
        made = newDatafileForImport(g_controller.services(), DatafileKind::Pro, sheet.fieldNames());
    const DatafileDocument &target = isNew ? *made : window->document();
    const TableMapping mapping = sheet.mapping(target.datafileSettings().fields());
    const auto read = [content = sheet.content(), options = sheet.options()](Progress &progress) {
        return readTable(content, options, allRows, progress);
    };
    // A function can be copied, so what it holds has to be shared.
    const auto shared = std::make_shared<std::unique_ptr<DatafileDocument>>(std::move(made));
    const auto next = [=, this, keyField = sheet.keyField()](const Result<ReadTable> &table) {
        if (!table) {
            tell(table.error());
            return;
        }
        if (destination == ImportAssistantSheetController::Destination::Update) {
            update(*table, mapping, keyField, window);
            return;
        }
        const Result<RecordBatch> batch =
            recordsOfTable(*table, mapping, g_controller.services().environment);
        if (!batch || batch->count() == 0) {
            tell(batch ? nothingImported() : batch.error());
            return;
        }
        const Adding adding{.batch = *batch, .destination = destinationOf(destination)};
        if (isNew)
            showNewDatafile(std::move(*shared), name, adding);
        else if (window)
            addTo(window, adding);
    };
    inBackground<ReadTable>(tr("Importing records…"), read, next);
}

void ImportController::update(const ReadTable &table,
                              const TableMapping &mapping,
                              const QString &keyField,
                              const Window &window)
{
    if (!window || !window->leaveEditing())
        return;
    const auto updating = std::make_shared<RecordUpdating>(window->document(), table, mapping, keyField);
    const auto run = [updating](Progress &progress) -> Result<bool> {
        updating->run(progress);
        return true;
    };
    const auto apply = [=, this] {
        if (!window || !window->leaveEditing())
            return;
        if (const Result<> applied = updating->apply(window->document()); !applied) {
            tell(applied.error());
            return;
        }
        window->loadCurrentRecord();
        const QLocale locale;
        Q_EMIT window->statusMessage(
            tr("Records updated: %1, added: %2")
                .arg(locale.toString(updating->changedCount()), locale.toString(updating->newCount())));
    };
    const auto next = [=, this](const Result<bool> &) {
        if (updating->wasCancelled())
            return;
        auto sheet = std::make_unique<ImportDifferencesSheetController>(*updating);
        connect(sheet.get(), &QVSheetController::finished, this, [apply](int code) {
            if (code == QVSheetController::FirstButton)
                apply();
        });
        g_sheets.begin(std::move(sheet));
    };
    inBackground<bool>(tr("Comparing records…"), run, next);
}

// Records of other files.

void ImportController::importFolder(bool withFileNames, const Window &window)
{
    askForFolder(tr("Select a Folder of Text Files to Import"), [=, this](const QString &path) {
        const FolderImportOptions options{.includingSubfolders = true, .includingFileNames = withFileNames};
        readRecords([=](Progress &progress) { return readTextFolder(path, options, progress); },
                    QFileInfo(path).fileName(),
                    window);
    });
}

void ImportController::importMarkdownFolder(EditorWindowController *window)
{
    askForFolder(tr("Select a Folder of Markdown Files to Import"),
                 [this, window = Window(window)](const QString &path) {
                     readRecords([=](Progress &progress) { return readMarkdownFolder(path, progress); },
                                 QFileInfo(path).fileName(),
                                 window);
                 });
}

void ImportController::importJSON(EditorWindowController *window)
{
    askForFile(tr("Select a JSON File to Import"),
               {tr("JSON files (*.json)")},
               [this, window = Window(window)](const QString &path) {
                   const auto read = [path](Progress &progress) -> Result<ReadRecords> {
                       const Result<TextContent> text = readTextFile(path, {}, progress);
                       if (!text)
                           return text.error();
                       return readJson(text->utf8);
                   };
                   readRecords(read, QFileInfo(path).completeBaseName(), window);
               });
}

void ImportController::importRichText(const QString &path, const Window &window)
{
    const Result<richtext::AttributedText> text = readRichTextFile(path);
    if (!text || text->isEmpty()) {
        tell(nothingImported());
        return;
    }
    auto sheet = std::make_unique<ImportSheetController>(TableKind::Custom,
                                                         QFileInfo(path).fileName(),
                                                         textContentOf(text->text().toUtf8()),
                                                         targetOf(window));
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int code) {
        if (code != QVSheetController::FirstButton)
            return;
        const ImportDestination destination = sheet->options().destination;
        const ReadRecords records = cutRichText(*text, sheet->delimiterText());
        addRecords(records, destination, tr("Custom-Delimited"), window, TableKind::Custom);
    });
    g_sheets.begin(std::move(sheet));
}

void ImportController::readRecords(const ReadFiles &read, const QString &name, const Window &window)
{
    inBackground<ReadRecords>(
        tr("Reading “%1”…").arg(name), read, [=, this](const Result<ReadRecords> &records) {
            if (!records)
                tell(records.error());
            else
                askWhereRecordsGo(*records, name, window);
        });
}

void ImportController::askWhereRecordsGo(const ReadRecords &records,
                                         const QString &name,
                                         const Window &window)
{
    const ImportTarget target = targetOf(window);
    const bool fits = !target.title.isEmpty() && records.fieldNames.size() <= target.fields.size();
    if (!fits) {
        addRecords(records, ImportDestination::NewDatafile, name, window);
        return;
    }
    auto alert = std::make_unique<AlertSheetController>(
        tr("Where do the records go?"),
        tr("They can be added to the datafile “%1”, or become a datafile of their own.").arg(target.title),
        QStringList{tr("New Datafile"), tr("Add to Datafile"), tr("Cancel")});
    connect(alert.get(), &QVSheetController::finished, this, [=, this](int code) {
        if (code == QVSheetController::FirstButton)
            addRecords(records, ImportDestination::NewDatafile, name, window);
        else if (code == QVSheetController::SecondButton)
            addRecords(records, ImportDestination::Append, name, window);
    });
    g_sheets.begin(std::move(alert));
}

void ImportController::addRecords(const ReadRecords &records,
                                  ImportDestination destination,
                                  const QString &name,
                                  const Window &window,
                                  TableKind kind)
{
    const bool isNew = destination == ImportDestination::NewDatafile;
    if (!isNew && !window)
        return;
    auto document = isNew
                        ? newDatafileForImport(g_controller.services(), DatafileKind::Pro, records.fieldNames)
                        : nullptr;
    DatafileDocument &target = isNew ? *document : window->document();
    const Result<RecordBatch> batch = batchOf(target, records, destination);
    if (!batch || batch->count() == 0) {
        tell(batch ? nothingImported() : batch.error());
        return;
    }
    const Adding adding{
        .batch = *batch, .destination = destination, .kind = kind, .skipped = records.skippedCount};
    if (isNew)
        showNewDatafile(std::move(document), name, adding);
    else
        addTo(window, adding);
}

// Adding.

void ImportController::showNewDatafile(std::unique_ptr<DatafileDocument> document,
                                       const QString &name,
                                       const Adding &adding)
{
    Progress progress;
    DatafileDocument &made = *document;
    if (const auto added = addToDatafile(made, adding.batch, adding.destination, progress); !added) {
        tell(added.error());
        return;
    }
    made.setDefaultDraftName(name);
    g_controller.showNewDatafile(std::move(document));
    DatafileWindow *window = g_controller.windowOf(made);
    if (!window)
        return;
    EditorWindowController &editor = window->controller();
    window->bringToFront();
    editor.goToFirstRecord();
    const bool savesAtOnce = adding.kind == TableKind::Tab || adding.kind == TableKind::Custom;
    tellAfterwards(editor, adding, 0);
    if (savesAtOnce)
        editor.saveDocument();
}

void ImportController::addTo(const Window &window, const Adding &adding)
{
    if (!window->leaveEditing())
        return;
    const auto addition =
        std::make_shared<RecordsAddition>(window->document(), adding.batch, adding.destination);
    const auto run = [addition](Progress &progress) -> Result<bool> {
        addition->run(progress);
        return true;
    };
    const auto next = [=, this](const Result<bool> &) {
        if (!window)
            return;
        const Result<quint64> removed = addition->finish();
        if (!removed) {
            tell(removed.error());
            return;
        }
        window->goToFirstRecord();
        tellAfterwards(*window, adding, *removed);
    };
    if (adding.destination == ImportDestination::Merge)
        inBackground<bool>(tr("Removing duplicate records…"), run, next);
    else
        next(true);
}

/// In the window that took the records: it need not be the one from which the import was begun.
void ImportController::tellAfterwards(EditorWindowController &window, const Adding &adding, quint64 removed)
{
    const QLocale locale;
    QStringList parts = {tr("Records imported: %1").arg(locale.toString(adding.batch.count()))};
    if (removed > 0)
        parts.append(tr("duplicates removed: %1").arg(locale.toString(removed)));
    if (adding.dropped > 0)
        parts.append(tr("surplus values dropped: %1").arg(locale.toString(adding.dropped)));
    if (adding.skipped > 0)
        parts.append(tr("files passed over: %1").arg(locale.toString(adding.skipped)));
    Q_EMIT window.statusMessage(parts.join(u", "_s));
    const bool wasMended = adding.kind == TableKind::Csv || adding.kind == TableKind::Ssv;
    if (wasMended && adding.malformed > 0)
        showAlert(window.sheets(), malformedMessage(), malformedInformativeText(adding.malformed));
}

} // namespace tavrin

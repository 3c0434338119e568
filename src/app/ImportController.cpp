// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/ImportController.h"

#include "app/MainController.h"
#include "editor/FileSheetController.h"
#include "editor/FormSheetController.h"
#include "io/FolderFiles.h"

#include <QFileInfo>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

struct FilePanel
{
    QString title;
    QString filter;
};

FilePanel panelOf(TableKind kind)
{
    using Controller = ImportController;
    switch (kind) {
    case TableKind::Csv:
        return {Controller::tr("Select a CSV File to Import"),
                Controller::tr("CSV files (*.csv *.txt *.text)")};
    case TableKind::Ssv:
        return {Controller::tr("Select an SSV File to Import"),
                Controller::tr("SSV files (*.ssv *.txt *.text)")};
    case TableKind::Tab:
        return {Controller::tr("Select a Tab-delimited File to Import"),
                Controller::tr("Tab-delimited files (*.tab)")};
    case TableKind::Custom:
        // Of an RTFD document, which is a folder, the file in it is chosen.
        return {Controller::tr("Select a Custom-delimited File to Import"),
                Controller::tr("Texts (*.txt *.text *.rtf *.rtfd)")};
    case TableKind::Standard:
        break;
    }
    return {Controller::tr("Select a Text File to Import"),
            Controller::tr("Delimited text (*.csv *.ssv *.tsv *.tab *.txt *.text)")};
}

ImportJob readingOf(const QString &name, ImportJob::Counts counts)
{
    return {ImportController::tr("Reading “%1”…").arg(name), counts};
}

} // namespace

ImportController::ImportController(MainController &controller, SheetHost &sheets, WorkHost &work)
    : g_controller(controller)
    , g_sheets(sheets)
    , g_adding(controller, sheets, work)
    , g_tables(g_adding, sheets)
{}

void ImportController::choose(const QString &title, const QStringList &filters, const Chosen &chosen)
{
    const bool isFolder = filters.isEmpty();
    FileSheetController::Request request;
    request.purpose =
        isFolder ? FileSheetController::Purpose::OpenFolder : FileSheetController::Purpose::OpenFile;
    request.title = title;
    request.acceptLabel = tr("Import");
    if (!isFolder)
        request.nameFilters = filters + QStringList{tr("All files (*)")};
    auto sheet = std::make_unique<FileSheetController>(request);
    sheet->keepFolder(g_controller.preferences(), u"LastImportFolder"_s);
    connect(sheet.get(), &QVSheetController::finished, this, [chosen, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            chosen(sheet->path());
    });
    g_sheets.begin(std::move(sheet));
}

void ImportController::importTable(TableKind kind, const ImportWindow &window)
{
    const auto [title, filter] = panelOf(kind);
    choose(title, {filter}, [=, this](const QString &chosen) {
        const QString path = kind == TableKind::Custom ? richTextDocumentOf(chosen) : chosen;
        if (kind == TableKind::Custom && isRichTextFile(path))
            importRichText(path, window);
        else
            g_tables.begin(kind, path, window);
    });
}

void ImportController::importRichText(const QString &path, const ImportWindow &window)
{
    const Result<richtext::AttributedText> text = readRichTextFile(path);
    if (!text || text->isEmpty()) {
        g_adding.tell(nothingImported());
        return;
    }
    auto sheet = std::make_unique<ImportSheetController>(TableKind::Custom,
                                                         QFileInfo(path).fileName(),
                                                         textContentOf(text->text().toUtf8()),
                                                         importTargetOf(window));
    sheet->setHasFormats();
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int code) {
        if (code != QVSheetController::FirstButton)
            return;
        const ImportDestination destination = sheet->options().destination;
        const ReadRecords records = cutRichText(*text, sheet->delimiterText());
        addRecords(records, destination, tr("Custom-Delimited"), window, TableKind::Custom);
    });
    g_sheets.begin(std::move(sheet));
}

// Records of other files.

void ImportController::importFolder(bool withFileNames, const ImportWindow &window)
{
    choose(tr("Select a Folder of Text Files to Import"), {}, [=, this](const QString &path) {
        const QString name = QFileInfo(path).fileName();
        ImportTarget target = importTargetOf(window);
        // There has to be a field for the names.
        if (withFileNames && target.fields.isEmpty())
            target = {};
        askWhereRecordsGo(name, target, true, [=, this](ImportDestination destination, bool deep) {
            const FolderImportOptions options{.includingSubfolders = deep,
                                              .includingFileNames = withFileNames};
            readRecords(
                readingOf(name, ImportJob::Counts::Things),
                [=](Progress &progress) { return readTextFolder(path, options, progress); },
                [=, this](const ReadRecords &records) { addRecords(records, destination, name, window); });
        });
    });
}

void ImportController::importMarkdownFolder(EditorWindowController *window)
{
    choose(tr("Select a Folder of Markdown Files to Import"),
           {},
           [this, window = ImportWindow(window)](const QString &path) {
               const QString name = QFileInfo(path).fileName();
               importRecords(
                   readingOf(name, ImportJob::Counts::Things),
                   [=](Progress &progress) { return readMarkdownFolder(path, progress); },
                   name,
                   window);
           });
}

void ImportController::importJSON(EditorWindowController *window)
{
    choose(tr("Select a JSON File to Import"),
           {tr("JSON files (*.json)")},
           [this, window = ImportWindow(window)](const QString &path) {
               const auto read = [path](Progress &progress) -> Result<ReadRecords> {
                   const Result<TextContent> text = readTextFile(path, {}, progress);
                   if (!text)
                       return text.error();
                   return readJson(text->utf8);
               };
               const QFileInfo file(path);
               importRecords(readingOf(file.fileName(), ImportJob::Counts::Bytes),
                             read,
                             file.completeBaseName(),
                             window);
           });
}

// What they need is known only when they are read.
void ImportController::importRecords(const ImportJob &job,
                                     const ReadFiles &read,
                                     const QString &name,
                                     const ImportWindow &window)
{
    readRecords(job, read, [=, this](const ReadRecords &records) {
        const ImportTarget target = importTargetOf(window);
        const auto add = [=, this](ImportDestination destination, bool) {
            addRecords(records, destination, name, window);
        };
        if (!target.title.isEmpty() && records.fieldNames.size() <= target.fields.size())
            askWhereRecordsGo(name, target, false, add);
        else
            add(ImportDestination::NewDatafile, false);
    });
}

void ImportController::readRecords(const ImportJob &job, const ReadFiles &read, const Read &next)
{
    g_adding.inBackground<ReadRecords>(job, read, [next, this](const Result<ReadRecords> &records) {
        if (records && records->count > 0)
            next(*records);
        else
            g_adding.tell(records ? nothingImported() : records.error());
    });
}

void ImportController::askWhereRecordsGo(const QString &name,
                                         const ImportTarget &target,
                                         bool asksForSubfolders,
                                         const Placed &placed)
{
    QList<CodedItem> items = {{tr("Create a new datafile"), codeOf(ImportDestination::NewDatafile)}};
    if (!target.title.isEmpty()) {
        items.append({tr("Append to “%1”").arg(target.title), codeOf(ImportDestination::Append)});
        items.append(
            {tr("Merge into “%1”, without duplicates").arg(target.title), codeOf(ImportDestination::Merge)});
    }
    auto form = std::make_unique<FormSheetController>(tr("Import “%1”").arg(name), tr("&Import"));
    const qsizetype place = form->addChoice(tr("&Records:"), items);
    const qsizetype subfolders = asksForSubfolders ? form->addCheck(tr("&Texts in subfolders, too")) : -1;
    connect(form.get(), &QVSheetController::finished, this, [=, form = form.get()](int code) {
        if (code == QVSheetController::FirstButton)
            placed(static_cast<ImportDestination>(form->choice(place).code),
                   subfolders >= 0 && form->isOn(subfolders));
    });
    g_sheets.begin(std::move(form));
}

void ImportController::addRecords(const ReadRecords &records,
                                  ImportDestination destination,
                                  const QString &name,
                                  const ImportWindow &window,
                                  TableKind kind)
{
    const bool isNew = destination == ImportDestination::NewDatafile;
    if (!isNew && !window)
        return;
    // A function can be copied, so what it holds has to be shared.
    const auto made = std::make_shared<std::unique_ptr<DatafileDocument>>(
        isNew ? g_adding.newDatafile(records.fieldNames) : nullptr);
    const RecordsGoal goal = goalOf(isNew ? **made : window->document(), records, destination);
    const auto next = [=, this, skipped = records.skippedCount](const Result<RecordBatch> &batch) {
        if (!batch) {
            g_adding.tell(batch.error());
            return;
        }
        const ImportedRecords imported{.batch = *batch, .kind = kind, .skipped = skipped};
        if (isNew)
            g_adding.showNewDatafile(std::move(*made), name, imported);
        else
            g_adding.addTo(window, imported, destination);
    };
    const auto make = [=](Progress &progress) { return records.make(goal, progress); };
    g_adding.inBackground<RecordBatch>({tr("Importing records…")}, make, next);
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/TableImporting.h"

#include "app/ImportAssistantSheetController.h"
#include "base/Log.h"

#include <QFileInfo>
#include <QLocale>

#include <limits>

namespace tavrin {

namespace {

using AssistantDestination = ImportAssistantSheetController::Destination;

/// Where the Import Assistant's records are added.
ImportDestination destinationOf(AssistantDestination destination)
{
    return destination == AssistantDestination::Merge ? ImportDestination::Merge : ImportDestination::Append;
}

} // namespace

ImportTarget importTargetOf(const ImportWindow &window)
{
    if (!window || !window->canSaveChanges())
        return {};
    const DatafileSettingsData &settings = window->document().datafileSettings();
    return {window->windowTitle(), settings.fields(), settings.textName()};
}

void TableImporting::begin(TableKind kind, const QString &path, const ImportWindow &window)
{
    const auto read = [path](Progress &progress) { return readTextFile(path, {}, progress); };
    const ImportJob job{tr("Reading “%1”…").arg(QFileInfo(path).fileName()), ImportJob::Counts::Bytes};
    g_adding.inBackground<TextContent>(job, read, [=, this](const Result<TextContent> &content) {
        if (!content || content->isEmpty())
            g_adding.tell(content ? nothingImported() : content.error());
        else if (kind == TableKind::Standard)
            runAssistant(path, *content, window);
        else
            askForOptions(kind, path, *content, window);
    });
}

void TableImporting::askForOptions(TableKind kind,
                                   const QString &path,
                                   const TextContent &content,
                                   const ImportWindow &window)
{
    auto sheet = std::make_unique<ImportSheetController>(
        kind, QFileInfo(path).fileName(), content, importTargetOf(window));
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int code) {
        const bool isOk = code == QVSheetController::FirstButton;
        qCInfo(log, "%s", isOk ? "NSModalResponseOK" : "NSModalResponseCancel");
        if (code == QVSheetController::ThirdButton)
            runAssistant(path, sheet->content(), window);
        else if (isOk)
            convert(sheet->options(), path, sheet->content(), window);
    });
    g_sheets.begin(std::move(sheet));
}

void TableImporting::readAll(const TextContent &content,
                             const ImportOptions &options,
                             const std::function<void(const ReadTable &table)> &next)
{
    constexpr qint64 allRows = std::numeric_limits<qint64>::max();
    const auto read = [=](Progress &progress) { return readTable(content, options, allRows, progress); };
    const ImportJob job{tr("Importing records…"), ImportJob::Counts::Rows};
    g_adding.inBackground<ReadTable>(job, read, [=, this](const Result<ReadTable> &table) {
        if (table)
            next(*table);
        else
            g_adding.tell(table.error());
    });
}

Result<ImportedRecords>
TableImporting::recordsOf(const ReadTable &table, const TableMapping &mapping, TableKind kind) const
{
    const Result<RecordBatch> batch = recordsOfTable(table, mapping, g_adding.environment());
    if (!batch)
        return batch.error();
    return ImportedRecords{.batch = *batch, .kind = kind, .malformed = table.malformedCount};
}

void TableImporting::convert(const ImportOptions &options,
                             const QString &path,
                             const TextContent &content,
                             const ImportWindow &window)
{
    const auto next = [=, this](const ReadTable &table) {
        const bool isNew = options.destination == ImportDestination::NewDatafile;
        if (!isNew && !window)
            return;
        const QFileInfo file(path);
        const bool isSeparated = options.kind == TableKind::Csv || options.kind == TableKind::Ssv;
        if (isSeparated && table.table->rowCount() == 0) {
            g_adding.tell(wrongFormat(file.fileName(), options.kind));
            return;
        }
        // The sheet knew only the beginning of the file.
        if (const qsizetype count = isNew ? 0 : window->document().datafileSettings().fields().size();
            !isNew && !fitsFieldCount(table, options.kind, count)) {
            g_adding.tell(fieldCountMismatch(table, options.kind, count));
            return;
        }
        auto made = isNew ? g_adding.newDatafile(importedFieldNames(table, options)) : nullptr;
        const DatafileDocument &target = isNew ? *made : window->document();
        const TableMapping mapping = usualMapping(table, options, target.datafileSettings().fields());
        Result<ImportedRecords> records = recordsOf(table, mapping, options.kind);
        if (records)
            records->dropped = droppedCount(table, mapping);
        const QString name =
            options.kind == TableKind::Custom ? tr("Custom-Delimited") : file.completeBaseName();
        if (isNew)
            g_adding.showNewDatafile(std::move(made), name, records);
        else
            g_adding.addTo(window, records, options.destination);
    };
    readAll(content, options, next);
}

// The Import Assistant.

void TableImporting::runAssistant(const QString &path, const TextContent &content, const ImportWindow &window)
{
    auto sheet = std::make_unique<ImportAssistantSheetController>(
        QFileInfo(path).fileName(), content, importTargetOf(window));
    connect(sheet.get(), &QVSheetController::finished, this, [=, this, sheet = sheet.get()](int code) {
        if (code == QVSheetController::FirstButton)
            finishAssistant(*sheet, QFileInfo(path).completeBaseName(), window);
    });
    g_sheets.begin(std::move(sheet));
}

void TableImporting::finishAssistant(const ImportAssistantSheetController &sheet,
                                     const QString &name,
                                     const ImportWindow &window)
{
    const AssistantDestination destination = sheet.destination();
    const bool isNew = destination == AssistantDestination::NewDatafile;
    if (!isNew && !window)
        return;
    // A function can be copied, so what it holds has to be shared.
    const auto made = std::make_shared<std::unique_ptr<DatafileDocument>>(
        isNew ? g_adding.newDatafile(sheet.fieldNames()) : nullptr);
    const DatafileDocument &target = isNew ? **made : window->document();
    const TableMapping mapping = sheet.mapping(target.datafileSettings().fields());
    const auto next = [=, this, keyField = sheet.keyField()](const ReadTable &table) {
        if (destination == AssistantDestination::Update) {
            update(table, mapping, keyField, window);
            return;
        }
        const Result<ImportedRecords> records = recordsOf(table, mapping, TableKind::Standard);
        if (isNew)
            g_adding.showNewDatafile(std::move(*made), name, records);
        else
            g_adding.addTo(window, records, destinationOf(destination));
    };
    readAll(sheet.content(), sheet.options(), next);
}

void TableImporting::update(const ReadTable &table,
                            const TableMapping &mapping,
                            const QString &keyField,
                            const ImportWindow &window)
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
            g_adding.tell(applied.error());
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
    g_adding.inBackground<bool>({tr("Comparing records…")}, run, next);
}

} // namespace tavrin

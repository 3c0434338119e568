// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/ImportAdding.h"

namespace tavrin {

class ImportAssistantSheetController;
struct ImportTarget;

/// What an import sheet needs to know of the window's datafile.
ImportTarget importTargetOf(const ImportWindow &window);

/// The import of a file of delimited text that was chosen: its options sheet or the Import Assistant, and
/// what follows from the answer.
class TableImporting : public QObject
{
    Q_OBJECT

public:
    /// Both outlive it.
    TableImporting(ImportAdding &adding, SheetHost &sheets) : g_adding(adding), g_sheets(sheets) {}

    /// Reads the file and asks how it is imported.
    void begin(TableKind kind, const QString &path, const ImportWindow &window);

private:
    void askForOptions(TableKind kind,
                       const QString &path,
                       const TextContent &content,
                       const ImportWindow &window);
    void convert(const ImportOptions &options,
                 const QString &path,
                 const TextContent &content,
                 const ImportWindow &window);
    void runAssistant(const QString &path, const TextContent &content, const ImportWindow &window);
    void finishAssistant(const ImportAssistantSheetController &sheet,
                         const QString &name,
                         const ImportWindow &window);
    void update(const ReadTable &table,
                const TableMapping &mapping,
                const QString &keyField,
                const ImportWindow &window);
    void readAll(const TextContent &content,
                 const ImportOptions &options,
                 const std::function<void(const ReadTable &table)> &next);
    Result<ImportedRecords>
    recordsOf(const ReadTable &table, const TableMapping &mapping, TableKind kind) const;

    ImportAdding &g_adding;
    SheetHost &g_sheets;
};

} // namespace tavrin

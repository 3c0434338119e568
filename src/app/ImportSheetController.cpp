// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/ImportSheetController.h"

#include "io/DialectDetection.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype previewSize = qsizetype(256) << 10;
constexpr qint64 mostPreviewRows = 9;

/// Of a cell as a preview shows it.
QString shortened(const QString &text)
{
    constexpr qsizetype longest = 200;
    return text.left(longest).replace(u'\n', u' ');
}

} // namespace

ImportSheetController::ImportSheetController(TableKind kind,
                                             const QString &fileName,
                                             TextContent content,
                                             ImportTarget target)
    : g_fileName(fileName)
    , g_content(std::move(content))
    , g_target(std::move(target))
{
    g_options.kind = kind;
    readContent();
}

QString ImportSheetController::title() const
{
    return tr("Import “%1”").arg(g_fileName);
}

QString ImportSheetController::currentDatafileName() const
{
    return canUseCurrent() ? g_target.title : tr("<No suitable datafile open>");
}

bool ImportSheetController::canUseCurrent() const
{
    return !g_target.title.isEmpty() && g_fitsTarget;
}

void ImportSheetController::setDestination(ImportDestination destination)
{
    g_options.destination = destination;
    readPreview();
    Q_EMIT changed();
}

void ImportSheetController::setNamesInFirstRecord(bool on)
{
    g_options.namesInFirstRecord = on;
    readPreview();
    Q_EMIT changed();
}

void ImportSheetController::setDelimiterText(const QString &delimiter)
{
    g_options.delimiter = delimiter;
    readPreview();
    Q_EMIT changed();
}

void ImportSheetController::setEncoding(TextEncoding encoding)
{
    if (const Result<TextContent> content = textContent(g_content.source, encoding))
        g_content = *content;
    readContent();
    Q_EMIT changed();
}

QString ImportSheetController::note() const
{
    if (g_offersAssistant)
        return tr("This file is quoted in a way that this import reads badly; the Import Assistant reads it "
                  "well.");
    if (g_content.isGuessed)
        return tr("The encoding could not be told for certain. Choose another one if letters look wrong.");
    return {};
}

void ImportSheetController::readContent()
{
    const bool isSeparated = g_options.kind == TableKind::Csv || g_options.kind == TableKind::Ssv;
    g_offersAssistant =
        isSeparated && isBetterReadAsStandard(g_content, g_options.kind == TableKind::Csv ? ',' : ';');
    readPreview();
}

void ImportSheetController::readPreview()
{
    Progress progress;
    const Result<ReadTable> table =
        readTable(g_content.head(previewSize), g_options, mostPreviewRows, progress);
    g_previewRows.clear();
    g_previewNames.clear();
    if (!table || table->table->rowCount() == 0)
        return;
    g_fitsTarget = fitsFieldCount(*table, g_options.kind, g_target.fields.size());
    if (!canUseCurrent())
        g_options.destination = ImportDestination::NewDatafile;
    const TableMapping mapping = usualMapping(*table, g_options, {});
    const bool isNew = g_options.destination == ImportDestination::NewDatafile;
    if (g_options.kind == TableKind::Custom)
        g_previewNames = {isNew ? ImportTarget().textName : g_target.textName};
    else if (isNew)
        g_previewNames = importedFieldNames(*table, g_options);
    else
        for (const FieldDefinition &field : g_target.fields)
            g_previewNames.append(field.name());
    const quint32 last = std::min<quint32>(table->table->rowCount(), mostPreviewRows);
    for (quint32 row = mapping.firstRow; row < last; ++row) {
        QStringList texts;
        for (const QString &text : table->table->row(row))
            texts.append(shortened(text));
        g_previewRows.append(texts);
    }
}

} // namespace tavrin

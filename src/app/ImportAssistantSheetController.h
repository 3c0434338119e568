// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/ImportSheetController.h"
#include "editor/CodedItem.h"
#include "io/RecordUpdating.h"

namespace tavrin {

/// The Import Assistant: how a delimited text is read, what becomes of its columns, where the records go.
///
/// Separator, quotes and names are guessed from the text; a change of them reads the preview anew. Columns go
/// to the fields of their names, where there are such, else in order.
class ImportAssistantSheetController : public QVSheetController
{
    Q_OBJECT

public:
    enum class Destination { NewDatafile, Append, Merge, Update };

    /// What becomes of a column, by place in targetItems().
    struct Column
    {
        QString name;
        qsizetype target = 0;
    };

    ImportAssistantSheetController(const QString &fileName, TextContent content, ImportTarget target);

    QString title() const { return tr("Import “%1”").arg(g_fileName); }

    // How it is read.
    const QList<CodedItem> &separatorItems() const { return g_separatorItems; }
    const QList<CodedItem> &quoteItems() const { return g_quoteItems; }
    qsizetype separator() const;
    qsizetype quote() const;
    void setSeparator(qsizetype item);
    void setQuote(qsizetype item);
    TextEncoding encoding() const { return g_content.encoding; }
    void setEncoding(TextEncoding encoding);
    bool namesInFirstRecord() const { return g_options.namesInFirstRecord; }
    void setNamesInFirstRecord(bool on);

    // Where it goes.
    bool hasTarget() const { return !g_target.title.isEmpty(); }
    QString targetTitle() const { return g_target.title; }
    Destination destination() const { return g_destination; }
    void setDestination(Destination destination);

    // What becomes of the columns.
    const QList<Column> &columns() const { return g_columns; }
    /// The fields, then the text, then nothing.
    QStringList targetItems(qsizetype column) const;
    /// The same for any column, each with the columns that go there: "City ← town".
    QStringList targetSummaries() const;
    void setTarget(qsizetype column, qsizetype item);
    /// By which an update finds the record of a row: a column that goes to a field.
    qsizetype keyColumn() const { return g_keyColumn; }
    void setKeyColumn(qsizetype column);

    const QList<QStringList> &previewRows() const { return g_previewRows; }
    /// Why it cannot be done, or what the person should know; empty for nothing.
    QString note() const;
    bool isAcceptable() const override { return problem().isEmpty(); }

    // The answer.
    const TextContent &content() const { return g_content; }
    const ImportOptions &options() const { return g_options; }
    /// For a new datafile: of the columns that are fields.
    QStringList fieldNames() const;
    /// With the identifiers of the fields in the order of fieldNames(), or of the target's.
    TableMapping mapping(const QList<FieldDefinition> &fields) const;
    QString keyField() const;

private:
    bool isNew() const { return g_destination == Destination::NewDatafile; }
    qsizetype fieldTargetCount() const { return isNew() ? 1 : g_target.fields.size(); }
    qsizetype textTarget() const { return fieldTargetCount(); }
    qsizetype nothingTarget() const { return fieldTargetCount() + 1; }
    QStringList targetNames(const QString &newField) const;
    QString problem() const;
    void readPreview();
    void mapColumns();
    void update();

    QString g_fileName;
    TextContent g_content;
    ImportTarget g_target;
    ImportOptions g_options;
    Destination g_destination = Destination::NewDatafile;
    QList<CodedItem> g_separatorItems;
    QList<CodedItem> g_quoteItems;
    QList<Column> g_columns;
    QList<QStringList> g_previewRows;
    qsizetype g_keyColumn = 0;
    quint64 g_irregularCount = 0;
};

/// What an update would change, before it is done.
class ImportDifferencesSheetController : public QVSheetController
{
    Q_OBJECT

public:
    explicit ImportDifferencesSheetController(const RecordUpdating &updating);

    QString summary() const { return g_summary; }
    const QList<RowDifference> &differences() const { return g_differences; }
    bool isAcceptable() const override { return g_changesAnything; }

private:
    QString g_summary;
    QList<RowDifference> g_differences;
    bool g_changesAnything;
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"
#include "io/TableImport.h"
#include "model/DatafileSettingsData.h"

#include <QStringList>

namespace tavrin {

/// The datafile to which records may be added, as an import sheet knows it.
struct ImportTarget
{
    QString title; ///< Empty: there is none.
    QList<FieldDefinition> fields = {};
    QString textName = DatafileSettingsData().textName();
};

/// How a file is imported by the given grammar: where the records go, and what the first row is. It shows the
/// first rows as they are read.
class ImportSheetController : public QVSheetController
{
    Q_OBJECT

public:
    ImportSheetController(TableKind kind, const QString &fileName, TextContent content, ImportTarget target);

    TableKind kind() const { return g_options.kind; }
    QString title() const;
    /// What the records may be added to, or that there is nothing.
    QString currentDatafileName() const;
    bool canUseCurrent() const;

    bool createNewIsOn() const { return g_options.destination == ImportDestination::NewDatafile; }
    bool appendToCurrentIsOn() const { return g_options.destination == ImportDestination::Append; }
    bool mergeIntoCurrentIsOn() const { return g_options.destination == ImportDestination::Merge; }
    bool namesInFirstRecordIsOn() const { return g_options.namesInFirstRecord; }
    void setDestination(ImportDestination destination);
    void setNamesInFirstRecord(bool on);
    QString delimiterText() const { return g_options.delimiter; }
    void setDelimiterText(const QString &delimiter);
    /// Rich text says itself how it is encoded.
    void setHasFormats() { g_hasFormats = true; }
    bool asksForEncoding() const { return !g_hasFormats; }
    TextEncoding encoding() const { return g_content.encoding; }
    void setEncoding(TextEncoding encoding);

    /// The first rows as records, and above them the fields' names.
    QStringList previewNames() const { return g_previewNames; }
    QList<QStringList> previewRows() const { return g_previewRows; }
    /// What the person should know; empty when nothing.
    QString note() const;
    bool offersAssistant() const { return g_offersAssistant; }

    const ImportOptions &options() const { return g_options; }
    const TextContent &content() const { return g_content; }

private:
    void readContent();
    void readPreview();

    QString g_fileName;
    TextContent g_content;
    ImportTarget g_target;
    ImportOptions g_options;
    QStringList g_previewNames;
    QList<QStringList> g_previewRows;
    bool g_fitsTarget = false;
    bool g_offersAssistant = false;
    bool g_hasFormats = false;
};

} // namespace tavrin

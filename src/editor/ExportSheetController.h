// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"
#include "io/TableExport.h"

#include <QStringList>

#include <optional>

namespace tavrin {

/// What a person chooses for an export: how a table is written, or which field names the files of a folder.
class ExportSheetController : public QVSheetController
{
    Q_OBJECT

public:
    enum class Shows { TableOptions, NameField };
    enum class LineEnd { Linefeed, CarriageReturn, CarriageReturnLinefeed };

    /// A title for people, and the fields of the datafile.
    ExportSheetController(Shows shows, const QString &title, const QStringList &fieldNames)
        : g_shows(shows)
        , g_title(title)
        , g_fieldNames(fieldNames)
    {}

    Shows shows() const { return g_shows; }
    QString title() const { return g_title; }
    const QStringList &fieldNames() const { return g_fieldNames; }
    /// There is nothing else to write.
    bool mayLeaveTextOut() const { return !g_fieldNames.isEmpty(); }

    bool linefeedIsOn() const { return g_lineEnd == LineEnd::Linefeed; }
    bool carriageReturnIsOn() const { return g_lineEnd == LineEnd::CarriageReturn; }
    bool crlfIsOn() const { return g_lineEnd == LineEnd::CarriageReturnLinefeed; }
    bool utf16() const { return g_utf16; }
    bool includingFieldNamesIsOn() const { return g_includingFieldNames; }
    bool fieldContentOnlyIsOn() const { return g_fieldContentOnly; }
    void setLineEnd(LineEnd lineEnd) { g_lineEnd = lineEnd; }
    void setUtf16(bool on) { g_utf16 = on; }
    void setIncludingFieldNames(bool on) { g_includingFieldNames = on; }
    void setFieldContentOnly(bool on) { g_fieldContentOnly = on; }

    /// None: the datafile's name.
    std::optional<int> nameField() const { return g_nameField; }
    void setNameField(std::optional<int> field) { g_nameField = field; }

    TableExportOptions tableOptions(TableExportOptions::Form form) const;

private:
    Shows g_shows;
    QString g_title;
    QStringList g_fieldNames;
    LineEnd g_lineEnd = LineEnd::Linefeed;
    bool g_utf16 = false;
    bool g_includingFieldNames = true;
    bool g_fieldContentOnly = false;
    std::optional<int> g_nameField;
};

} // namespace tavrin

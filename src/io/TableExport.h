// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/DurableFile.h"
#include "base/Progress.h"
#include "io/ExportedRecords.h"

namespace tavrin {

/// How a table of records is written.
struct TableExportOptions
{
    enum class Form {
        Csv,      ///< Values are one line; those with a comma stand between quotes.
        Tab,      ///< The same without quotes.
        Standard, ///< As RFC 4180 has it: nothing is lost, line ends neither.
    };

    Form form = Form::Csv;
    QByteArray lineEnd = "\n";
    bool utf16 = false;
    bool includingFieldNames = false;
    bool fieldContentOnly = false; ///< Else the text is one more column.
};

/// Writes the records into the sink. Cancelled; a refusal of the sink is for its owner to report.
Result<> writeTable(const ExportedRecords &records,
                    const TableExportOptions &options,
                    const ByteSink &sink,
                    Progress &progress);

/// The same as a file, durably: a failed export leaves what was there before.
Result<> exportTable(const ExportedRecords &records,
                     const TableExportOptions &options,
                     const QString &path,
                     Progress &progress);

/// The same as text.
QByteArray tableText(const ExportedRecords &records, const TableExportOptions &options);

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "io/ExportedRecords.h"
#include "io/TextExport.h"

namespace tavrin {

/// One page with a table, durably.
Result<> exportHtml(const ExportedRecords &records, const QString &path, Progress &progress);

/// A folder with one page a record, with its rich text. How many pages there are.
Result<qsizetype>
exportHtmlFolder(const ExportedRecords &records, const FolderExportOptions &options, Progress &progress);

/// The text as HTML paragraphs. Attachments are named, not shown.
QString htmlOfText(const richtext::AttributedText &text);

} // namespace tavrin

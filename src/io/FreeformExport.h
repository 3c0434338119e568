// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "io/ExportedRecords.h"
#include "io/RecordBatch.h"

namespace tavrin {

// A template says what the text of a record of a freeform datafile is made of: a text with formats, in which
// an attachment stands for what a record holds in the field of its name.

/// A template of one field.
richtext::AttributedText templateField(const QString &fieldName, const richtext::CharacterFormat &format);

/// The template with the record's contents, in the formats of their attachments. A line that is empty because
/// its fields are goes with its line end; a field that does not exist is empty.
richtext::AttributedText freeformTextBlockForRecord(const ExportedRecords &records,
                                                    qsizetype index,
                                                    const richtext::AttributedText &freeformTextFormat);

/// New records, each with its block followed by the old text: with formats, unless they are for a datafile of
/// the mobile kind. Cancelled, Io.
Result<RecordBatch> freeformRecords(const ExportedRecords &records,
                                    const richtext::AttributedText &freeformTextFormat,
                                    bool isMobile,
                                    const Environment &environment,
                                    Progress &progress);

} // namespace tavrin

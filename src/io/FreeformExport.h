// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "io/ExportedRecords.h"
#include "io/RecordBatch.h"

#include <vector>

namespace tavrin {

/// What the text of a record of a freeform datafile is made of: formatted text, and in it the contents of
/// fields.
class FreeformTemplate
{
public:
    /// Either text or, when there is a field's name, that field's content in the format.
    struct Piece
    {
        richtext::AttributedText text;
        QString fieldName = {};
        richtext::CharacterFormat format = {};
    };

    /// Of a text in which a field's name stands between marks.
    static FreeformTemplate ofText(const QString &text, QChar before, QChar behind);

    void append(Piece piece) { g_pieces.push_back(std::move(piece)); }

    /// The block of a record. A line that is empty because its fields are goes with its line end; a field
    /// that does not exist is empty.
    richtext::AttributedText blockFor(const ExportedRecords &records, qsizetype index) const;

private:
    std::vector<Piece> g_pieces;
};

/// New records, each with its block followed by the old text: with formats, unless they are for a datafile of
/// the mobile kind. Cancelled, Io.
Result<RecordBatch> freeformRecords(const ExportedRecords &records,
                                    const FreeformTemplate &freeform,
                                    bool isMobile,
                                    const Environment &environment,
                                    Progress &progress);

} // namespace tavrin

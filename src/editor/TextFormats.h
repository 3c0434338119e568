// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/AttributedText.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextTableCell>

namespace tavrin {

// How the formats of stored texts are shown by those of a QTextDocument.
//
// Each format that is made here carries the stored one as a property, and that is what is read again: so
// nothing is lost that cannot be shown, and how something is shown never becomes what is stored. Whoever
// changes a look reads it, changes it and makes the format anew (see TextChanging.h); a property of Qt's that
// is set on a format of ours is only seen.

/// Properties of our own in formats of Qt's.
enum TextProperty : int {
    LookProperty = QTextFormat::UserProperty + 1, ///< SharedFormat<CharacterFormat>
    ParagraphProperty,                            ///< SharedFormat<ParagraphFormat>, in no table
    CellProperty,                                 ///< CellStyle; of a cell's own format
    MergedProperty,                               ///< MergedCells; of the cell that covers others
    AbsentCellProperty,                           ///< A cell that only fills up a shorter row.
    FillerProperty,   ///< A paragraph that the text does not have, but a QTextDocument beside its tables.
    FirstEndProperty, ///< Of the first paragraph: the look of its end, which Qt's undo would forget.
    OriginalProperty, ///< The unit for which another stands in the document, which cannot hold it.
};

/// The kind of inline object that an attachment is, see AttachmentObject.h.
constexpr int attachmentObject = QTextFormat::UserObject + 1;

using Look = richtext::SharedFormat<richtext::CharacterFormat>;
using ParagraphLook = richtext::SharedFormat<richtext::ParagraphFormat>;

/// What the text has of cells that another one covers. They are empty.
struct MergedCells
{
    struct Cell
    {
        richtext::CellStyle style;
        ParagraphLook paragraph;
        Look end;

        friend bool operator==(const Cell &, const Cell &) = default;
    };

    int rows = 0; ///< That are covered in all, from the covering cell on.
    int columns = 0;
    QList<Cell> cells; ///< Row by row, the covering cell too.

    friend bool operator==(const MergedCells &, const MergedCells &) = default;
};

/// Black and missing colours are left to the view, whose palette may be dark.
QTextCharFormat charFormatFor(const Look &look);
/// Of a format that is not ours, such as one that came with HTML: what it says, and `base` for the rest.
Look lookOf(const QTextCharFormat &format, const richtext::CharacterFormat &base = {});

QTextBlockFormat blockFormatFor(const ParagraphLook &paragraph);
ParagraphLook paragraphLookOf(const QTextBlockFormat &format);

/// The format of a cell, which is also the look of the end of its first paragraph.
QTextTableCellFormat cellFormatFor(const richtext::CellStyle &style, const Look &look);
richtext::CellStyle cellStyleOf(const QTextCharFormat &format);

/// Pixels of a screen that is shown at its own size: what lengths in a QTextDocument are.
constexpr double pixelsForTwips(double twips)
{
    return twips / 15;
}
qint32 twipsForPixels(double pixels);

QColor toQColor(const richtext::Color &color);
richtext::Color toColor(const QColor &color);

} // namespace tavrin

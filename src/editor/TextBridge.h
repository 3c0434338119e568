// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/TextFormats.h"

#include <QList>

class QTextCursor;
class QTextDocument;

namespace tavrin {

// Between the texts that records keep and the QTextDocument in which they are seen and edited.
//
// A table is a table of the document. A list's markers are text, as they are in the stored text, and no list
// of Qt's. Sizes are the stored ones, in points, whatever the scale at which the text is shown: that is the
// business of the layout's paint device (see FreeformTextEdit::setTextScale).

/// Puts in a text in place of all there is, with nothing to undo. textOf() gives an equal text back.
/// `plain`: how an empty text is typed into.
void setText(QTextDocument &document,
             const richtext::AttributedText &text,
             const richtext::CharacterFormat &plain = {});

/// The whole text. `base`: for what comes with formats that say nothing about it.
richtext::AttributedText textOf(const QTextDocument &document, const richtext::CharacterFormat &base = {});
/// What is selected; of cells that are selected as such, all from the first to the last.
richtext::AttributedText selectedText(const QTextCursor &cursor);
/// The plain characters of the whole text, "\n" between the paragraphs.
QString plainTextOf(const QTextDocument &document);

/// Between the positions in a document, as it is when this is made, and the places in its plainTextOf(). They
/// are not the same where there are tables.
class TextPlacement
{
public:
    explicit TextPlacement(const QTextDocument &document);

    qsizetype placeOf(int position) const;
    int positionOf(qsizetype place) const;

    struct Block
    {
        int position = 0;
        qsizetype start = 0;
        qsizetype end = 0;
    };

private:
    QList<Block> g_blocks; ///< Empty where positions are places.
};

/// In place of what is selected; can be undone. The cursor stands behind it.
void insertText(QTextCursor &cursor, const richtext::AttributedText &text);

/// The text of HTML. Pictures that it has inside come along; none is fetched.
richtext::AttributedText textOfHtml(const QString &html, const richtext::CharacterFormat &base);

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/ParagraphFormat.h"

class QTextCursor;
class QTextDocument;

namespace tavrin {

// Lists of the freeform text: paragraphs that begin with a tab, a marker and a tab.

constexpr qint32 deepestListLevel = 8;

/// The characters of the marker with its two tabs.
QString listMarker(const QString &marker, qint32 number);

/// Makes the paragraph an item, with the indents and tab stops of its level.
void makeListItem(richtext::ParagraphFormat &paragraph,
                  qint32 identifier,
                  const QString &marker,
                  qint32 level = 0);
/// Takes it out of its list, with the indents.
void leaveList(richtext::ParagraphFormat &paragraph);

/// Makes the selected paragraphs a list with that marker ("{disc}", "{decimal}."); empty: no list.
void setList(QTextCursor &cursor, const QString &marker);
/// One level deeper, or less deep; false when the cursor is in no list.
bool changeListLevel(QTextCursor &cursor, int by);

/// Return in a list: another item, or out of the list where the item is empty. False when it is in none.
bool splitListItem(QTextCursor &cursor);
/// Backspace behind the marker: out of the list. False when it is elsewhere.
bool leaveListAtMarker(QTextCursor &cursor);

/// The marker of the list in which the cursor is; empty: it is in none.
QString listMarkerAt(const QTextCursor &cursor);

} // namespace tavrin

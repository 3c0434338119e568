// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin::richtext {

// A list's marker is written as a text in which one name in braces stands for the item: "{disc}",
// "{decimal}.", "({lower-alpha})".

/// What stands before the item: "•", "3.", "(c)". A marker without a known name is its own text.
QString markerText(const QString &marker, qint32 number);

/// The number that RTF has for the kind of the marker; 23, a bullet, for one that it does not know.
int numberKindOf(const QString &marker);
/// A marker of the kind that RTF calls so.
QString markerOfNumberKind(int kind);

} // namespace tavrin::richtext

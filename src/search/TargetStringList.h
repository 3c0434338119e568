// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace tavrin {

/// How the keys stand in the find box; stored as "FindEntryStyle".
enum class FindEntryStyle {
    Classic = 0,  ///< Between "&&"; blanks belong to the keys.
    Internet = 1, ///< Between blanks; in double quotes, phrases.
};

/// The keys in the find box's text, in their order. Some may be empty; such a key is in no record.
QStringList targetStringList(QStringView findText, FindEntryStyle style);

} // namespace tavrin

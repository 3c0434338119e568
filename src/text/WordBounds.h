// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

namespace tavrin::text {

/// Whether a part of a text stands for itself: neither the unit before it nor the one behind it is a letter,
/// a mark or a number. Judged by single 16-bit units, of which a surrogate is none of these.
bool isWholeWord(QStringView text, qsizetype start, qsizetype length);

} // namespace tavrin::text

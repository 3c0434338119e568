// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin {

/// How the program looks before any window is there: its style where the desktop brings none, and, when
/// `appearance` is "light" or "dark", our own palette in place of the desktop's.
void setUpAppearance(const QString &appearance);

} // namespace tavrin

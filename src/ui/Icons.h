// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>

namespace tavrin {

/// One of our drawings by its image name, in the palette's text colour, so that it is readable on light and
/// dark alike and follows a change at run time. "TB_C_next" has accents in colour, "TB_M_next" has none. A
/// name that nobody drew gives an empty icon.
QIcon imageNamed(const QString &name);

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>

namespace tavrin {

/// One of our drawings by its image name ("TB_C_next"), drawn in the palette's text colour, so that it is
/// readable on light and dark alike and follows a change at run time.
QIcon imageNamed(const QString &name);

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace tavrin {

/// A catalog that does not list as many records as there are.
struct CatalogMismatch
{
    qsizetype catalogCount = 0;
    qsizetype recordCount = 0;
};

} // namespace tavrin

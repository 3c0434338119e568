// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin {

/// The name of a font family and a size in points. Whether such a font exists is not known here.
struct FontDescription
{
    QString family;
    qint64 size = 12;

    friend bool operator==(const FontDescription &, const FontDescription &) = default;
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin::richtext {

/// A font as texts name it, taken apart.
struct FontFace
{
    QString family;
    bool bold = false;
    bool italic = false;

    friend bool operator==(const FontFace &, const FontFace &) = default;
};

/// "Helvetica-BoldOblique" is Helvetica, bold and italic. A family's name comes back as it is.
FontFace faceOfName(const QString &name);

} // namespace tavrin::richtext

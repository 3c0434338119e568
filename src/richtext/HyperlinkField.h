// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin::richtext {

/// Where a field leads: `HYPERLINK "address"`, perhaps with switches, of which \l "name" is a place in the
/// document. Empty when the field is none that leads anywhere.
QString linkOfInstruction(QStringView instruction);

} // namespace tavrin::richtext

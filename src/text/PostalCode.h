// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

namespace tavrin::text {

/// The postal code at the end of an address: of the United States ("12345", "12345-6789") or of Canada
/// ("K1A 0B1"), on the last line or on the one before the country's name. Null when there is none.
QStringView postalCode(QStringView addressBlock);

} // namespace tavrin::text

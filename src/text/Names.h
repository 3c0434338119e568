// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace tavrin::text {

/// The titles that are no part of a name, until the person says otherwise; longer ones first where it
/// matters.
QStringList defaultTitleList();

/// What a line with a name sorts by: last name, tab, first name, without titles and commas. At most two
/// titles go before the name, any number behind it; titles are compared exactly.
QString nameKey(QStringView line, const QStringList &titles);

} // namespace tavrin::text

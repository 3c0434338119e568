// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin {

/// The text as a field may hold it, in one line: line ends and tabs become blanks. The length stays.
QString singleLineFieldText(QString text);

} // namespace tavrin

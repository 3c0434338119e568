// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <initializer_list>

namespace tavrin {

/// A text whose places "%@", "%U", "%d", "%lu" and "%ld" take the arguments in order. What is put in is not
/// looked at again, so a file name may hold such a place itself.
QString filledIn(const QString &text, std::initializer_list<QString> arguments);

} // namespace tavrin

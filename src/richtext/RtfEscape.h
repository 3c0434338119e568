// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringView>

namespace tavrin::richtext {

/// Whether a unit of text is written by its number, as what is not ASCII is.
bool isWrittenByNumber(char16_t unit);

/// Appends one 16-bit unit of text. A number is written with nothing to fall back to, so \uc0 has to be said
/// before.
void appendEscaped(QByteArray &rtf, char16_t unit);

/// Appends a text that is a group's own, such as a name.
void appendEscaped(QByteArray &rtf, QStringView text);

/// Appends a control word and its number.
void appendWord(QByteArray &rtf, const char *word, qint32 number);

} // namespace tavrin::richtext

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/ParagraphFormat.h"
#include "richtext/RtfHeader.h"

namespace tavrin::richtext {

/// All that is said of a paragraph before its text.
QByteArray paragraphWords(const ParagraphFormat &format, const RtfHeader &header);

/// What a row's cells are like, before their text.
QByteArray rowDefinition(const QList<CellStyle> &cells, const RtfHeader &header);

} // namespace tavrin::richtext

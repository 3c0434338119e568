// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QMimeData;

namespace tavrin {

/// Formatted text with its pictures, between windows of Tavrin; in RTF there are but their names.
inline const QString flatRtfdType = QStringLiteral("application/x-flat-rtfd");

class DatafileDocument;
class RecordData;

enum class FieldNames { Without, With };

/// A record as other programs take it from the clipboard: formatted and plain. The fields come first, one a
/// line, then the text.
QMimeData *copiedRecord(const RecordData &record, const DatafileDocument &document, FieldNames names);

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace tavrin {

/// The two kinds of datafile. They share one format; the mobile kind keeps the text as plain text only.
enum class DatafileKind { Pro, Mobile };

/// "Tavrin Pro Datafile" or "Tavrin Mobile Datafile": the kind's document type name.
QString typeNameOf(DatafileKind kind);

/// Empty for a name that is neither of the two.
std::optional<DatafileKind> datafileKindOfTypeName(const QString &typeName);

/// "tv3" or "tvk".
QString extensionOf(DatafileKind kind);

/// By the path's extension, in any case; empty when it is neither of the two.
std::optional<DatafileKind> datafileKindOfPath(const QString &path);

} // namespace tavrin

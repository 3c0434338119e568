// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "search/RecordSearch.h"

namespace tavrin {

class DatafileDocument;

/// Leaves of the selected records those selected that hold every key as it is written, in the text or a
/// field, hidden ones too. False, and no change, when there is none, or when it was cancelled.
bool selectForFind(DatafileDocument &document,
                   const QStringList &keys,
                   KeyOptions options,
                   qint64 fieldsToSearchIn,
                   Progress &progress);

} // namespace tavrin

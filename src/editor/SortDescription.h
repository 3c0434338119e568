// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/DatafileSettingsData.h"
#include "sorting/SortCriteriaData.h"

namespace tavrin {

/// A kind of sort in a few words for people: "Name, then City, descending".
QString sortDescription(const SortCriteriaData &criteria, const DatafileSettingsData &settings);

/// Whether the sort goes by a field, or by a second one, that the datafile no longer has.
bool sortsByLostField(const SortCriteriaData &criteria, const DatafileSettingsData &settings);

} // namespace tavrin

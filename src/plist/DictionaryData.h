// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/OrderedMap.h"
#include "plist/Value.h"

#include <QSharedData>

namespace tavrin::plist {

/// The shared part of a Dictionary; included by Value.h, where Value is complete.
struct DictionaryData : QSharedData
{
    OrderedMap<QString, Value> entries;
};

template <typename Visitor>
void Dictionary::forEach(Visitor &&visitor) const
{
    if (g_data)
        g_data->entries.forEach(std::forward<Visitor>(visitor));
}

} // namespace tavrin::plist

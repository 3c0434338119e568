// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Environment.h"

namespace tavrin {

class Preferences;

/// What a document needs from its surroundings. The preferences outlive it.
struct DocumentServices
{
    Environment environment;
    const Preferences *preferences = nullptr;
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/Command.h"

namespace tavrin {

/// What a datafile holds, as `info` says it. The format is that of the file that is spoken of.
void writeInfo(const Call &call, const DatafileDocument &document, plist::Format format);

} // namespace tavrin

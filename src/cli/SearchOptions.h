// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/Command.h"
#include "search/SearchKey.h"

namespace tavrin {

/// --case-sensitive, --whole-word and --in.
QList<Option> searchOptions();

KeyOptions keyOptions(const Arguments &arguments);

/// The code of what --in names; everything without it. As fieldNamed().
Result<qint64> fieldsToSearchIn(const Arguments &arguments, const DatafileSettingsData &settings);

} // namespace tavrin

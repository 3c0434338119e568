// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/Command.h"

namespace tavrin {

/// What --set and --text say that a record is to hold.
struct FieldValues
{
    QList<std::pair<QString, QString>> fields; ///< By field identifier, in the order given; in one line.
    std::optional<QString> text;
};

/// What is wrong with the way they were given; null when nothing is.
QString faultOfFieldValues(const Arguments &arguments);
/// NotFound or Refused where a field cannot be told by its name, Corrupt where it has no identifier.
Result<FieldValues> fieldValuesIn(const Arguments &arguments, const DatafileSettingsData &settings);
QList<Option> fieldValueOptions();

} // namespace tavrin

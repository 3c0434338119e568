// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Date.h"

#include <QString>

#include <functional>

namespace tavrin {

/// What the data asks the world for: the time, fresh identifiers and who is working.
///
/// Passed in, so that tests choose all three. A plain value; copies answer alike.
struct Environment
{
    /// The present instant, in whole seconds: the stored form keeps no fraction, and a record must
    /// compare equal before and after a save.
    std::function<Date()> now;

    /// A fresh identifier: 36 characters, upper case, 8-4-4-4-12.
    std::function<QString()> identifier;

    /// The person's full name.
    QString userName;

    /// The real clock, generator and user.
    static Environment system();
};

/// A new UUID in canonical upper-case text.
QString universallyUniqueIdentifier();

} // namespace tavrin

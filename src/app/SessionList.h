// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/Value.h"

namespace tavrin {

/// An open datafile and the record that its window shows.
struct SessionEntry
{
    QString path;
    QString recordIdentifier; ///< Empty: none in particular.

    friend bool operator==(const SessionEntry &, const SessionEntry &) = default;
};

/// The stored form: file URL, record identifier, file URL, and so on.
plist::Array listFromSession(const QList<SessionEntry> &session);

/// A last entry without a partner, and what is no local file, is left out.
QList<SessionEntry> sessionFromList(const plist::Array &list);

} // namespace tavrin

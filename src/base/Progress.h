// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin {

/// How long work tells how far it is, and learns that it should stop.
///
/// Work reports now and then (some hundred times in all, not once a record) and asks isCancelled() as
/// often; cancelled work leaves the data as it was.
class Progress
{
public:
    Progress() = default;
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    virtual ~Progress() = default;

    /// What is being done now, in words for people.
    virtual void setMessage(const QString & /*message*/) {}

    /// `done` of `total` units; a total of 0 means that it is not known.
    virtual void setDone(qint64 /*done*/, qint64 /*total*/) {}

    virtual bool isCancelled() const { return false; }
};

} // namespace tavrin

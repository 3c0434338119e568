// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"

#include <QObject>
#include <QString>

#include <memory>

namespace tavrin {

/// A piece of work that may take long, as a controller hands it to a WorkHost: what it is called and what is
/// done. Its outcome stays with it, for whoever hears that it has ended.
class LongWork : public QObject
{
    Q_OBJECT

public:
    LongWork();
    ~LongWork() override;

    /// What is being done, for people: "Opening “Addresses.tv3”…".
    virtual QString title() const = 0;

    /// How far it is, for people, from the numbers that it reports: "3 of 12". Empty when they say nothing.
    virtual QString doneText(qint64 done, qint64 total) const;

    /// Does it, on whatever thread, once. Nobody looks at the outcome before it returned.
    virtual void run(Progress &progress) = 0;

Q_SIGNALS:
    /// Told once, by the host, on the thread of the controllers.
    void ended();
};

/// The same of bytes: "3.1 MB of 12.0 MB".
QString doneTextOfBytes(qint64 done, qint64 total);

/// Where a controller has long work done while the windows go on. begin() may return before the work was
/// even begun; the host does one piece at a time, in the order in which they came, and owns each until its
/// end was told. A host that goes away cancels, and tells nobody.
class WorkHost
{
public:
    WorkHost() = default;
    WorkHost(const WorkHost &) = delete;
    WorkHost &operator=(const WorkHost &) = delete;
    virtual ~WorkHost() = default;

    virtual void begin(std::unique_ptr<LongWork> work) = 0;
};

} // namespace tavrin

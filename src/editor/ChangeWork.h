// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/SteppedChange.h"
#include "editor/LongWork.h"

namespace tavrin {

/// Making a change of many records, or taking back what was made of it.
///
/// Records belong to the thread of the controllers, and so each part is done there, a few milliseconds' worth
/// at a time: the windows go on in between, while another thread waits.
class ChangeWork : public LongWork
{
    Q_OBJECT

public:
    enum class Way {
        On,  ///< Makes what is left of the change.
        Back ///< Takes back what is made of it.
    };

    /// The change was begun, and its first parts are made.
    ChangeWork(DatafileDocument &document, std::shared_ptr<SteppedChange> change, size_t made, Way way);

    QString title() const override;
    void run(Progress &progress) override;

    /// How many parts of the change are made.
    size_t made() const { return g_made; }
    /// Nothing is left to be done. Otherwise it was cancelled.
    bool isDone() const { return g_made == (g_way == Way::Back ? 0 : g_change->partCount()); }

private:
    void doSome();
    bool doSomeThere(const Progress &progress);

    DatafileDocument &g_document;
    std::shared_ptr<SteppedChange> g_change;
    size_t g_made;
    Way g_way;
};

} // namespace tavrin

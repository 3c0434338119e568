// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/UndoHistory.h"

namespace tavrin {

/// A step of Undo on many records, which is made in small parts: whoever makes it may look up in between, and
/// may give it up.
///
/// begin(), all parts in their order, and conclude() make it; the same again takes it back.
class SteppedChange : public UndoStep
{
public:
    /// Of the way that it goes next.
    virtual size_t partCount() const = 0;
    /// Once so many are made, it is not to be given up any more.
    virtual size_t reversiblePartCount() const { return partCount(); }

    virtual void begin(DatafileDocument & /*document*/) {}
    /// Makes the parts from a place up to another.
    virtual void makeParts(DatafileDocument &document, size_t from, size_t to) = 0;
    /// Takes back parts that were just made.
    virtual void unmakeParts(DatafileDocument &document, size_t from, size_t to)
    {
        makeParts(document, from, to);
    }
    /// Does what goes with all parts, and announces it.
    virtual void conclude(DatafileDocument &document) = 0;

    /// Makes it whole, or takes it back.
    void exchange(DatafileDocument &document)
    {
        begin(document);
        makeParts(document, 0, partCount());
        conclude(document);
    }
    void undo(DatafileDocument &document) override { exchange(document); }
    void redo(DatafileDocument &document) override { exchange(document); }
};

} // namespace tavrin

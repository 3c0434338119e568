// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/SteppedChange.h"

#include <memory>
#include <vector>

namespace tavrin {

/// Changes that are one step of Undo: they are taken back the last one first, and made again the first one
/// first. It can be given up while the one that comes first can.
class ChangeSequence : public SteppedChange
{
public:
    /// One that was made behind those that there are. It has as many parts either way.
    void append(std::unique_ptr<SteppedChange> made) { g_changes.push_back(std::move(made)); }

    size_t partCount() const override;
    size_t reversiblePartCount() const override;
    void begin(DatafileDocument &document) override;
    void makeParts(DatafileDocument &document, size_t from, size_t to) override;
    void unmakeParts(DatafileDocument &document, size_t from, size_t to) override;
    void conclude(DatafileDocument &document) override;

protected:
    /// What goes with all of them.
    virtual void didMake(DatafileDocument &document) = 0;
    virtual void didTakeBack(DatafileDocument &document) = 0;

private:
    SteppedChange &at(size_t place) const;
    bool isLast() const { return g_place + 1 >= g_changes.size(); }
    void goOn(DatafileDocument &document);

    std::vector<std::unique_ptr<SteppedChange>> g_changes;
    bool g_areMade = true;
    size_t g_place = 0; ///< Of the one that is under way,
    size_t g_start = 0; ///< and of its first part.
};

} // namespace tavrin

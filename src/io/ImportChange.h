// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/RecordChanges.h"

namespace tavrin {

/// Records that were imported into a datafile, and duplicates that went because of them.
class ImportChange : public UndoStep
{
public:
    explicit ImportChange(std::vector<quint32> added);

    /// Removes those records as part of the same step.
    void remove(DatafileDocument &document, const std::vector<quint32> &records);

    QString name() const override;
    void undo(DatafileDocument &document) override;
    void redo(DatafileDocument &document) override;

private:
    std::unique_ptr<PresenceChange> g_added;
    std::unique_ptr<PresenceChange> g_removed; ///< Null when nothing was.
};

} // namespace tavrin

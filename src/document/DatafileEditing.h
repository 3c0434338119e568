// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

namespace tavrin {

/// What a document asks of the window that edits it. A document without a window has none.
class DatafileEditing
{
public:
    DatafileEditing() = default;
    DatafileEditing(const DatafileEditing &) = delete;
    DatafileEditing &operator=(const DatafileEditing &) = delete;
    virtual ~DatafileEditing() = default;

    /// Takes the edits on screen into the current record; called before the document is written.
    virtual void storeRecordBeingEdited() = 0;

    /// Ends the editing of a List View cell and puts the focus into the find box.
    virtual void endListEditing() = 0;

    /// Saving is permitted: the datafile's password, if any, was given.
    virtual bool canSaveChanges() const = 0;

    virtual bool nowSyncing() const = 0;

    /// The current record stands in the file as it is on screen.
    virtual void markCurrentRecordClean() = 0;

    /// The document begins or ends writing itself; meanwhile the window does not write into records.
    virtual void setNowSaving(bool saving) = 0;
};

} // namespace tavrin

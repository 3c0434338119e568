// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "document/ChangeWatch.h"
#include "document/StoredTexts.h"

#include <QCoreApplication>
#include <QStringList>

namespace tavrin {

class SteppedChange;

/// The removal of records that say the same as another, among the selected ones, in three steps: it is made
/// and applied on the document's thread, and runs in between on any.
///
/// Records say the same when their fields are equal, capitals and all, and their texts. Of each group the
/// one that the person sees first stays: the first in the order of the catalog.
class DuplicateRemoval
{
    Q_DECLARE_TR_FUNCTIONS(DuplicateRemoval)

public:
    enum class Compare {
        RichTexts, ///< Where both have rich text, that counts: its bytes, or else its characters.
        PlainTexts ///< Only the plain texts count.
    };

    DuplicateRemoval(const DatafileDocument &document, Compare compare);

    /// Once.
    void run(Progress &progress);

    bool wasCancelled() const { return g_wasCancelled; }
    /// The document has changed since this was made: what was found may no longer be so.
    bool isStale() const { return g_watch.hasChanged(); }
    /// Those that are to go, in the order of the catalog.
    const std::vector<quint32> &duplicates() const { return g_duplicates; }

    /// The change that removes them, to be made and remembered by the caller; null when run() was cancelled,
    /// or there are none.
    std::unique_ptr<SteppedChange> change(const DatafileDocument &document) const;
    /// Makes it at once, as one step of Undo. The identifiers of those that went.
    QStringList apply(DatafileDocument &document) const;

private:
    bool hash(Progress &progress);
    void hashPart(size_t from, size_t to, const std::function<bool()> &goOn);
    void group();
    bool areEqual(quint32 one, quint32 other) const;

    Compare g_compare;
    StoredTexts g_texts;
    std::vector<FieldKey> g_fields;
    std::vector<quint32> g_records; ///< The selected ones, in the order of the catalog.
    std::vector<quint64> g_hashes;  ///< Of those.
    std::vector<quint32> g_duplicates;
    bool g_wasCancelled = false;
    ChangeWatch g_watch;
};

} // namespace tavrin

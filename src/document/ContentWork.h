// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "document/ChangeWatch.h"
#include "document/ContentChange.h"
#include "document/StoredTexts.h"

#include <QCoreApplication>
#include <QStringList>

namespace tavrin {

class DatafileDocument;

/// A change of the contents of the selected records, in three steps: it is made and applied on the document's
/// thread, and runs in between on any. Between running and applying, it says what it would do.
///
/// Locked records stay as they are. Only records that change are opened. A class of its own for each command
/// says what becomes of one record.
class ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(ContentWork)

public:
    /// One content before and after, for a look at what would be done. Of a text, the first line that
    /// differs.
    struct Sample
    {
        quint32 record;
        QString field; ///< Null: the text.
        QString before;
        QString after;
    };
    static constexpr size_t mostSamples = 200;

    ContentWork(const ContentWork &) = delete;
    ContentWork &operator=(const ContentWork &) = delete;
    virtual ~ContentWork();

    /// Of all selected records only this one. Before run().
    void restrictTo(quint32 record);

    /// Once.
    void run(Progress &progress);

    bool wasCancelled() const { return g_wasCancelled; }
    /// How many selected records there are, and what is to become of them.
    qint64 records() const { return static_cast<qint64>(g_records.size()); }
    qint64 changedRecords() const { return g_changedRecords; }
    qint64 changedContents() const { return g_changedContents; }
    qint64 lockedRecords() const { return g_lockedRecords; }
    /// Records whose formatted text could not be changed without loss.
    qint64 leftRecords() const { return g_leftRecords; }
    const std::vector<Sample> &samples() const { return g_samples; }

    /// The change, to be made and remembered by the caller; null when nothing is to be changed. Cancelled
    /// when run() was; Refused when the document has changed since this was made, and it is to be done anew.
    Result<std::unique_ptr<SteppedChange>> takeChange(DatafileDocument &document);
    /// Makes it at once, as one step of Undo. False when nothing is to be changed.
    Result<bool> apply(DatafileDocument &document);

protected:
    /// `name` is what Undo calls it.
    ContentWork(const DatafileDocument &document, const QString &name);

    using Change = ContentChange::Record;

    /// Whether a look at the record is worthwhile; to be answered fast.
    virtual bool mayConcern(const RecordView & /*record*/) const { return true; }
    /// What is to become of a record.
    virtual void change(const RecordView &record, Change &change) = 0;
    /// Whether there is anything to be done.
    virtual bool isWorthwhile() const { return !g_changes.empty(); }
    /// What does it.
    virtual std::unique_ptr<SteppedChange>
    changeOf(DatafileDocument &document, const QString &name, std::vector<Change> changes);

    /// A change of one content, cleaned to one line; none when it is the same.
    void setField(const QString &field, const QString &before, const QString &after, Change &change);
    /// A change of the text; without one, as its formatting would be lost, the record is left as it is:
    /// false.
    bool setText(const std::optional<RecordText> &text, Change &change);

private:
    void take(quint32 record);
    void takeSamples(const RecordView &record, const Change &changed);

    QString g_name;
    StoredTexts g_texts;
    std::vector<quint32> g_records;
    std::vector<Change> g_changes;
    std::vector<Sample> g_samples;
    qint64 g_changedRecords = 0;
    qint64 g_changedContents = 0;
    qint64 g_lockedRecords = 0;
    qint64 g_leftRecords = 0;
    bool g_wasCancelled = false;
    ChangeWatch g_watch;
};

} // namespace tavrin

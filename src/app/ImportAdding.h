// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/ImportWork.h"
#include "editor/EditorWindowController.h"
#include "editor/SheetHost.h"

#include <QObject>
#include <QPointer>

namespace tavrin {

class MainController;

/// The window whose datafile may take imported records; null for none, and as soon as it is closed.
using ImportWindow = QPointer<EditorWindowController>;

/// Records that were read, and what is told of them afterwards.
struct ImportedRecords
{
    RecordBatch batch;
    TableKind kind = TableKind::Standard;
    quint64 malformed = 0;
    quint64 dropped = 0;
    qsizetype skipped = 0;
};

/// The second half of every import: imported records become a new datafile, or come into that of a window, as
/// one step of Undo. Both halves have their long work done here.
class ImportAdding : public QObject
{
    Q_OBJECT

public:
    ImportAdding(MainController &controller, SheetHost &sheets, WorkHost &work);

    /// A datafile for imported records, which nobody sees yet.
    std::unique_ptr<DatafileDocument> newDatafile(const QStringList &fieldNames) const;
    const Environment &environment() const { return g_environment; }

    /// Shows a new datafile with the records. When there are none, that is told, and a datafile with fields
    /// has an empty one.
    void showNewDatafile(std::unique_ptr<DatafileDocument> made,
                         const QString &name,
                         const Result<ImportedRecords> &records);
    void
    addTo(const ImportWindow &window, const Result<ImportedRecords> &records, ImportDestination destination);

    /// Why nothing was imported; nothing for work that was cancelled.
    void tell(const Error &error);

    /// Does a job on another thread and goes on with what came of it.
    template <typename T>
    void inBackground(const ImportJob &what,
                      const std::function<Result<T>(Progress &progress)> &job,
                      const std::function<void(Result<T> outcome)> &next)
    {
        auto work = std::make_unique<ImportWork<Result<T>>>(what, Error{Error::Kind::Cancelled}, job);
        connect(work.get(), &LongWork::ended, this, [next, work = work.get()] { next(work->takeOutcome()); });
        g_work.begin(std::move(work));
    }

private:
    static void
    tellAfterwards(EditorWindowController &window, const ImportedRecords &records, quint64 removed);

    MainController &g_controller;
    SheetHost &g_sheets;
    WorkHost &g_work;
    Environment g_environment;
};

} // namespace tavrin

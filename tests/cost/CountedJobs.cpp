// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// CountedJobs FILE OPERATIONS: opens the datafile, saves it with one record changed, and does to single
// records, so many times, what a person does. Under callgrind each job's count of instructions is dumped
// under its name; cost_per_record.py reads the counts.

#include "document/DatafileDocument.h"

#include <QFile>

#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

template <typename Work>
void counted(const char *job, Work work)
{
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_DUMP_STATS_AT(job);
}

int fail(const Error &error)
{
    std::fprintf(stderr, "%s %s\n", qPrintable(error.message), qPrintable(error.detail));
    return 1;
}

/// Every job is spread over the datafile, but adding at the end.
void countSingleRecords(DatafileDocument &document, int operations)
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    const auto repeated = [&](const char *job, const auto &work) {
        counted(job, [&] {
            for (int operation = 0; operation < operations; ++operation)
                work(catalog.identifierAtIndex(catalog.count() * operation / operations), operation);
        });
    };
    const QString field = document.datafileSettings().fields().constFirst().identifier();
    qint64 seen = 0;
    repeated("goto", [&](const QString &identifier, int) {
        const qint64 index = catalog.indexOfSelectedIdentifier(identifier);
        seen += catalog.indexOfIdentifier(catalog.selectedIdentifierAtIndex(index));
    });
    repeated("show", [&](const QString &identifier, int) {
        const auto record = document.datafileRecords().recordForIdentifier(identifier);
        seen += record->textString().size() + record->fieldValue(field).size();
    });
    repeated("change", [&](const QString &identifier, int operation) {
        document.storeFieldValue(identifier, field, u"Changed %1"_s.arg(operation));
        document.markRecordModified(identifier);
    });
    repeated("add-in-between", [&](const QString &identifier, int) { document.addRecord(identifier); });
    repeated("add-at-end", [&](const QString &, int) {
        document.addRecord(catalog.identifierAtIndex(catalog.count() - 1));
    });
    repeated("delete", [&](const QString &identifier, int) { document.deleteRecord(identifier); });
    std::printf("%lld\n", static_cast<long long>(seen));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    const DocumentServices services{Environment::system(), nullptr};
    Result<std::unique_ptr<DatafileDocument>> opened = Error{};
    counted("open", [&] {
        opened =
            DatafileDocument::open(services, QFile::decodeName(argv[1]), SelectionOnOpening::AllSelected);
    });
    if (!opened)
        return fail(opened.error());
    DatafileDocument &document = **opened;

    document.storeText(document.datafileCatalog().identifierAtIndex(7), u"Changed"_s);
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    Result<DatafileDocument::SaveOutcome> saved = DatafileDocument::SaveOutcome::NothingToSave;
    counted("save", [&] { saved = document.saveDocument(); });
    if (!saved)
        return fail(saved.error());

    countSingleRecords(document, std::atoi(argv[2]));
    return *saved == DatafileDocument::SaveOutcome::Saved ? 0 : 1;
}

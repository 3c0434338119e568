// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-document FILE...: seconds for opening and saving whole datafiles.

#include "Jobs.h"
#include "document/DatafileDocument.h"

#include <QTemporaryDir>

namespace {

using namespace tavrin;
using namespace Qt::StringLiterals;

auto openDatafile(const QString &path)
{
    const DocumentServices services{Environment::system(), nullptr};
    return DatafileDocument::open(services, path, SelectionOnOpening::AllSelected);
}

/// Opening as a window does it; closing does not count.
void openDocument(benchmark::State &state, const QString &path)
{
    for ([[maybe_unused]] auto _ : state) {
        auto document = openDatafile(path);
        state.PauseTiming();
        if (!document) {
            state.SkipWithError("the datafile cannot be opened");
            break;
        }
        document->reset();
        state.ResumeTiming();
    }
}

/// Saving to the disk, flushed; processor time, so that the disk's own time does not count.
void saveDocument(benchmark::State &state, const QString &path)
{
    const QTemporaryDir folder;
    const auto document = openDatafile(path);
    for ([[maybe_unused]] auto _ : state) {
        if (!document || !(*document)->saveCopyAs(folder.filePath(u"copy.tv3"_s))) {
            state.SkipWithError("the datafile cannot be saved");
            break;
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    return bench::runJobs(argc, argv, {{"open", openDocument}, {"save", saveDocument}});
}

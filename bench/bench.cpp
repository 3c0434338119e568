// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench JOB FILE ROUNDS: one job, in a process of its own; prints its name and its medians.

#include "MappedFile.h"
#include "Measure.h"
#include "document/DatafileDocument.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <map>

namespace {

using namespace tavrin;
using namespace Qt::StringLiterals;
using bench::MappedFile;
using bench::Memory;
using bench::Seconds;

using Document = std::unique_ptr<DatafileDocument>;

/// Null, after a message, when the file is no datafile.
Document opened(const QString &path)
{
    const DocumentServices services{Environment::system(), nullptr};
    auto document = DatafileDocument::open(services, path, SelectionOnOpening::AllSelected);
    if (!document) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(document.error().message));
        return nullptr;
    }
    return std::move(*document);
}

/// Opening as a window does it; closing does not count. Beside it the least that it could cost.
bool open(const QString &path, int rounds)
{
    Document document;
    const auto scan = [&path] {
        const MappedFile file(path);
        return bench::countOfMarkup(file.bytes()) > 0;
    };
    const auto close = [&] {
        document.reset();
        return true;
    };
    const auto read = [&] {
        document = opened(path);
        return document != nullptr;
    };
    return bench::timeInTurn(rounds, {{"scan", scan}, {"open", read, close}});
}

bool memory(const QString &path, int /*rounds*/)
{
    const Memory before = Memory::now();
    const Document document = opened(path);
    if (document)
        bench::printMemory(path.toStdString(), static_cast<double>(QFileInfo(path).size()), before);
    return document != nullptr;
}

/// Changes a field of so many records. No two rounds store the same.
void changeRecords(DatafileDocument &document, qint64 count, int round)
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    const QString field = document.datafileSettings().fields().constFirst().identifier();
    const qint64 first = (catalog.count() - count) / 2;
    for (qint64 index = first; index < first + count; ++index)
        document.storeFieldValue(
            catalog.identifierAtIndex(index), field, u"Changed %1 in round %2"_s.arg(index).arg(round));
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
}

/// Saves a copy of the datafile with so many changed records, and beside it writes as many bytes: into the
/// same folder, as /tmp may be no disk. The first of each is not counted.
bool save(const QString &path, int rounds, bool all)
{
    const QTemporaryDir folder(path + u"-XXXXXX"_s);
    const QString copy = folder.filePath(u"copy.tv3"_s);
    const Document document = QFile::copy(path, copy) ? opened(copy) : nullptr;
    if (!document)
        return false;
    const MappedFile file(path);
    const std::string_view bytes(file.bytes().data(), static_cast<std::size_t>(file.bytes().size()));
    const std::string written = QFile::encodeName(folder.filePath(u"written"_s)).toStdString();

    int round = 0;
    const auto write = [&] { return bench::writeAndRename(written, bytes); };
    const auto change = [&] {
        changeRecords(*document, all ? document->datafileCatalog().count() : 1, ++round);
        return true;
    };
    const auto saved = [&] {
        const auto outcome = document->saveDocument();
        return outcome && *outcome == DatafileDocument::SaveOutcome::Saved;
    };
    return write() && change() && saved()
           && bench::timeInTurn(rounds, {{"write", write}, {"save", saved, change}});
}

/// What a person does to one record, done to many in turn, all over the datafile.
class SingleRecords
{
public:
    explicit SingleRecords(DatafileDocument &document)
        : g_document(document)
        , g_fields(document.datafileSettings().fields())
    {}

    void run()
    {
        measure("goto", [this](const QString &identifier, qint64 index) {
            g_seen += g_document.datafileCatalog().selectedIdentifierAtIndex(index) == identifier;
            g_seen += g_document.datafileCatalog().indexOfIdentifier(identifier);
        });
        measure("show", [this](const QString &identifier, qint64) {
            const auto record = g_document.datafileRecords().recordForIdentifier(identifier);
            g_seen += record->textString().size();
            for (const FieldDefinition &field : g_fields)
                g_seen += record->fieldValue(field.identifier()).size();
        });
        measure("change", [this](const QString &identifier, qint64) {
            g_document.storeFieldValue(identifier, g_fields.constFirst().identifier(), u"Changed"_s);
            g_document.markRecordModified(identifier);
        });
        measure("add", [this](const QString &identifier, qint64) { g_document.addRecord(identifier); });
        measure("delete", [this](const QString &identifier, qint64) { g_document.deleteRecord(identifier); });
    }

private:
    /// Prints the mean, so that what is put off until it is dear counts, and the slowest.
    void measure(const char *name, const std::function<void(const QString &, qint64)> &work)
    {
        constexpr int operations = 400;
        constexpr qint64 stride = 7'654'321;
        double sum = 0;
        double slowest = 0;
        for (int operation = 0; operation < operations; ++operation) {
            const qint64 index = operation * stride % g_document.datafileCatalog().count();
            const QString identifier = g_document.datafileCatalog().identifierAtIndex(index);
            const Seconds start = Seconds::sinceStart();
            work(identifier, index);
            const double seconds = (Seconds::sinceStart() - start).processor;
            sum += seconds;
            slowest = std::max(slowest, seconds);
        }
        std::printf("%s %.9f %.9f\n", name, sum / operations, slowest);
    }

    DatafileDocument &g_document;
    QList<FieldDefinition> g_fields;
    qint64 g_seen = 0;
};

bool singleRecords(const QString &path, int /*rounds*/)
{
    const Document document = opened(path);
    if (document)
        SingleRecords(*document).run();
    return document != nullptr;
}

const std::map<std::string, bool (*)(const QString &path, int rounds)> jobs{
    {"open", open},
    {"memory", memory},
    {"save-one", [](const QString &path, int rounds) { return save(path, rounds, false); }},
    {"save-all", [](const QString &path, int rounds) { return save(path, rounds, true); }},
    {"records", singleRecords},
};

} // namespace

int main(int argc, char **argv)
{
    const auto job = jobs.find(argc == 4 ? argv[1] : "");
    if (job == jobs.end()) {
        std::fprintf(stderr, "usage: tavrin-bench JOB FILE ROUNDS, JOB being one of:");
        for (const auto &[name, run] : jobs)
            std::fprintf(stderr, " %s", name.c_str());
        std::fprintf(stderr, "\n");
        return 2;
    }
    return job->second(QFile::decodeName(argv[2]), std::atoi(argv[3])) ? 0 : 1;
}

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-import [ROWS...]: megabytes a second of reading delimited text into records and of writing
// records out, and the memory that the import takes beside the file, as a share of it. Without rows: 100,000
// and 1,000,000. Goals: 250 MB/s by RFC 4180, 100 MB/s by the given grammar, exports 200 MB/s, memory 3.
//
// Each figure is the best of some rounds: others use the processors, too, and memory that a virtual machine
// has given back to its host is dear to touch.
//
// Where sqlite3 and python3 are installed, the same file goes through them, too.

#include "Measure.h"
#include "document/DatafileDocument.h"
#include "io/TableExport.h"
#include "io/TableImport.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 5;

/// Rows of 12 values and some 130 bytes, a fifth of them quoted.
QByteArray madeRows(int count, char separator)
{
    QByteArray text;
    for (int row = 0; row < count; ++row) {
        const QByteArray number = QByteArray::number(row * 7919 % 1000003);
        const QList<QByteArray> values = {"\"Name, " + number + "\"",
                                          "Company & Sons",
                                          number + " Station Road",
                                          "K\xC3\xB6ln",
                                          number,
                                          "+49 30 " + number,
                                          "person" + number + "@example.org",
                                          "",
                                          "12." + number,
                                          "2024-02-17",
                                          "\"said \"\"" + number + "\"\"\"",
                                          "x"};
        text += values.join(separator) + '\n';
    }
    return text;
}

void tell(const char *name, double megabytes, double seconds)
{
    std::printf("%-34s %8.0f MB/s\n", name, megabytes / seconds);
}

/// Reads the file and fills a datafile; the document, or null.
std::unique_ptr<DatafileDocument> imported(const QString &path, const ImportOptions &options)
{
    Progress progress;
    const auto text = readTextFile(path, {}, progress);
    if (!text)
        return nullptr;
    const auto table = readTable(*text, options, std::numeric_limits<qint64>::max(), progress);
    if (!table)
        return nullptr;
    const DocumentServices services{Environment::system(), nullptr};
    auto document = newDatafileForImport(services, DatafileKind::Pro, importedFieldNames(*table, options));
    if (!importTable(*document, *table, options, progress))
        return nullptr;
    return document;
}

std::unique_ptr<DatafileDocument>
timeImport(const char *name, const QString &path, TableKind kind, char separator)
{
    const auto size = static_cast<double>(QFile(path).size());
    ImportOptions options;
    options.kind = kind;
    options.separator = separator;
    std::unique_ptr<DatafileDocument> document;
    double least = std::numeric_limits<double>::infinity();
    double memory = 0;
    for (int round = 0; round < rounds; ++round) {
        document.reset();
        const double before = bench::Memory::now().anonymous;
        const bench::Seconds start = bench::Seconds::sinceStart();
        document = imported(path, options);
        if (!document)
            return nullptr;
        least = std::min(least, (bench::Seconds::sinceStart() - start).processor);
        memory = std::max(memory, bench::Memory::now().anonymous - before);
    }
    tell(name, size / 1e6, least);
    std::printf("%-34s %8.2f\n", "  memory, as a share of the file", memory / size);
    return document;
}

/// Into nothing, which tells what the processor does; and into a file, which takes more of them and the disk.
void timeExport(const char *name,
                const DatafileDocument &document,
                TableExportOptions::Form form,
                const QString &path)
{
    TableExportOptions options;
    options.form = form;
    Progress progress;
    const ByteSink nowhere = [](QByteArrayView) { return true; };
    double processor = std::numeric_limits<double>::infinity();
    double elapsed = std::numeric_limits<double>::infinity();
    for (int round = 0; round < rounds; ++round) {
        const bench::Seconds start = bench::Seconds::sinceStart();
        if (!writeTable(ExportedRecords(document), options, nowhere, progress))
            return;
        const bench::Seconds made = bench::Seconds::sinceStart();
        if (!exportTable(ExportedRecords(document), options, path, progress))
            return;
        processor = std::min(processor, (made - start).processor);
        elapsed = std::min(elapsed, (bench::Seconds::sinceStart() - made).elapsed);
    }
    const double megabytes = static_cast<double>(QFile(path).size()) / 1e6;
    tell(name, megabytes, processor);
    tell("  into a file, on the clock", megabytes, elapsed);
    QFile::remove(path);
}

void timeExports(const DatafileDocument &document, const QString &path)
{
    timeExport("export as CSV", document, TableExportOptions::Form::Csv, path);
    timeExport("export as tab-delimited text", document, TableExportOptions::Form::Tab, path);
    timeExport("export by RFC 4180", document, TableExportOptions::Form::Standard, path);
}

/// Of records that stand in a datafile.
void timeExportsOfOpened(const QString &datafile, const QString &path)
{
    const DocumentServices services{Environment::system(), nullptr};
    if (const auto document = DatafileDocument::open(services, datafile, SelectionOnOpening::AllSelected)) {
        std::printf("the same, saved and opened\n");
        timeExports(**document, path);
    }
}

/// Of records that were imported: none of them stands in a datafile yet.
void timeSave(DatafileDocument &document, const QString &path)
{
    const bench::Seconds start = bench::Seconds::sinceStart();
    if (document.saveToFirstFile(path))
        tell("saving the imported records",
             static_cast<double>(QFile(path).size()) / 1e6,
             (bench::Seconds::sinceStart() - start).processor);
}

void timePeer(const char *name, const QString &path, const QString &program, const QStringList &arguments)
{
    if (QStandardPaths::findExecutable(program).isEmpty())
        return;
    QProcess process;
    const bench::Seconds start = bench::Seconds::sinceStart();
    process.start(program, arguments);
    if (process.waitForFinished(-1) && process.exitCode() == 0)
        tell(name,
             static_cast<double>(QFile(path).size()) / 1e6,
             (bench::Seconds::sinceStart() - start).elapsed);
}

bool run(int rows, const QTemporaryDir &folder)
{
    std::printf("%d rows\n", rows);
    const QString csv = folder.filePath(u"rows.csv"_s);
    const QString tab = folder.filePath(u"rows.tab"_s);
    for (const auto &[path, separator] : {std::pair(csv, ','), std::pair(tab, '\t')}) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(madeRows(rows, separator)) < 0)
            return false;
    }
    timeImport("import by RFC 4180", csv, TableKind::Standard, ',');
    timeImport("import by the given grammar", csv, TableKind::Csv, ',');
    const auto document = timeImport("import of tab-delimited text", tab, TableKind::Tab, '\t');
    if (!document)
        return false;
    const QString exported = folder.filePath(u"exported"_s);
    timeExports(*document, exported);
    const QString saved = folder.filePath(u"saved.tv3"_s);
    timeSave(*document, saved);
    timeExportsOfOpened(saved, exported);
    QFile::remove(saved);
    timePeer("sqlite3 .import, on the clock",
             csv,
             u"sqlite3"_s,
             {u"-csv"_s, u":memory:"_s, u".import '%1' t"_s.arg(csv)});
    timePeer("python3 csv, on the clock",
             csv,
             u"python3"_s,
             {u"-c"_s, u"import csv, sys; list(csv.reader(open(sys.argv[1], newline='')))"_s, csv});
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir folder;
    QList<int> rows;
    for (int i = 1; i < argc; ++i)
        rows.append(std::max(1, QByteArray(argv[i]).toInt()));
    if (rows.isEmpty())
        rows = {100000, 1000000};
    for (const int count : std::as_const(rows)) {
        if (!run(count, folder))
            return 1;
    }
    return 0;
}

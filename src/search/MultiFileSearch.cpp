// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/MultiFileSearch.h"

#include "document/DatafileContents.h"
#include "document/DatafileDocument.h"
#include "search/RecordWalk.h"

#include <QCoreApplication>
#include <QDirIterator>

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("MultiFileSearch", text);
}

QString canonicalPath(const QString &path)
{
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.absoluteFilePath() : canonical;
}

QStringList datafilesIn(const QString &folder, const Progress &progress)
{
    QStringList paths;
    QDirIterator files(folder, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (files.hasNext() && !progress.isCancelled()) {
        if (const QString path = files.next(); datafileKindOfPath(path))
            paths.append(path);
    }
    paths.sort(Qt::CaseInsensitive);
    return paths;
}

} // namespace

OpenDatafileSnapshot::OpenDatafileSnapshot(const DatafileDocument &document, const MultiFileQuery &query)
    : name(document.displayName())
    , path(document.filePath().isEmpty() ? QString() : canonicalPath(document.filePath()))
    , fields(document.datafileSettings().fields())
    , textName(document.datafileSettings().textName())
    , row(document, RecordRowSnapshot::Which::All)
    , search(document.datafileSettings(), query.fieldsToSearchIn)
    , identifiers(document.datafileRecords().sharedIdentifiers())
{}

MultiFileSearch::MultiFileSearch(const MultiFileQuery &query,
                                 std::vector<std::shared_ptr<const OpenDatafileSnapshot>> open,
                                 Receiver receiver)
    : g_query(query)
    , g_key(query.text, query.options)
    , g_open(std::move(open))
    , g_receiver(std::move(receiver))
{}

void MultiFileSearch::searchOpen(Progress &progress)
{
    for (qsizetype i = 0; i < std::ssize(g_open); ++i)
        searchDatafile(*g_open[static_cast<size_t>(i)], i, nullptr, progress);
}

void MultiFileSearch::searchPaths(const QStringList &paths, Progress &progress)
{
    QStringList seen;
    const auto search = [&](const QString &path) {
        const QString canonical = canonicalPath(path);
        if (progress.isCancelled() || seen.contains(canonical))
            return;
        seen.append(canonical);
        const auto open =
            std::ranges::find(g_open, canonical, [](const auto &datafile) { return datafile->path; });
        if (open == g_open.end())
            searchFile(canonical, progress);
        else
            searchDatafile(**open, open - g_open.begin(), nullptr, progress);
    };
    for (const QString &path : paths) {
        if (!QFileInfo(path).isDir()) {
            search(path);
            continue;
        }
        for (const QString &inFolder : datafilesIn(path, progress))
            search(inFolder);
    }
}

void MultiFileSearch::searchFile(const QString &path, Progress &progress)
{
    const QString name = QFileInfo(path).fileName();
    Result<DatafileContents> contents = readDatafile(path, progress);
    if (!contents) {
        const Error::Kind kind = contents.error().kind;
        if (kind == Error::Kind::TooNew)
            notSearched(name, path, translated("(newer format - not searched)"));
        else if (kind != Error::Kind::Cancelled)
            notSearched(name, path, translated("(could not be read)"));
        return;
    }
    // A document without a window: it reads and completes records as an open one does, and locks nothing.
    const auto document = DatafileDocument::openContents(
        {Environment::system(), nullptr}, *std::move(contents), SelectionOnOpening::AllSelected);
    if (!document->datafileSettings().password().isEmpty()) {
        notSearched(name, path, translated("(password required - not searched)"));
        return;
    }
    const OpenDatafileSnapshot datafile(*document, g_query);
    searchDatafile(datafile, -1, datafile.identifiers.get(), progress);
}

void MultiFileSearch::searchDatafile(const OpenDatafileSnapshot &datafile,
                                     qsizetype open,
                                     const IdentifierTable *identifiers,
                                     Progress &progress)
{
    if (datafile.isPasswordRequired) {
        notSearched(datafile.name, datafile.path, translated("(password required - not searched)"));
        return;
    }
    const qint64 count = datafile.row.count();
    if (count == 0 || isFull() || progress.isCancelled())
        return;
    RecordWalk(datafile.row, count, progress).visit(0, count - 1, [&](qint64 record, const RecordView &view) {
        if (!g_key.mayBeIn(view))
            return true;
        const QList<RecordHit> hits = datafile.search.hitsInRecord(view, g_key);
        for (const RecordHit &hit : hits) {
            const bool isInText = hit.field == HitField::freeformText;
            const QString content = isInText
                                        ? view.textString().toString()
                                        : view.fieldValue(datafile.fields[hit.field].identifier()).toString();
            const quint32 number = datafile.row.number(record);
            add({.datafile = datafile.name,
                 .path = datafile.path,
                 .open = open,
                 .record = record + 1,
                 .number = number,
                 .identifier = identifiers ? identifiers->text(number) : QString(),
                 .title = recordTitle(view, datafile.fields),
                 .field = isInText ? datafile.textName : datafile.fields[hit.field].name(),
                 .hit = hit,
                 .context = hitContext(content, hit.range)});
            if (++g_hits == mostHits)
                notSearched(
                    datafile.name, datafile.path, translated("(too many hits - the rest is not listed)"));
            if (isFull() || progress.isCancelled())
                return false;
        }
        return true;
    });
    // A datafile's hits do not wait for those of the next one.
    g_receiver(std::exchange(g_rows, {}));
}

void MultiFileSearch::notSearched(const QString &name, const QString &path, const QString &why)
{
    MultiFileRow row{.kind = MultiFileRow::Kind::NotSearched, .datafile = name, .path = path};
    row.context.text = why;
    add(std::move(row));
}

void MultiFileSearch::add(MultiFileRow row)
{
    constexpr qsizetype batch = 200;
    g_rows.append(std::move(row));
    if (g_rows.size() >= batch)
        g_receiver(std::exchange(g_rows, {}));
}

void MultiFileSearch::end(bool wasCancelled)
{
    add(lastRow(wasCancelled));
    g_receiver(std::exchange(g_rows, {}));
}

MultiFileRow MultiFileSearch::lastRow(bool wasCancelled)
{
    MultiFileRow row{.kind = MultiFileRow::Kind::End, .datafile = {}, .path = {}};
    row.context.text = wasCancelled ? translated("<<Search Cancelled>>") : translated("<<Search Completed>>");
    return row;
}

} // namespace tavrin

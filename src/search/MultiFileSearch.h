// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "model/IdentifierTable.h"
#include "search/DatafileRows.h"
#include "search/HitContext.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace tavrin {

class DatafileDocument;

/// What is looked for in several datafiles.
struct MultiFileQuery
{
    QString text;
    KeyOptions options;
    qint64 fieldsToSearchIn = FieldsToSearchIn::everything;
};

/// A datafile that is open, as it is on screen when this is made.
class OpenDatafileSnapshot
{
public:
    OpenDatafileSnapshot(const DatafileDocument &document, const MultiFileQuery &query);

    QString name;
    QString path;                    ///< Canonical; empty for a datafile that was never saved.
    bool isPasswordRequired = false; ///< And not given yet.
    QList<FieldDefinition> fields;
    QString textName;
    RecordRowSnapshot row;
    RecordSearch search;
    std::shared_ptr<IdentifierTable> identifiers; ///< For the thread of the document only.
};

/// One line of what was found: a hit, a datafile that was not searched, or the end.
struct MultiFileRow
{
    enum class Kind { Hit, NotSearched, End };

    Kind kind = Kind::Hit;
    QString datafile;        ///< Its name.
    QString path;            ///< Canonical; empty for one that was never saved.
    qsizetype open = -1;     ///< The index of its snapshot; -1 for a closed one.
    qint64 record = 0;       ///< Its number among all records, from 1 on.
    quint32 number = 0;      ///< Of its identifier, in an open datafile.
    QString identifier = {}; ///< In a closed one.
    QString title = {};
    QString field = {};
    RecordHit hit = {};
    HitContext context = {}; ///< Or what there is to say.
};

/// Searches datafiles one after the other, on whatever thread: open ones by their snapshots, closed ones as
/// they are in their files, which are only read.
class MultiFileSearch
{
public:
    /// Many at a time, but never late.
    using Receiver = std::function<void(QList<MultiFileRow> rows)>;

    static constexpr qint64 mostHits = 100000; ///< That are listed; of more it says that there are.

    MultiFileSearch(const MultiFileQuery &query,
                    std::vector<std::shared_ptr<const OpenDatafileSnapshot>> open,
                    Receiver receiver);

    /// The open datafiles.
    void searchOpen(Progress &progress);
    /// The datafiles of those paths; in folders, all of them at any depth, but not behind links. One that is
    /// open is searched as it is on screen.
    void searchPaths(const QStringList &paths, Progress &progress);
    /// Hands over what is left, and the last row.
    void end(bool wasCancelled);

    static MultiFileRow lastRow(bool wasCancelled);

private:
    void searchFile(const QString &path, Progress &progress);
    void searchDatafile(const OpenDatafileSnapshot &datafile,
                        qsizetype open,
                        const IdentifierTable *identifiers,
                        Progress &progress);
    void notSearched(const QString &name, const QString &path, const QString &why);
    void add(MultiFileRow row);
    bool isFull() const { return g_hits >= mostHits; }

    MultiFileQuery g_query;
    SearchKey g_key;
    std::vector<std::shared_ptr<const OpenDatafileSnapshot>> g_open;
    Receiver g_receiver;
    QList<MultiFileRow> g_rows;
    qint64 g_hits = 0;
};

} // namespace tavrin

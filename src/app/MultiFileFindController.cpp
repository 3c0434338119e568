// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/MultiFileFindController.h"

#include "app/MainController.h"
#include "editor/EditorSearchController.h"
#include "editor/EditorWindowController.h"

#include <QFileInfo>
#include <QLocale>

#include <mutex>
#include <utility>

namespace tavrin {

namespace {

const QString lastFolder = QStringLiteral("LastMultiFileFindFolder");

} // namespace

/// What both threads know: rows go from one to the other.
struct MultiFileFindController::Search
{
    SharedProgress progress;
    std::mutex mutex;
    QList<MultiFileRow> rows;

    void add(const QList<MultiFileRow> &more)
    {
        const std::lock_guard lock(mutex);
        rows += more;
    }
    /// Not more than a window shows without standing still.
    QList<MultiFileRow> take()
    {
        constexpr qsizetype most = 1000;
        const std::lock_guard lock(mutex);
        const QList<MultiFileRow> taken = rows.first(qMin(most, rows.size()));
        rows.remove(0, taken.size());
        return taken;
    }
};

MultiFileFindController::MultiFileFindController(MainController &application) : g_application(application)
{
    using namespace std::chrono_literals;
    g_timer.setInterval(50ms);
    connect(&g_timer, &QTimer::timeout, this, &MultiFileFindController::takeRows);
    connect(&application, &MainController::openDatafilesChanged, this, &MultiFileFindController::showWanted);
    connect(&application, &MainController::openDatafilesChanged, this, &MultiFileFindController::changed);
}

MultiFileFindController::~MultiFileFindController()
{
    if (g_search)
        g_search->progress.cancel();
}

void MultiFileFindController::setText(const QString &text)
{
    g_query.text = text;
    Q_EMIT changed();
}

void MultiFileFindController::setTextOnly(bool on)
{
    g_query.fieldsToSearchIn = on ? FieldsToSearchIn::freeformText : FieldsToSearchIn::everything;
}

void MultiFileFindController::setWhere(Where where)
{
    g_where = where;
    Q_EMIT changed();
}

void MultiFileFindController::setChosenPaths(const QStringList &paths)
{
    g_chosenPaths = paths;
    if (!paths.isEmpty())
        g_application.preferences().setObject(QFileInfo(paths.first()).absolutePath(), lastFolder);
    Q_EMIT changed();
}

QString MultiFileFindController::folderToChooseIn() const
{
    const QString last = g_application.preferences().stringForKey(lastFolder);
    return QFileInfo(last).isDir() ? last : QString();
}

bool MultiFileFindController::canSearch() const
{
    switch (g_where) {
    case Where::OpenDatafiles:
        return !g_query.text.isEmpty() && g_application.openDatafileCount() > 0;
    case Where::DatafilesFolder:
        break;
    case Where::ChosenDatafiles:
        return !g_query.text.isEmpty() && !g_chosenPaths.isEmpty();
    }
    return !g_query.text.isEmpty();
}

// Searching.

std::vector<std::shared_ptr<const OpenDatafileSnapshot>> MultiFileFindController::openSnapshots()
{
    std::vector<std::shared_ptr<const OpenDatafileSnapshot>> snapshots;
    g_documents.clear();
    for (DatafileDocument *document : g_application.documents()) {
        DatafileWindow *window = g_application.windowOf(*document);
        if (!window)
            continue;
        // As it is on screen: what is being typed counts.
        window->controller().updateCurrentRecord();
        auto snapshot = std::make_shared<OpenDatafileSnapshot>(*document, g_query);
        snapshot->isPasswordRequired = window->controller().isAskingPassword();
        snapshots.push_back(std::move(snapshot));
        g_documents.emplace_back(document);
    }
    return snapshots;
}

QStringList MultiFileFindController::pathsToSearch() const
{
    return g_where == Where::DatafilesFolder ? QStringList{g_application.datafilesFolder().path()}
                                             : g_chosenPaths;
}

void MultiFileFindController::search()
{
    if (!canSearch()) {
        Q_EMIT beep();
        return;
    }
    if (g_search)
        g_search->progress.cancel();
    std::erase_if(g_work, [](const auto &work) { return !work->isRunning(); });
    g_results.clear();
    g_open = openSnapshots();
    if (!g_documents.empty())
        g_results.setHitColor(g_application.windowOf(*g_application.documents().constFirst())
                                  ->controller()
                                  .search()
                                  .finding()
                                  .hitColor());
    g_search = std::make_shared<Search>();
    g_work.push_back(std::make_unique<BackgroundWork>());
    g_work.back()->begin(
        [search = g_search, query = g_query, open = g_open, where = g_where, paths = pathsToSearch()] {
            MultiFileSearch engine(
                query, open, [search](const QList<MultiFileRow> &rows) { search->add(rows); });
            if (where == Where::OpenDatafiles)
                engine.searchOpen(search->progress);
            else
                engine.searchPaths(paths, search->progress);
            engine.end(search->progress.isCancelled());
        },
        [] {});
    g_timer.start();
    Q_EMIT changed();
}

void MultiFileFindController::takeRows()
{
    if (!g_search)
        return;
    QList<MultiFileRow> rows = g_search->take();
    for (MultiFileRow &row : rows) {
        if (row.open >= 0)
            row.identifier = g_open[static_cast<size_t>(row.open)]->identifiers->text(row.number);
    }
    g_results.append(rows);
    if (!rows.isEmpty() && rows.constLast().kind == MultiFileRow::Kind::End) {
        g_search.reset();
        g_timer.stop();
    }
    if (!rows.isEmpty())
        Q_EMIT changed();
}

void MultiFileFindController::cancel()
{
    if (!g_search)
        return;
    // The thread ends when it has noticed; nobody waits for it.
    g_search->progress.cancel();
    g_search.reset();
    g_timer.stop();
    g_results.append({MultiFileSearch::lastRow(true)});
    Q_EMIT changed();
}

QString MultiFileFindController::summary() const
{
    const auto [hits, datafiles] = g_results.counts();
    const QLocale locale;
    if (hits == 0)
        return isSearching() ? tr("Searching…") : QString();
    return tr("Hits: %1, datafiles: %2").arg(locale.toString(hits), locale.toString(datafiles));
}

// Opening what was found.

void MultiFileFindController::openRow(int row)
{
    if (row < 0 || row >= g_results.rowCount())
        return;
    const MultiFileRow &found = g_results.row(row);
    if (found.kind == MultiFileRow::Kind::End)
        return;
    // A datafile without a path is known by its snapshot.
    if (found.open >= 0 && found.path.isEmpty()) {
        auto *document =
            qobject_cast<DatafileDocument *>(g_documents[static_cast<size_t>(found.open)].data());
        DatafileWindow *window = document ? g_application.windowOf(*document) : nullptr;
        if (!window) {
            Q_EMIT beep();
            return;
        }
        window->bringToFront();
        window->controller().search().finding().showLinkedHit(found.identifier, found.hit);
        return;
    }
    g_wanted =
        Wanted{found.path, found.kind == MultiFileRow::Kind::Hit ? found.identifier : QString(), found.hit};
    g_application.openDatafile(found.path, found.identifier);
    showWanted();
}

void MultiFileFindController::showWanted()
{
    if (!g_wanted)
        return;
    for (DatafileDocument *document : g_application.documents()) {
        DatafileWindow *window = g_application.windowOf(*document);
        if (!window || QFileInfo(document->filePath()).canonicalFilePath() != g_wanted->path)
            continue;
        const Wanted wanted = *std::exchange(g_wanted, std::nullopt);
        if (!wanted.identifier.isEmpty() && !window->controller().isAskingPassword())
            window->controller().search().finding().showLinkedHit(wanted.identifier, wanted.hit);
        return;
    }
    if (!g_application.isOpening())
        g_wanted.reset();
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/MultiFileResults.h"
#include "base/BackgroundWork.h"
#include "base/SharedProgress.h"

#include <QPointer>
#include <QTimer>

namespace tavrin {

class MainController;

/// The window "Multi-File Find": what it looks for and where, the search on another thread, and opening what
/// was found.
class MultiFileFindController : public QObject
{
    Q_OBJECT

public:
    enum class Where { OpenDatafiles, DatafilesFolder, ChosenDatafiles };

    /// The application's controller outlives it.
    explicit MultiFileFindController(MainController &application);
    ~MultiFileFindController() override;

    MultiFileResults &results() { return g_results; }

    void setText(const QString &text);
    void setCaseSensitive(bool on) { g_query.options.caseSensitive = on; }
    void setWholeWord(bool on) { g_query.options.wholeWord = on; }
    void setTextOnly(bool on);
    Where where() const { return g_where; }
    void setWhere(Where where);
    QStringList chosenPaths() const { return g_chosenPaths; }
    void setChosenPaths(const QStringList &paths);
    /// Where datafiles were chosen last; empty: nowhere that is still there.
    QString folderToChooseIn() const;

    bool isSearching() const { return g_search != nullptr; }
    bool canSearch() const;
    /// A search under way is given up for it.
    void search();
    /// What was found until now stays, and the last row says that it was cancelled.
    void cancel();
    /// "12 hits in 3 datafiles"
    QString summary() const;

    /// Opens the datafile at the record, with the hit selected. One that is omitted is asked about, one that
    /// is gone is told of.
    void openRow(int row);

Q_SIGNALS:
    void changed();
    void beep();

private:
    struct Search;
    struct Wanted
    {
        QString path;
        QString identifier;
        RecordHit hit;
    };

    std::vector<std::shared_ptr<const OpenDatafileSnapshot>> openSnapshots();
    QStringList pathsToSearch() const;
    void takeRows();
    void showWanted();

    MainController &g_application;
    MultiFileResults g_results;
    MultiFileQuery g_query;
    Where g_where = Where::OpenDatafiles;
    QStringList g_chosenPaths;
    std::vector<std::shared_ptr<const OpenDatafileSnapshot>> g_open;
    std::vector<QPointer<QObject>> g_documents; ///< Of those snapshots.
    std::shared_ptr<Search> g_search;           ///< Under way.
    std::optional<Wanted> g_wanted;             ///< To be shown when its datafile is open.
    QTimer g_timer;
    std::vector<std::unique_ptr<BackgroundWork>> g_work; ///< Given up ones end by themselves.
};

} // namespace tavrin

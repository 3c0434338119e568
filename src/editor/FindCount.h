// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/BackgroundWork.h"
#include "base/SharedProgress.h"
#include "search/SearchKey.h"

#include <QStringList>
#include <QTimer>

#include <memory>

namespace tavrin {

class DatafileDocument;
class RecordRowSnapshot;

/// Counts, while somebody types keys, how many of the selected records hold them. It waits for a pause, works
/// on another thread, and tells only of the keys that were asked for last.
class FindCount : public QObject
{
    Q_OBJECT

public:
    /// The document outlives it.
    explicit FindCount(const DatafileDocument &document);
    ~FindCount() override;

    /// `asSelecting`: as FindSelection would find them. No keys: nothing is counted.
    void count(const QStringList &keys, KeyOptions options, bool asSelecting);

Q_SIGNALS:
    /// "12 of 20,000 records"; empty as soon as what was told no longer holds.
    void counted(const QString &line);

private:
    struct Counting;

    void begin();
    void end(const Counting &counting);

    const DatafileDocument &g_document;
    QTimer g_pause;
    QStringList g_keys;
    KeyOptions g_options;
    bool g_asSelecting = false;
    std::shared_ptr<const RecordRowSnapshot> g_row; ///< Null when the records have changed since.
    std::shared_ptr<Counting> g_counting;           ///< Under way.
    BackgroundWork g_work;
};

} // namespace tavrin

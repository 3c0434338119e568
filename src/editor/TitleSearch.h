// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/BackgroundWork.h"

#include <QObject>
#include <QString>

#include <memory>

namespace tavrin {

class DatafileDocument;

/// Finds the first of the selected records whose title begins with a text. It works on another thread, opens
/// no record, and tells only of the text that was asked for last.
class TitleSearch : public QObject
{
    Q_OBJECT

public:
    /// The document outlives it.
    explicit TitleSearch(const DatafileDocument &document);
    ~TitleSearch() override;

    /// Ends in `found`, unless it is cancelled or another text is asked for.
    void find(const QString &start);
    void cancel();

Q_SIGNALS:
    /// The record's place among the selected ones; -1 when no title begins so.
    void found(qint64 index);

private:
    struct Search;

    void begin();
    void end(const Search &search);

    const DatafileDocument &g_document;
    QString g_start;                  ///< Empty: nothing is wanted.
    std::shared_ptr<Search> g_search; ///< Under way.
    BackgroundWork g_work;
};

} // namespace tavrin

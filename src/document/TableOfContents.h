// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Progress.h"
#include "document/RecordText.h"
#include "document/StoredTexts.h"

#include <QCoreApplication>

namespace tavrin {

class DatafileDocument;

/// The making of a record that lists all others, each as a link, in three steps: it is made and applied on
/// the document's thread, and runs in between on any.
class TableOfContents
{
    Q_DECLARE_TR_FUNCTIONS(TableOfContents)

public:
    explicit TableOfContents(const DatafileDocument &document);

    /// Once.
    void run(Progress &progress);

    /// Adds the record as the first, as one step of Undo. Its identifier; null, and no change, when run() was
    /// cancelled.
    QString apply(DatafileDocument &document) const;

private:
    QString title(quint32 record) const;

    StoredTexts g_texts;
    std::vector<quint32> g_records;
    QStringList g_identifiers; ///< Of those.
    QString g_family;
    qint32 g_size; ///< Thousandths of a point.
    bool g_isPlain;
    std::optional<RecordText> g_text;
};

} // namespace tavrin

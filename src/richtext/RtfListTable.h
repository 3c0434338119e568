// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/ParagraphFormat.h"
#include "richtext/RtfTokenizer.h"
#include "richtext/RtfWords.h"

#include <QHash>

namespace tavrin::richtext {

/// The lists of a document. It is told the words of its tables as they come: those of the lists, then those
/// that give a list the number by which paragraphs name it.
class RtfListTable
{
public:
    void change(RtfTableWord word, const RtfToken &token, bool isOverride);
    void beginLevel();
    void addMarker(QStringView text);
    void endMarker();
    void setNumber(qint32 number);

    /// Never without a level.
    QList<ListLevel> levels(qint32 number) const;

private:
    QHash<qint32, QList<ListLevel>> g_lists;
    QHash<qint32, qint32> g_identifiers;
    QList<ListLevel> g_levels;
    QString g_marker;
    qint32 g_identifier = 0;
};

} // namespace tavrin::richtext

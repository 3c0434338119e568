// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/ContentWork.h"
#include "search/DatafileSearch.h"

namespace tavrin {

/// What to put in whose place.
struct Replacement
{
    QString findWhat;
    QString replaceWith;
    KeyOptions options;
};

/// What to do with texts whose formatting cannot be kept.
enum class UnkeptFormatting {
    Leave, ///< Such a text stays as it is.
    Drop,  ///< It becomes plain text.
};

/// Replaces every occurrence in the selected records, hidden fields too, and counts. Locked records stay as
/// they are.
class ReplaceAllWork : public ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(ReplaceAllWork)

public:
    ReplaceAllWork(const DatafileDocument &document,
                   const Replacement &replacement,
                   qint64 fieldsToSearchIn,
                   UnkeptFormatting formatting);

    qint64 replacements() const { return g_replacements; }
    /// The numbers of the records whose formatted text has occurrences and was left.
    const std::vector<quint32> &leftTexts() const { return g_leftTexts; }

private:
    bool mayConcern(const RecordView &record) const override { return g_key.mayBeIn(record); }
    void change(const RecordView &record, Change &change) override;
    void changeText(const RecordView &record, Change &change);

    SearchKey g_key;
    QString g_replaceWith;
    QString g_inField; ///< The same as a field may hold it.
    UnkeptFormatting g_formatting;
    bool g_isMobile;
    bool g_inText;
    std::vector<FieldKey> g_fields;
    qint64 g_replacements = 0;
    std::vector<quint32> g_leftTexts;
};

/// Replaces one hit, and says where in the record the search goes on: behind what was put in. None, and no
/// change, when the record is locked or gone, the hit does not stand there any more, or the text's formatting
/// cannot be kept.
std::optional<RecordPlace>
replaceString(DatafileDocument &document, const DatafileHit &hit, const Replacement &replacement);

} // namespace tavrin

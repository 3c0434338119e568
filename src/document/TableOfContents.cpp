// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/TableOfContents.h"

#include "document/DatafileDocument.h"
#include "document/RecordAdding.h"
#include "richtext/Rtfd.h"
#include "sorting/WorkSteps.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

TableOfContents::TableOfContents(const DatafileDocument &document)
    : g_texts(document.datafileRecords(), document.datafileSettings())
    , g_family(document.datafileSettings().textFontName())
    , g_size(
          static_cast<qint32>(std::clamp<qint64>(document.datafileSettings().textFontSize(), 1, 1000) * 1000))
    , g_isPlain(document.isMobile())
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    for (const CatalogEntry &entry : catalog.entries()) {
        if (entry.isInert() || !g_texts.contains(entry.identifier()))
            continue;
        g_records.push_back(entry.identifier());
        g_identifiers.append(document.datafileRecords().identifiers().text(entry.identifier()));
    }
}

/// The first line of the text; a record without one is named by its first field that holds something.
QString TableOfContents::title(quint32 record) const
{
    const RecordView view = g_texts.view(record);
    const QString text = view.textString().toString();
    QString line = text.section(u'\n', 0, 0).trimmed();
    const QStringList fields = g_texts.fieldIdentifiers();
    for (qsizetype i = 0; i < fields.size() && line.isEmpty(); ++i)
        line = view.fieldValue(fields[i]).toString().trimmed();
    return line.isEmpty() ? tr("Untitled") : line;
}

void TableOfContents::run(Progress &progress)
{
    WorkSteps steps(progress, g_records.size());
    richtext::CharacterFormat format;
    format.family = g_family;
    format.size = g_size;
    const richtext::SharedFormat<richtext::CharacterFormat> unlinked(format);
    QString plain = tr("TABLE of CONTENTS") + u"\n\n"_s;
    richtext::CharacterRuns characters(plain.size(), unlinked);
    for (size_t i = 0; i < g_records.size(); ++i) {
        if (!steps.goOn())
            return;
        const QString title = this->title(g_records[i]);
        plain += title + u'\n';
        format.link = u"uuid://"_s + g_identifiers[static_cast<qsizetype>(i)];
        characters.append(title.size(), richtext::SharedFormat<richtext::CharacterFormat>(format));
        characters.append(1, unlinked);
    }
    const richtext::AttributedText rich(
        plain, std::move(characters), richtext::ParagraphRuns(plain.size() + 1, {}));
    g_text = RecordText{plain, g_isPlain ? QByteArray() : richtext::writeRichText(rich)};
}

QString TableOfContents::apply(DatafileDocument &document) const
{
    if (!g_text)
        return {};
    return RecordAdding(document).addRecord(
        {}, {.fields = {}, .text = g_text}, RecordPlace::First, tr("Table of Contents"));
}

} // namespace tavrin

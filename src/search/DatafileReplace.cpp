// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/DatafileReplace.h"

#include "document/DatafileDocument.h"
#include "model/FieldText.h"
#include "search/FormattedReplace.h"

#include <algorithm>
#include <span>

namespace tavrin {

using text::Match;

ReplaceAllWork::ReplaceAllWork(const DatafileDocument &document,
                               const Replacement &replacement,
                               qint64 fieldsToSearchIn,
                               UnkeptFormatting formatting)
    : ContentWork(document, tr("Replace"))
    , g_key(replacement.findWhat, replacement.options)
    , g_replaceWith(replacement.replaceWith)
    , g_inField(singleLineFieldText(replacement.replaceWith))
    , g_formatting(formatting)
    , g_isMobile(document.isMobile())
    , g_inText(fieldsToSearchIn == FieldsToSearchIn::everything
               || fieldsToSearchIn == FieldsToSearchIn::freeformText)
{
    const QList<FieldDefinition> fields = document.datafileSettings().fields();
    for (qint64 index = 0; index < fields.size(); ++index) {
        const QString identifier = fields[index].identifier();
        const bool isWanted = fieldsToSearchIn == FieldsToSearchIn::everything || fieldsToSearchIn == index;
        const bool isNew = std::ranges::find(g_fields, identifier, &FieldKey::text) == g_fields.end();
        if (isWanted && isNew && !identifier.isEmpty())
            g_fields.emplace_back(identifier);
    }
}

void ReplaceAllWork::change(const RecordView &record, Change &change)
{
    for (const FieldKey &field : g_fields) {
        const TextView value = record.fieldValue(field);
        if (!g_key.mayBeIn(value))
            continue;
        const QString content = value.toString();
        const std::vector<Match> matches = g_key.allIn(content);
        if (matches.empty())
            continue;
        change.fields.append({field.text, replacedInText({content, {}}, matches, g_inField)->plain});
        g_replacements += std::ssize(matches);
    }
    if (g_inText)
        changeText(record, change);
}

void ReplaceAllWork::changeText(const RecordView &record, Change &change)
{
    const TextView text = record.textString();
    if (!g_key.mayBeIn(text))
        return;
    const RecordText content{text.toString(), record.textRTFD()};
    const std::vector<Match> matches = g_key.allIn(content.plain);
    if (matches.empty())
        return;
    // The mobile kind has plain text only, whatever else a record may have brought along.
    const RecordText plain{content.plain, {}};
    auto replaced = replacedInText(g_isMobile ? plain : content, matches, g_replaceWith);
    if (!replaced && g_formatting == UnkeptFormatting::Leave) {
        g_leftTexts.push_back(change.number);
        return;
    }
    if (!replaced)
        replaced = replacedInText(plain, matches, g_replaceWith);
    if (g_isMobile)
        replaced->textRTFD = content.textRTFD;
    change.text = replaced;
    g_replacements += std::ssize(matches);
}

std::optional<RecordPlace>
replaceString(DatafileDocument &document, const DatafileHit &hit, const Replacement &replacement)
{
    const auto view = document.datafileRecords().view(hit.number);
    if (!view || view->recordLocked())
        return {};
    const QString record = document.datafileRecords().identifiers().text(hit.number);
    const auto [field, range] = hit.hit;
    const bool isInText = field == HitField::freeformText;
    const QList<FieldDefinition> fields = document.datafileSettings().fields();
    if (!isInText && (field < 0 || field >= fields.size()))
        return {};
    const QString identifier = isInText ? QString() : fields[field].identifier();
    const RecordText content{(isInText ? view->textString() : view->fieldValue(identifier)).toString(),
                             isInText && !document.isMobile() ? view->textRTFD() : QByteArray()};
    const SearchKey key(replacement.findWhat, replacement.options);
    if (range.start + range.length > content.plain.size()
        || !key.equals(QStringView(content.plain).sliced(range.start, range.length)))
        return {};

    const QString with = isInText ? replacement.replaceWith : singleLineFieldText(replacement.replaceWith);
    const auto replaced = replacedInText(content, std::span(&range, 1), with);
    if (!replaced)
        return {};
    if (!isInText)
        document.storeFieldValue(record, identifier, replaced->plain);
    else if (content.textRTFD.isEmpty())
        document.storeText(record, replaced->plain);
    else
        document.storeFormattedText(record, replaced->plain, replaced->textRTFD);
    document.markRecordModified(record);
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    const qsizetype behind = range.start + with.size();
    if (isInText)
        return RecordPlace{LastHitField::freeformText, {}, Match{behind, 0}};
    return RecordPlace{field, behind, {}};
}

} // namespace tavrin

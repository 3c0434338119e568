// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/DatafileReplace.h"

#include "document/DatafileDocument.h"
#include "model/FieldText.h"
#include "search/DatafileRows.h"
#include "search/FormattedReplace.h"
#include "search/RecordWalk.h"

#include <span>

namespace tavrin {

using text::Match;

namespace {

/// Works out what is to be changed; changes nothing itself.
class ReplacePlan
{
public:
    ReplacePlan(const DatafileDocument &document,
                const Replacement &replacement,
                qint64 fieldsToSearchIn,
                UnkeptFormatting formatting)
        : g_key(replacement.findWhat, replacement.options)
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
            const bool isWanted =
                fieldsToSearchIn == FieldsToSearchIn::everything || fieldsToSearchIn == index;
            if (isWanted && !identifier.isEmpty() && !g_fields.contains(identifier))
                g_fields.append(identifier);
        }
    }

    bool mayChange(const RecordView &view) const { return g_key.mayBeIn(view) && !view.recordLocked(); }

    void take(const QString &identifier, const RecordView &view)
    {
        TextChanges::Record changed{identifier, {}, {}, {}};
        for (const QString &field : g_fields)
            takeField(field, view, changed);
        if (g_inText)
            takeText(view, changed);
        if (changed.isEmpty())
            return;
        outcome.undo.add(changed);
        ++outcome.records;
    }

    ReplaceAllOutcome outcome;

private:
    void takeField(const QString &field, const RecordView &view, TextChanges::Record &changed)
    {
        const TextView value = view.fieldValue(field);
        if (!g_key.mayBeIn(value))
            return;
        const QString content = value.toString();
        const std::vector<Match> matches = g_key.allIn(content);
        if (matches.empty())
            return;
        changed.fields.append({field, replacedInText({content, {}}, matches, g_inField)->plain});
        outcome.replacements += static_cast<qint64>(matches.size());
    }

    void takeText(const RecordView &view, TextChanges::Record &changed)
    {
        const TextView text = view.textString();
        if (!g_key.mayBeIn(text))
            return;
        const StoredText content{text.toString(), view.textRTFD()};
        const std::vector<Match> matches = g_key.allIn(content.plain);
        if (matches.empty())
            return;
        // The mobile kind has plain text only, whatever else a record may have brought along.
        const StoredText plain{content.plain, {}};
        auto replaced = replacedInText(g_isMobile ? plain : content, matches, g_replaceWith);
        if (!replaced && g_formatting == UnkeptFormatting::Leave) {
            outcome.leftRecords.append(changed.identifier);
            return;
        }
        if (!replaced)
            replaced = replacedInText(plain, matches, g_replaceWith);
        changed.text = replaced->plain;
        changed.textRTFD = g_isMobile ? content.textRTFD : replaced->textRTFD;
        outcome.replacements += static_cast<qint64>(matches.size());
    }

    SearchKey g_key;
    QString g_replaceWith;
    QString g_inField; ///< The same as a field may hold it.
    UnkeptFormatting g_formatting;
    bool g_isMobile;
    bool g_inText;
    QStringList g_fields;
};

} // namespace

ReplaceAllOutcome replaceAll(DatafileDocument &document,
                             const Replacement &replacement,
                             const ReplaceExtent &extent,
                             UnkeptFormatting formatting,
                             Progress &progress)
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    const qint64 first = extent.onlyRecord.value_or(0);
    const qint64 last = extent.onlyRecord.value_or(catalog.countSelected() - 1);
    if (!catalog.isValidSelectedIndex(first) || !catalog.isValidSelectedIndex(last))
        return {};
    ReplacePlan plan(document, replacement, extent.fieldsToSearchIn, formatting);
    const bool finished = RecordWalk(SelectedRecords(document), last - first + 1, progress)
                              .visit(first, last, [&](qint64 record, const RecordView &view) {
                                  if (plan.mayChange(view))
                                      plan.take(catalog.selectedIdentifierAtIndex(record), view);
                                  return true;
                              });
    if (!finished)
        return {};
    if (plan.outcome.replacements > 0) {
        plan.outcome.undo.exchange(document);
        document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    }
    return plan.outcome;
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
    const StoredText content{(isInText ? view->textString() : view->fieldValue(identifier)).toString(),
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

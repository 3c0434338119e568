// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/FreeformExport.h"

#include "io/ReadProgress.h"
#include "model/RecordData.h"
#include "model/ValueRecords.h"
#include "richtext/Rtfd.h"
#include "sorting/WorkSteps.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;
using richtext::AttributedText;

namespace {

/// Puts a block together line by line.
class BlockBuilder
{
public:
    void appendText(const AttributedText &text);
    void appendField(const QString &content, const richtext::CharacterFormat &format);
    AttributedText finish();

private:
    void endLine(const AttributedText &lineEnd);

    AttributedText g_block;
    AttributedText g_line;
    bool g_hasField = false;
};

void BlockBuilder::appendText(const AttributedText &text)
{
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype found = text.text().indexOf(u'\n', at);
        const qsizetype end = found < 0 ? text.size() : found;
        g_line.append(text.substring(at, end - at));
        if (found >= 0)
            endLine(text.substring(found, 1));
        at = end + 1;
    }
}

void BlockBuilder::appendField(const QString &content, const richtext::CharacterFormat &format)
{
    g_hasField = true;
    g_line.append(AttributedText(content, format));
}

void BlockBuilder::endLine(const AttributedText &lineEnd)
{
    const bool isLeftOut = g_hasField && g_line.isEmpty();
    if (!isLeftOut) {
        g_block.append(g_line);
        g_block.append(lineEnd);
    }
    g_line = AttributedText();
    g_hasField = false;
}

AttributedText BlockBuilder::finish()
{
    g_block.append(g_line);
    return std::move(g_block);
}

} // namespace

FreeformTemplate FreeformTemplate::ofText(const QString &text, QChar before, QChar behind)
{
    FreeformTemplate freeform;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype opening = text.indexOf(before, at);
        const qsizetype closing = opening < 0 ? -1 : text.indexOf(behind, opening);
        const qsizetype end = closing < 0 ? text.size() : opening;
        freeform.append({AttributedText(text.sliced(at, end - at))});
        if (closing < 0)
            break;
        freeform.append({{}, text.sliced(opening + 1, closing - opening - 1)});
        at = closing + 1;
    }
    return freeform;
}

AttributedText FreeformTemplate::blockFor(const ExportedRecords &records, qsizetype index) const
{
    const RecordView record = records.record(index);
    BlockBuilder builder;
    for (const Piece &piece : g_pieces) {
        if (piece.fieldName.isEmpty()) {
            builder.appendText(piece.text);
            continue;
        }
        const auto field = std::ranges::find(records.fields(), piece.fieldName, &FieldDefinition::name);
        const auto number = static_cast<size_t>(field - records.fields().begin());
        const QString content = field == records.fields().end()
                                    ? QString()
                                    : record.fieldValue(records.keys()[number]).toString();
        builder.appendField(content, piece.format);
    }
    return builder.finish();
}

Result<RecordBatch> freeformRecords(const ExportedRecords &records,
                                    const FreeformTemplate &freeform,
                                    bool isMobile,
                                    const Environment &environment,
                                    Progress &progress)
{
    const Result<SharedBytes> identifiers =
        newIdentifiers(static_cast<quint32>(records.count()), environment);
    if (!identifiers)
        return identifiers.error();
    std::vector<plist::Dictionary> made;
    RecordData pattern(environment);
    pattern.modified(environment);
    WorkSteps steps(progress, static_cast<size_t>(records.count()));
    for (qsizetype index = 0; index < records.count(); ++index) {
        if (!steps.goOn())
            return cancelled();
        AttributedText text = freeform.blockFor(records, index);
        text.append(AttributedText(u"\n\n"_s, formatOf(records.textFont())));
        text.append(attributedTextOf(records.record(index), records.textFont()));
        RecordData record = pattern;
        record.setIdentifier(
            QString::fromLatin1(identifiers->view().sliced(index * identifierSize, identifierSize)));
        record.setTextString(text.text());
        if (!isMobile)
            record.setTextRTFD(richtext::writeRichText(text));
        made.push_back(record.dictionary());
    }
    return RecordBatch{std::make_shared<const ValueRecords>(std::move(made)), *identifiers};
}

} // namespace tavrin

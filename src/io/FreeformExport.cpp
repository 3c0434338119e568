// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/FreeformExport.h"

#include "io/RecordLoop.h"
#include "model/RecordData.h"
#include "model/ValueRecords.h"
#include "richtext/Rtfd.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;
using richtext::AttributedText;
using richtext::CharacterFormat;

namespace {

/// Puts a block together line by line.
class BlockBuilder
{
public:
    void appendText(const AttributedText &text);
    void appendField(const QString &content, const CharacterFormat &format);
    AttributedText finish();

private:
    void endLine(const AttributedText &lineEnd);

    AttributedText g_block;
    AttributedText g_line;
    bool g_hasField = false;
};

/// Null where there is no such field.
QString contentOfField(const QString &name, const RecordView &record, const ExportedRecords &records)
{
    const auto field = std::ranges::find(records.fields(), name, &FieldDefinition::name);
    if (field == records.fields().end())
        return {};
    return record.fieldValue(records.keys()[static_cast<size_t>(field - records.fields().begin())])
        .toString();
}

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

void BlockBuilder::appendField(const QString &content, const CharacterFormat &format)
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

AttributedText templateField(const QString &fieldName, const CharacterFormat &format)
{
    CharacterFormat field = format;
    field.attachment = richtext::Attachment{.name = fieldName, .bytes = {}};
    return AttributedText(QChar(richtext::attachmentCharacter), field);
}

AttributedText freeformTextBlockForRecord(const ExportedRecords &records,
                                          qsizetype index,
                                          const AttributedText &freeformTextFormat)
{
    BlockBuilder builder;
    qsizetype start = 0;
    for (const auto &run : freeformTextFormat.characterRuns().runs()) {
        const AttributedText piece = freeformTextFormat.substring(start, run.end - start);
        start = run.end;
        if (!run.format->attachment) {
            builder.appendText(piece);
            continue;
        }
        CharacterFormat format = *run.format;
        format.attachment.reset();
        const QString content = contentOfField(run.format->attachment->name, records.record(index), records);
        // The same field twice in a row is one run.
        for (qsizetype times = piece.size(); times > 0; --times)
            builder.appendField(content, format);
    }
    return builder.finish();
}

Result<RecordBatch> freeformRecords(const ExportedRecords &records,
                                    const AttributedText &freeformTextFormat,
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
    const Result<> done = forEachRecord(records, progress, [&](qsizetype index) -> Result<> {
        AttributedText text = freeformTextBlockForRecord(records, index, freeformTextFormat);
        text.append(AttributedText(u"\n\n"_s, formatOf(records.textFont())));
        text.append(attributedTextOf(records.record(index), records.textFont()));
        RecordData record = pattern;
        record.setIdentifier(
            QString::fromLatin1(identifiers->view().sliced(index * identifierSize, identifierSize)));
        record.setTextString(text.text());
        if (!isMobile)
            record.setTextRTFD(richtext::writeRichText(text));
        made.push_back(record.dictionary());
        return {};
    });
    if (!done)
        return done.error();
    return RecordBatch{std::make_shared<const ValueRecords>(std::move(made)), *identifiers};
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/FieldCommands.h"

#include "document/DatafileDocument.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr auto textIdentifier = "Text"_L1;

QString contentOf(const RecordView &record, const QString &identifier)
{
    return identifier == textIdentifier ? record.textString().toString()
                                        : record.fieldValue(identifier).toString();
}

} // namespace

// Filling.

FillEmptyFields::FillEmptyFields(const DatafileDocument &document, const Filling &filling)
    : ContentWork(document, tr("Fill Empty Fields"))
    , g_filling(filling)
{}

void FillEmptyFields::change(const RecordView &record, Change &change)
{
    for (const QString &field : g_filling.fields) {
        if (!record.fieldValue(field).isEmpty())
            continue;
        QString text = g_filling.text;
        if (g_filling.number) {
            text += QString::number(g_filling.number->next);
            g_filling.number->next += g_filling.number->step;
        }
        if (!text.isEmpty())
            setField(field, {}, text, change);
    }
}

// Replacing.

ReplaceFieldContents::ReplaceFieldContents(const DatafileDocument &document, const Replacement &replacement)
    : ContentWork(document, tr("Replace Field Contents"))
    , g_replacement(replacement)
    , g_which(replacement.which, {.caseInsensitive = !replacement.caseSensitive, .literal = false})
{}

bool ReplaceFieldContents::isMeant(const QString &content) const
{
    if (g_replacement.where == Where::Everywhere)
        return true;
    if (g_replacement.which.isEmpty())
        return content.isEmpty();
    return g_replacement.where == Where::Containing ? g_which.isIn(content) : g_which.equals(content);
}

void ReplaceFieldContents::change(const RecordView &record, Change &change)
{
    const QString content = record.fieldValue(g_replacement.field).toString();
    if (isMeant(content))
        setField(g_replacement.field, content, g_replacement.text, change);
}

// Transferring.

TransferFieldContents::TransferFieldContents(const DatafileDocument &document, const Transfer &transfer)
    : ContentWork(document, tr("Transfer Field Contents"))
    , g_transfer(transfer)
    , g_isMobile(document.isMobile())
{}

void TransferFieldContents::change(const RecordView &record, Change &change)
{
    const QString content = contentOf(record, g_transfer.from);
    if (content.isEmpty() || g_transfer.from == g_transfer.to)
        return;
    if (g_transfer.to == textIdentifier) {
        if (!changeText(record, content, change))
            return;
    } else {
        const QString before = contentOf(record, g_transfer.to);
        if (!before.isEmpty() && g_transfer.filledTarget == FilledTarget::Skip)
            return;
        const bool appends = !before.isEmpty() && g_transfer.filledTarget == FilledTarget::Append;
        setField(g_transfer.to, before, appends ? before + g_transfer.separator + content : content, change);
    }
    if (!g_transfer.removesSource)
        return;
    if (g_transfer.from != textIdentifier)
        setField(g_transfer.from, content, u""_s, change);
    else if (content.contains(QChar::ObjectReplacementCharacter))
        setText({}, change); // A picture has no place in a field.
    else
        setText(RecordText{u""_s, {}}, change);
}

/// False when the text stays as it is.
bool TransferFieldContents::changeText(const RecordView &record, const QString &content, Change &change)
{
    const RecordText present{record.textString().toString(), g_isMobile ? QByteArray() : record.textRTFD()};
    if (present.plain.isEmpty())
        return setText(withAppended(present, content), change);
    if (g_transfer.filledTarget == FilledTarget::Append)
        return setText(withAppended(present, g_transfer.separator + content), change);
    if (g_transfer.filledTarget == FilledTarget::Replace)
        return setText(RecordText{content, {}}, change);
    return false;
}

} // namespace tavrin

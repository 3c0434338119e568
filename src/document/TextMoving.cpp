// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/TextMoving.h"

#include "document/DatafileDocument.h"
#include "model/Preferences.h"
#include "text/LinkScanner.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

RecordText textOf(const RecordView &record, bool isMobile)
{
    return {record.textString().toString(), isMobile ? QByteArray() : record.textRTFD()};
}

} // namespace

// Lines.

MoveTextIntoFields::MoveTextIntoFields(const DatafileDocument &document, Lines lines)
    : ContentWork(document, tr("Move Text into Fields"))
    , g_lines(lines)
    , g_isMobile(document.isMobile())
{
    for (const FieldDefinition &field : document.datafileSettings().fields())
        g_fields.append({field.identifier(), field.name().toCaseFolded()});
}

const MoveTextIntoFields::Field *
MoveTextIntoFields::fieldFor(qsizetype lineNumber, QStringView line, QStringView &value) const
{
    if (g_lines == Lines::InOrder) {
        value = line;
        return lineNumber < g_fields.size() ? &g_fields[lineNumber] : nullptr;
    }
    const qsizetype colon = line.indexOf(u':');
    if (colon < 0)
        return nullptr;
    value = line.sliced(colon + 1);
    const QString name = line.first(colon).trimmed().toString().toCaseFolded();
    const auto field = std::ranges::find(g_fields, name, &Field::name);
    return field == g_fields.end() ? nullptr : &*field;
}

void MoveTextIntoFields::change(const RecordView &record, Change &change)
{
    const RecordText text = textOf(record, g_isMobile);
    std::vector<TextPart> moved;
    qsizetype lineNumber = 0;
    for (qsizetype start = 0; start < text.plain.size(); ++lineNumber) {
        const qsizetype end = text.plain.indexOf(u'\n', start);
        const qsizetype next = end < 0 ? text.plain.size() : end + 1;
        const QStringView line = QStringView(text.plain).sliced(start, (end < 0 ? next : end) - start);
        QStringView value;
        const Field *field = fieldFor(lineNumber, line, value);
        const bool isTaken = field && std::ranges::any_of(change.fields, [field](const auto &taken) {
                                 return taken.first == field->identifier;
                             });
        // A picture has no place in a field.
        if (field && !isTaken && !value.trimmed().isEmpty()
            && !value.contains(QChar::ObjectReplacementCharacter)
            && record.fieldValue(field->identifier).isEmpty()) {
            setField(field->identifier, {}, value.trimmed().toString(), change);
            moved.push_back({start, next - start});
        }
        start = next;
    }
    if (!moved.empty())
        setText(withoutParts(text, moved), change);
}

// Elements.

MoveTextElements::MoveTextElements(const DatafileDocument &document, const Move &move)
    : ContentWork(document, tr("Move Text Elements"))
    , g_move(move)
    , g_isMobile(document.isMobile())
{}

std::vector<TextPart> MoveTextElements::elementsIn(const QString &text) const
{
    std::vector<TextPart> found;
    text::FoundRange range{0, text.size()};
    while (range.length > 0) {
        const text::FoundRange element =
            g_move.element == Element::Email ? text::emailRangeInString(text, range)
            : g_move.element == Element::WebAddress
                ? text::webLinkRangeInString(text, range)
                : text::phoneNumberInString(text, range, g_move.phoneNumberTemplates);
        if (element.isEmpty())
            break;
        const QStringView characters = QStringView(text).sliced(element.location, element.length);
        if (g_move.element != Element::Email || text::isPlausibleEmailAddress(characters)) {
            found.push_back({element.location, element.length});
            if (!g_move.all)
                break;
        }
        range = {element.end(), text.size() - element.end()};
    }
    return found;
}

void MoveTextElements::change(const RecordView &record, Change &change)
{
    const QString before = record.fieldValue(g_move.to).toString();
    if (!before.isEmpty() && g_move.filledTarget == FilledTarget::Skip)
        return;
    const RecordText text = textOf(record, g_isMobile);
    const std::vector<TextPart> elements = elementsIn(text.plain);
    if (elements.empty())
        return;
    QStringList contents;
    if (!before.isEmpty() && g_move.filledTarget == FilledTarget::Append)
        contents.append(before);
    for (const TextPart &part : elements)
        contents.append(text.plain.sliced(part.start, part.length));
    setField(g_move.to, before, contents.join(g_move.separator), change);
    setText(withoutParts(text, elements), change);
}

QStringList phoneNumberTemplates(const Preferences *preferences)
{
    QStringList templates;
    if (preferences) {
        for (const plist::Value &form : preferences->arrayForKey(u"PhoneNumberTemplates"_s))
            templates.append(form.toText());
        templates.removeAll(QString());
    }
    if (!templates.isEmpty())
        return templates;
    return {u"+# (###) ###-####"_s,
            u"+# ### ### ####"_s,
            u"+# ###-###-####"_s,
            u"#-###-###-####"_s,
            u"(###) ###-####"_s,
            u"(###)###-####"_s,
            u"###-###-####"_s,
            u"###.###.####"_s,
            u"### ### ####"_s,
            u"###-####"_s};
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "search/HitContext.h"

#include <algorithm>

namespace tavrin {

namespace {

/// As long as the text was, so that places in it stay.
QString onOneLine(QStringView text)
{
    QString line = text.toString();
    for (QChar &character : line) {
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator)
            character = u' ';
    }
    return line;
}

} // namespace

HitContext hitContext(QStringView content, const text::Match &hit)
{
    constexpr qsizetype before = 30;
    constexpr qsizetype behind = 90;
    qsizetype start = std::max<qsizetype>(0, hit.start - before);
    qsizetype end = std::min(content.size(), hit.start + hit.length + behind);
    // Half a character is none.
    if (start > 0 && content[start].isLowSurrogate())
        --start;
    if (end < content.size() && content[end].isLowSurrogate())
        ++end;
    const QString left = start > 0 ? QStringLiteral("…") : QString();
    const QString right = end < content.size() ? QStringLiteral("…") : QString();
    return {left + onOneLine(content.sliced(start, end - start)) + right,
            {hit.start - start + left.size(), hit.length}};
}

QString recordTitle(const RecordView &record, const QList<FieldDefinition> &fields)
{
    constexpr qsizetype longest = 80;
    for (const FieldDefinition &field : fields) {
        if (const QString value = record.fieldValue(field.identifier()).toString().trimmed();
            !value.isEmpty())
            return value.left(longest);
    }
    const QString text = record.textString().toString().trimmed();
    return onOneLine(QStringView(text).left(text.indexOf(u'\n')).left(longest));
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/StringOperations.h"

#include "base/InternalInconsistency.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <charconv>

namespace tavrin {

using namespace Qt::StringLiterals;

QString stringAsBytesWithInt(qint32 count)
{
    constexpr qint32 kilo = 1024;
    constexpr qint32 mega = 1024 * kilo;
    constexpr qint32 giga = 1024 * mega;
    const auto filled = [count](const char *format, qint32 unit) {
        const float amount = static_cast<float>(count) / static_cast<float>(unit);
        // QString::number() would round a tie such as 1.25 up; the format rounds it to the even digit.
        std::array<char, 16> digits{};
        const auto [end, error] =
            std::to_chars(digits.begin(), digits.end(), amount, std::chars_format::fixed, 1);
        return QCoreApplication::translate("Shared", format)
            .replace(u"%.1f"_s, QString::fromLatin1(digits.data(), end - digits.data()));
    };
    if (count == 0)
        return QCoreApplication::translate("Shared", "Zero KB");
    if (count < kilo)
        return QCoreApplication::translate("Shared", "%d bytes").replace(u"%d"_s, QString::number(count));
    if (count < mega)
        return filled("%.1f KB", kilo);
    if (count < giga)
        return filled("%.1f MB", mega);
    return filled("%.1f GB", giga);
}

QString left(const QString &text, qint64 length)
{
    return text.first(std::clamp<qint64>(length, 0, text.size()));
}

QString right(const QString &text, qint64 length)
{
    return text.size() - length < 1 ? text : text.last(std::max<qint64>(length, 0));
}

QString from(const QString &text, qint64 index, qint64 length)
{
    return index < 0 || index >= text.size() ? u""_s : left(text.sliced(index), length);
}

bool containsString(const QString &text, const QString &part)
{
    return !part.isEmpty() && text.contains(part);
}

QString
stringByReplacingAllOccurrencesOf(const QString &text, const QString &part, const QString &replacement)
{
    QString result = text;
    return part.isEmpty() ? result : result.replace(part, replacement);
}

void replaceAllOccurrencesOf(QString &text, const QString &part, const QString &replacement)
{
    if (part.isEmpty())
        return;
    if (replacement.contains(part))
        throw InternalInconsistency("-replaceAllOccurrencesOf:with: -- The replacement contains the text.");
    qsizetype found = text.indexOf(part);
    while (found >= 0) {
        text.replace(found, part.size(), replacement);
        // A new occurrence can begin before the replacement and end in it.
        found = text.indexOf(part, std::max<qsizetype>(0, found - part.size() + 1));
    }
}

void deleteLeadingSpaces(QString &text, bool leading, bool trailing)
{
    const auto isOther = [](QChar c) { return c != u' '; };
    if (trailing)
        text.erase(std::find_if(text.rbegin(), text.rend(), isOther).base(), text.end());
    if (leading)
        text.erase(text.begin(), std::find_if(text.begin(), text.end(), isOther));
}

QString stringByCleaningURLWithDefaultScheme(const QString &text, const QString &defaultScheme)
{
    if (text.isEmpty())
        return text;
    const QString mark = u"://"_s;
    QString scheme = defaultScheme.isEmpty() ? u"http://"_s : defaultScheme;
    QString rest = text;
    if (const qsizetype found = text.indexOf(mark); found >= 0) {
        scheme = text.first(found + mark.size());
        rest = text.sliced(scheme.size());
    }
    const qsizetype slash = rest.indexOf(u'/');
    const QString path = slash < 0 ? u"/"_s : rest.sliced(slash);
    QString host = slash < 0 ? rest : rest.first(slash);
    if (!host.contains(u'.') && scheme != "file://"_L1)
        host = u"www."_s + host + u".com"_s;
    return scheme + host + path;
}

QString stringByCleaningFilenameWithDefault(const QString &text, const QString &defaultName)
{
    // Names are limited to 255 bytes; the rest is left for an extension and a number.
    constexpr qsizetype largestSize = 200;
    // A unit takes a byte at least: what is beyond need not be looked at.
    QString name = text.trimmed().left(largestSize);
    if (!name.isEmpty() && name.back().isHighSurrogate())
        name.chop(1);
    for (QChar &c : name) {
        if (c.category() == QChar::Other_Control || QStringView(u"/\\:*?\"<>|").contains(c))
            c = u'-';
    }
    while (name.toUtf8().size() > largestSize)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    // A leading dot would hide the file, and some systems drop blanks and dots at the end.
    while (name.startsWith(u'.'))
        name.remove(0, 1);
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    return name.isEmpty() ? defaultName : name;
}

} // namespace tavrin

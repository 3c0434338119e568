// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/AttachmentName.h"

#include <algorithm>

namespace tavrin::richtext {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView separator("__#$!@%!#__");

/// What a folder can take as the name of a file, and what is not the name of something else there.
QString fileName(const QString &name)
{
    QString safe = nameOfAttachmentKey(name).section(u'/', -1).trimmed();
    std::ranges::replace_if(
        safe, [](QChar unit) { return unit < u' ' || unit == u'\x7F'; }, u'_');
    while (safe.toUtf8().size() > 200)
        safe.remove(0, 1);
    const bool isTaken = safe.startsWith(u'.') || safe.startsWith(u"__@")
                         || safe.compare(u"TXT.rtf", Qt::CaseInsensitive) == 0;
    return safe.isEmpty() || isTaken ? u"Attachment"_s + safe : safe;
}

} // namespace

QString nameOfAttachmentKey(const QString &key)
{
    QStringView name(key);
    const auto isDigit = [](QChar unit) { return unit >= u'0' && unit <= u'9'; };
    for (qsizetype found = name.indexOf(separator); found > 0; found = name.indexOf(separator)) {
        const QStringView number = name.first(found);
        if (!std::ranges::all_of(number, isDigit))
            break;
        name = name.sliced(found + separator.size());
    }
    return name.toString();
}

AttachmentFiles::AttachmentFiles(const AttributedText &text)
{
    for (const auto &run : text.characterRuns().runs()) {
        if (run.format->attachment)
            add(*run.format->attachment);
    }
}

QString AttachmentFiles::keyOf(const Attachment &attachment) const
{
    return g_keysByPlace.value({attachment.name, attachment.bytes.constData()});
}

void AttachmentFiles::add(const Attachment &attachment)
{
    QString &keyByPlace = g_keysByPlace[{attachment.name, attachment.bytes.constData()}];
    if (!keyByPlace.isNull())
        return;
    const QString name = fileName(attachment.name);
    // No bytes and an empty file are equal as bytes.
    const QByteArray content = attachment.bytes.isNull() ? QByteArray("?") : '=' + attachment.bytes;
    QString &key = g_keysByContent[{name, content}];
    if (key.isNull()) {
        const int before = g_countsByName[name]++;
        key = before == 0 ? name : QString::number(before) + separator + name;
        g_files.append({key, attachment.bytes});
    }
    keyByPlace = key;
}

} // namespace tavrin::richtext

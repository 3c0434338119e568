// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "richtext/HyperlinkField.h"

#include <algorithm>

namespace tavrin::richtext {

namespace {

/// Takes a word, or what stands between quotation marks, from the front.
QStringView takeArgument(QStringView &rest)
{
    rest = rest.trimmed();
    const bool isQuoted = rest.startsWith(u'"');
    if (isQuoted)
        rest = rest.sliced(1);
    qsizetype length = 0;
    while (length < rest.size() && (isQuoted ? rest[length] != u'"' : !rest[length].isSpace()))
        ++length;
    const QStringView argument = rest.first(length);
    rest = rest.sliced(std::min(length + (isQuoted ? 1 : 0), rest.size()));
    return argument;
}

} // namespace

QString linkOfInstruction(QStringView instruction)
{
    QStringView rest = instruction.trimmed();
    if (takeArgument(rest).compare(u"HYPERLINK", Qt::CaseInsensitive) != 0)
        return {};
    QString link;
    while (!rest.trimmed().isEmpty()) {
        const bool isQuoted = rest.trimmed().startsWith(u'"');
        const QStringView argument = takeArgument(rest);
        if (isQuoted || !argument.startsWith(u'\\')) {
            if (link.isEmpty())
                link = argument.toString();
        } else if (argument == u"\\l") {
            link += u'#';
            link += takeArgument(rest);
        } else if (argument == u"\\o" || argument == u"\\t") {
            takeArgument(rest);
        }
    }
    return link;
}

} // namespace tavrin::richtext

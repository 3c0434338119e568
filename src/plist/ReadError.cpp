// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/ReadError.h"

#include <QCoreApplication>

namespace tavrin::plist {

using namespace Qt::StringLiterals;

namespace {

// A line ends with LF, CR LF or a CR alone.
qsizetype lineAt(QByteArrayView text, qsizetype position)
{
    qsizetype line = 1;
    for (qsizetype i = 0; i < position; ++i) {
        if (text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n')))
            ++line;
    }
    return line;
}

} // namespace

Error corrupt(const QString &detail)
{
    return {Error::Kind::Corrupt,
            QCoreApplication::translate("plist", "The file is not a property list, or it is damaged."),
            detail};
}

Error corruptAtLine(QByteArrayView text, qsizetype position, const char *reason)
{
    return corrupt(u"line %1: %2"_s.arg(lineAt(text, position)).arg(QLatin1StringView(reason)));
}

Error corruptAtOffset(quint64 offset, const char *reason)
{
    return corrupt(u"offset %1: %2"_s.arg(offset).arg(QLatin1StringView(reason)));
}

} // namespace tavrin::plist

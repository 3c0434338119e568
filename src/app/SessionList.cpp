// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/SessionList.h"

#include <QUrl>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

QString pathFromUrl(const QString &text)
{
    QUrl url(text);
    if (!url.isLocalFile())
        return {};
    if (url.host() == "localhost"_L1)
        url.setHost({});
    return url.toLocalFile();
}

} // namespace

plist::Array listFromSession(const QList<SessionEntry> &session)
{
    plist::Array list;
    for (const SessionEntry &entry : session) {
        list.append(QString::fromLatin1(QUrl::fromLocalFile(entry.path).toEncoded()));
        list.append(entry.recordIdentifier);
    }
    return list;
}

QList<SessionEntry> sessionFromList(const plist::Array &list)
{
    QList<SessionEntry> session;
    for (qsizetype index = 0; index + 1 < list.size(); index += 2) {
        const QString path = pathFromUrl(list[index].toText());
        if (!path.isEmpty())
            session.append({path, list[index + 1].toText()});
    }
    return session;
}

} // namespace tavrin

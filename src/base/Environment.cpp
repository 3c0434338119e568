// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/Environment.h"

#include <QUuid>

#include <pwd.h>
#include <unistd.h>

#include <cmath>

namespace tavrin {

namespace {

/// The full name of the account: the first part of its comment field, in which "&" stands for the
/// capitalised login name; the login name where there is none.
QString fullUserName()
{
    const passwd *account = getpwuid(getuid()); // NOLINT(concurrency-mt-unsafe): called once, at start
    QString login = account ? QString::fromLocal8Bit(account->pw_name) : qEnvironmentVariable("USER");
    QString name =
        account ? QString::fromLocal8Bit(account->pw_gecos).section(u',', 0, 0).trimmed() : QString();
    if (name.isEmpty())
        return login;
    return name.replace(u'&', login.left(1).toUpper() + login.mid(1));
}

} // namespace

QString universallyUniqueIdentifier()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

Environment Environment::system()
{
    const auto now = [] {
        return Date{std::floor(Date::fromDateTime(QDateTime::currentDateTimeUtc()).secondsSinceReference)};
    };
    return {now, universallyUniqueIdentifier, fullUserName()};
}

} // namespace tavrin

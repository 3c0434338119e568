// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/Cli.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

int main(int argumentCount, char *arguments[])
{
    const QCoreApplication application(argumentCount, arguments);
    QCoreApplication::setApplicationName(QStringLiteral("tavrin-cli"));
    // Warnings of the system look like our own messages.
    qSetMessagePattern(QStringLiteral("tavrin-cli: %{message}"));

    QFile result;
    QFile messages;
    if (!result.open(stdout, QIODevice::WriteOnly | QIODevice::Unbuffered)
        || !messages.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return 1;
    return tavrin::Cli::run(
        QCoreApplication::arguments().mid(1), result, messages, {tavrin::Environment::system(), nullptr});
}

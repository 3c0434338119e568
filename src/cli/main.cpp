// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/Cli.h"
#include "model/Preferences.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <cstdio>

int main(int argumentCount, char *arguments[])
{
    const QCoreApplication application(argumentCount, arguments);
    // The preferences are those of the program with windows, and stay in its folder.
    QCoreApplication::setApplicationName(QStringLiteral("Tavrin"));
    // Warnings of the system look like our own messages.
    qSetMessagePattern(QStringLiteral("tavrin-cli: %{message}"));

    QFile result;
    QFile messages;
    if (!result.open(stdout, QIODevice::WriteOnly | QIODevice::Unbuffered)
        || !messages.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return 1;
    tavrin::Preferences preferences(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
                                    + QStringLiteral("/preferences.plist"));
    preferences.registerDefaults(tavrin::registeredDefaults());
    return tavrin::Cli::run(QCoreApplication::arguments().mid(1),
                            result,
                            messages,
                            {tavrin::Environment::system(), &preferences});
}

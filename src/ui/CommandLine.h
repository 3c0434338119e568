// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

class QCoreApplication;

namespace tavrin {

/// What the program was started with.
struct CommandLine
{
    QStringList datafiles;     ///< Absolute paths.
    QString screenshotPath;    ///< Empty: none is wanted.
    QString view;              ///< "Basic", "List" or empty.
    QString appearance;        ///< "light", "dark" or empty for the desktop's.
    std::optional<QSize> size; ///< Of the window in the picture.

    /// Reads the arguments; answers --help and --version and refuses wrong usage (exit code 2) by itself.
    static CommandLine parse(const QCoreApplication &application);
};

} // namespace tavrin

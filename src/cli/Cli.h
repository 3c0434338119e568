// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileDocument.h"

#include <QCoreApplication>
#include <QIODevice>

namespace tavrin {

/// The command line of the program: from arguments to an exit status.
class Cli
{
    Q_DECLARE_TR_FUNCTIONS(Cli)

public:
    /// Runs the command that the arguments (without the program's name) ask for. The result goes to `result`,
    /// what is said to a person to `messages`; both are open for writing.
    static int run(const QStringList &arguments,
                   QIODevice &result,
                   QIODevice &messages,
                   const DocumentServices &services);
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/Arguments.h"
#include "cli/Cli.h"
#include "cli/Output.h"

namespace tavrin {

enum class ExitStatus { Done = 0, Failed = 1, WrongUsage = 2 };

/// One running command: what it was given and where its output goes.
struct Call
{
    const Arguments &arguments;
    Output &output;
    const DocumentServices &services;

    bool wantsJson() const { return arguments.has(QStringLiteral("--json")); }
    /// The kind that --kind names; empty when the extension decides.
    std::optional<DatafileKind> kind() const;

    /// Says why, and gives the exit status for it.
    ExitStatus failed(const Error &error);
    ExitStatus wrongUsage(const QString &message);
};

/// A command: how it is called, what its help says, what runs.
struct Command
{
    QString name;
    QString operands;
    qsizetype leastOperands;
    qsizetype mostOperands;
    QString summary;
    QString details; ///< For the help: paragraphs; may be empty.
    QList<Option> options;
    ExitStatus (*run)(Call &call);
};

/// -o, --in-place and --force.
QList<Option> writingOptions();

/// Options that every command takes.
QList<Option> commonOptions();

Command checkCommand();
Command exportCommand();
Command findCommand();
Command importCommand();
Command infoCommand();
Command listCommand();
Command newCommand();
Command replaceCommand();
Command saveCommand();
Command selectCommand();
Command setCommand();
Command settingsCommand();
Command showCommand();
Command sortCommand();

// Record commands.
Command addCommand();
Command dedupeCommand();
Command deleteCommand();
Command duplicateCommand();
Command lockCommand();
Command moveCommand();

// Field commands.
Command extractCommand();
Command fieldsCommand();
Command fillCommand();
Command replaceContentsCommand();
Command textToFieldsCommand();
Command totalCommand();
Command transferCommand();

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/Cli.h"

#include "cli/Command.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

QList<Command> commands()
{
    return {infoCommand(),     checkCommand(),     listCommand(),         showCommand(),
            newCommand(),      saveCommand(),      setCommand(),          addCommand(),
            deleteCommand(),   duplicateCommand(), moveCommand(),         lockCommand(),
            dedupeCommand(),   fieldsCommand(),    fillCommand(),         replaceContentsCommand(),
            transferCommand(), totalCommand(),     textToFieldsCommand(), extractCommand(),
            sortCommand(),     selectCommand(),    findCommand(),         replaceCommand(),
            importCommand(),   exportCommand(),    settingsCommand()};
}

QString synopsisOf(const Option &option)
{
    return option.valueName.isEmpty() ? option.name : option.name + u' ' + option.valueName;
}

/// Two columns, the first as wide as its widest text.
void writeColumns(Output &output, const QList<std::pair<QString, QString>> &rows)
{
    qsizetype width = 0;
    for (const auto &row : rows)
        width = std::max(width, row.first.size());
    for (const auto &[left, right] : rows)
        output.writeLine(u"  "_s + left.leftJustified(width + 2) + right);
}

void writeHelp(Output &output)
{
    output.writeLine(Cli::tr("Usage: tavrin-cli COMMAND [OPTIONS] FILE..."));
    output.writeLine(u"       tavrin-cli --help | --version | COMMAND --help"_s);
    output.writeLine({});
    output.writeLine(Cli::tr("Works on datafiles without a window. A datafile is changed only where -o or "
                             "--in-place is given."));
    output.writeLine({});
    output.writeLine(Cli::tr("Commands:"));
    QList<std::pair<QString, QString>> rows;
    for (const Command &command : commands())
        rows.append({command.name, command.summary});
    writeColumns(output, rows);
    output.writeLine({});
    output.writeLine(Cli::tr("Exit status: 0 done; 1 refused or failed; 2 wrong usage."));
}

void writeHelpFor(Output &output, const Command &command, const QList<Option> &options)
{
    output.writeLine(Cli::tr("Usage: tavrin-cli %1 [OPTIONS] %2").arg(command.name, command.operands));
    output.writeLine({});
    output.writeLine(command.summary);
    if (!command.details.isEmpty()) {
        output.writeLine({});
        output.writeLine(command.details);
    }
    output.writeLine({});
    output.writeLine(Cli::tr("Options:"));
    QList<std::pair<QString, QString>> rows;
    for (const Option &option : options)
        rows.append({synopsisOf(option), option.help});
    writeColumns(output, rows);
}

ExitStatus
runCommand(const Command &command, const QStringList &words, Output &output, const DocumentServices &services)
{
    const QList<Option> options = command.options + commonOptions();
    const Result<Arguments> arguments = Arguments::parse(words, options);
    if (!arguments) {
        output.message(arguments.error().message);
        return ExitStatus::WrongUsage;
    }
    if (arguments->has(u"--help"_s)) {
        writeHelpFor(output, command, options);
        return ExitStatus::Done;
    }
    Call call{*arguments, output, services};
    const qsizetype count = arguments->operands().size();
    if (count < command.leastOperands || count > command.mostOperands)
        return call.wrongUsage(
            Cli::tr("Usage: tavrin-cli %1 [OPTIONS] %2").arg(command.name, command.operands));
    const bool hasOtherKinds =
        std::ranges::find(command.options, u"--kind"_s, &Option::name) != command.options.end();
    if (arguments->has(u"--kind"_s) && !call.kind() && !hasOtherKinds)
        return call.wrongUsage(Cli::tr("--kind is pro or mobile."));
    return command.run(call);
}

ExitStatus runWords(const QStringList &words, Output &output, const DocumentServices &services)
{
    const QString name = words.value(0);
    if (name == u"--help" || name == u"-h") {
        writeHelp(output);
        return ExitStatus::Done;
    }
    if (name == u"--version") {
        output.writeLine(QStringLiteral("tavrin-cli " TAVRIN_VERSION));
        return ExitStatus::Done;
    }
    const QList<Command> all = commands();
    const auto command = std::ranges::find(all, name, &Command::name);
    if (command != all.end())
        return runCommand(*command, words.sliced(1), output, services);
    output.message(name.isEmpty() ? Cli::tr("A command is missing; see tavrin-cli --help.")
                                  : Cli::tr("There is no command %1; see tavrin-cli --help.").arg(name));
    return ExitStatus::WrongUsage;
}

} // namespace

int Cli::run(const QStringList &arguments,
             QIODevice &result,
             QIODevice &messages,
             const DocumentServices &services)
{
    Output output(result, messages);
    ExitStatus status = runWords(arguments, output, services);
    if (!output.flush()) {
        output.message(tr("The result could not be written: %1.").arg(result.errorString()));
        status = ExitStatus::Failed;
    }
    return static_cast<int>(status);
}

} // namespace tavrin

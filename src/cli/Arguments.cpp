// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/Arguments.h"

#include "cli/Cli.h"

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

Error wrong(const QString &message)
{
    return {Error::Kind::Refused, message, {}};
}

} // namespace

Result<Arguments> Arguments::parse(const QStringList &words, const QList<Option> &options)
{
    Arguments arguments;
    QStringList rest = words;
    bool optionsEnded = false;
    while (!rest.isEmpty()) {
        const QString word = rest.takeFirst();
        if (!optionsEnded && word == u"--"_s) {
            optionsEnded = true;
        } else if (!optionsEnded && word.size() > 1 && word.startsWith(u'-')) {
            if (const Result<> added = arguments.addOption(word, rest, options); !added)
                return added.error();
        } else {
            arguments.g_operands.append(word);
        }
    }
    return arguments;
}

Result<> Arguments::addOption(const QString &word, QStringList &rest, const QList<Option> &options)
{
    const qsizetype equals = word.startsWith(u"--"_s) ? word.indexOf(u'=') : -1;
    const QString name = equals < 0 ? word : word.first(equals);
    const auto option = std::ranges::find(options, name, &Option::name);
    if (option == options.end())
        return wrong(Cli::tr("There is no option %1.").arg(name));
    if (option->valueName.isEmpty()) {
        if (equals >= 0)
            return wrong(Cli::tr("The option %1 takes no value.").arg(name));
        g_given.append({name, {}});
        return {};
    }
    const qsizetype count = option->valueCount ? option->valueCount(rest) : 1;
    if (equals < 0 ? rest.size() < count : count != 1)
        return wrong(count == 1 ? Cli::tr("The option %1 needs a value.").arg(name)
                                : Cli::tr("The option %1 needs %2.").arg(name, option->valueName));
    if (has(name) && !option->repeatable)
        return wrong(Cli::tr("The option %1 may be given only once.").arg(name));
    Given given{name, equals < 0 ? rest.first(count) : QStringList{word.sliced(equals + 1)}};
    if (equals < 0)
        rest.remove(0, count);
    // A null value would say that the option was not given.
    for (QString &value : given.values)
        value = value.isNull() ? u""_s : value;
    g_given.append(given);
    return {};
}

bool Arguments::has(const QString &option) const
{
    return std::ranges::find(g_given, option, &Given::option) != g_given.end();
}

QString Arguments::value(const QString &option) const
{
    const auto given = std::ranges::find(g_given, option, &Given::option);
    return given == g_given.end() ? QString() : given->values.value(0);
}

QStringList Arguments::values(const QString &option) const
{
    QStringList values;
    for (const Given &given : g_given) {
        if (given.option == option)
            values.append(given.values);
    }
    return values;
}

} // namespace tavrin

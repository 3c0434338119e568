// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-make-datafile: writes a datafile of any size, made up of invented people.

#include "DatafileStream.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 maximumCount = 1'000'000;

int fail(int status, const QString &message)
{
    QTextStream(stderr) << "tavrin-make-datafile: " << message << Qt::endl;
    return status;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Writes a datafile of made-up records. The same options give the same bytes."_s);
    parser.addHelpOption();
    const QCommandLineOption seedOption(
        u"seed"_s, u"Number from which everything follows (1)."_s, u"N"_s, u"1"_s);
    const QCommandLineOption richOption(u"rich"_s, u"About 1.5 KB of rich text data in each record."_s);
    const QCommandLineOption smallOption(u"small"_s,
                                         u"Only two fields and a sentence in each record: 1 KB."_s);
    parser.addOptions({seedOption, richOption, smallOption});
    parser.addPositionalArgument(u"count"_s, u"How many records, 1,000,000 at most."_s, u"COUNT"_s);
    parser.addPositionalArgument(u"file"_s, u"The file to write, - for standard output."_s, u"FILE"_s);
    parser.process(application);

    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 2)
        return fail(2, u"a count and a file are needed; see --help"_s);
    bool countIsNumber = false;
    bool seedIsNumber = false;
    const quint64 count = arguments[0].toULongLong(&countIsNumber);
    const quint64 seed = parser.value(seedOption).toULongLong(&seedIsNumber);
    if (!countIsNumber || !seedIsNumber || count > maximumCount)
        return fail(2, u"the count goes to %1, the seed is a number"_s.arg(maximumCount));

    QFile file(arguments[1]);
    const bool opened = arguments[1] == u"-"_s ? file.open(stdout, QIODevice::WriteOnly)
                                               : file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    const auto size = parser.isSet(smallOption)  ? tavrin::bench::RecordSize::Small
                      : parser.isSet(richOption) ? tavrin::bench::RecordSize::Rich
                                                 : tavrin::bench::RecordSize::Plain;
    const tavrin::bench::RecordMaker maker(seed, size);
    if (!opened || !tavrin::bench::DatafileStream(file, maker).write(count) || !file.flush())
        return fail(1, u"cannot write %1: %2"_s.arg(arguments[1], file.errorString()));
    return 0;
}

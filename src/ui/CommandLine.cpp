// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "ui/CommandLine.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace tavrin {

namespace {

[[noreturn]] void refuse(const QString &message)
{
    std::fprintf(stderr, "tavrin: %s\n", qPrintable(message));
    std::exit(2); // NOLINT(concurrency-mt-unsafe): nothing else runs yet
}

/// The value of an option that takes one of a few words; empty when it was not given.
QString chosen(const QCommandLineParser &parser, const QString &option, const QStringList &words)
{
    QString value = parser.value(option);
    if (!value.isEmpty() && !words.contains(value))
        refuse(u"--%1 takes one of: %2"_s.arg(option, words.join(u", "_s)));
    return value;
}

std::optional<QSize> sizeFrom(const QString &text)
{
    if (text.isEmpty())
        return {};
    static const QRegularExpression pattern(u"^(\\d{2,4})x(\\d{2,4})$"_s);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        refuse(u"--size takes WIDTHxHEIGHT, such as 900x640"_s);
    return QSize(match.captured(1).toInt(), match.captured(2).toInt());
}

} // namespace

CommandLine CommandLine::parse(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Keeps records: opens datafiles, each in a window of its own."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(u"DATAFILE"_s, u"Datafiles to open (.tv3, .tvk)"_s, u"[DATAFILE...]"_s);
    parser.addOptions({
        {u"screenshot"_s,
         u"Write a picture of the window of the one DATAFILE to FILE, and quit"_s,
         u"FILE"_s},
        {u"view"_s, u"The view in the picture: basic or list"_s, u"VIEW"_s},
        {u"size"_s, u"The size of the window in the picture"_s, u"WIDTHxHEIGHT"_s},
        {u"appearance"_s, u"light or dark, in place of the desktop's colours"_s, u"APPEARANCE"_s},
    });
    parser.process(application);

    CommandLine line;
    for (const QString &path : parser.positionalArguments())
        line.datafiles.append(QFileInfo(path).absoluteFilePath());
    line.screenshotPath = parser.value(u"screenshot"_s);
    const QString view = chosen(parser, u"view"_s, {u"basic"_s, u"list"_s});
    line.view = view.isEmpty() ? QString() : view == "basic"_L1 ? u"Basic"_s : u"List"_s;
    line.appearance = chosen(parser, u"appearance"_s, {u"light"_s, u"dark"_s});
    line.size = sizeFrom(parser.value(u"size"_s));
    if (!line.screenshotPath.isEmpty() && line.datafiles.size() != 1)
        refuse(u"--screenshot takes one DATAFILE"_s);
    if (line.screenshotPath.isEmpty() && (!line.view.isEmpty() || line.size))
        refuse(u"--view and --size go with --screenshot"_s);
    return line;
}

} // namespace tavrin

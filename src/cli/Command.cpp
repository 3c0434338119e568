// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/Command.h"

namespace tavrin {

using namespace Qt::StringLiterals;

std::optional<DatafileKind> Call::kind() const
{
    // A command may have kinds of its own under the same option.
    const QStringList names = arguments.values(u"--kind"_s);
    if (names.contains(u"pro"))
        return DatafileKind::Pro;
    if (names.contains(u"mobile"))
        return DatafileKind::Mobile;
    return {};
}

ExitStatus Call::failed(const Error &error)
{
    QString text = error.message;
    if (error.kind == Error::Kind::TooNew)
        text += u' ' + DatafileDocument::tooNewInformativeText();
    if (!error.detail.isEmpty())
        text += u" ("_s + error.detail + u')';
    output.message(text);
    return ExitStatus::Failed;
}

ExitStatus Call::wrongUsage(const QString &message)
{
    output.message(message);
    return ExitStatus::WrongUsage;
}

QList<Option> writingOptions()
{
    return {{u"-o"_s, u"OUT"_s, Cli::tr("Write to OUT; FILE stays as it is.")},
            {u"--in-place"_s, {}, Cli::tr("Write to FILE itself.")},
            {u"--force"_s, {}, Cli::tr("Replace OUT when it exists.")}};
}

QList<Option> commonOptions()
{
    return {{u"--json"_s, {}, Cli::tr("Give the result as one JSON document.")},
            {u"--kind"_s, u"pro|mobile"_s, Cli::tr("Take the datafile for one of this kind.")},
            {u"--quiet"_s, {}, Cli::tr("Show no progress.")},
            {u"--help"_s, {}, Cli::tr("Show this help.")}};
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/SearchOptions.h"

#include "cli/RecordAccess.h"
#include "search/SearchCodes.h"

namespace tavrin {

using namespace Qt::StringLiterals;

QList<Option> searchOptions()
{
    return {{u"--case-sensitive"_s, {}, Cli::tr("Tell capital letters from small ones.")},
            {u"--whole-word"_s, {}, Cli::tr("Only where no letter or digit stands on either side.")},
            {u"--in"_s, u"FIELD"_s, Cli::tr("Only in this field; Text is the text.")}};
}

KeyOptions keyOptions(const Arguments &arguments)
{
    return {.caseSensitive = arguments.has(u"--case-sensitive"_s),
            .wholeWord = arguments.has(u"--whole-word"_s)};
}

Result<qint64> fieldsToSearchIn(const Arguments &arguments, const DatafileSettingsData &settings)
{
    if (!arguments.has(u"--in"_s))
        return FieldsToSearchIn::everything;
    const Result<NamedField> wanted = fieldNamed(arguments.value(u"--in"_s), settings);
    if (!wanted)
        return wanted.error();
    if (wanted->isText())
        return FieldsToSearchIn::freeformText;
    const QList<NamedField> fields = allFields(settings);
    qint64 index = 0;
    while (fields[index].identifier != wanted->identifier || fields[index].name != wanted->name)
        ++index;
    return index;
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/FieldValues.h"

#include "cli/RecordAccess.h"
#include "model/FieldText.h"

namespace tavrin {

using namespace Qt::StringLiterals;

QString faultOfFieldValues(const Arguments &arguments)
{
    const QStringList assignments = arguments.values(u"--set"_s);
    for (const QString &assignment : assignments) {
        if (!assignment.contains(u'='))
            return Cli::tr("--set needs FIELD=VALUE, not %1.").arg(assignment);
    }
    return {};
}

Result<FieldValues> fieldValuesIn(const Arguments &arguments, const DatafileSettingsData &settings)
{
    FieldValues values;
    if (arguments.has(u"--text"_s))
        values.text = arguments.value(u"--text"_s);
    for (const QString &assignment : arguments.values(u"--set"_s)) {
        const qsizetype equals = assignment.indexOf(u'=');
        const Result<NamedField> field = fieldNamed(assignment.first(equals), settings);
        if (!field)
            return field.error();
        if (!field->isText() && field->identifier.isEmpty())
            return Error{
                Error::Kind::Corrupt,
                Cli::tr("The field \"%1\" has no identifier to store a value under.").arg(field->name),
                {}};
        const QString value = assignment.sliced(equals + 1);
        if (field->isText())
            values.text = value;
        else
            values.fields.append({field->identifier, singleLineFieldText(value)});
    }
    return values;
}

QList<Option> fieldValueOptions()
{
    return {{u"--set"_s, u"FIELD=VALUE"_s, Cli::tr("Store this value in the field (repeatable)."), true},
            {u"--text"_s, u"TEXT"_s, Cli::tr("Store this text.")}};
}

} // namespace tavrin

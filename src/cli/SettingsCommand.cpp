// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/DatafileAccess.h"
#include "cli/Json.h"
#include "cli/SettingText.h"
#include "cli/Table.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype widestValue = 100;

QString textForPeople(const plist::Value &value)
{
    if (const bool *flag = value.boolean())
        return *flag ? u"YES"_s : u"NO"_s;
    if (QString text = value.toText(); !text.isNull())
        return text;
    // Anything else as JSON has it, without the brackets that make a document of it.
    const QByteArray document = QJsonDocument(QJsonArray{jsonOf(value)}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(document.sliced(1, document.size() - 2));
}

void writeSettings(const Call &call, const plist::Dictionary &settings)
{
    if (call.wantsJson())
        return writeJson(call.output, jsonOf(settings));
    QList<std::pair<QString, QString>> pairs;
    settings.forEach([&pairs](const QString &key, const plist::Value &value) {
        pairs.append({singleLine(key), cutToWidth(singleLine(textForPeople(value)), widestValue)});
    });
    writePairs(call.output, pairs);
}

ExitStatus runReading(Call &call)
{
    const auto document = openDatafile(call, call.arguments.operand(0));
    if (!document)
        return call.failed(document.error());
    writeSettings(call, (*document)->datafileSettings().storedDictionary());
    return ExitStatus::Done;
}

Result<> applyAssignments(const QStringList &assignments, DatafileSettingsData &settings)
{
    for (const QString &assignment : assignments) {
        const qsizetype equals = assignment.indexOf(u'=');
        const QString key = assignment.first(equals);
        const Result<plist::Value> value =
            settingOfText(assignment.sliced(equals + 1), key, settings.objectForKey(key));
        if (!value)
            return value.error();
        settings.setObject(*value, key);
    }
    return {};
}

ExitStatus runSettings(Call &call)
{
    if (const QString fault = faultOfOptionalTarget(call.arguments, u"--set"_s); !fault.isNull())
        return call.wrongUsage(fault);
    const QStringList assignments = call.arguments.values(u"--set"_s);
    if (assignments.isEmpty())
        return runReading(call);
    for (const QString &assignment : assignments) {
        if (assignment.indexOf(u'=') < 1)
            return call.wrongUsage(Cli::tr("--set needs KEY=VALUE, not %1.").arg(assignment));
    }
    Result<DatafileEdit> edit = DatafileEdit::open(call, call.arguments.operand(0));
    if (!edit)
        return call.failed(edit.error());
    DatafileSettingsData &settings = edit->document().datafileSettings();
    if (const Result<> applied = applyAssignments(assignments, settings); !applied)
        return call.failed(applied.error());
    if (const Result<> written = edit->writeSettings(); !written)
        return call.failed(written.error());
    writeSettings(call, settings.storedDictionary());
    return ExitStatus::Done;
}

} // namespace

Command settingsCommand()
{
    return {
        u"settings"_s,
        u"FILE"_s,
        1,
        1,
        Cli::tr("Reads or changes the stored settings."),
        Cli::tr("KEY is the stored key. A value is YES or NO, a number or a text, as the setting needs it.\n"
                "Settings that are more than a single value are only read."),
        QList<Option>{{u"--set"_s, u"KEY=VALUE"_s, Cli::tr("Store a setting (repeatable)."), true}}
            + writingOptions(),
        runSettings};
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/Cli.h"
#include "document/DatafileFixture.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tavrin {

/// What a command left behind.
struct CliOutcome
{
    int status = -1;
    QByteArray result;
    QByteArray messages;

    QJsonObject object() const { return QJsonDocument::fromJson(result).object(); }
    QJsonArray array() const { return QJsonDocument::fromJson(result).array(); }
};

inline CliOutcome runCli(const QStringList &arguments)
{
    QBuffer result;
    QBuffer messages;
    if (!result.open(QIODevice::WriteOnly) || !messages.open(QIODevice::WriteOnly))
        qFatal("a buffer cannot be opened");
    const int status = Cli::run(arguments, result, messages, DatafileFixture::services());
    return {status, result.data(), messages.data()};
}

inline QString samplePath(const QString &name)
{
    return QStringLiteral(TAVRIN_SAMPLES "/") + name;
}

/// The root with other values in the record.
inline plist::Dictionary withRecordValue(plist::Dictionary root,
                                         const QString &identifier,
                                         const QString &key,
                                         const plist::Value &value)
{
    plist::Dictionary records = *root.value(u"Records"_s).dictionary();
    plist::Dictionary record = *records.value(identifier).dictionary();
    record.insert(key, value);
    records.insert(identifier, record);
    root.insert(u"Records"_s, records);
    return root;
}

/// The root with the catalog's entry at the index omitted.
inline plist::Dictionary withOmitted(plist::Dictionary root, qsizetype index)
{
    plist::Array catalog = *root.value(u"Catalog"_s).array();
    plist::Dictionary entry = *catalog[index].dictionary();
    entry.insert(u"CurrentlySelected"_s, false);
    catalog[index] = entry;
    root.insert(u"Catalog"_s, catalog);
    return root;
}

} // namespace tavrin

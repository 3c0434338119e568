// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/DatafileFixture.h"
#include "model/RecordKey.h"

namespace tavrin {

/// A record of a test: what its fields hold, and its text. In a text, U+E000 is an "s" that the datafile has
/// as a numeric entity, U+E001 one in a CDATA section.
struct TestRecord
{
    QStringList fields;
    QString text;
    bool isSelected = true;
    bool isLocked = false;
    QByteArray textRTFD = {};

    /// What a reader of the datafile sees.
    static QString seen(QString content)
    {
        return content.replace(QChar(0xE000), u's').replace(QChar(0xE001), u's');
    }
};

/// A datafile whose records are "r0", "r1", ... in the order of the catalog, with fields "Field 0" ("f0") and
/// so on, of which those are hidden.
inline QByteArray searchedDatafile(const QList<TestRecord> &testRecords, const QSet<qsizetype> &hidden = {})
{
    plist::Dictionary records;
    plist::Array catalog;
    plist::Array definitions;
    qsizetype fieldCount = 0;
    for (const TestRecord &test : testRecords) {
        const QString identifier = u"r%1"_s.arg(records.size());
        plist::Dictionary contents;
        for (qsizetype i = 0; i < test.fields.size(); ++i)
            contents.insert(u"f%1"_s.arg(i), test.fields[i]);
        fieldCount = std::max(fieldCount, test.fields.size());
        plist::Dictionary record{{u"Fields"_s, contents}, {u"TextString"_s, test.text}};
        // All keys, so that it stays in the bytes of the file.
        for (const QString &key : RecordKey::all) {
            if (!record.contains(key))
                record.insert(key, key.endsWith(u"Date") ? plist::Value(Date{1}) : plist::Value(u""_s));
        }
        record.insert(RecordKey::identifier, identifier);
        record.insert(RecordKey::locked, test.isLocked);
        record.insert(RecordKey::textRTFD, plist::Value(test.textRTFD));
        records.insert(identifier, record);
        catalog.append(plist::Dictionary{{u"Identifier"_s, identifier},
                                         {u"CurrentlySelected"_s, test.isSelected},
                                         {u"PreviouslySelected"_s, true}});
    }
    for (qsizetype i = 0; i < fieldCount; ++i)
        definitions.append(plist::Dictionary{{u"Identifier"_s, u"f%1"_s.arg(i)},
                                             {u"Name"_s, u"Field %1"_s.arg(i)},
                                             {u"Show"_s, !hidden.contains(i)}});
    return plist::toXml(
               plist::Dictionary{
                   {u"Settings"_s, plist::Dictionary{{u"DataFormat"_s, 1}, {u"Fields"_s, definitions}}},
                   {u"Records"_s, records},
                   {u"Catalog"_s, catalog}})
        .replace("\xEE\x80\x80", "&#115;")
        .replace("\xEE\x80\x81", "<![CDATA[s]]>");
}

} // namespace tavrin

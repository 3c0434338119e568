// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sorting/RecordTexts.h"

#include <map>
#include <vector>

namespace tavrin {

/// Records whose texts the test writes down. Odd ones answer in UTF-8, as records of a file do.
class MadeTexts : public RecordTexts
{
public:
    struct Record
    {
        std::map<QString, QString> fields = {};
        QString text = QStringLiteral("");
        QString address = {};
        double created = 0;
        double modified = 0;
    };

    std::vector<Record> records;
    QStringList fields{QStringLiteral("A"), QStringLiteral("B")};

    RecordTextReader fieldReader(const QString &identifier) const override
    {
        return [this, identifier](quint32 record, QString &buffer) {
            const auto found = records.at(record).fields.find(identifier);
            return view(record, found == records.at(record).fields.end() ? QString() : found->second, buffer);
        };
    }
    RecordTextReader textReader() const override
    {
        return
            [this](quint32 record, QString &buffer) { return view(record, records.at(record).text, buffer); };
    }
    QString freeformAddressBlock(quint32 record) const override { return records.at(record).address; }
    Date createdDate(quint32 record) const override { return {records.at(record).created}; }
    Date modifiedDate(quint32 record) const override { return {records.at(record).modified}; }
    QStringList fieldIdentifiers() const override { return fields; }

private:
    QAnyStringView view(quint32 record, const QString &text, QString &buffer) const
    {
        if (record % 2 == 1 && !text.isNull()) {
            g_bytes = text.toUtf8();
            return QUtf8StringView(g_bytes);
        }
        buffer = text;
        return buffer;
    }

    mutable QByteArray g_bytes;
};

} // namespace tavrin

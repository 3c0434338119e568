// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sorting/RecordTexts.h"

#include <string>
#include <vector>

namespace tavrin::bench {

/// Rows of made texts, which lie one behind the other in UTF-8, as those of an open datafile do. The fields:
/// "Person", some of which have letters outside ASCII, and "Amount", as in "$1,234.50".
class MadeTable : public RecordTexts
{
public:
    explicit MadeTable(quint32 count);

    const std::vector<quint32> &records() const { return g_records; }
    QByteArrayView bytesOfTexts() const { return g_texts.bytes; }

    RecordTextReader fieldReader(const QString &fieldIdentifier) const override;
    RecordTextReader textReader() const override { return reader(g_texts); }
    QString freeformAddressBlock(quint32) const override { return {}; }
    Date createdDate(quint32 record) const override { return {double(record * 7919 % 1000003)}; }
    Date modifiedDate(quint32 record) const override { return createdDate(record); }
    QStringList fieldIdentifiers() const override;

private:
    struct Column
    {
        std::string bytes;
        std::vector<size_t> ends{0};

        void add(const std::string &text)
        {
            bytes += text;
            ends.push_back(bytes.size());
        }
    };

    static RecordTextReader reader(const Column &column);

    std::vector<quint32> g_records;
    Column g_names;
    Column g_amounts;
    Column g_texts;
};

} // namespace tavrin::bench

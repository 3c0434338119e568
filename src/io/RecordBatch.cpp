// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/RecordBatch.h"

#include "document/DatafileDocument.h"

#include <QCryptographicHash>

#include <algorithm>
#include <array>
#include <cstring>

namespace tavrin {

namespace {

/// Numbers that look drawn by lot: a counter, mixed until each of its bits touches all of theirs.
class NumberSeries
{
public:
    explicit NumberSeries(quint64 seed) : g_state(seed) {}

    quint64 next()
    {
        g_state += 0x9E3779B97F4A7C15;
        quint64 mixed = g_state;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        return mixed ^ (mixed >> 31);
    }

private:
    quint64 g_state;
};

/// Two digits for each byte.
constexpr auto hexOfByte = [] {
    std::array<std::array<char, 2>, 256> digits{};
    for (size_t byte = 0; byte < digits.size(); ++byte)
        digits[byte] = {"0123456789ABCDEF"[byte >> 4], "0123456789ABCDEF"[byte & 0xF]};
    return digits;
}();

template <int bytes>
void writeHex(quint64 number, char *&to)
{
    for (int byte = bytes - 1; byte >= 0; --byte)
        to = std::ranges::copy(hexOfByte[(number >> (8 * byte)) & 0xFF], to).out;
}

/// As a random identifier of version 4.
void writeIdentifier(quint64 high, quint64 low, char *to)
{
    high = (high & ~quint64(0xF000)) | 0x4000;
    low = (low & ~(quint64(3) << 62)) | (quint64(2) << 62);
    writeHex<4>(high >> 32, to);
    *to++ = '-';
    writeHex<2>(high >> 16, to);
    *to++ = '-';
    writeHex<2>(high, to);
    *to++ = '-';
    writeHex<2>(low >> 48, to);
    *to++ = '-';
    writeHex<6>(low, to);
}

/// In pieces, so that the memory brings what the table holds of a piece all at once.
std::vector<quint32> numbersOf(const RecordBatch &batch, IdentifierTable &table)
{
    constexpr quint32 piece = 64;
    table.reserve(table.count() + batch.count());
    std::vector<quint32> numbers;
    numbers.reserve(batch.count());
    std::vector<IdentifierTable::Hashed> identifiers;
    for (quint32 start = 0; start < batch.count(); start += piece) {
        identifiers.clear();
        for (quint32 place = start; place < std::min(batch.count(), start + piece); ++place)
            table.fetch(identifiers.emplace_back(batch.identifier(place)));
        for (const IdentifierTable::Hashed &identifier : identifiers)
            numbers.push_back(table.add(identifier));
    }
    return numbers;
}

} // namespace

Result<SharedBytes> newIdentifiers(quint32 count, const Environment &environment)
{
    const QByteArray drawn = environment.identifier().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(drawn, QCryptographicHash::Sha256);
    std::array<quint64, 2> seeds{};
    std::memcpy(seeds.data(), hash.constData(), sizeof seeds);
    return SharedBytes::filled(count * identifierSize, {}, [&](char *destination) {
        NumberSeries high(seeds[0]);
        NumberSeries low(seeds[1]);
        for (quint32 i = 0; i < count; ++i)
            writeIdentifier(high.next(), low.next(), destination + i * identifierSize);
        return true;
    });
}

std::vector<quint32> addBatch(DatafileDocument &document, const RecordBatch &batch)
{
    DatafileRecordsData &records = document.datafileRecords();
    records.identifiers().keep(batch.identifiers);
    const std::vector<quint32> numbers = numbersOf(batch, records.identifiers());
    records.addRecords(batch.records, numbers);
    document.datafileCatalog().insertNumbersAtEnd(numbers);
    return numbers;
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/BinaryTable.h"

#include "plist/ReadError.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace tavrin::plist {

namespace {

constexpr qsizetype headerSize = 8;
constexpr qsizetype trailerSize = 32;

quint64 bigEndian(QByteArrayView bytes)
{
    quint64 number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<uchar>(byte);
    return number;
}

// Offsets and references stand before the trailer, and so more than 8 bytes before the end.
quint64 bigEndian(const char *start, int size)
{
    return qFromBigEndian<quint64>(start) >> (64 - 8 * size);
}

// Whether numbers up to `largest` fit in so many bytes.
bool fits(quint64 largest, int size)
{
    return size >= 8 || largest >> (8 * size) == 0;
}

QString fromUtf16BigEndian(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromBigEndian<char16_t>(bytes.data(), text.size(), text.data());
    return text;
}

// Short integers are unsigned, those of 8 bytes are signed, those of 16 hold what 8 bytes cannot.
std::optional<Value> integer(QByteArrayView bytes)
{
    if (bytes.size() <= 8)
        return static_cast<qint64>(bigEndian(bytes));
    if (bytes.size() != 16)
        return {};
    const quint64 high = bigEndian(bytes.first(8));
    const quint64 low = bigEndian(bytes.last(8));
    if (high == 0)
        return low;
    if (high == std::numeric_limits<quint64>::max() && low >> 63 == 1)
        return static_cast<qint64>(low);
    return {};
}

std::optional<Value> uid(QByteArrayView bytes)
{
    const bool isSmall = bytes.size() <= 8 || bigEndian(bytes.chopped(8)) == 0;
    const quint64 index = bigEndian(bytes.last(std::min<qsizetype>(bytes.size(), 8)));
    if (!isSmall || index > std::numeric_limits<quint32>::max())
        return {};
    return Uid{static_cast<quint32>(index)};
}

std::optional<Value> date(QByteArrayView bytes)
{
    const double seconds = std::bit_cast<double>(bigEndian(bytes));
    if (!std::isfinite(seconds))
        return {};
    return Date{seconds};
}

bool hasThisText(const BinaryTable::Object &object, const QString &text)
{
    if (object.isLatin1())
        return text == QLatin1StringView(object.content);
    if (object.isUtf16() && object.content.size() != 2 * text.size())
        return false;
    const std::optional<Value> value = BinaryTable::simpleValue(object);
    return value && value->toText() == text;
}

} // namespace

bool BinaryTable::Object::hasText() const
{
    const int kind = this->kind();
    return kind == 1 || kind == 2 || isLatin1() || isUtf16() || marker == 0x08 || marker == 0x09;
}

Result<BinaryTable> BinaryTable::of(QByteArrayView bytes)
{
    const auto size = static_cast<quint64>(bytes.size());
    if (bytes.size() < headerSize + trailerSize || !bytes.startsWith(binaryMagic))
        return corruptAtOffset(size, "too short for a binary property list");
    BinaryTable table(bytes);
    if (const char *reason = table.readTrailer())
        return corruptAtOffset(size - trailerSize, reason);
    const auto areaSize = static_cast<quint64>(table.g_objectArea.size());
    for (quint64 i = 0; i < table.g_count; ++i) {
        const quint64 offset = table.offsetOf(i);
        if (offset < headerSize || offset >= areaSize)
            return corruptAtOffset(offset, "an object lies outside the object area");
    }
    return table;
}

// Null, or why it is refused.
const char *BinaryTable::readTrailer()
{
    const QByteArrayView trailer = g_bytes.last(trailerSize);
    g_offsetSize = static_cast<uchar>(trailer[6]);
    g_referenceSize = static_cast<uchar>(trailer[7]);
    g_count = bigEndian(trailer.sliced(8, 8));
    g_root = bigEndian(trailer.sliced(16, 8));
    const quint64 tablePosition = bigEndian(trailer.sliced(24, 8));

    const quint64 place = fileSize() - trailerSize;
    if (g_offsetSize < 1 || g_offsetSize > 8 || g_referenceSize < 1 || g_referenceSize > 8)
        return "impossible sizes of offsets or references";
    if (tablePosition <= headerSize || tablePosition > place)
        return "the offset table lies outside the file";
    const quint64 tableSize = place - tablePosition;
    const auto entrySize = static_cast<quint64>(g_offsetSize);
    if (g_count == 0 || g_count > tableSize || g_count * entrySize != tableSize)
        return "the number of objects does not fit the file";
    if (g_root >= g_count)
        return "the root is not in the object table";
    if (!fits(g_count, g_referenceSize) || !fits(tablePosition, g_offsetSize))
        return "offsets or references are too narrow";
    g_objectArea = g_bytes.first(static_cast<qsizetype>(tablePosition));
    return nullptr;
}

quint64 BinaryTable::offsetOf(quint64 index) const
{
    return bigEndian(g_objectArea.end() + static_cast<qsizetype>(index) * g_offsetSize, g_offsetSize);
}

Result<BinaryTable::Object> BinaryTable::object(quint64 index) const
{
    Object object;
    object.offset = offsetOf(index);
    object.marker = static_cast<uchar>(g_objectArea[static_cast<qsizetype>(object.offset)]);
    const int kind = object.kind();
    const auto low = static_cast<quint64>(object.marker & 15);
    quint64 count = low;
    if (kind <= 3)
        count = kind == 0 ? 0 : quint64(1) << low;
    else if (kind == 8)
        count = low + 1;
    const bool isLong = low == 15 && kind > 3 && kind != 8;
    const Result<QByteArrayView> found =
        isLong ? longContent(kind, object.offset + 1) : content(object.offset + 1, count, unitOf(kind));
    if (!found)
        return found.error();
    object.content = *found;
    object.size = static_cast<quint64>(found->end() - g_objectArea.begin()) - object.offset;
    return object;
}

// Behind a length, an integer object that starts there.
Result<QByteArrayView> BinaryTable::longContent(int kind, quint64 start) const
{
    const auto areaSize = static_cast<quint64>(g_objectArea.size());
    const int marker = start < areaSize ? static_cast<uchar>(g_objectArea[static_cast<qsizetype>(start)]) : 0;
    if (marker < 0x10 || marker > 0x13)
        return corruptAtOffset(start - 1, "an object without a length");
    const Result<QByteArrayView> length = content(start + 1, quint64(1) << (marker & 3), 1);
    if (!length)
        return length;
    return content(start + 1 + static_cast<quint64>(length->size()), bigEndian(*length), unitOf(kind));
}

Result<QByteArrayView> BinaryTable::content(quint64 start, quint64 count, quint64 unit) const
{
    const auto left = static_cast<quint64>(g_objectArea.size()) - start;
    if (count > left / unit)
        return corruptAtOffset(start, "an object reaches beyond the object area");
    return g_objectArea.sliced(static_cast<qsizetype>(start), static_cast<qsizetype>(count * unit));
}

quint64 BinaryTable::unitOf(int kind) const
{
    const auto referenceSize = static_cast<quint64>(g_referenceSize);
    switch (kind) {
    case 6:
        return 2;
    case 0xA:
    case 0xC:
        return referenceSize;
    case 0xD:
        return 2 * referenceSize;
    default:
        return 1;
    }
}

qsizetype BinaryTable::memberCount(const Object &container) const
{
    return container.content.size() / static_cast<qsizetype>(unitOf(container.kind()));
}

quint64 BinaryTable::member(const Object &container, qsizetype place) const
{
    return bigEndian(container.content.begin() + place * g_referenceSize, g_referenceSize);
}

quint64 BinaryTable::valueMember(const Object &dictionary, qsizetype place) const
{
    const char *values = dictionary.content.begin() + dictionary.content.size() / 2;
    return bigEndian(values + place * g_referenceSize, g_referenceSize);
}

std::optional<quint64> BinaryTable::find(const Object &dictionary, const QString &key) const
{
    const qsizetype count = memberCount(dictionary);
    for (qsizetype place = 0; place < count; ++place) {
        const Result<Object> candidate = object(member(dictionary, place));
        if (!candidate || !hasThisText(*candidate, key))
            continue;
        const quint64 value = valueMember(dictionary, place);
        if (!isNull(value))
            return value;
    }
    return {};
}

bool BinaryTable::isNull(quint64 index) const
{
    return g_objectArea[static_cast<qsizetype>(offsetOf(index))] == '\0';
}

std::optional<Value> BinaryTable::simpleValue(const Object &object)
{
    const QByteArrayView bytes = object.content;
    switch (object.marker) {
    case 0x00:
        return Value();
    case 0x08:
    case 0x09:
        return object.marker == 0x09;
    case 0x22:
        return std::bit_cast<float>(static_cast<quint32>(bigEndian(bytes)));
    case 0x23:
        return std::bit_cast<double>(bigEndian(bytes));
    case 0x33:
        return date(bytes);
    default:
        break;
    }
    switch (object.kind()) {
    case 1:
        return integer(bytes);
    case 4:
        return bytes.toByteArray();
    case 5:
        return QString::fromLatin1(bytes);
    case 6:
        return fromUtf16BigEndian(bytes);
    case 8:
        return uid(bytes);
    default:
        return {};
    }
}

bool BinaryTable::isSound(const Object &object)
{
    return object.isLatin1() || object.isUtf16() || object.isData() || simpleValue(object).has_value();
}

} // namespace tavrin::plist

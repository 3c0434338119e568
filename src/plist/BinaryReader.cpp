// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/BinaryReader.h"

#include "plist/ReadError.h"
#include "plist/Reader.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

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

// Whether numbers up to `largest` fit in so many bytes.
bool fits(quint64 largest, int size)
{
    return size >= 8 || largest >> (8 * size) == 0;
}

/// Builds the objects that the root needs, each once.
///
/// An operation that fails says so by null or false, and has then set g_reason and g_offset.
class BinaryParser
{
public:
    explicit BinaryParser(QByteArrayView bytes) : g_bytes(bytes) {}

    Result<Value> parse();

private:
    enum class State : quint8 { Unread, Reading, Read };

    struct Object
    {
        Value value;
        quint64 extent = 1; ///< The values it unfolds to, itself included.
        int height = 0;     ///< The levels of containers in it, itself included.
        State state = State::Unread;
    };

    bool fail(quint64 offset, const char *reason);
    bool readTrailer();
    bool checkOffsets();
    quint64 offsetOf(quint64 index) const;

    const Object *object(quint64 index, int depth);
    bool readObject(Object &object, quint64 offset, int depth);
    bool readSimple(Value &value, int marker, QByteArrayView bytes);
    bool readInteger(Value &value, QByteArrayView bytes);
    bool readArray(Object &object, QByteArrayView references, int depth);
    bool readDictionary(Object &object, QByteArrayView references, int depth);
    const Value *member(Object &object, quint64 index, int depth);
    std::optional<QByteArrayView> content(quint64 offset);
    std::optional<QByteArrayView> take(quint64 offset, quint64 count, quint64 unit);

    QByteArrayView g_bytes;
    QByteArrayView g_objectArea; ///< From the start of the file, so that its indices are offsets.
    quint64 g_count = 0;
    quint64 g_top = 0;
    int g_offsetSize = 0;
    int g_referenceSize = 0;
    std::vector<Object> g_objects;
    quint64 g_current = 0; ///< Offset of the object being read.
    quint64 g_bytesTaken = 0;
    quint64 g_offset = 0;
    const char *g_reason = nullptr;
};

bool BinaryParser::fail(quint64 offset, const char *reason)
{
    if (!g_reason) {
        g_reason = reason;
        g_offset = offset;
    }
    return false;
}

Result<Value> BinaryParser::parse()
{
    const Object *root = nullptr;
    if (readTrailer() && checkOffsets()) {
        g_objects.resize(g_count);
        root = object(g_top, 0);
        if (root && root->value.isNull()) {
            fail(offsetOf(g_top), "the list holds nothing");
            root = nullptr;
        }
    }
    if (!root)
        return corruptAtOffset(g_offset, g_reason);
    return root->value;
}

bool BinaryParser::readTrailer()
{
    const auto size = static_cast<quint64>(g_bytes.size());
    if (g_bytes.size() < headerSize + trailerSize || !g_bytes.startsWith(binaryMagic))
        return fail(size, "too short for a binary property list");
    const QByteArrayView trailer = g_bytes.last(trailerSize);
    g_offsetSize = static_cast<uchar>(trailer[6]);
    g_referenceSize = static_cast<uchar>(trailer[7]);
    g_count = bigEndian(trailer.sliced(8, 8));
    g_top = bigEndian(trailer.sliced(16, 8));
    const quint64 tablePosition = bigEndian(trailer.sliced(24, 8));

    const quint64 place = size - trailerSize;
    if (g_offsetSize < 1 || g_offsetSize > 8 || g_referenceSize < 1 || g_referenceSize > 8)
        return fail(place, "impossible sizes of offsets or references");
    if (tablePosition <= headerSize || tablePosition > place)
        return fail(place, "the offset table lies outside the file");
    const quint64 tableSize = place - tablePosition;
    const auto entrySize = static_cast<quint64>(g_offsetSize);
    if (g_count == 0 || g_count > tableSize || g_count * entrySize != tableSize)
        return fail(place, "the number of objects does not fit the file");
    if (g_top >= g_count)
        return fail(place, "the root is not in the object table");
    if (!fits(g_count, g_referenceSize) || !fits(tablePosition, g_offsetSize))
        return fail(place, "offsets or references are too narrow");
    g_objectArea = g_bytes.first(static_cast<qsizetype>(tablePosition));
    return true;
}

quint64 BinaryParser::offsetOf(quint64 index) const
{
    const qsizetype place = g_objectArea.size() + static_cast<qsizetype>(index) * g_offsetSize;
    return bigEndian(g_bytes.sliced(place, g_offsetSize));
}

bool BinaryParser::checkOffsets()
{
    const auto areaSize = static_cast<quint64>(g_objectArea.size());
    for (quint64 i = 0; i < g_count; ++i) {
        const quint64 offset = offsetOf(i);
        if (offset < headerSize || offset >= areaSize)
            return fail(offset, "an object lies outside the object area");
    }
    return true;
}

const BinaryParser::Object *BinaryParser::object(quint64 index, int depth)
{
    if (index >= g_count) {
        fail(g_current, "a reference to an object that does not exist");
        return nullptr;
    }
    Object &object = g_objects[index];
    if (object.state == State::Read)
        return &object;
    const quint64 offset = offsetOf(index);
    if (object.state == State::Reading) {
        fail(offset, "a container contains itself");
        return nullptr;
    }
    object.state = State::Reading;
    const quint64 parent = std::exchange(g_current, offset);
    if (!readObject(object, offset, depth))
        return nullptr;
    g_current = parent;
    object.state = State::Read;
    return &object;
}

// Objects of an honest file do not overlap. Were they allowed to, a small file could hold many large ones.
std::optional<QByteArrayView> BinaryParser::take(quint64 offset, quint64 count, quint64 unit)
{
    const auto left = static_cast<quint64>(g_objectArea.size()) - offset;
    if (count > left / unit) {
        fail(offset, "an object reaches beyond the object area");
        return {};
    }
    g_bytesTaken += count * unit + 1;
    if (g_bytesTaken > static_cast<quint64>(g_bytes.size())) {
        fail(offset, "objects overlap");
        return {};
    }
    return g_objectArea.sliced(static_cast<qsizetype>(offset), static_cast<qsizetype>(count * unit));
}

// What follows the marker (and the length) of the object at the offset.
std::optional<QByteArrayView> BinaryParser::content(quint64 offset)
{
    const int marker = static_cast<uchar>(g_objectArea[static_cast<qsizetype>(offset)]);
    const int kind = marker >> 4;
    const auto low = static_cast<quint64>(marker & 15);
    if (kind <= 3)
        return take(offset + 1, kind == 0 ? 0 : quint64(1) << low, 1);
    if (kind == 8)
        return take(offset + 1, low + 1, 1);

    quint64 start = offset + 1;
    quint64 count = low;
    if (low == 15) {
        const auto areaSize = static_cast<quint64>(g_objectArea.size());
        const int lengthMarker =
            start < areaSize ? static_cast<uchar>(g_objectArea[static_cast<qsizetype>(start)]) : 0;
        if (lengthMarker < 0x10 || lengthMarker > 0x13) {
            fail(offset, "an object without a length");
            return {};
        }
        const std::optional<QByteArrayView> length = take(start + 1, quint64(1) << (lengthMarker & 3), 1);
        if (!length)
            return {};
        count = bigEndian(*length);
        start += 1 + static_cast<quint64>(length->size());
    }
    const auto referenceSize = static_cast<quint64>(g_referenceSize);
    switch (kind) {
    case 6:
        return take(start, count, 2);
    case 0xA:
    case 0xC:
        return take(start, count, referenceSize);
    case 0xD:
        return take(start, count, 2 * referenceSize);
    default:
        return take(start, count, 1);
    }
}

bool BinaryParser::readObject(Object &object, quint64 offset, int depth)
{
    const int marker = static_cast<uchar>(g_objectArea[static_cast<qsizetype>(offset)]);
    const int kind = marker >> 4;
    const std::optional<QByteArrayView> bytes = content(offset);
    if (!bytes)
        return false;
    // In the XML form a reference of an archive takes a dictionary of its own.
    object.height = kind == 8 ? 1 : 0;
    if (kind < 0xA)
        return readSimple(object.value, marker, *bytes) || fail(offset, "unknown or malformed object");
    if (kind != 0xA && kind != 0xC && kind != 0xD)
        return fail(offset, "unknown or malformed object");
    if (depth == maximumDepth)
        return fail(offset, "nested too deeply");
    object.height = 1;
    return kind == 0xD ? readDictionary(object, *bytes, depth + 1) : readArray(object, *bytes, depth + 1);
}

QString fromUtf16BigEndian(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromBigEndian<char16_t>(bytes.data(), text.size(), text.data());
    return text;
}

bool BinaryParser::readSimple(Value &value, int marker, QByteArrayView bytes)
{
    switch (marker >> 4) {
    case 0:
        if (marker == 0x08 || marker == 0x09)
            value = marker == 0x09;
        return marker == 0x00 || !value.isNull();
    case 1:
        return readInteger(value, bytes);
    case 2:
        if (marker == 0x22)
            value = std::bit_cast<float>(static_cast<quint32>(bigEndian(bytes)));
        else if (marker == 0x23)
            value = std::bit_cast<double>(bigEndian(bytes));
        return !value.isNull();
    case 3:
        if (marker == 0x33 && std::isfinite(std::bit_cast<double>(bigEndian(bytes))))
            value = Date{std::bit_cast<double>(bigEndian(bytes))};
        return !value.isNull();
    case 4:
        value = bytes.toByteArray();
        return true;
    case 5:
        value = QString::fromLatin1(bytes);
        return true;
    case 6:
        value = fromUtf16BigEndian(bytes);
        return true;
    case 8: {
        const bool isSmall = bytes.size() <= 8 || bigEndian(bytes.chopped(8)) == 0;
        const quint64 index = bigEndian(bytes.last(std::min<qsizetype>(bytes.size(), 8)));
        if (!isSmall || index > std::numeric_limits<quint32>::max())
            return false;
        value = Uid{static_cast<quint32>(index)};
        return true;
    }
    default:
        return false;
    }
}

// Short integers are unsigned, those of 8 bytes are signed, those of 16 hold what 8 bytes cannot.
bool BinaryParser::readInteger(Value &value, QByteArrayView bytes)
{
    if (bytes.size() <= 8) {
        value = static_cast<qint64>(bigEndian(bytes));
        return true;
    }
    if (bytes.size() != 16)
        return false;
    const quint64 high = bigEndian(bytes.first(8));
    const quint64 low = bigEndian(bytes.last(8));
    if (high == 0)
        value = low;
    else if (high == std::numeric_limits<quint64>::max() && low >> 63 == 1)
        value = static_cast<qint64>(low);
    return !value.isNull();
}

// A member of the container, whose height and extent grow by it.
const Value *BinaryParser::member(Object &object, quint64 index, int depth)
{
    const Object *inner = this->object(index, depth);
    if (!inner)
        return nullptr;
    object.height = std::max(object.height, inner->height + 1);
    object.extent += inner->extent;
    if (object.height > maximumDepth) {
        fail(g_current, "nested too deeply");
        return nullptr;
    }
    if (object.extent > static_cast<quint64>(g_bytes.size()) * 64 + 65536) {
        fail(g_current, "containers are shared so that they unfold without measure");
        return nullptr;
    }
    return &inner->value;
}

bool BinaryParser::readArray(Object &object, QByteArrayView references, int depth)
{
    Array array;
    array.reserve(references.size() / g_referenceSize);
    for (qsizetype at = 0; at < references.size(); at += g_referenceSize) {
        const Value *value = member(object, bigEndian(references.sliced(at, g_referenceSize)), depth);
        if (!value)
            return false;
        array.append(*value);
    }
    object.value = std::move(array);
    return true;
}

bool BinaryParser::readDictionary(Object &object, QByteArrayView references, int depth)
{
    Dictionary dictionary;
    const qsizetype half = references.size() / 2;
    if (half > 0)
        dictionary.reserve(half / g_referenceSize);
    for (qsizetype at = 0; at < half; at += g_referenceSize) {
        const Value *key = member(object, bigEndian(references.sliced(at, g_referenceSize)), depth);
        if (!key)
            return false;
        const QString text = key->toText();
        if (text.isNull())
            return fail(g_current, "a dictionary key is not text");
        const Value *value = member(object, bigEndian(references.sliced(half + at, g_referenceSize)), depth);
        if (!value)
            return false;
        // Of equal keys the first counts.
        if (!dictionary.contains(text))
            dictionary.insert(text, *value);
    }
    object.value = std::move(dictionary);
    return true;
}

} // namespace

Result<Value> readBinary(QByteArrayView bytes)
{
    return BinaryParser(bytes).parse();
}

} // namespace tavrin::plist

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "base/InternalInconsistency.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

#include <QHash>
#include <QtEndian>

#include <algorithm>
#include <bit>
#include <vector>

namespace tavrin::plist {

namespace {

void appendBigEndian(QByteArray &bytes, quint64 number, int size)
{
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(number >> shift));
}

// The reader's rule is strict: 256^size must be more than the number.
int sizeFor(quint64 number)
{
    for (const int size : {1, 2, 4}) {
        if (number >> (8 * size) == 0)
            return size;
    }
    return 8;
}

void appendInteger(QByteArray &bytes, const Value &number)
{
    const quint64 bits = number.integerBits();
    if (number.isUnsigned()) {
        bytes.append('\x14');
        appendBigEndian(bytes, 0, 8);
        appendBigEndian(bytes, bits, 8);
        return;
    }
    // A negative number has its highest bit set, and so takes 8 bytes: only those are read as signed.
    const int size = sizeFor(bits);
    bytes.append(static_cast<char>(0x10 | std::countr_zero(static_cast<unsigned>(size))));
    appendBigEndian(bytes, bits, size);
}

void appendMarker(QByteArray &bytes, int kind, qsizetype count)
{
    if (count < 15) {
        bytes.append(static_cast<char>(kind << 4 | static_cast<int>(count)));
        return;
    }
    bytes.append(static_cast<char>(kind << 4 | 15));
    appendInteger(bytes, Value(static_cast<qint64>(count)));
}

void appendText(QByteArray &bytes, const QString &text)
{
    const bool isAscii = std::ranges::all_of(text, [](QChar unit) { return unit.unicode() < 0x80; });
    appendMarker(bytes, isAscii ? 5 : 6, text.size());
    if (isAscii) {
        bytes.append(text.toLatin1());
        return;
    }
    const qsizetype start = bytes.size();
    bytes.resize(start + 2 * text.size());
    qToBigEndian<char16_t>(text.utf16(), text.size(), bytes.data() + start);
}

void appendReal(QByteArray &bytes, const Real &number)
{
    if (number.isSingle) {
        bytes.append('\x22');
        appendBigEndian(bytes, std::bit_cast<quint32>(static_cast<float>(number.value)), 4);
    } else {
        bytes.append('\x23');
        appendBigEndian(bytes, std::bit_cast<quint64>(number.value), 8);
    }
}

QByteArray encodedScalar(const Value &value)
{
    QByteArray bytes;
    if (const QString *text = value.string()) {
        appendText(bytes, *text);
    } else if (const bool *flag = value.boolean()) {
        bytes.append(*flag ? '\x09' : '\x08');
    } else if (value.isInteger()) {
        appendInteger(bytes, value);
    } else if (const Real *number = value.real()) {
        appendReal(bytes, *number);
    } else if (const Date *date = value.date()) {
        bytes.append('\x33');
        appendBigEndian(bytes, std::bit_cast<quint64>(date->secondsSinceReference), 8);
    } else if (const QByteArray *data = value.data()) {
        appendMarker(bytes, 4, data->size());
        bytes.append(*data);
    } else if (const Uid *uid = value.uid()) {
        const int size = sizeFor(uid->index);
        bytes.append(static_cast<char>(0x80 | (size - 1)));
        appendBigEndian(bytes, uid->index, size);
    }
    return bytes;
}

/// Lists the objects depth first, each dictionary's keys before its values, and then writes them.
///
/// Equal scalars are one object, except booleans; containers never are. How wide references are is known
/// only when all objects are listed.
class BinaryWriter
{
public:
    QByteArray write(const Value &root);

private:
    struct Object
    {
        QByteArray scalar;     ///< Encoded; empty for a container.
        int kind = 0;          ///< The marker's upper half, of a container.
        size_t references = 0; ///< Where they start in g_references.
        qsizetype count = 0;   ///< Of members; a dictionary has twice as many references.
    };

    quint64 list(const Value &value, int depth);
    quint64 listScalar(const Value &value);
    void listArray(const Array &array, size_t object, int depth);
    void listDictionary(const Dictionary &dictionary, size_t object, int depth);
    void reserveReferences(size_t object, int kind, qsizetype count);
    void appendObject(QByteArray &bytes, const Object &object, int referenceSize) const;

    std::vector<Object> g_objects;
    std::vector<quint64> g_references;
    QHash<QByteArray, quint64> g_scalars;
};

QByteArray BinaryWriter::write(const Value &root)
{
    if (root.isNull())
        throw InternalInconsistency("toBinary: there is nothing to write");
    list(root, 0);

    const int referenceSize = sizeFor(g_objects.size());
    std::vector<quint64> offsets;
    offsets.reserve(g_objects.size());
    QByteArray bytes("bplist00");
    for (const Object &object : g_objects) {
        offsets.push_back(static_cast<quint64>(bytes.size()));
        appendObject(bytes, object, referenceSize);
    }
    const auto tablePosition = static_cast<quint64>(bytes.size());
    const int offsetSize = sizeFor(tablePosition);
    for (const quint64 offset : offsets)
        appendBigEndian(bytes, offset, offsetSize);

    bytes.append(6, '\0');
    bytes.append(static_cast<char>(offsetSize));
    bytes.append(static_cast<char>(referenceSize));
    appendBigEndian(bytes, g_objects.size(), 8);
    appendBigEndian(bytes, 0, 8); // the root is the first object
    appendBigEndian(bytes, tablePosition, 8);
    return bytes;
}

quint64 BinaryWriter::list(const Value &value, int depth)
{
    const Array *array = value.array();
    const Dictionary *dictionary = value.dictionary();
    if (!array && !dictionary)
        return listScalar(value);
    if (depth == maximumDepth)
        throw InternalInconsistency("toBinary: nested more deeply than can be read again");
    const size_t object = g_objects.size();
    g_objects.emplace_back();
    if (array)
        listArray(*array, object, depth + 1);
    else
        listDictionary(*dictionary, object, depth + 1);
    return object;
}

quint64 BinaryWriter::listScalar(const Value &value)
{
    QByteArray encoded = encodedScalar(value);
    const quint64 next = g_objects.size();
    if (!value.boolean()) {
        const auto known = g_scalars.constFind(encoded);
        if (known != g_scalars.constEnd())
            return *known;
        g_scalars.insert(encoded, next);
    }
    g_objects.push_back({std::move(encoded)});
    return next;
}

// Members list their own references in between, so that a container's own are set aside first.
void BinaryWriter::reserveReferences(size_t object, int kind, qsizetype count)
{
    const size_t start = g_references.size();
    g_objects[object] = {{}, kind, start, count};
    g_references.resize(start + static_cast<size_t>(kind == 0xD ? 2 * count : count));
}

void BinaryWriter::listArray(const Array &array, size_t object, int depth)
{
    const auto count = std::ranges::count_if(array, [](const Value &value) { return !value.isNull(); });
    reserveReferences(object, 0xA, count);
    size_t place = g_objects[object].references;
    for (const Value &value : array) {
        if (value.isNull())
            continue;
        // In two steps: listing the member may move the references.
        const quint64 reference = list(value, depth);
        g_references[place++] = reference;
    }
}

void BinaryWriter::listDictionary(const Dictionary &dictionary, size_t object, int depth)
{
    reserveReferences(object, 0xD, dictionary.size());
    size_t place = g_objects[object].references;
    dictionary.forEach([&](const QString &key, const Value &) { g_references[place++] = listScalar(key); });
    dictionary.forEach([&](const QString &, const Value &value) {
        const quint64 reference = list(value, depth);
        g_references[place++] = reference;
    });
}

void BinaryWriter::appendObject(QByteArray &bytes, const Object &object, int referenceSize) const
{
    if (!object.scalar.isEmpty()) {
        bytes.append(object.scalar);
        return;
    }
    appendMarker(bytes, object.kind, object.count);
    const qsizetype references = object.kind == 0xD ? 2 * object.count : object.count;
    for (qsizetype i = 0; i < references; ++i)
        appendBigEndian(bytes, g_references[object.references + static_cast<size_t>(i)], referenceSize);
}

} // namespace

QByteArray toBinary(const Value &root)
{
    return BinaryWriter().write(root);
}

} // namespace tavrin::plist

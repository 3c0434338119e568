// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plist/AsciiReader.h"
#include "plist/BinaryCheck.h"
#include "plist/BinaryReader.h"
#include "plist/KeyRow.h"
#include "plist/Reader.h"
#include "plist/TextEncoding.h"
#include "plist/Writer.h"
#include "plist/XmlCursor.h"
#include "plist/XmlReader.h"

#include <QByteArray>

#include <optional>

// What each fuzz target does with its input. Any bytes may come; only a fault of ours ends the process.
// The same functions replay the corpora as an ordinary test.

namespace tavrin::plist::fuzz {

inline void require(bool condition, const char *rule)
{
    if (!condition)
        qFatal("%s", rule);
}

/// The tree as the writers write it: without null values.
inline Value withoutNulls(const Value &value)
{
    if (const Array *array = value.array()) {
        Array kept;
        for (const Value &member : *array) {
            if (!member.isNull())
                kept.append(withoutNulls(member));
        }
        return kept;
    }
    if (const Dictionary *dictionary = value.dictionary()) {
        Dictionary kept;
        dictionary->forEach(
            [&kept](const QString &key, const Value &member) { kept.insert(key, withoutNulls(member)); });
        return kept;
    }
    return value;
}

/// Nothing for a tree that unfolds to so much that writing it would only waste the fuzzer's time.
inline std::optional<QByteArray> smallXml(const Value &root)
{
    constexpr qsizetype enough = 4 << 20;
    QByteArray bytes;
    const bool isWhole = writeXml(root, [&bytes](QByteArrayView piece) {
        bytes.append(piece);
        return bytes.size() < enough;
    });
    return isWhole ? std::optional(bytes) : std::nullopt;
}

/// Writes the tree in both forms and reads it again. XML keeps less of some trees (dates in whole seconds,
/// no lone surrogates): for those, what has once been through it must then stay as it is.
inline void checkWriting(const Value &root, bool isExactInXml)
{
    const std::optional<QByteArray> text = smallXml(root);
    if (!text)
        return;
    const Result<PropertyList> once = read(*text);
    require(once && once->format == Format::Xml, "what is written as XML is read again");
    if (isExactInXml)
        require(once->root == root, "XML keeps the values");
    const Result<PropertyList> twice = read(toXml(once->root));
    require(twice && twice->root == once->root, "XML keeps what it has kept once");

    const Result<PropertyList> binary = read(toBinary(root));
    require(binary && binary->format == Format::Binary, "what is written as binary is read again");
    require(binary->root == withoutNulls(root), "the binary form keeps the values");
}

inline void checkText(QByteArrayView bytes, Result<Value> (*readText)(QByteArrayView), bool isExactInXml)
{
    const Result<QByteArray> text = toUtf8(bytes);
    if (!text)
        return;
    const Result<Value> root = readText(*text);
    if (root)
        checkWriting(*root, isExactInXml);
}

/// Over the value, with one row for the keys of all its dictionaries, in whatever way they are nested.
inline bool skipInRow(XmlCursor &cursor, KeyRow &row)
{
    const Element element = cursor.tag().element;
    if (element != Element::Dict && element != Element::List)
        return cursor.skipValue();
    if (!cursor.enter())
        return !cursor.hasFailed();
    row.begin();
    while (element == Element::Dict ? row.next(cursor) : cursor.nextElement()) {
        if (!skipInRow(cursor, row))
            return false;
    }
    return !cursor.hasFailed();
}

/// The cursor accepts and refuses what the reader does, for the same reason at the same line.
inline void checkCursor(QByteArrayView bytes)
{
    const Result<QByteArray> text = toUtf8(bytes);
    if (!text)
        return;
    const QByteArray padded = *text + QByteArray(MarkupScanner::blockSize, '\0');
    const Result<Value> expected = readXml(*text);
    for (const bool isInRow : {false, true}) {
        XmlCursor cursor(QByteArrayView(padded).first(text->size()));
        KeyRow row;
        const bool isAccepted = cursor.enterRoot() && (isInRow ? skipInRow(cursor, row) : cursor.skipValue())
                                && cursor.leaveRoot();
        require(isAccepted == expected.has_value(), "the cursor accepts what the reader does");
        if (!isAccepted)
            require(cursor.error() == expected.error(), "the cursor gives the reader's reason");
    }
}

inline void checkXml(QByteArrayView bytes)
{
    checkText(bytes, readXml, true);
    checkCursor(bytes);
}

inline void checkAscii(QByteArrayView bytes)
{
    checkText(bytes, readAscii, false);
}

/// Going over the objects refuses what the reader does, for the same reason at the same offset. One read
/// alone is what the reader makes of it.
inline void checkTable(QByteArrayView bytes)
{
    const Result<Value> expected = readBinary(bytes);
    const Result<BinaryTable> table = BinaryTable::of(bytes);
    const Result<> checked = table ? checkObjects(*table) : Result<>(table.error());
    require(checked.has_value() == expected.has_value(), "the check accepts what the reader does");
    if (!checked) {
        require(checked.error() == expected.error(), "the check gives the reader's reason");
        return;
    }
    require(readBinaryObject(*table, table->root()) == *expected, "the root alone is the same");
    const Dictionary *dictionary = expected->dictionary();
    const BinaryTable::Object root = *table->object(table->root());
    for (const QString &key : dictionary ? dictionary->keys() : QStringList()) {
        const std::optional<quint64> found = table->find(root, key);
        require(found && readBinaryObject(*table, *found) == dictionary->value(key), "an entry is the same");
    }
}

inline void checkBinary(QByteArrayView bytes)
{
    checkTable(bytes);
    const Result<Value> root = readBinary(bytes);
    if (root)
        checkWriting(*root, false);
}

} // namespace tavrin::plist::fuzz

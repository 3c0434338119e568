// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Result.h"
#include "plist/Value.h"

#include <QByteArrayView>

#include <optional>

namespace tavrin::plist {

inline constexpr QByteArrayView binaryMagic("bplist0");

/// Why the objects of a binary property list are refused, whoever goes over them.
namespace BinaryFault {
inline constexpr const char *holdsNothing = "the list holds nothing";
inline constexpr const char *noSuchObject = "a reference to an object that does not exist";
inline constexpr const char *cycle = "a container contains itself";
inline constexpr const char *overlap = "objects overlap";
inline constexpr const char *malformed = "unknown or malformed object";
inline constexpr const char *tooDeep = "nested too deeply";
inline constexpr const char *tooLarge = "containers are shared so that they unfold without measure";
inline constexpr const char *keyIsNoText = "a dictionary key is not text";
} // namespace BinaryFault

/// The objects of a binary property list, each known by its index in the list's table.
///
/// It refers to the bytes, which must outlive it, and keeps nothing else.
class BinaryTable
{
public:
    struct Object
    {
        quint64 offset = 0;     ///< Of its marker, in the file.
        quint64 size = 0;       ///< In bytes, with its marker and length.
        QByteArrayView content; ///< What follows them.
        int marker = 0;

        int kind() const { return marker >> 4; }
        bool isArray() const { return kind() == 0xA; }
        bool isSet() const { return kind() == 0xC; }
        bool isDictionary() const { return kind() == 0xD; }
        bool isContainer() const { return isArray() || isSet() || isDictionary(); }
        /// Text whose bytes are Latin-1, and usually ASCII.
        bool isLatin1() const { return kind() == 5; }
        bool isUtf16() const { return kind() == 6; }
        bool isData() const { return kind() == 4; }
        bool isUid() const { return kind() == 8; }
        /// Whether its value would have a text, and so can be a dictionary's key.
        bool hasText() const;
    };

    /// Corrupt when the table itself is: what the objects hold is not looked at.
    static Result<BinaryTable> of(QByteArrayView bytes);

    quint64 count() const { return g_count; }
    quint64 root() const { return g_root; }
    quint64 fileSize() const { return static_cast<quint64>(g_bytes.size()); }
    /// How many values a container may unfold to.
    quint64 largestExtent() const { return fileSize() * 64 + 65536; }

    /// The index must be less than count().
    quint64 offsetOf(quint64 index) const;
    /// Corrupt when the object reaches beyond its place. Of what is in it nothing is checked.
    Result<Object> object(quint64 index) const;

    /// How many members the container has, or the dictionary entries.
    qsizetype memberCount(const Object &container) const;
    /// The index of a member of an array or a set, or of a dictionary's key; it may be beyond the table.
    quint64 member(const Object &container, qsizetype place) const;
    /// The same of the value under that key.
    quint64 valueMember(const Object &dictionary, qsizetype place) const;
    /// The index of what stands under the key in a dictionary of a list that checkObjects() has accepted;
    /// none when nothing does. Of equal keys the first that is not over a null object counts.
    std::optional<quint64> find(const Object &dictionary, const QString &key) const;
    bool isNull(quint64 index) const;

    /// The value of anything but a container, null for the null object; none when it is malformed.
    static std::optional<Value> simpleValue(const Object &object);
    /// Whether simpleValue() has one, without making large ones.
    static bool isSound(const Object &object);

private:
    explicit BinaryTable(QByteArrayView bytes) : g_bytes(bytes) {}
    const char *readTrailer();
    Result<QByteArrayView> content(quint64 start, quint64 count, quint64 unit) const;
    Result<QByteArrayView> longContent(int kind, quint64 start) const;
    quint64 unitOf(int kind) const;

    QByteArrayView g_bytes;
    QByteArrayView g_objectArea; ///< From the start of the file, so that its indices are offsets.
    quint64 g_count = 0;
    quint64 g_root = 0;
    int g_offsetSize = 0;
    int g_referenceSize = 0;
};

} // namespace tavrin::plist

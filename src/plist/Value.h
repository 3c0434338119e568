// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Date.h"

#include <QByteArray>
#include <QList>
#include <QSharedDataPointer>
#include <QString>

#include <initializer_list>
#include <utility>
#include <variant>

namespace tavrin::plist {

enum class ValueType { Null, Boolean, Integer, Real, String, Date, Data, Array, Dictionary, Uid };

class Value;
using Array = QList<Value>;

struct DictionaryData;

/// String keys to values, in the order in which the keys came. A value set again keeps its place.
///
/// Implicitly shared: copies are cheap and independent. Small dictionaries are searched, large ones hashed.
class Dictionary
{
public:
    Dictionary();
    Dictionary(std::initializer_list<std::pair<QString, Value>> entries);
    Dictionary(const Dictionary &);
    Dictionary(Dictionary &&) noexcept;
    Dictionary &operator=(const Dictionary &);
    Dictionary &operator=(Dictionary &&) noexcept;
    ~Dictionary();

    qsizetype size() const;
    bool isEmpty() const { return size() == 0; }
    bool contains(const QString &key) const { return find(key) != nullptr; }

    /// Null when the key is absent; otherwise valid until this dictionary changes.
    const Value *find(const QString &key) const;

    /// The value under the key, or a null value.
    Value value(const QString &key) const;

    /// Stores the value; a null value removes the key.
    void insert(const QString &key, const Value &value);
    void insert(const QString &key, Value &&value);
    void remove(const QString &key);
    void reserve(qsizetype count);

    QList<QString> keys() const;

    /// Calls visitor(const QString &key, const Value &value) for each entry, in order.
    template <typename Visitor>
    void forEach(Visitor &&visitor) const;

    /// Equal keys with equal values, in whatever order.
    friend bool operator==(const Dictionary &left, const Dictionary &right);

private:
    QSharedDataPointer<DictionaryData> g_data;
};

/// A reference into the object table of a keyed archive.
struct Uid
{
    quint32 index = 0;
    friend bool operator==(const Uid &, const Uid &) = default;
};

/// A floating-point number; a single-precision one is kept as such, because the binary form tells them apart.
struct Real
{
    double value = 0;
    bool isSingle = false;
    friend bool operator==(const Real &left, const Real &right)
    {
        return left.value == right.value || (left.value != left.value && right.value != right.value);
    }
};

/// One property-list value, or null for an absent one.
///
/// Booleans, integers and reals are different types: what was read as one is written as the same one.
/// Integers are 64 bits; those of 2^63 and above are unsigned.
class Value
{
public:
    using Type = ValueType;

    Value() = default;
    // NOLINTBEGIN(google-explicit-constructor): a value is made from what it holds, as in a literal tree
    Value(bool value) : g_content(value) {}
    Value(int value) : g_content(static_cast<qint64>(value)) {}
    Value(qint64 value) : g_content(value) {}
    Value(quint64 value); ///< Kept signed when it fits.
    Value(double value) : g_content(Real{value, false}) {}
    Value(float value) : g_content(Real{static_cast<double>(value), true}) {}
    Value(Real value) : g_content(value) {}
    Value(const QString &value) : g_content(value) {}
    Value(QString &&value) : g_content(std::move(value)) {}
    Value(Date value) : g_content(value) {}
    Value(const QByteArray &value) : g_content(value) {}
    Value(QByteArray &&value) : g_content(std::move(value)) {}
    Value(const Array &value) : g_content(value) {}
    Value(Array &&value) : g_content(std::move(value)) {}
    Value(const Dictionary &value) : g_content(value) {}
    Value(Dictionary &&value) : g_content(std::move(value)) {}
    Value(Uid value) : g_content(value) {}
    // NOLINTEND(google-explicit-constructor)
    Value(const void *) = delete; ///< Keeps pointers from becoming booleans.

    Type type() const;
    bool isNull() const { return std::holds_alternative<std::monostate>(g_content); }
    bool isString() const { return std::holds_alternative<QString>(g_content); }
    bool isArray() const { return std::holds_alternative<Array>(g_content); }
    bool isDictionary() const { return std::holds_alternative<Dictionary>(g_content); }
    bool isData() const { return std::holds_alternative<QByteArray>(g_content); }
    bool isDate() const { return std::holds_alternative<Date>(g_content); }

    /// The content as a pointer, null when the value is of another type.
    const QString *string() const { return std::get_if<QString>(&g_content); }
    const Array *array() const { return std::get_if<Array>(&g_content); }
    const Dictionary *dictionary() const { return std::get_if<Dictionary>(&g_content); }
    const QByteArray *data() const { return std::get_if<QByteArray>(&g_content); }
    const Date *date() const { return std::get_if<Date>(&g_content); }
    const Uid *uid() const { return std::get_if<Uid>(&g_content); }
    const bool *boolean() const { return std::get_if<bool>(&g_content); }
    const Real *real() const { return std::get_if<Real>(&g_content); }

    bool isInteger() const;
    bool isUnsigned() const { return std::holds_alternative<quint64>(g_content); }
    /// The 64 bits of an integer, 0 for another type.
    quint64 integerBits() const;

    /// Readings of any value, by the rules with which the format's first platform converts: numbers by
    /// truncation, strings from their start as far as they make sense; containers, dates and data as 0.
    bool toBool() const;
    qint32 toInt32() const; ///< The low 32 bits of an integer.
    qint64 toInt64() const;
    float toFloat() const;
    double toDouble() const;
    /// A string as it is, a number in decimal, a boolean as "1" or "0"; null for another type.
    QString toText() const;

    friend bool operator==(const Value &left, const Value &right);

private:
    std::variant<std::monostate,
                 bool,
                 qint64,
                 quint64,
                 Real,
                 QString,
                 Date,
                 QByteArray,
                 Array,
                 Dictionary,
                 Uid>
        g_content;
};

} // namespace tavrin::plist

#include "plist/DictionaryData.h" // IWYU pragma: keep

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "plist/Value.h"

#include "base/StringReadings.h"

#include <cmath>
#include <limits>

namespace tavrin::plist {

// Every empty dictionary shares nothing: a null pointer stands for it, so that it costs no allocation.

Dictionary::Dictionary() = default;

Dictionary::Dictionary(std::initializer_list<std::pair<QString, Value>> entries)
{
    for (const auto &[key, value] : entries)
        insert(key, value);
}

Dictionary::Dictionary(const Dictionary &) = default;
Dictionary::Dictionary(Dictionary &&) noexcept = default;
Dictionary &Dictionary::operator=(const Dictionary &) = default;
Dictionary &Dictionary::operator=(Dictionary &&) noexcept = default;
Dictionary::~Dictionary() = default;

qsizetype Dictionary::size() const
{
    return g_data ? g_data->entries.size() : 0;
}

const Value *Dictionary::find(const QString &key) const
{
    return g_data ? g_data.constData()->entries.find(key) : nullptr;
}

Value Dictionary::value(const QString &key) const
{
    const Value *found = find(key);
    return found ? *found : Value();
}

void Dictionary::insert(const QString &key, const Value &value)
{
    insert(key, Value(value));
}

void Dictionary::insert(const QString &key, Value &&value)
{
    if (value.isNull()) {
        remove(key);
        return;
    }
    if (!g_data)
        g_data = new DictionaryData;
    g_data->entries.insert(key, std::move(value));
}

void Dictionary::remove(const QString &key)
{
    if (contains(key))
        g_data->entries.take(key);
}

void Dictionary::reserve(qsizetype count)
{
    if (!g_data)
        g_data = new DictionaryData;
    g_data->entries.reserve(count);
}

QList<QString> Dictionary::keys() const
{
    QList<QString> keys;
    keys.reserve(size());
    forEach([&keys](const QString &key, const Value &) { keys.append(key); });
    return keys;
}

bool operator==(const Dictionary &left, const Dictionary &right)
{
    if (left.g_data == right.g_data)
        return true;
    if (left.size() != right.size())
        return false;
    bool equal = true;
    left.forEach([&](const QString &key, const Value &value) {
        const Value *other = equal ? right.find(key) : nullptr;
        equal = other && *other == value;
    });
    return equal;
}

Value::Value(quint64 value)
{
    if (value <= static_cast<quint64>(std::numeric_limits<qint64>::max()))
        g_content = static_cast<qint64>(value);
    else
        g_content = value;
}

Value::Type Value::type() const
{
    // In the order of the alternatives: both integers are one type.
    static constexpr Type types[] = {Type::Null,
                                     Type::Boolean,
                                     Type::Integer,
                                     Type::Integer,
                                     Type::Real,
                                     Type::String,
                                     Type::Date,
                                     Type::Data,
                                     Type::Array,
                                     Type::Dictionary,
                                     Type::Uid};
    return types[g_content.index()];
}

bool Value::isInteger() const
{
    return std::holds_alternative<qint64>(g_content) || isUnsigned();
}

quint64 Value::integerBits() const
{
    if (const auto *number = std::get_if<qint64>(&g_content))
        return static_cast<quint64>(*number);
    if (const auto *number = std::get_if<quint64>(&g_content))
        return *number;
    return 0;
}

bool Value::toBool() const
{
    if (const bool *flag = boolean())
        return *flag;
    if (isInteger())
        return integerBits() != 0;
    if (const Real *number = real())
        return number->value != 0;
    if (const QString *text = string())
        return boolValue(*text);
    return false;
}

qint64 Value::toInt64() const
{
    if (const bool *flag = boolean())
        return *flag ? 1 : 0;
    if (isInteger())
        return static_cast<qint64>(integerBits());
    if (const Real *number = real()) {
        constexpr double limit = 9223372036854775807.0; // 2^63 as a double
        if (std::isnan(number->value))
            return 0;
        if (number->value >= limit)
            return std::numeric_limits<qint64>::max();
        return number->value <= -limit ? std::numeric_limits<qint64>::min()
                                       : static_cast<qint64>(number->value);
    }
    if (const QString *text = string())
        return integerValue(*text);
    return 0;
}

qint32 Value::toInt32() const
{
    const qint64 wide = toInt64();
    if (isInteger())
        return static_cast<qint32>(static_cast<quint32>(static_cast<quint64>(wide)));
    // A number written as text or as a real does not wrap: it stops at the largest.
    constexpr qint64 largest = std::numeric_limits<qint32>::max();
    constexpr qint64 smallest = std::numeric_limits<qint32>::min();
    return static_cast<qint32>(std::clamp(wide, smallest, largest));
}

double Value::toDouble() const
{
    if (const Real *number = real())
        return number->value;
    if (const QString *text = string())
        return doubleValue(*text);
    return isUnsigned() ? static_cast<double>(integerBits()) : static_cast<double>(toInt64());
}

float Value::toFloat() const
{
    const double wide = toDouble();
    constexpr double largest = std::numeric_limits<float>::max();
    if (std::isfinite(wide) && std::abs(wide) > largest)
        return wide > 0 ? std::numeric_limits<float>::infinity() : -std::numeric_limits<float>::infinity();
    return static_cast<float>(wide);
}

QString Value::toText() const
{
    if (const QString *text = string())
        return *text;
    if (const bool *flag = boolean())
        return QString::number(*flag ? 1 : 0);
    if (isInteger())
        return isUnsigned() ? QString::number(integerBits()) : QString::number(toInt64());
    if (const Real *number = real())
        return QString::number(number->value, 'g', number->isSingle ? 7 : 16);
    return {};
}

bool operator==(const Value &left, const Value &right)
{
    return left.g_content == right.g_content;
}

} // namespace tavrin::plist

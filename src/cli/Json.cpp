// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/Json.h"

#include "plist/ScalarText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <limits>

namespace tavrin {

using namespace Qt::StringLiterals;

QString isoText(Date date)
{
    return QString::fromLatin1(plist::formatDate(date));
}

QJsonValue jsonOf(const plist::Value &value)
{
    using Type = plist::ValueType;
    switch (value.type()) {
    case Type::Null:
        return {};
    case Type::Boolean:
        return *value.boolean();
    case Type::Integer:
        return value.isUnsigned() ? QJsonValue(static_cast<double>(value.integerBits()))
                                  : QJsonValue(value.toInt64());
    case Type::Real:
        return std::isfinite(value.real()->value) ? QJsonValue(value.real()->value) : QJsonValue();
    case Type::String:
        return *value.string();
    case Type::Date:
        return isoText(*value.date());
    case Type::Data:
        return QString::fromLatin1(value.data()->toBase64());
    case Type::Array: {
        QJsonArray array;
        for (const plist::Value &element : *value.array())
            array.append(jsonOf(element));
        return array;
    }
    case Type::Dictionary:
        return jsonOf(*value.dictionary());
    case Type::Uid:
        return QJsonObject{{u"CF$UID"_s, static_cast<qint64>(value.uid()->index)}};
    }
    return {};
}

QJsonObject jsonOf(const plist::Dictionary &dictionary)
{
    QJsonObject object;
    dictionary.forEach(
        [&object](const QString &key, const plist::Value &value) { object.insert(key, jsonOf(value)); });
    return object;
}

void writeJson(Output &output, const QJsonObject &object)
{
    output.write(QJsonDocument(object).toJson());
}

void JsonArrayWriter::append(const QJsonObject &element)
{
    g_output.write(g_empty ? "\n" : ",\n");
    g_output.write(QJsonDocument(element).toJson(QJsonDocument::Compact));
    g_empty = false;
}

} // namespace tavrin

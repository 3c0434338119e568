// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/BatchBuilder.h"
#include "io/RecordFiles.h"
#include "io/RecordLoop.h"
#include "io/TextSink.h"
#include "model/FieldText.h"
#include "model/RecordKey.h"
#include "plist/ScalarText.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

const QString fieldNamesKey = u"fieldNames"_s;
const QString valuesKey = u"values"_s;
const QString rtfdKey = u"textRTFD"_s;

Error noJson(const QString &detail)
{
    return {Error::Kind::Corrupt,
            QCoreApplication::translate("Import", "The file is no JSON array of records."),
            detail};
}

/// A value that is no text as JSON writes it.
QString textOf(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Array:
        return QString::fromUtf8(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact));
    case QJsonValue::Object:
        return QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
    case QJsonValue::Bool:
        return value.toBool() ? u"true"_s : u"false"_s;
    case QJsonValue::Double:
        return QString::fromUtf8(
            QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).chopped(1).sliced(1));
    default:
        return {};
    }
}

/// Values of the record in the fields of those identifiers.
void takeValues(const QJsonArray &values, const QStringList &identifiers, RecordData &record)
{
    for (qsizetype i = 0; i < std::min<qsizetype>(values.size(), identifiers.size()); ++i) {
        if (!values[i].isNull())
            record.setFieldValue(textOf(values[i]), identifiers[i]);
    }
}

/// Where the string that begins there has ended, in valid JSON.
qsizetype endOfString(QByteArrayView json, qsizetype at)
{
    for (++at; at < json.size() && json[at] != '"'; ++at) {
        if (json[at] == '\\')
            ++at;
    }
    return at + 1;
}

bool isKey(QByteArrayView behind)
{
    return behind.trimmed().startsWith(':');
}

/// The keys of an array's objects, in the order in which they come. Qt's objects are sorted by them.
QStringList keysOf(QByteArrayView json)
{
    constexpr int insideOfAnObject = 2;
    QStringList keys;
    QSet<QByteArray> known;
    int depth = 0;
    for (qsizetype at = 0; at < json.size(); ++at) {
        depth += json[at] == '{' || json[at] == '[' ? 1 : 0;
        depth -= json[at] == '}' || json[at] == ']' ? 1 : 0;
        if (json[at] != '"')
            continue;
        const qsizetype end = endOfString(json, at);
        const QByteArrayView text = json.sliced(at, end - at);
        at = end - 1;
        if (depth != insideOfAnObject || !isKey(json.sliced(end)))
            continue;
        const QByteArray string = text.toByteArray();
        if (known.contains(string))
            continue;
        known.insert(string);
        const QString key = QJsonDocument::fromJson("[" + string + "]").array().first().toString();
        if (!keys.contains(key))
            keys.append(key);
    }
    return keys;
}

ReadRecords ofOurs(const QJsonArray &array)
{
    ReadRecords read;
    read.count = array.size();
    qsizetype width = 0;
    for (const QJsonValue &element : array) {
        for (const QJsonValue &name : element.toObject().value(fieldNamesKey).toArray())
            read.fieldNames.append(name.toString());
        width = std::max<qsizetype>(width, element.toObject().value(valuesKey).toArray().size());
        if (const QString name = element.toObject().value(u"textName"_s).toString(); !name.isEmpty())
            read.textName = name;
    }
    while (read.fieldNames.size() < width)
        read.fieldNames.append(QString::number(read.fieldNames.size() + 1));
    read.make = [array](const RecordsGoal &goal, Progress &progress) {
        return batchOfEach(array, goal, progress, [&goal](const QJsonValue &element, RecordData &record) {
            const QJsonObject object = element.toObject();
            takeBookkeeping(object, record);
            takeValues(object.value(valuesKey).toArray(), goal.fields, record);
        });
    };
    return read;
}

ReadRecords ofOthers(const QJsonArray &array, const QStringList &keys)
{
    ReadRecords read;
    read.count = array.size();
    read.fieldNames = keys;
    read.make = [array, keys](const RecordsGoal &goal, Progress &progress) {
        return batchOfEach(array, goal, progress, [&](const QJsonValue &element, RecordData &record) {
            const QJsonObject object = element.toObject();
            for (qsizetype i = 0; i < std::min(keys.size(), goal.fields.size()); ++i) {
                const QJsonValue value = object.value(keys[i]);
                if (!value.isNull() && !value.isUndefined())
                    record.setFieldValue(singleLineFieldText(textOf(value)), goal.fields[i]);
            }
        });
    };
    return read;
}

} // namespace

QJsonObject jsonOfState(const RecordView &record)
{
    const auto iso = [](Date date) { return QString::fromLatin1(plist::formatDate(date)); };
    return {{u"locked"_s, record.recordLocked()},
            {u"needsSync"_s, record.needsSync()},
            {u"isSum"_s, record.isSum()},
            {u"created"_s, iso(record.createdDate())},
            {u"modified"_s, iso(record.modifiedDate())},
            {u"viewed"_s, iso(record.viewedDate())}};
}

QJsonObject jsonOfRecord(const ExportedRecords &records, qsizetype index)
{
    const RecordView record = records.record(index);
    QJsonArray values;
    for (const FieldKey &key : records.keys()) {
        const TextView value = record.fieldValue(key);
        values.append(value.isAbsent() ? QJsonValue(u""_s) : QJsonValue(value.toString()));
    }
    QJsonObject object = jsonOfState(record);
    object.insert(u"identifier"_s, record.value(RecordKey::identifier).toText());
    object.insert(u"selected"_s, true);
    object.insert(u"createdBy"_s, record.createdBy());
    object.insert(u"modifiedBy"_s, record.modifiedBy());
    object.insert(u"viewedBy"_s, record.viewedBy());
    object.insert(u"name"_s, record.name());
    object.insert(valuesKey, values);
    object.insert(u"text"_s, record.textString().toString());
    if (const QByteArray rtfd = record.textRTFD(); !rtfd.isEmpty())
        object.insert(rtfdKey, QString::fromLatin1(rtfd.toBase64()));
    return object;
}

void takeBookkeeping(const QJsonObject &object, RecordData &record)
{
    const auto text = [&object](const QString &key, const std::function<void(const QString &)> &take) {
        if (object.value(key).isString())
            take(object.value(key).toString());
    };
    const auto date = [&](const QString &key, const std::function<void(Date)> &take) {
        const QDateTime read = QDateTime::fromString(object.value(key).toString(), Qt::ISODate);
        if (read.isValid())
            take(Date::fromDateTime(read));
    };
    text(u"identifier"_s, [&](const QString &value) { record.setIdentifier(value); });
    text(u"name"_s, [&](const QString &value) { record.setName(value); });
    text(u"createdBy"_s, [&](const QString &value) { record.setCreatedBy(value); });
    text(u"modifiedBy"_s, [&](const QString &value) { record.setModifiedBy(value); });
    text(u"viewedBy"_s, [&](const QString &value) { record.setViewedBy(value); });
    text(u"text"_s, [&](const QString &value) { record.setTextString(value); });
    text(rtfdKey,
         [&](const QString &value) { record.setTextRTFD(QByteArray::fromBase64(value.toLatin1())); });
    date(u"created"_s, [&](Date value) { record.setCreatedDate(value); });
    date(u"modified"_s, [&](Date value) { record.setModifiedDate(value); });
    date(u"viewed"_s, [&](Date value) { record.setViewedDate(value); });
    record.setRecordLocked(object.value(u"locked"_s).toBool(record.recordLocked()));
    record.setNeedsSync(object.value(u"needsSync"_s).toBool(record.needsSync()));
    record.setIsSum(object.value(u"isSum"_s).toBool(record.isSum()));
}

Result<> exportJson(const ExportedRecords &records, const QString &path, Progress &progress)
{
    return writeText(path, false, [&](TextSink &sink) -> Result<> {
        sink.append(QByteArrayView("["));
        const auto writeRecord = [&](qsizetype index) {
            QJsonObject object = jsonOfRecord(records, index);
            object.insert(u"number"_s, qint64(index + 1));
            if (index == 0) {
                QJsonArray names;
                for (const FieldDefinition &field : records.fields())
                    names.append(field.name());
                object.insert(fieldNamesKey, names);
                object.insert(u"textName"_s, records.textName());
            }
            sink.append(QByteArrayView(index == 0 ? "\n" : ",\n"));
            sink.append(QByteArrayView(QJsonDocument(object).toJson(QJsonDocument::Compact)));
            return sink.outcome();
        };
        if (Result<> written = forEachRecord(records, progress, writeRecord); !written)
            return written;
        sink.append(QByteArrayView("\n]\n"));
        return {};
    });
}

Result<ReadRecords> readJson(QByteArrayView bytes)
{
    QJsonParseError error;
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray::fromRawData(bytes.data(), bytes.size()), &error);
    if (error.error != QJsonParseError::NoError)
        return noJson(u"%1 at byte %2"_s.arg(error.errorString(), QString::number(error.offset)));
    if (!document.isArray())
        return noJson(u"not an array"_s);
    const QJsonArray array = document.array();
    for (const QJsonValue &element : array) {
        if (!element.isObject())
            return noJson(u"an element is no object"_s);
    }
    const bool isOurs = !array.isEmpty() && array.first().toObject().value(valuesKey).isArray();
    return isOurs ? ofOurs(array) : ofOthers(array, keysOf(bytes));
}

} // namespace tavrin

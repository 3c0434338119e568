// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-find FILE ROUNDS NOWHERE RARE: finds a word that is nowhere and one that is in few records,
// among all records of the datafile; prints names and medians. Beside it the least that it could cost.
// tavrin-bench-find --texts FILE: prints the texts, a record a line, with tabs between them.

#include "Measure.h"
#include "document/DatafileDocument.h"
#include "search/DatafileSearch.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

using namespace tavrin;
using namespace Qt::StringLiterals;

using Document = std::unique_ptr<DatafileDocument>;

Document opened(const QString &path)
{
    const DocumentServices services{Environment::system(), nullptr};
    auto document = DatafileDocument::open(services, path, SelectionOnOpening::AllSelected);
    if (!document) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(document.error().message));
        return nullptr;
    }
    return std::move(*document);
}

QByteArrayView between(QByteArrayView text, QByteArrayView start, QByteArrayView end)
{
    const qsizetype from = text.indexOf(start);
    const qsizetype to = from < 0 ? -1 : text.indexOf(end, from);
    return to < 0 ? QByteArrayView() : text.sliced(from, to - from);
}

/// Where the texts lie in the datafile: of each record the fields and the plain text.
std::vector<QByteArrayView> placesOfTexts(const RecordsSnapshot &records)
{
    std::vector<QByteArrayView> places;
    for (const RecordsSnapshot::Entry &entry : records.entries) {
        places.push_back(between(records.xml(entry), "<key>Fields</key>", "</dict>"));
        places.push_back(between(records.xml(entry), "<key>TextString</key>", "</string>"));
    }
    return places;
}

quint64 sumOf(QByteArrayView bytes)
{
    quint64 sum = 0;
    qsizetype at = 0;
    for (; at + qsizetype(sizeof(sum)) <= bytes.size(); at += qsizetype(sizeof(sum))) {
        quint64 word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof(word));
        sum += word;
    }
    for (; at < bytes.size(); ++at)
        sum += static_cast<uchar>(bytes[at]);
    return sum;
}

QStringList textsOf(const RecordView &record, const QList<FieldDefinition> &fields)
{
    QStringList texts;
    for (const FieldDefinition &field : fields)
        texts.append(record.fieldValue(field.identifier()).toString());
    texts.append(record.textString().toString());
    for (QString &text : texts)
        text.replace(u'\n', u' ');
    return texts;
}

int printTexts(const QString &path)
{
    const Document document = opened(path);
    if (!document)
        return EXIT_FAILURE;
    const QList<FieldDefinition> fields = document->datafileSettings().fields();
    document->datafileRecords().forEach([&](quint32, const RecordView &record) {
        std::puts(textsOf(record, fields).join(u'\t').toUtf8().constData());
    });
    return EXIT_SUCCESS;
}

int find(const QString &path, int rounds, const QString &nowhere, const QString &rare)
{
    const Document document = opened(path);
    if (!document)
        return EXIT_FAILURE;
    const RecordsSnapshot snapshot = document->datafileRecords().snapshot();
    const std::vector<QByteArrayView> places = placesOfTexts(snapshot);
    QByteArray together;
    const QList<FieldDefinition> fields = document->datafileSettings().fields();
    document->datafileRecords().forEach(
        [&](quint32, const RecordView &record) { together += textsOf(record, fields).join(u'\t').toUtf8(); });

    quint64 sum = 0;
    const auto passOverPlaces = [&] {
        for (const QByteArrayView place : places)
            sum += sumOf(place);
        return sum != 0;
    };
    const auto passOverTexts = [&] {
        sum += sumOf(together);
        return sum != 0;
    };
    const DatafileSearch search(*document, {}, FieldsToSearchIn::everything);
    Progress progress;
    const auto count = [&](const QString &key) {
        qint64 records = 0;
        search.forEachRecordHolding({key}, progress, [&records](qint64, const RecordView &) { ++records; });
        return records;
    };
    const bool timed = bench::timeInTurn(rounds,
                                         {{"places", passOverPlaces},
                                          {"texts", passOverTexts},
                                          {"nowhere", [&] { return count(nowhere) == 0; }},
                                          {"rare", [&] { return count(rare) > 0; }}});
    qint64 size = 0;
    for (const QByteArrayView place : places)
        size += place.size();
    std::printf("sizes %lld %lld\n", static_cast<long long>(size), static_cast<long long>(together.size()));
    return timed ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char **argv)
{
    const QList<QByteArray> arguments(argv + 1, argv + argc);
    if (arguments.size() == 2 && arguments[0] == "--texts")
        return printTexts(QFile::decodeName(arguments[1]));
    if (arguments.size() != 4) {
        std::fputs("tavrin-bench-find FILE ROUNDS NOWHERE RARE | --texts FILE\n", stderr);
        return 2;
    }
    return find(QFile::decodeName(arguments[0]),
                arguments[1].toInt(),
                QString::fromUtf8(arguments[2]),
                QString::fromUtf8(arguments[3]));
}

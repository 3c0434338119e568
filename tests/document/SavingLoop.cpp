// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// Saves a datafile of some 300 KB for ever, with two contents in turn, until it is killed; kill-saving.sh
// kills it.
//
//   SavingLoop --make FILE OTHER   makes the datafile with the one content and with the other
//   SavingLoop --check FILE        exit code 0 when the file is one of the two contents, whole
//   SavingLoop FILE                saves once with each content, prints how many milliseconds the two took,
//                                  and goes on

#include "document/DatafileDocument.h"

#include <QElapsedTimer>
#include <QFile>

#include <cstdio>

using namespace tavrin;
using namespace Qt::StringLiterals;

namespace {

constexpr int recordCount = 300;

/// The two contents differ in length, so that one that overlays the other shows.
QString textOf(int record, int content)
{
    const QString unit = content == 0 ? u"even "_s : u"odd and longer "_s;
    return u"record %1: "_s.arg(record) + unit.repeated(content == 0 ? 100 : 50);
}

int fail(const QString &reason)
{
    std::fprintf(stderr, "%s\n", qPrintable(reason));
    return 1;
}

void fill(DatafileDocument &document, int content)
{
    for (int i = 0; i < recordCount; ++i)
        document.storeText(document.datafileCatalog().identifierAtIndex(i), textOf(i, content));
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
}

int make(const DocumentServices &services, const QString &path, const QString &otherPath)
{
    const auto document = DatafileDocument::newDocument(services, DatafileKind::Pro);
    for (int i = 0; i < recordCount; ++i)
        document->addRecord({});
    fill(*document, 1);
    if (const Result<> copied = document->saveCopyAs(otherPath); !copied)
        return fail(copied.error().message);
    fill(*document, 0);
    const DatafileDocument::SaveAsOutcome outcome = document->saveDocumentAs(path);
    return outcome.written ? 0 : fail(outcome.failureReason);
}

int check(const DatafileDocument &document)
{
    const auto textAt = [&document](int index) {
        const QString identifier = document.datafileCatalog().identifierAtIndex(index);
        const RecordData *record = document.datafileRecords().recordForIdentifier(identifier);
        return record ? record->textString() : QString();
    };
    if (document.catalogMismatch() || document.datafileCatalog().count() != recordCount)
        return fail(u"records are missing"_s);
    const int content = textAt(0) == textOf(0, 0) ? 0 : 1;
    for (int i = 0; i < recordCount; ++i) {
        if (textAt(i) != textOf(i, content))
            return fail(u"record %1 is not of the content that record 0 is of"_s.arg(i));
    }
    return 0;
}

int saveForEver(DatafileDocument &document)
{
    QElapsedTimer clock;
    clock.start();
    for (int saves = 1;; ++saves) {
        fill(document, saves % 2);
        if (const auto saved = document.saveDocument(); !saved)
            return fail(saved.error().message + u' ' + saved.error().detail);
        if (saves == 2) {
            std::printf("%lld\n", static_cast<long long>(clock.elapsed()));
            std::fflush(stdout);
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    const DocumentServices services{Environment::system(), nullptr};
    const QString path = QFile::decodeName(argc > 1 ? argv[argc - 1] : "");
    const QByteArray command = argc > 2 ? argv[1] : "";
    if (argc == 4 && command == "--make")
        return make(services, QFile::decodeName(argv[2]), path);
    const bool checks = argc == 3 && command == "--check";
    if (argc != 2 && !checks)
        return fail(u"usage: SavingLoop [--make FILE | --check] FILE"_s);
    const auto document = DatafileDocument::open(services, path, SelectionOnOpening::AsStored);
    if (!document)
        return fail(document.error().message + u' ' + document.error().detail);
    return checks ? check(**document) : saveForEver(**document);
}

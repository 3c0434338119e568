// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-records FILE ROUNDS: adding, deleting, duplicating and removing duplicates in a datafile, and
// filling a field in all records. Prints names and medians. "hash-set" is the least that finding duplicates
// among the same bytes can cost: a set of them, one entry a record; "hash" is ours.

#include "Measure.h"
#include "document/DatafileDocument.h"
#include "document/DuplicateRemoval.h"
#include "document/FieldCommands.h"
#include "document/RecordAdding.h"
#include "document/RecordOperations.h"
#include "document/UndoHistory.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unordered_set>

namespace {

using namespace tavrin;
using namespace Qt::StringLiterals;

/// So many of each are done to single records, which are spread over the datafile.
constexpr qint64 singles = 1000;

class Records
{
public:
    explicit Records(DatafileDocument &document) : g_document(document)
    {
        const StoredTexts texts(document.datafileRecords(), document.datafileSettings());
        std::vector<RecordTextReader> readers;
        for (const QString &field : texts.fieldIdentifiers())
            readers.push_back(texts.fieldReader(field));
        readers.push_back(texts.textReader());
        QString buffer;
        for (const quint32 record : document.datafileCatalog().catalogRecords().records) {
            std::string bytes;
            for (const RecordTextReader &reader : readers)
                bytes += reader(record, buffer).toString().toStdString() + '\t';
            g_bytes.push_back(std::move(bytes));
        }
    }

    bool time(int rounds)
    {
        const auto undo = [this] {
            while (g_document.undoHistory().canUndo())
                g_document.undoHistory().undo();
            return true;
        };
        return bench::timeInTurn(rounds,
                                 {{"hash-set", [this] { return hashSet(); }},
                                  {"hash", [this] { return findDuplicates(); }},
                                  {"add-1000", [this] { return add(); }, undo},
                                  {"duplicate-1000", [this] { return duplicate(); }, undo},
                                  {"delete-1000", [this] { return remove(); }, undo},
                                  {"undo-deleting-half", undo, [this] { return removeHalf(); }},
                                  {"find-empty", [this] { return findEmpty(); }, undo}});
    }

private:
    QString identifierAt(qint64 single) const
    {
        const SubsetSortedData &catalog = g_document.datafileCatalog();
        return catalog.identifierAtIndex(single * catalog.count() / singles);
    }

    bool hashSet() const
    {
        std::unordered_set<std::string_view> set;
        set.reserve(g_bytes.size());
        for (const std::string &bytes : g_bytes)
            set.insert(bytes);
        return !set.empty();
    }

    bool findDuplicates()
    {
        DuplicateRemoval removal(g_document, DuplicateRemoval::Compare::RichTexts);
        Progress progress;
        removal.run(progress);
        return !removal.wasCancelled();
    }

    bool add()
    {
        RecordAdding adding(g_document);
        for (qint64 i = 0; i < singles; ++i)
            adding.addRecord(identifierAt(i));
        return true;
    }

    bool duplicate()
    {
        RecordAdding adding(g_document);
        for (qint64 i = 0; i < singles; ++i)
            adding.duplicateRecord(identifierAt(i));
        return true;
    }

    bool remove()
    {
        RecordOperations operations(g_document);
        for (qint64 i = singles - 1; i >= 0; --i) {
            if (!operations.deleteRecords({identifierAt(i)}))
                return false;
        }
        return true;
    }

    bool removeHalf()
    {
        SubsetSortedData &catalog = g_document.datafileCatalog();
        std::vector<bool> states(static_cast<size_t>(catalog.count()));
        for (size_t i = 0; i < states.size(); i += 2)
            states[i] = true;
        return catalog.setFindSelection(states)
               && RecordOperations(g_document).deleteAllSelected().has_value();
    }

    bool findEmpty()
    {
        FillEmptyFields::Filling filling{{}, u"x"_s, {}};
        for (const FieldDefinition &field : g_document.datafileSettings().fields())
            filling.fields.append(field.identifier());
        FillEmptyFields work(g_document, filling);
        Progress progress;
        work.run(progress);
        return !work.wasCancelled();
    }

    DatafileDocument &g_document;
    std::vector<std::string> g_bytes;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: tavrin-bench-records FILE ROUNDS\n");
        return 2;
    }
    const DocumentServices services{Environment::system(), nullptr};
    auto document =
        DatafileDocument::open(services, QFile::decodeName(argv[1]), SelectionOnOpening::AllSelected);
    if (!document) {
        std::fprintf(stderr, "%s: %s\n", argv[1], qPrintable(document.error().message));
        return 1;
    }
    return Records(**document).time(std::atoi(argv[2])) ? 0 : 1;
}

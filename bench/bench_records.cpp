// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-records FILE ROUNDS: adding, deleting, duplicating and removing duplicates in a datafile, and
// filling a field in all records. Prints names and medians. "hash-set" is the least that finding duplicates
// among the same bytes can cost: a set of them, one entry a record; "hash" is ours. What holds up a window is
// "begin-" before other threads work, and "conclude-" after many records were changed bit by bit.

#include "Measure.h"
#include "document/DatafileDocument.h"
#include "document/DuplicateRemoval.h"
#include "document/FieldCommands.h"
#include "document/RecordAdding.h"
#include "document/RecordLocking.h"
#include "document/RecordOperations.h"
#include "document/UndoHistory.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unordered_set>
#include <utility>

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
        const auto selectAll = [this] {
            g_document.datafileCatalog().selectAll();
            return true;
        };
        return bench::timeInTurn(
            rounds,
            {{"hash-set", [this] { return hashSet(); }},
             {"hash", [this] { return findDuplicates(); }, selectAll},
             {"begin-hash", [this] { return beginHash(); }, selectAll},
             {"begin-locking", [this] { return beginLocking(); }},
             {"conclude-deleting-half",
              [this] { return concludeRemoval(); },
              [this] { return removeHalfInParts(); }},
             {"add-1000", [this] { return add(); }, [this] { return takeBackRemoval(); }},
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

    bool beginHash() const
    {
        return DuplicateRemoval(g_document, DuplicateRemoval::Compare::RichTexts).duplicates().empty();
    }

    bool beginLocking() const { return !RecordLocking(g_document, RecordLocking::Kind::Lock).wasCancelled(); }

    /// All but the end of it.
    bool removeHalfInParts()
    {
        if (!selectHalf())
            return false;
        const RecordOperations operations(g_document);
        g_removal = *operations.deletionOf(operations.selectedRecords());
        g_removal->begin(g_document);
        g_removal->makeParts(g_document, 0, g_removal->partCount());
        return true;
    }

    bool concludeRemoval()
    {
        g_removal->conclude(g_document);
        return true;
    }

    bool takeBackRemoval()
    {
        g_removal->exchange(g_document);
        return true;
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

    bool selectHalf()
    {
        SubsetSortedData &catalog = g_document.datafileCatalog();
        std::vector<bool> states(static_cast<size_t>(catalog.count()));
        for (size_t i = 0; i < states.size(); i += 2)
            states[i] = true;
        return catalog.setFindSelection(states);
    }

    bool removeHalf() { return selectHalf() && RecordOperations(g_document).deleteAllSelected().has_value(); }

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
    std::unique_ptr<SteppedChange> g_removal;
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

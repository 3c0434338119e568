// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/DuplicateRemoval.h"

#include "base/Parallel.h"
#include "document/DatafileDocument.h"
#include "document/RecordChanges.h"
#include "document/RecordHash.h"
#include "richtext/Rtfd.h"
#include "sorting/WorkSteps.h"

#include <algorithm>
#include <atomic>
#include <bit>

namespace tavrin {

namespace {

bool isSame(const TextView &one, const TextView &other)
{
    if (one.form() == TextView::Form::Utf8 && other.form() == TextView::Form::Utf8)
        return one.bytes() == other.bytes();
    const QString text = one.toString();
    const QString otherText = other.toString();
    return text == otherText || (text.isEmpty() && otherText.isEmpty());
}

/// Whether rich texts say the same, when both are there.
bool isSameRichText(const QByteArray &one, const QByteArray &other)
{
    if (one.isEmpty() || other.isEmpty() || one == other)
        return true;
    const auto text = richtext::readRichText(one);
    const auto otherText = richtext::readRichText(other);
    // What cannot be read might say anything.
    return text && otherText && text->text() == otherText->text();
}

} // namespace

DuplicateRemoval::DuplicateRemoval(const DatafileDocument &document, Compare compare)
    : g_compare(compare)
    , g_texts(document.datafileRecords(), document.datafileSettings())
    , g_watch(document)
{
    QStringList fields = g_texts.fieldIdentifiers();
    fields.removeDuplicates();
    g_fields.assign(fields.begin(), fields.end());
    const SubsetSortedData &catalog = document.datafileCatalog();
    std::vector<bool> isPresent(document.datafileRecords().identifiers().count());
    document.datafileRecords().forEach(
        [&isPresent](quint32 record, const RecordView &) { isPresent[record] = true; });
    g_records.reserve(static_cast<size_t>(catalog.countSelected()));
    for (const quint32 record : catalog.selectedNumbers(0, catalog.countSelected())) {
        if (record >= isPresent.size() || !isPresent[record]) // An entry may name no record.
            continue;
        g_records.push_back(record);
        isPresent[record] = false; // A record that is listed twice is no duplicate of itself.
    }
}

void DuplicateRemoval::run(Progress &progress)
{
    if (hash(progress))
        group();
    else
        g_wasCancelled = true;
}

bool DuplicateRemoval::hash(Progress &progress)
{
    g_hashes.resize(g_records.size());
    const auto parts = static_cast<size_t>(parallelParts());
    const auto startOf = [&](size_t part) { return g_records.size() * part / parts; };
    WorkSteps steps(progress, startOf(1));
    std::atomic<bool> isStopped = false;
    inParallel(static_cast<int>(parts), [&](int number) {
        const auto part = static_cast<size_t>(number);
        // The first part is done by whoever waits for all of them, and speaks for them.
        hashPart(startOf(part), startOf(part + 1), [&, isFirst = part == 0] {
            if (isFirst && !steps.goOn())
                isStopped = true;
            return !isStopped;
        });
    });
    return !isStopped;
}

void DuplicateRemoval::hashPart(size_t from, size_t to, const std::function<bool()> &goOn)
{
    const RecordHash hashOf(g_fields);
    for (size_t i = from; i < to && goOn(); ++i)
        g_hashes[i] = hashOf(g_texts.view(g_records[i]));
}

void DuplicateRemoval::group()
{
    constexpr quint32 none = 0xffffffff;
    const size_t size = std::bit_ceil(g_records.size() * 2 + 1);
    std::vector<quint32> table(size, none); // The places in g_records of those that stay.
    for (quint32 i = 0; i < g_records.size(); ++i) {
        size_t slot = g_hashes[i] & (size - 1);
        while (table[slot] != none
               && !(g_hashes[table[slot]] == g_hashes[i] && areEqual(g_records[table[slot]], g_records[i])))
            slot = (slot + 1) & (size - 1);
        if (table[slot] == none)
            table[slot] = i;
        else
            g_duplicates.push_back(g_records[i]);
    }
}

bool DuplicateRemoval::areEqual(quint32 one, quint32 other) const
{
    const RecordView record = g_texts.view(one);
    const RecordView otherRecord = g_texts.view(other);
    return isSame(record.textString(), otherRecord.textString())
           && std::ranges::all_of(g_fields,
                                  [&](const FieldKey &field) {
                                      return isSame(record.fieldValue(field), otherRecord.fieldValue(field));
                                  })
           && (g_compare == Compare::PlainTexts || isSameRichText(record.textRTFD(), otherRecord.textRTFD()));
}

std::unique_ptr<SteppedChange> DuplicateRemoval::change(const DatafileDocument &document) const
{
    std::vector<quint32> present = g_duplicates;
    std::erase_if(present, [&document](quint32 record) { return !document.datafileRecords().view(record); });
    if (g_wasCancelled || present.empty())
        return nullptr;
    return PresenceChange::toRemove(std::move(present), tr("Remove Duplicate Records"));
}

QStringList DuplicateRemoval::apply(DatafileDocument &document) const
{
    std::unique_ptr<SteppedChange> change = this->change(document);
    if (!change)
        return {};
    QStringList identifiers;
    for (const quint32 record : g_duplicates) {
        if (document.datafileRecords().view(record))
            identifiers.append(document.datafileRecords().identifiers().text(record));
    }
    change->exchange(document);
    document.undoHistory().push(std::move(change));
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    return identifiers;
}

} // namespace tavrin

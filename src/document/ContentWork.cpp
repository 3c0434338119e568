// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/ContentWork.h"

#include "document/DatafileDocument.h"
#include "model/FieldText.h"
#include "sorting/WorkSteps.h"

#include <algorithm>
#include <utility>

namespace tavrin {

namespace {

/// The line of a text in which a place is; empty behind its end.
QString lineAt(QStringView text, qsizetype place)
{
    if (place > text.size())
        return {};
    const qsizetype start = place == 0 ? 0 : text.lastIndexOf(u'\n', place - 1) + 1;
    const qsizetype end = text.indexOf(u'\n', place);
    return text.sliced(start, (end < 0 ? text.size() : end) - start).toString();
}

/// The first line in which two texts differ, in one and in the other.
std::pair<QString, QString> differingLines(QStringView before, QStringView after)
{
    const qsizetype place = std::ranges::mismatch(before, after).in1 - before.begin();
    std::pair<QString, QString> lines{lineAt(before, place), lineAt(after, place)};
    if (lines.first == lines.second) // Lines came behind it, or went.
        return {lineAt(before, place + 1), lineAt(after, place + 1)};
    if (const qsizetype end = before.indexOf(u'\n', place);
        end >= 0 && lines.second == lineAt(before, end + 1))
        lines.second.clear(); // The line went, and the next one stands there now.
    return lines;
}

} // namespace

ContentWork::ContentWork(const DatafileDocument &document, const QString &name)
    : g_name(name)
    , g_texts(document.datafileRecords(), document.datafileSettings())
    , g_watch(document)
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    g_records = catalog.selectedNumbers(0, catalog.countSelected());
    std::erase_if(g_records, [this](quint32 record) { return !g_texts.contains(record); });
}

ContentWork::~ContentWork() = default;

void ContentWork::restrictTo(quint32 record)
{
    std::erase_if(g_records, [record](quint32 other) { return other != record; });
}

void ContentWork::run(Progress &progress)
{
    WorkSteps steps(progress, g_records.size());
    for (const quint32 record : g_records) {
        if (!steps.goOn())
            break;
        take(record);
    }
    g_wasCancelled = steps.isStopped();
}

void ContentWork::take(quint32 number)
{
    const RecordView record = g_texts.view(number);
    if (!mayConcern(record))
        return;
    if (record.recordLocked()) {
        ++g_lockedRecords;
        return;
    }
    Change changed{number, {}, {}};
    change(record, changed);
    if (changed.isEmpty())
        return;
    if (g_samples.size() < mostSamples)
        takeSamples(record, changed);
    g_changedContents += changed.fields.size() + (changed.text ? 1 : 0);
    ++g_changedRecords;
    g_changes.push_back(std::move(changed));
}

void ContentWork::takeSamples(const RecordView &record, const Change &changed)
{
    for (const auto &[field, content] : changed.fields)
        g_samples.push_back({changed.number, field, record.fieldValue(field).toString(), content});
    if (!changed.text)
        return;
    const auto [before, after] = differingLines(record.textString().toString(), changed.text->plain);
    if (before != after)
        g_samples.push_back({changed.number, {}, before, after});
}

void ContentWork::setField(const QString &field, const QString &before, const QString &after, Change &change)
{
    const QString cleaned = singleLineFieldText(after);
    if (cleaned == before)
        return;
    change.fields.append({field, cleaned});
}

bool ContentWork::setText(const std::optional<RecordText> &text, Change &change)
{
    if (text) {
        change.text = text;
        return true;
    }
    ++g_leftRecords;
    change.fields.clear();
    change.text.reset();
    return false;
}

Result<std::unique_ptr<SteppedChange>> ContentWork::takeChange(DatafileDocument &document)
{
    if (g_wasCancelled)
        return Error{Error::Kind::Cancelled, tr("The work was cancelled."), {}};
    if (g_watch.hasChanged())
        return Error{Error::Kind::Refused, tr("The records have changed meanwhile."), {}};
    if (!isWorthwhile())
        return std::unique_ptr<SteppedChange>();
    g_watch.stop();
    return changeOf(document, g_name, std::exchange(g_changes, {}));
}

Result<bool> ContentWork::apply(DatafileDocument &document)
{
    Result<std::unique_ptr<SteppedChange>> change = takeChange(document);
    if (!change)
        return change.error();
    if (!*change)
        return false;
    (*change)->exchange(document);
    document.undoHistory().push(*std::move(change));
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    return true;
}

std::unique_ptr<SteppedChange>
ContentWork::changeOf(DatafileDocument & /*document*/, const QString &name, std::vector<Change> changes)
{
    return std::make_unique<ContentChange>(name, std::move(changes));
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/ContentWork.h"

#include "document/DatafileDocument.h"
#include "model/FieldText.h"
#include "sorting/WorkSteps.h"

#include <utility>

namespace tavrin {

ContentWork::ContentWork(const DatafileDocument &document, const QString &name)
    : g_name(name)
    , g_environment(document.services().environment)
    , g_texts(document.datafileRecords(), document.datafileSettings())
{
    const SubsetSortedData &catalog = document.datafileCatalog();
    g_records = catalog.selectedNumbers(0, catalog.countSelected());
    QObject::connect(&document, &DatafileDocument::changed, &g_watch, [this] { g_isStale = true; });
}

ContentWork::~ContentWork() = default;

void ContentWork::restrictTo(quint32 record)
{
    std::erase_if(g_records, [record](quint32 other) { return other != record; });
}

void ContentWork::run(Progress &progress)
{
    // Here, where nobody waits for it.
    std::erase_if(g_records, [this](quint32 record) { return !g_texts.contains(record); });
    WorkSteps steps(progress, g_records.size());
    for (const quint32 record : g_records) {
        if (!steps.goOn())
            break;
        take(record);
    }
    g_wasCancelled = steps.isStopped();
}

void ContentWork::prepare(Progress &progress)
{
    WorkSteps steps(progress, g_changes.size());
    for (Change &change : g_changes) {
        if (!steps.goOn())
            break;
        change.makeReady(g_texts.view(change.number), g_environment);
    }
    g_wasCancelled = g_wasCancelled || steps.isStopped();
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
    g_changedContents += changed.fields.size() + (changed.text ? 1 : 0);
    ++g_changedRecords;
    g_changes.push_back(std::move(changed));
}

void ContentWork::setField(const QString &field, const QString &before, const QString &after, Change &change)
{
    const QString cleaned = singleLineFieldText(after);
    if (cleaned == before)
        return;
    if (g_samples.size() < mostSamples)
        g_samples.push_back({change.number, before, cleaned});
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

Result<bool> ContentWork::apply(DatafileDocument &document)
{
    if (g_wasCancelled)
        return Error{Error::Kind::Cancelled, tr("The work was cancelled."), {}};
    if (g_isStale)
        return Error{Error::Kind::Refused, tr("The records have changed meanwhile."), {}};
    if (!isWorthwhile())
        return false;
    g_watch.disconnect();
    document.undoHistory().push(applied(document, g_name, std::exchange(g_changes, {})));
    document.updateChangeCount(DatafileDocument::ChangeCount::Done);
    return true;
}

std::unique_ptr<UndoStep>
ContentWork::applied(DatafileDocument &document, const QString &name, std::vector<Change> changes)
{
    auto change = std::make_unique<ContentChange>(name, std::move(changes));
    change->exchange(document);
    return change;
}

} // namespace tavrin

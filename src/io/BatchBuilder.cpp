// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/BatchBuilder.h"

#include "model/ValueRecords.h"

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

bool isUsual(const QString &identifier)
{
    return identifier.size() == identifierSize && identifier.toLatin1() == identifier.toUtf8();
}

} // namespace

BatchBuilder::BatchBuilder(const Environment &environment)
    : g_environment(environment)
    , g_pattern(environment)
{
    g_pattern.modified(environment);
    g_pattern.setIdentifier(u""_s);
}

RecordData BatchBuilder::newRecord() const
{
    return g_pattern;
}

void BatchBuilder::add(RecordData record)
{
    if (!isUsual(record.identifier()) || g_taken.contains(record.identifier())) {
        const Result<SharedBytes> fresh = newIdentifiers(1, g_environment);
        record.setIdentifier(fresh ? QString::fromLatin1(fresh->view()) : g_environment.identifier());
    }
    g_taken.insert(record.identifier());
    g_identifiers.append(record.identifier().toLatin1());
    g_records.push_back(record.dictionary());
}

Result<RecordBatch> BatchBuilder::finish()
{
    const Result<SharedBytes> identifiers = SharedBytes::copyOf(g_identifiers);
    if (!identifiers)
        return identifiers.error();
    return RecordBatch{std::make_shared<const ValueRecords>(std::move(g_records)), *identifiers};
}

} // namespace tavrin

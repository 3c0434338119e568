// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/JoinedRecords.h"

namespace tavrin {

std::shared_ptr<const RecordSource> JoinedRecords::join(const std::shared_ptr<const RecordSource> &first,
                                                        const std::shared_ptr<const RecordSource> &second)
{
    const auto joined = std::make_shared<JoinedRecords>();
    joined->add(first);
    joined->add(second);
    return joined;
}

void JoinedRecords::add(const std::shared_ptr<const RecordSource> &source)
{
    if (const auto *joined = dynamic_cast<const JoinedRecords *>(source.get())) {
        for (const Part &part : joined->g_parts)
            add(part.source);
        return;
    }
    const quint32 start = g_parts.empty() ? 0 : count();
    g_parts.push_back({source, start, start + source->count()});
}

const JoinedRecords::Part &JoinedRecords::partOf(quint32 place) const
{
    auto part = g_parts.begin();
    while (place >= part->end)
        ++part;
    return *part;
}

bool JoinedRecords::needsOpening(quint32 place) const
{
    const Part &part = partOf(place);
    return part.source->needsOpening(place - part.start);
}

plist::Dictionary JoinedRecords::dictionary(quint32 place) const
{
    const Part &part = partOf(place);
    return part.source->dictionary(place - part.start);
}

plist::Value JoinedRecords::value(quint32 place, const QString &key) const
{
    const Part &part = partOf(place);
    return part.source->value(place - part.start, key);
}

TextView JoinedRecords::fieldValue(quint32 place, const FieldKey &field) const
{
    const Part &part = partOf(place);
    return part.source->fieldValue(place - part.start, field);
}

TextView JoinedRecords::textString(quint32 place) const
{
    const Part &part = partOf(place);
    return part.source->textString(place - part.start);
}

bool JoinedRecords::visitFields(quint32 place, const FieldVisitor &visitor) const
{
    const Part &part = partOf(place);
    return part.source->visitFields(place - part.start, visitor);
}

bool JoinedRecords::mayHold(quint32 place, const text::TextSieve &sieve) const
{
    const Part &part = partOf(place);
    return part.source->mayHold(place - part.start, sieve);
}

void JoinedRecords::fetch(quint32 place) const
{
    const Part &part = partOf(place);
    part.source->fetch(place - part.start);
}

QByteArrayView JoinedRecords::xml(quint32 place) const
{
    const Part &part = partOf(place);
    return part.source->xml(place - part.start);
}

void JoinedRecords::writeElement(quint32 place, plist::XmlWriter &writer) const
{
    const Part &part = partOf(place);
    writeRecordElement(*part.source, place - part.start, writer);
}

} // namespace tavrin

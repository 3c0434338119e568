// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/ElementSource.h"

#include <memory>
#include <vector>

namespace tavrin {

/// The records of several sources, those of one behind those of the other.
class JoinedRecords : public ElementSource
{
public:
    /// Neither is null. Joining joined ones makes no deeper nest.
    static std::shared_ptr<const RecordSource> join(const std::shared_ptr<const RecordSource> &first,
                                                    const std::shared_ptr<const RecordSource> &second);

    quint32 count() const override { return g_parts.back().end; }
    bool needsOpening(quint32 place) const override;
    plist::Dictionary dictionary(quint32 place) const override;
    plist::Value value(quint32 place, const QString &key) const override;
    TextView fieldValue(quint32 place, const FieldKey &field) const override;
    TextView textString(quint32 place) const override;
    bool visitFields(quint32 place, const FieldVisitor &visitor) const override;
    bool mayHold(quint32 place, const text::TextSieve &sieve) const override;
    void fetch(quint32 place) const override;
    QByteArrayView xml(quint32 place) const override;
    void writeElement(quint32 place, plist::XmlWriter &writer) const override;

private:
    struct Part
    {
        std::shared_ptr<const RecordSource> source;
        quint32 start;
        quint32 end;
    };

    void add(const std::shared_ptr<const RecordSource> &source);
    const Part &partOf(quint32 place) const;

    std::vector<Part> g_parts;
};

} // namespace tavrin

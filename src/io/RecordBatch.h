// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Environment.h"
#include "base/SharedBytes.h"
#include "model/RecordSource.h"

#include <memory>

namespace tavrin {

class DatafileDocument;

/// How many bytes of UTF-8 an identifier has.
constexpr qsizetype identifierSize = 36;

/// So many fresh identifiers, one behind the other.
///
/// They are a series that begins at one drawn from the environment, since drawing a million of them would
/// take longer than reading the records. Io when there is not so much memory.
Result<SharedBytes> newIdentifiers(quint32 count, const Environment &environment);

/// Records that are to be added to a datafile, and their identifiers in the same order.
struct RecordBatch
{
    std::shared_ptr<const RecordSource> records;
    SharedBytes identifiers;

    quint32 count() const { return records->count(); }
    QByteArrayView identifier(quint32 place) const
    {
        return identifiers.view().sliced(place * identifierSize, identifierSize);
    }
};

/// Puts the records behind the others, in the catalog too, and announces nothing. Their numbers.
std::vector<quint32> addBatch(DatafileDocument &document, const RecordBatch &batch);

} // namespace tavrin

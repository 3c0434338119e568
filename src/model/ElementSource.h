// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/RecordSource.h"

namespace tavrin {

namespace plist {
class XmlWriter;
}

/// How many containers stand around a record's element in an XML datafile.
constexpr int elementLevel = 2;

/// A source whose records do not stand in an XML datafile, but can be written into one without being made
/// values.
class ElementSource : public RecordSource
{
public:
    /// The element of a record, at elementLevel.
    virtual void writeElement(quint32 place, plist::XmlWriter &writer) const = 0;
};

/// Writes the element of a record of any source that has no xml() of it.
void writeRecordElement(const RecordSource &source, quint32 place, plist::XmlWriter &writer);

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/ElementSource.h"

#include "plist/XmlWriter.h"

namespace tavrin {

void writeRecordElement(const RecordSource &source, quint32 place, plist::XmlWriter &writer)
{
    if (const auto *elements = dynamic_cast<const ElementSource *>(&source))
        elements->writeElement(place, writer);
    else
        writer.writeValue(source.dictionary(place), elementLevel);
}

} // namespace tavrin

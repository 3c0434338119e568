// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tavrin {

class DatafileSettingsData;

/// Where in a record's text its postal address stands.
struct AddressPlace
{
    bool startsAtLineNumber; ///< Otherwise behind the marker.
    qint64 startingLine;
    QString marker;
    bool hasFixedLineCount; ///< Otherwise the address ends at an empty line.
    qint64 lineCount;

    static AddressPlace of(const DatafileSettingsData &settings);
};

/// The lines of the address, without blanks around them; empty when there is none.
QString freeformAddressBlock(QStringView text, const AddressPlace &place);

} // namespace tavrin

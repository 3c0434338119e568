// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <algorithm>
#include <array>

namespace tavrin {

/// The keys that every record has.
namespace RecordKey {
inline const QString identifier = QStringLiteral("RecordIdentifier");
inline const QString name = QStringLiteral("RecordName");
inline const QString needsSync = QStringLiteral("NeedsSync");
inline const QString isSum = QStringLiteral("IsSum");
inline const QString locked = QStringLiteral("RecordLocked");
inline const QString wasLocked = QStringLiteral("RecordWasLocked");
inline const QString createdDate = QStringLiteral("RecordCreatedDate");
inline const QString modifiedDate = QStringLiteral("RecordModifiedDate");
inline const QString viewedDate = QStringLiteral("RecordViewedDate");
inline const QString createdBy = QStringLiteral("RecordCreatedBy");
inline const QString modifiedBy = QStringLiteral("RecordModifiedBy");
inline const QString viewedBy = QStringLiteral("RecordViewedBy");
inline const QString fields = QStringLiteral("Fields");
inline const QString textString = QStringLiteral("TextString");
inline const QString textRTFD = QStringLiteral("TextRTFD");

constexpr size_t count = 15;
constexpr size_t fieldsPlace = 12;
constexpr size_t textStringPlace = 13;
inline const std::array<QString, count> all = {
    identifier,
    name,
    needsSync,
    isSum,
    locked,
    wasLocked,
    createdDate,
    modifiedDate,
    viewedDate,
    createdBy,
    modifiedBy,
    viewedBy,
    fields,
    textString,
    textRTFD,
};

/// Its place among all of them, or all.size().
inline size_t indexOf(QStringView key)
{
    return static_cast<size_t>(std::ranges::find(all, key) - all.begin());
}
} // namespace RecordKey

} // namespace tavrin

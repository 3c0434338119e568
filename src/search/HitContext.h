// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/FieldDefinition.h"
#include "search/RecordSearch.h"

#include <QString>

namespace tavrin {

/// A hit between what stands before and behind it, on one line.
struct HitContext
{
    QString text;
    text::Match hit; ///< In that text.
};

HitContext hitContext(QStringView content, const text::Match &hit);

/// What a list calls a record: what it holds in its first field that holds anything, else the first line of
/// its text.
QString recordTitle(const RecordView &record, const QList<FieldDefinition> &fields);

} // namespace tavrin

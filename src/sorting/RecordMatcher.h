// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sorting/RecordCondition.h"
#include "sorting/SubsetSortCriteriaData.h"

namespace tavrin {

/// The rule that selects records, prepared for all of them. Outlived by the texts.
class RecordMatcher
{
public:
    RecordMatcher(const SubsetSortCriteriaData &criteria,
                  const RecordTexts &texts,
                  const SelectionSettings &settings);

    /// A record that does not exist has empty texts.
    bool matches(quint32 record);

private:
    enum class Join { None, And, Or };

    bool g_selectsAll;
    Join g_join;
    RecordCondition g_first;
    RecordCondition g_second;
    QString g_buffer;
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"
#include "editor/SelectionCondition.h"
#include "model/FieldDefinition.h"
#include "sorting/SubsetSortCriteriaData.h"

#include <array>

namespace tavrin {

/// Which records to select: one condition, or two joined by And or Or.
class SelectRecordsSheetController : public QVSheetController
{
    Q_OBJECT

public:
    enum class From { Selected, Omitted };
    enum class Joining { None, And, Or };

    /// Shows the criteria. `textName` is what the datafile calls its text.
    SelectRecordsSheetController(const SubsetSortCriteriaData &criteria,
                                 const QList<FieldDefinition> &fields,
                                 const QString &textName,
                                 From from);

    From from() const { return g_from; }
    /// The first or the second condition, counted from 0.
    const SelectionCondition &condition(int number) const { return g_conditions.at(size_t(number)); }
    Joining joining() const { return g_joining; }
    /// The condition counts.
    bool isActive(int number) const { return number == 0 || g_joining != Joining::None; }

    void handleBasedOnClick(int number, qsizetype index);
    void handleTreatAsClick(int number, qsizetype index);
    void handleWhereClick(int number, qsizetype index);
    void setValue(int number, const QString &value);
    /// And and Or exclude each other; turned off, the second condition is empty again.
    void handleAndSelectClick(bool on) { join(on ? Joining::And : Joining::None); }
    void handleOrSelectClick(bool on) { join(on ? Joining::Or : Joining::None); }
    /// Back to one condition on the whole record.
    void resetSelectRecordsSheet();

    /// Why the sheet cannot be accepted; empty when it can.
    QString problem() const;
    /// What does not keep the sheet from being accepted but will select nothing: a value that is no date.
    QString hint() const;
    bool isAcceptable() const override { return problem().isEmpty(); }

    /// The choices as criteria; what the given criteria hold besides is kept.
    SubsetSortCriteriaData criteria() const;

private:
    void join(Joining joining);

    SubsetSortCriteriaData g_criteria;
    From g_from;
    Joining g_joining = Joining::None;
    std::array<SelectionCondition, 2> g_conditions;
};

} // namespace tavrin

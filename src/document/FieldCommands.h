// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/ContentWork.h"
#include "text/TextMatcher.h"

namespace tavrin {

/// Fills the fields that hold nothing with a text, or with running numbers.
class FillEmptyFields : public ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(FillEmptyFields)

public:
    struct Running
    {
        qint64 next = 1;
        qint64 step = 1;
    };
    struct Filling
    {
        QStringList fields; ///< Identifiers.
        QString text;       ///< Before the number, where there is one.
        std::optional<Running> number;
    };

    FillEmptyFields(const DatafileDocument &document, const Filling &filling);

private:
    void change(const RecordView &record, Change &change) override;

    Filling g_filling;
};

/// Puts one text into a field, in the place of all it holds.
class ReplaceFieldContents : public ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(ReplaceFieldContents)

public:
    enum class Where { Everywhere, Containing, Equal };
    struct Replacement
    {
        QString field; ///< Its identifier.
        QString text;
        Where where = Where::Everywhere;
        QString which = {}; ///< What the content is to contain, or to be equal to. Empty: empty contents.
        bool caseSensitive = false;
    };

    ReplaceFieldContents(const DatafileDocument &document, const Replacement &replacement);

private:
    void change(const RecordView &record, Change &change) override;
    bool isMeant(const QString &content) const;

    Replacement g_replacement;
    text::TextMatcher g_which;
};

/// What to do where something stands already.
enum class FilledTarget { Skip, Replace, Append };

/// Puts what a field or the text holds into another.
class TransferFieldContents : public ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(TransferFieldContents)

public:
    struct Transfer
    {
        QString from; ///< The identifier of a field, or "Text".
        QString to;
        bool removesSource = false;
        FilledTarget filledTarget = FilledTarget::Skip;
        QString separator = QStringLiteral(" "); ///< Between what stands there and what is appended.
    };

    TransferFieldContents(const DatafileDocument &document, const Transfer &transfer);

private:
    void change(const RecordView &record, Change &change) override;
    bool changeText(const RecordView &record, const QString &content, Change &change);

    Transfer g_transfer;
    bool g_isMobile;
};

} // namespace tavrin

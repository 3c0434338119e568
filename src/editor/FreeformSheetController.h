// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/QVSheetController.h"
#include "richtext/AttributedText.h"

#include <QStringList>

namespace tavrin {

/// The template of a freeform export, see FreeformExport.h, and the fields that can be put into it.
class FreeformSheetController : public QVSheetController
{
    Q_OBJECT

public:
    /// `plain`: how an empty template is typed into.
    FreeformSheetController(const QStringList &fieldNames,
                            richtext::AttributedText firstFormat,
                            richtext::CharacterFormat plain)
        : g_fieldNames(fieldNames)
        , g_format(std::move(firstFormat))
        , g_plain(std::move(plain))
    {}

    const QStringList &fieldNames() const { return g_fieldNames; }
    const richtext::CharacterFormat &plain() const { return g_plain; }

    const richtext::AttributedText &freeformTextFormat() const { return g_format; }
    void setFreeformTextFormat(const richtext::AttributedText &format)
    {
        g_format = format;
        Q_EMIT changed();
    }
    bool isAcceptable() const override { return !g_format.isEmpty(); }

private:
    QStringList g_fieldNames;
    richtext::AttributedText g_format;
    richtext::CharacterFormat g_plain;
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/ContentWork.h"
#include "model/FontDescription.h"

namespace tavrin {

/// Puts the formatted texts of records into the datafile's text font. A text without formatting is in it
/// anyway.
class DefaultFontWork : public ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(DefaultFontWork)

public:
    explicit DefaultFontWork(const DatafileDocument &document);

private:
    void change(const RecordView &record, Change &change) override;

    FontDescription g_font;
};

/// The stored text with every character in that family and size, all else as it was; empty when it cannot be
/// read.
QByteArray textInFont(const QByteArray &textRTFD, const FontDescription &font);

} // namespace tavrin

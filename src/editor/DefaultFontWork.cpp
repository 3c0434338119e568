// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/DefaultFontWork.h"

#include "document/DatafileDocument.h"
#include "richtext/Rtfd.h"

namespace tavrin {

QByteArray textInFont(const QByteArray &textRTFD, const FontDescription &font)
{
    Result<richtext::AttributedText> text = richtext::readRichText(textRTFD);
    if (!text)
        return {};
    constexpr qint64 thousandths = 1000;
    constexpr qint64 largest = 1000;
    const auto size = static_cast<qint32>(qBound(qint64(1), font.size, largest) * thousandths);
    text->apply(0, text->size(), [&font, size](richtext::CharacterFormat &format) {
        format.family = font.family;
        format.size = size;
    });
    return richtext::writeRichText(*text);
}

DefaultFontWork::DefaultFontWork(const DatafileDocument &document)
    : ContentWork(document, tr("Change to Default Font"))
    , g_font(document.datafileSettings().textFont())
{}

void DefaultFontWork::change(const RecordView &record, Change &change)
{
    const QByteArray before = record.textRTFD();
    if (before.isEmpty())
        return;
    const QByteArray after = textInFont(before, g_font);
    if (!after.isEmpty() && after != before)
        setText(RecordText{record.textString().toString(), after}, change);
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/EditorFreeformText.h"

#include "editor/EditorWindowController.h"
#include "richtext/Rtfd.h"

#include <utility>

namespace tavrin {

using namespace richtext;

CharacterFormat EditorFreeformText::plainLook() const
{
    constexpr qint64 largest = 1000;
    constexpr qint32 thousandths = 1000;
    const FontDescription font = std::as_const(g_window).document().datafileSettings().textFont();
    CharacterFormat look;
    look.family = font.family;
    look.size = static_cast<qint32>(qBound(qint64(1), font.size, largest)) * thousandths;
    return look;
}

bool EditorFreeformText::mayHaveFormats() const
{
    return !g_window.document().isMobile();
}

bool EditorFreeformText::mayHaveImages() const
{
    return mayHaveFormats() && std::as_const(g_window).document().datafileSettings().allowEmbeddedImages();
}

void EditorFreeformText::show(const RecordData &record)
{
    g_isReadable = true;
    const CharacterFormat plain = plainLook();
    const QByteArray stored = record.textRTFD();
    if (stored.isEmpty() || !mayHaveFormats()) {
        g_window.view().setFreeformText(AttributedText(record.textString(), plain), plain);
        return;
    }
    const Result<AttributedText> text = readRichText(stored);
    g_isReadable = text.has_value();
    g_window.view().setFreeformText(text ? *text : AttributedText(record.textString(), plain), plain);
    if (!g_isReadable)
        Q_EMIT g_window.statusMessage(
            tr("The formats of this text cannot be read. Its plain text is shown and cannot be changed."));
}

void EditorFreeformText::showNothing()
{
    g_isReadable = true;
    g_window.view().setFreeformText({}, plainLook());
}

void EditorFreeformText::store(const QString &recordIdentifier)
{
    DatafileDocument &document = g_window.document();
    if (!mayHaveFormats()) {
        document.storeText(recordIdentifier, g_window.view().freeformText());
        return;
    }
    const AttributedText text = g_window.view().formattedFreeformText();
    document.storeFormattedText(recordIdentifier, text.text(), writeRichText(text));
}

} // namespace tavrin

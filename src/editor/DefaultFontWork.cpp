// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/DefaultFontWork.h"

#include "document/DatafileDocument.h"
#include "document/UndoHistory.h"
#include "richtext/Rtfd.h"

namespace tavrin {

namespace {

class FontChange : public UndoStep
{
public:
    explicit FontChange(TextChanges changes) : g_changes(std::move(changes)) {}

    QString name() const override { return DefaultFontWork::tr("Change to Default Font"); }
    void undo(DatafileDocument &document) override { g_changes.exchange(document); }
    void redo(DatafileDocument &document) override { g_changes.exchange(document); }

private:
    TextChanges g_changes;
};

} // namespace

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

DefaultFontWork::DefaultFontWork(const DatafileDocument &document, const QStringList &identifiers)
    : g_font(document.datafileSettings().textFont())
{
    for (const QString &identifier : identifiers) {
        const auto record = document.datafileRecords().view(identifier);
        if (!record || record->recordLocked())
            continue;
        if (QByteArray stored = record->textRTFD(); !stored.isEmpty())
            g_texts.append({identifier, stored, {}});
    }
}

void DefaultFontWork::run(Progress &progress)
{
    constexpr qsizetype atOnce = 64;
    for (qsizetype i = 0; i < g_texts.size(); ++i) {
        g_texts[i].after = textInFont(g_texts.at(i).before, g_font);
        if (i % atOnce != 0)
            continue;
        progress.setDone(i, g_texts.size());
        if (progress.isCancelled()) {
            g_cancelled = true;
            return;
        }
    }
}

qsizetype DefaultFontWork::apply(DatafileDocument &document)
{
    if (g_cancelled)
        return 0;
    TextChanges changes;
    for (const Text &text : g_texts) {
        const auto record = document.datafileRecords().view(text.identifier);
        if (text.after.isEmpty() || text.after == text.before || !record || record->textRTFD() != text.before)
            continue;
        TextChanges::Record changed{text.identifier, {}, {}, text.after};
        changed.text = record->textString().toString();
        changes.add(changed);
    }
    const qsizetype count = changes.count();
    if (count == 0)
        return 0;
    changes.exchange(document);
    document.undoHistory().push(std::make_unique<FontChange>(std::move(changes)));
    return count;
}

} // namespace tavrin

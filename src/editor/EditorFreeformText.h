// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "richtext/AttributedText.h"

#include <QCoreApplication>

namespace tavrin {

class EditorWindowController;
class RecordData;

/// The freeform text of an editor window on its way from the record to the view and back.
///
/// What the person did not change is never written: a stored text keeps its bytes. A datafile of the mobile
/// kind has plain text alone, and formats that its records bring along stay as they are, unseen.
class EditorFreeformText
{
    Q_DECLARE_TR_FUNCTIONS(EditorFreeformText)

public:
    explicit EditorFreeformText(EditorWindowController &window) : g_window(window) {}

    void show(const RecordData &record);
    void showNothing();

    /// Puts the view's text into the record.
    void store(const QString &recordIdentifier);

    /// False when the record's formatted text cannot be read. Then its plain text is shown and nothing of it
    /// may be changed, since that would end what the bytes still hold.
    bool isReadable() const { return g_isReadable; }

    /// How text looks to which nobody gave a look: the settings' text font.
    richtext::CharacterFormat plainLook() const;
    bool mayHaveFormats() const;
    bool mayHaveImages() const;

private:
    EditorWindowController &g_window;
    bool g_isReadable = true;
};

} // namespace tavrin

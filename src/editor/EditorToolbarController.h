// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

namespace tavrin {

class Preferences;

/// Something that can stand in the toolbar.
struct ToolbarItem
{
    const char *identifier; ///< As it is stored.
    const char
        *selector;     ///< The command behind it, or several of which the first there is counts; empty: none.
    const char *image; ///< The image's name without its "TB_C_" or "TB_M_"; empty for none.
    const char *label; ///< Translated in the context "ToolbarItems".
};

/// What the toolbar of every editor window holds, as the person has arranged it.
///
/// It is kept in the preferences, so all windows follow at once. An item whose command does not exist is not
/// offered, and stored ones that nobody knows are passed over.
class EditorToolbarController : public QObject
{
    Q_OBJECT

public:
    enum class Display { IconsAndText, IconsOnly, TextOnly };

    // Items without a command, of which the first three may stand there many times.
    static constexpr auto Separator = "Separator";
    static constexpr auto Space = "Space";
    static constexpr auto FlexibleSpace = "FlexibleSpace";
    static constexpr auto FindBox = "FindBox";

    /// `hasCommand` tells whether there is a command of that selector; with the find box's identifier it
    /// tells of the find box. The preferences outlive the controller.
    EditorToolbarController(Preferences &preferences, std::function<bool(const QString &)> hasCommand);

    /// Everything that can be put there now, in the order in which a dialog offers it.
    QStringList availableItems() const;
    /// What stands there, first to last.
    QStringList items() const;
    void setItems(const QStringList &items);
    void resetItems();

    static const ToolbarItem *item(const QString &identifier);
    static QString label(const ToolbarItem &item);
    static bool mayRepeat(const QString &identifier);
    /// The selector of the command behind an item; null when there is none.
    QString selectorOf(const ToolbarItem &item) const;
    /// The image in the form that the person chose.
    QString imageName(const QString &image) const;

    Display display() const;
    void setDisplay(Display display);
    bool isShown() const;
    void setShown(bool shown);
    /// Images with colour, or without.
    bool isColored() const;
    void toggleToolbarStyle();

Q_SIGNALS:
    void itemsChanged();
    /// The form of the images, icons or text, shown or not.
    void toolbarStyleChanged();

private:
    bool isAvailable(const ToolbarItem &item) const;

    Preferences &g_preferences;
    std::function<bool(const QString &)> g_hasCommand;
};

} // namespace tavrin

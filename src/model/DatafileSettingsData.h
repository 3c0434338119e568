// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Color.h"
#include "model/DatafileSettingsRows.h"
#include "model/FieldDefinition.h"
#include "model/FontDescription.h"

#include <QStringList>

namespace tavrin {

class Preferences;

/// Everything about a datafile that is not a record, read with a default where nothing is stored.
///
/// A value; copies are cheap and independent. What is not set stays as it was read. One thread at a time:
/// fields() keeps what it parsed.
class DatafileSettingsData : public DatafileSettingsRows
{
public:
    /// The preferences give the default fonts; they outlive the settings. None means built-in defaults.
    explicit DatafileSettingsData(const Preferences *preferences = nullptr) : g_preferences(preferences) {}

    /// None when the data is too new.
    static std::optional<DatafileSettingsData> settingsWithDictionary(const plist::Dictionary &dictionary,
                                                                      const Preferences *preferences);

    /// Not stored: whether a setting changed since the settings were last written. Its owner says so.
    bool datafileSettingsDidChange() const { return g_didChange; }
    void setDatafileSettingsDidChange(bool didChange) { g_didChange = didChange; }

    /// The field definitions in order. Cheap to ask for; the reference holds until the next change.
    const QList<FieldDefinition> &fields() const;
    void setFields(const QList<FieldDefinition> &fields);
    /// The first definition of that name or identifier; null when there is none. Valid as fields() is.
    const FieldDefinition *fieldWithName(const QString &name) const;
    const FieldDefinition *fieldWithIdentifier(const QString &identifier) const;

    QStringList deletedIdentifiers() const;
    void setDeletedIdentifiers(const QStringList &identifiers);
    void addDeletedIdentifier(const QString &identifier);

    QString basicViewFrame() const;
    QString listViewFrame() const;
    /// Placing a window while it is prepared does not count as a change of the settings, nor does any when
    /// the person prefers so.
    void setBasicViewFrame(const QString &frame, bool preparing);
    void setListViewFrame(const QString &frame, bool preparing);
    bool noUpdateForViewChanges() const;

    /// White when nothing readable is stored.
    Color backgroundFTAcolor() const;
    void setBackgroundFTAcolor(const Color &color);

    /// The criteria class is known to those who ask. Criteria that are too new read as none.
    template <typename Criteria>
    Criteria criteria() const
    {
        return keyedAccessorForKey<Criteria>(QStringLiteral("Criteria")).value_or(Criteria());
    }
    template <typename Criteria>
    void setCriteria(const Criteria &criteria)
    {
        setKeyedAccessor(criteria, QStringLiteral("Criteria"));
    }

    plist::Dictionary sortTasksList() const;
    void setSortTasksList(const plist::Dictionary &tasks);

    QString textName() const;
    void setTextName(const QString &name);

    QString fieldsFontName() const;
    qint64 fieldsFontSize() const;
    FontDescription fieldsFont() const { return {fieldsFontName(), fieldsFontSize()}; }
    void setFieldsFontName(const QString &name);
    void setFieldsFontSize(qint64 size);
    QString findBoxFontName() const;
    qint64 findBoxFontSize() const;
    FontDescription findBoxFont() const { return {findBoxFontName(), findBoxFontSize()}; }
    void setFindBoxFontName(const QString &name);
    void setFindBoxFontSize(qint64 size);
    QString textFontName() const;
    qint64 textFontSize() const;
    FontDescription textFont() const { return {textFontName(), textFontSize()}; }
    void setTextFontName(const QString &name);
    void setTextFontSize(qint64 size);

private:
    void setFrame(const QString &frame, const QString &key, bool preparing);
    QString fontName(const QString &key) const;
    qint64 fontSize(const QString &key) const;

    const Preferences *g_preferences;
    bool g_didChange = false;
    mutable plist::Array g_parsedFrom; ///< What g_fields was parsed from; shares its data with the store.
    mutable QList<FieldDefinition> g_fields;
};

} // namespace tavrin

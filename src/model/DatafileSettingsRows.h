// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/QVKeyedAccessorData.h"

namespace tavrin {

// clang-format off
// One row for each setting that is no more than a value with a default: its stored key, its getter, its
// setter, the default. The stored keys are what files have, misspelt or not.
#define BOOL(key, getter, setter, defaultValue) \
    bool getter() const { return boolForKey(QStringLiteral(key), defaultValue); } \
    void setter(bool value) { setBool(value, QStringLiteral(key)); }
#define INTEGER(key, getter, setter, defaultValue) \
    qint64 getter() const { return integerForKey(QStringLiteral(key), defaultValue); } \
    void setter(qint64 value) { setInteger(value, QStringLiteral(key)); }
#define FLOAT(key, getter, setter, defaultValue) \
    float getter() const { return floatForKey(QStringLiteral(key), defaultValue); } \
    void setter(float value) { setFloat(value, QStringLiteral(key)); }
#define STRING(key, getter, setter, defaultValue) \
    QString getter() const { return stringForKey(QStringLiteral(key), QStringLiteral(defaultValue)); } \
    void setter(const QString &value) { setString(value, QStringLiteral(key)); }
#define OBJECT(key, getter, setter) \
    plist::Value getter() const { return objectForKey(QStringLiteral(key)); } \
    void setter(const plist::Value &value) { setObject(value, QStringLiteral(key)); }
#define DATA(key, getter, setter) \
    QByteArray getter() const { return dataForKey(QStringLiteral(key)); } \
    void setter(const QByteArray &value) { setData(value, QStringLiteral(key)); }
// clang-format on

/// The settings of a datafile that are plain values: a typed getter and setter for each stored key.
///
/// A part of DatafileSettingsData, which adds the settings that are more than that.
class DatafileSettingsRows : public QVKeyedAccessorData
{
public:
    // clang-format off
    BOOL("AutomaticallyEnableLinks", automaticallyEnableLinks, setAutomaticallyEnableLinks, true)
    BOOL("WarnWhenTooLarge", warnWhenTooLarge, setWarnWhenTooLarge, true)
    OBJECT("AddressBlockLayout", addressBlockLayout, setAddressBlockLayout)
    INTEGER("AddressBlockLineCount", addressBlockLineCount, setAddressBlockLineCount, 0)
    INTEGER("AddressBlockStartingLine", addressBlockStartingLine, setAddressBlockStartingLine, 1)
    BOOL("AddressFixedLineCount", addressFixedLineCount, setAddressFixedLineCount, false)
    BOOL("AddressInText", addressInText, setAddressInText, true)
    BOOL("AddressStartsAtLineNumber", addressStartsAtLineNumber, setAddressStartsAtLineNumber, true)
    STRING("AddressSpecialCharacter", addressSpecialCharacter, setAddressSpecialCharacter, "~%")
    BOOL("AllowEmbeddedImages", allowEmbeddedImages, setAllowEmbeddedImages, true)
    BOOL("AutoPasteForURLs", autoPasteForURLs, setAutoPasteForURLs, true)
    BOOL("AutoSaveChanges", autoSaveChanges, setAutoSaveChanges, false)
    STRING("AutoSaveMinutes", autoSaveMinutes, setAutoSaveMinutes, "")
    BOOL("OpenToFirstRecord", openToFirstRecord, setOpenToFirstRecord, false)
    BOOL("OpenToLastRecord", openToLastRecord, setOpenToLastRecord, false)
    INTEGER("OpenToRecord", openToRecord, setOpenToRecord, 3)
    STRING("MostRecentRecord", mostRecentRecord, setMostRecentRecord, "")
    BOOL("CustomSorting", customSorting, setCustomSorting, false)
    DATA("BasicViewPrintInfo", basicViewPrintInfo, setBasicViewPrintInfo)
    DATA("ListViewPrintInfo", listViewPrintInfo, setListViewPrintInfo)
    FLOAT("BasicSplitHeight", basicSplitHeight, setBasicSplitHeight, -1)
    FLOAT("ListSplitHeight", listSplitHeight, setListSplitHeight, -1)
    INTEGER("FieldWrappingCriterion", fieldWrappingCriterion, setFieldWrappingCriterion, 0)
    BOOL("LiveFieldWrapping", liveFieldWrapping, setLiveFieldWrapping, false)
    BOOL("FieldWrapping", fieldWrapping, setFieldWrapping, false)
    BOOL("HideMargins", hideMargins, setHideMargins, false)
    STRING("Mode", mode, setMode, "Basic")
    BOOL("NetworkShared", networkShared, setNetworkShared, false)
    BOOL("DuplicateLocationMatches", duplicateRecordLocationMatchesNewRecordLocation, setDuplicateRecordLocationMatchesNewRecordLocation, false)
    INTEGER("NewRecordLocation", newRecordLocation, setNewRecordLocation, 0)
    INTEGER("ToolbarLocation", toolbarLocation, setToolbarLocation, 7)
    INTEGER("FindDisplayState", findDisplayState, setFindDisplayState, 0)
    INTEGER("FindEntryStyle", findEntryMode, setFindEntryMode, 0)
    BOOL("CaseSensitiveSearches", caseSensitiveSearches, setCaseSensitiveSearches, false)
    BOOL("PasteClipboard", pasteClipboard, setPasteClipboard, true)
    STRING("Munge", password, setPassword, "")
    BOOL("DontPrintEmptyFields", basicViewDontPrintEmptyFields, setBasicViewDontPrintEmptyFields, false)
    BOOL("PrintBoldFieldNames", basicViewPrintBoldFieldNames, setBasicViewPrintBoldFieldNames, false)
    BOOL("PrintRecordNumbers", basicViewPrintRecordNumbers, setBasicViewPrintRecordNumbers, false)
    FLOAT("BVTopMargin", basicViewPrintTopMargin, setBasicViewPrintTopMargin, 72)
    FLOAT("BVBottomMargin", basicViewPrintBottomMargin, setBasicViewPrintBottomMargin, 72)
    FLOAT("BVLeftMargin", basicViewPrintLeftMargin, setBasicViewPrintLeftMargin, 72)
    FLOAT("BVRightMargin", basicViewPrintRightMargin, setBasicViewPrintRightMargin, 72)
    BOOL("BVUseInches", basicViewPrintUseInches, setBasicViewPrintUseInches, true)
    BOOL("BVHeader", basicViewPrintHeader, setBasicViewPrintHeader, true)
    FLOAT("LVTopMargin", listViewPrintTopMargin, setListViewPrintTopMargin, 36)
    FLOAT("LVBottomMargin", listViewPrintBottomMargin, setListViewPrintBottomMargin, 36)
    FLOAT("LVLeftMargin", listViewPrintLeftMargin, setListViewPrintLeftMargin, 72)
    FLOAT("LVRightMargin", listViewPrintRightMargin, setListViewPrintRightMargin, 72)
    BOOL("LVUseInches", listViewPrintUseInches, setListViewPrintUseInches, true)
    BOOL("LVHeader", listViewPrintHeader, setListViewPrintHeader, true)
    BOOL("ReadOnly", readOnly, setReadOnly, false)
    BOOL("ReadOnlyWarning", readOnlyWarning, setReadOnlyWarning, false)
    FLOAT("TextColumnWidth", textColumnWidth, setTextColumnWidth, 300)
    STRING("TitleField", titleField, setTitleField, "Text")
    STRING("URLField", urlField, setUrlField, "Text")
    STRING("SyncID", syncID, setSyncID, "")
    STRING("AutoAddContentFieldID", autoAddContentFieldID, setAutoAddContentFieldID, "")
    STRING("AutoAddPrefix", autoAddPrefix, setAutoAddPrefix, "")
    STRING("AutoAddSuffix", autoAddSuffix, setAutoAddSuffix, "")
    INTEGER("AutoAddDigitCount", autoAddDigitCount, setAutoAddDigitCount, 1)
    INTEGER("LastAutoAddInteger", lastAutoAddInteger, setLastAutoAddInteger, 0)
    BOOL("AutoAddNumber", autoAddNumber, setAutoAddNumber, false)
    // clang-format on

protected:
    DatafileSettingsRows() = default;

    /// Archived values: null when there is none.
    QByteArray dataForKey(const QString &key) const
    {
        const plist::Value stored = objectForKey(key);
        return stored.isData() ? *stored.data() : QByteArray();
    }
    void setData(const QByteArray &data, const QString &key)
    {
        setObject(data.isNull() ? plist::Value() : plist::Value(data), key);
    }
};

#undef BOOL
#undef INTEGER
#undef FLOAT
#undef STRING
#undef OBJECT
#undef DATA

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "cli/SettingText.h"

#include "cli/Cli.h"

#include <QHash>

#include <cmath>
#include <limits>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

using Type = plist::ValueType;

// clang-format off
const QStringList &booleanKeys()
{
    static const QStringList keys{
        u"AutomaticallyEnableLinks"_s, u"WarnWhenTooLarge"_s, u"AddressFixedLineCount"_s, u"AddressInText"_s,
        u"AddressStartsAtLineNumber"_s, u"AllowEmbeddedImages"_s, u"AutoPasteForURLs"_s, u"AutoSaveChanges"_s,
        u"OpenToFirstRecord"_s, u"OpenToLastRecord"_s, u"CustomSorting"_s, u"LiveFieldWrapping"_s,
        u"FieldWrapping"_s, u"HideMargins"_s, u"NetworkShared"_s, u"DuplicateLocationMatches"_s,
        u"CaseSensitiveSearches"_s, u"PasteClipboard"_s, u"DontPrintEmptyFields"_s, u"PrintBoldFieldNames"_s,
        u"PrintRecordNumbers"_s, u"BVUseInches"_s, u"BVHeader"_s, u"LVUseInches"_s, u"LVHeader"_s,
        u"ReadOnly"_s, u"ReadOnlyWarning"_s, u"AutoAddNumber"_s};
    return keys;
}

const QStringList &integerKeys()
{
    static const QStringList keys{
        u"DataVersion"_s, u"AddressBlockLineCount"_s, u"AddressBlockStartingLine"_s, u"OpenToRecord"_s,
        u"FieldWrappingCriterion"_s, u"NewRecordLocation"_s, u"ToolbarLocation"_s, u"FindDisplayState"_s,
        u"FindEntryStyle"_s, u"FieldsFontSize"_s, u"FindBoxFontSize"_s, u"TextFontSize"_s,
        u"AutoAddDigitCount"_s, u"LastAutoAddInteger"_s};
    return keys;
}

const QStringList &realKeys()
{
    static const QStringList keys{
        u"BasicSplitHeight"_s, u"ListSplitHeight"_s, u"BVTopMargin"_s, u"BVBottomMargin"_s,
        u"BVLeftMargin"_s, u"BVRightMargin"_s, u"LVTopMargin"_s, u"LVBottomMargin"_s, u"LVLeftMargin"_s,
        u"LVRightMargin"_s, u"TextColumnWidth"_s};
    return keys;
}

const QStringList &stringKeys()
{
    static const QStringList keys{
        u"AddressSpecialCharacter"_s, u"AutoSaveMinutes"_s, u"MostRecentRecord"_s, u"BasicViewFrame"_s,
        u"ListViewFrame"_s, u"Mode"_s, u"Munge"_s, u"FieldsFontName"_s, u"FindBoxFontName"_s,
        u"TextFontName"_s, u"TextName"_s, u"TitleField"_s, u"URLField"_s, u"SyncID"_s,
        u"AutoAddContentFieldID"_s, u"AutoAddPrefix"_s, u"AutoAddSuffix"_s};
    return keys;
}
// clang-format on

/// Null for a key that is not known, or that holds more than a single value.
Type knownTypeOf(const QString &key)
{
    if (booleanKeys().contains(key))
        return Type::Boolean;
    if (integerKeys().contains(key))
        return Type::Integer;
    if (realKeys().contains(key))
        return Type::Real;
    return stringKeys().contains(key) ? Type::String : Type::Null;
}

plist::Value booleanOf(const QString &text)
{
    const QString word = text.toLower();
    if (word == u"yes" || word == u"true")
        return true;
    if (word == u"no" || word == u"false")
        return false;
    return {};
}

plist::Value integerOf(const QString &text, bool isKnown)
{
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    // Known settings are read with 32 bits: a larger number would come back as another one.
    const bool fits =
        !isKnown
        || (number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max());
    return isNumber && fits ? plist::Value(number) : plist::Value();
}

plist::Value realOf(const QString &text, bool isSingle)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        return {};
    return isSingle ? plist::Value(static_cast<float>(number)) : plist::Value(number);
}

plist::Value valueOf(const QString &text, Type type, bool isKnown, const plist::Value &stored)
{
    switch (type) {
    case Type::Boolean:
        return booleanOf(text);
    case Type::Integer:
        return integerOf(text, isKnown);
    case Type::Real:
        return realOf(text, isKnown || stored.real()->isSingle);
    default:
        return text;
    }
}

bool isSingleValue(Type type)
{
    return type == Type::Boolean || type == Type::Integer || type == Type::Real || type == Type::String;
}

} // namespace

Result<plist::Value> settingOfText(const QString &text, const QString &key, const plist::Value &stored)
{
    const Type known = knownTypeOf(key);
    const bool isKnown = known != Type::Null;
    const Type type = isKnown ? known : stored.type();
    if (key == u"DataFormat" || (!stored.isNull() && !isSingleValue(type)))
        return Error{Error::Kind::Refused, Cli::tr("\"%1\" cannot be set from a text.").arg(key), {}};
    if (!isSingleValue(type))
        return Error{Error::Kind::NotFound, Cli::tr("There is no setting \"%1\".").arg(key), {}};
    const plist::Value value = valueOf(text, type, isKnown, stored);
    if (value.isNull())
        return Error{
            Error::Kind::Refused, Cli::tr(R"("%1" is no value for the setting "%2".)").arg(text, key), {}};
    return value;
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "document/ContentWork.h"
#include "document/FieldCommands.h"

namespace tavrin {

class Preferences;

/// Moves lines of the text into the fields that are empty. They leave the text, whose rest keeps its styles.
class MoveTextIntoFields : public ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(MoveTextIntoFields)

public:
    enum class Lines {
        InOrder, ///< The first line goes into the first field, and so on.
        ByName   ///< A line "Name: value" goes into the field of that name, whatever its capitals.
    };

    MoveTextIntoFields(const DatafileDocument &document, Lines lines);

private:
    struct Field
    {
        QString identifier;
        QString name; ///< Folded.
    };

    void change(const RecordView &record, Change &change) override;
    /// The field that a line goes to; nothing for one that stays.
    const Field *fieldFor(qsizetype lineNumber, QStringView line, QStringView &value) const;

    Lines g_lines;
    QList<Field> g_fields;
    bool g_isMobile;
};

/// Moves addresses or telephone numbers out of the text into a field.
class MoveTextElements : public ContentWork
{
    Q_DECLARE_TR_FUNCTIONS(MoveTextElements)

public:
    enum class Element { Email, WebAddress, PhoneNumber };
    struct Move
    {
        Element element;
        QString to; ///< The identifier of a field.
        bool all = false;
        FilledTarget filledTarget = FilledTarget::Append;
        QString separator = QStringLiteral(", ");
        QStringList phoneNumberTemplates = {};
    };

    MoveTextElements(const DatafileDocument &document, const Move &move);

private:
    void change(const RecordView &record, Change &change) override;
    std::vector<TextPart> elementsIn(const QString &text) const;

    Move g_move;
    bool g_isMobile;
};

/// The forms of telephone numbers that the person has given, in which "#" is a digit; else the usual ones.
QStringList phoneNumberTemplates(const Preferences *preferences);

} // namespace tavrin

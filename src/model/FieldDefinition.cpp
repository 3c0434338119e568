// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "model/FieldDefinition.h"

namespace tavrin {

using namespace Qt::StringLiterals;

FieldDefinition::FieldDefinition(const QString &identifier, const QString &name, double width)
    : g_dictionary{{u"Identifier"_s, identifier}, {u"Name"_s, name}, {u"Width"_s, width}}
{}

QString FieldDefinition::identifier() const
{
    return g_dictionary.value(u"Identifier"_s).toText();
}

QString FieldDefinition::name() const
{
    return g_dictionary.value(u"Name"_s).toText();
}

double FieldDefinition::width() const
{
    const plist::Value *stored = g_dictionary.find(u"Width"_s);
    return stored ? stored->toDouble() : newWidth;
}

bool FieldDefinition::show() const
{
    const plist::Value *stored = g_dictionary.find(u"Show"_s);
    return !stored || stored->toBool();
}

void FieldDefinition::setName(const QString &name)
{
    g_dictionary.insert(u"Name"_s, name);
}

void FieldDefinition::setWidth(double width)
{
    g_dictionary.insert(u"Width"_s, width);
}

void FieldDefinition::setShow(bool show)
{
    g_dictionary.insert(u"Show"_s, show);
}

QList<FieldDefinition> arrayForFieldNames(const QStringList &names, const Environment &environment)
{
    QList<FieldDefinition> definitions;
    for (const QString &name : names)
        definitions.append(FieldDefinition(environment.identifier(), name));
    return definitions;
}

} // namespace tavrin

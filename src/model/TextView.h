// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>
#include <QString>

namespace tavrin {

/// A text of a record as it is stored: decoded only when somebody wants it so.
///
/// It refers to the bytes of the datafile, which must outlive it.
class TextView
{
public:
    enum class Form {
        Absent,  ///< There is no such text.
        Utf8,    ///< bytes() are its UTF-8.
        Encoded, ///< bytes() are XML content: there are entities or CDATA sections in it.
        Decoded, ///< string() is the text.
    };

    TextView() = default;
    TextView(QByteArrayView bytes, bool isEncoded)
        : g_bytes(bytes)
        , g_form(isEncoded ? Form::Encoded : Form::Utf8)
    {}
    /// A null text is an absent one.
    explicit TextView(const QString &string)
        : g_string(string)
        , g_form(string.isNull() ? Form::Absent : Form::Decoded)
    {}

    Form form() const { return g_form; }
    bool isAbsent() const { return g_form == Form::Absent; }
    bool isEmpty() const { return g_form == Form::Decoded ? g_string.isEmpty() : g_bytes.isEmpty(); }
    QByteArrayView bytes() const { return g_bytes; }
    const QString &string() const { return g_string; }

    /// The text itself; null when it is absent.
    QString toString() const;
    /// Its UTF-8 where it stands, or in the buffer; empty when it is absent.
    QByteArrayView utf8(QByteArray &buffer) const
    {
        return g_form == Form::Absent || g_form == Form::Utf8 ? g_bytes : decodedInto(buffer);
    }

private:
    QByteArrayView decodedInto(QByteArray &buffer) const;

    QByteArrayView g_bytes;
    QString g_string;
    Form g_form = Form::Absent;
};

} // namespace tavrin

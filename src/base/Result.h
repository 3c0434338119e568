// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace tavrin {

/// Why an operation failed. A person reads `message`; code branches on `kind`; a log takes `detail`.
struct [[nodiscard]] Error
{
    // GCC takes a scoped enumerator to hide the constant of the same name.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
    enum class Kind {
        NotFound,    ///< The file or thing does not exist.
        Corrupt,     ///< The bytes are not what they claim to be.
        Unsupported, ///< Well-formed, but of a kind or format that this program does not handle.
        TooNew,      ///< Made by a newer version of the program.
        Io,          ///< The system refused to read or write.
        Refused,     ///< A rule of ours forbids it (read-only, locked).
        Cancelled,   ///< The person stopped the work.
    };
#pragma GCC diagnostic pop

    Kind kind = Kind::Io;
    QString message = {}; ///< One translated sentence, without paths or codes.
    QString detail = {};  ///< Untranslated: path, line, offset, system error.

    friend bool operator==(const Error &, const Error &) = default;
};

/// The outcome of an operation that can fail: a value, or the Error that says why there is none.
template <typename T = void>
class [[nodiscard]] Result : public tl::expected<T, Error>
{
public:
    using tl::expected<T, Error>::expected;
    // NOLINTNEXTLINE(google-explicit-constructor): so that a function can `return Error{...};`
    Result(Error error) : tl::expected<T, Error>(tl::unexpect, std::move(error)) {}
};

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "editor/LongWork.h"

#include <QLocale>

#include <algorithm>

namespace tavrin {

LongWork::LongWork() = default;

LongWork::~LongWork() = default;

QString LongWork::doneText(qint64 done, qint64 total) const
{
    const QLocale locale;
    if (total <= 1)
        return {};
    return tr("%1 of %2").arg(locale.toString(std::min(done, total)), locale.toString(total));
}

QString doneTextOfBytes(qint64 done, qint64 total)
{
    const QLocale locale;
    const auto size = [&locale](qint64 bytes) {
        return locale.formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
    };
    return total <= 1 ? QString() : LongWork::tr("%1 of %2").arg(size(std::min(done, total)), size(total));
}

} // namespace tavrin

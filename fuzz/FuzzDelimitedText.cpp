// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// The readers of delimited text and of JSON: whatever the bytes, they come to an end, and each cell can be
// asked for. The quick way of cutting separated lines gives what the literal one gives.

#include "io/FolderFiles.h"
#include "io/SeparatedLine.h"
#include "io/TableReaders.h"

#include <cstdlib>
#include <limits>

using namespace tavrin;

namespace {

constexpr qint64 all = std::numeric_limits<qint64>::max();

void askForAll(const Result<ReadTable> &read)
{
    for (quint32 row = 0; read && row < read->table->rowCount(); ++row) {
        const auto width = static_cast<qsizetype>(read->table->cellCount(row));
        if (read->table->row(row).size() != width)
            std::abort();
        for (quint32 column = 0; column <= read->table->cellCount(row); ++column)
            read->table->cellAsLine(row, column).toString();
    }
}

void compareCutting(QByteArrayView line)
{
    if (mayHoldTokens(line))
        return;
    std::vector<qsizetype> marked;
    for (qsizetype at = 0; at < line.size(); ++at) {
        if (line[at] == '"' || line[at] == ',')
            marked.push_back(at);
    }
    SeparatedLineCutter cutter;
    std::vector<QByteArray> fields;
    for (const auto &field : cutter.cut(line, marked)) {
        QByteArray text = cutter.bytesOf(field).toByteArray();
        fields.push_back(field.hasDoubled && !field.isOwn ? text.replace("\"\"", "\"") : text);
    }
    if (fields != cutLiterally(line, ','))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const QByteArrayView view(bytes, static_cast<qsizetype>(size));
    const Result<SharedBytes> shared = SharedBytes::copyOf(view);
    const Result<TextContent> text = shared ? textContent(*shared) : Result<TextContent>(shared.error());
    if (!text)
        return 0;
    Progress progress;
    askForAll(readSeparated(*text, ',', all, progress));
    askForAll(readTabDelimited(*text, all, progress));
    askForAll(readStandard(*text, {}, all, progress));
    askForAll(readStandard(*text, {';', '\''}, all, progress));
    askForAll(readCustomDelimited(*text, QStringLiteral("\n%\n"), progress));
    compareCutting(text->utf8);
    if (const Result<ReadRecords> records = readJson(text->utf8);
        !records && records.error().message.isEmpty())
        std::abort();
    textOfHtml(QString::fromUtf8(text->utf8));
    return 0;
}

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "io/FolderFiles.h"

#include "base/DurableFile.h"
#include "io/BatchBuilder.h"
#include "io/ReadProgress.h"
#include "io/TextFile.h"
#include "richtext/RtfReader.h"
#include "richtext/Rtfd.h"
#include "sorting/WorkSteps.h"

#include <QCollator>
#include <QDir>
#include <QDirIterator>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;
using richtext::AttributedText;

namespace {

/// A text that was read, with its formats where it had any.
struct FileText
{
    QString name;
    QString text;
    QByteArray textRTFD;
};

bool isBinary(QByteArrayView utf8)
{
    // Where other programs look too: no text has a zero in it.
    return utf8.first(std::min<qsizetype>(utf8.size(), 8192)).contains('\0');
}

QString inOneForm(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

/// None for a file that is no text, or that cannot be read: the others are wanted all the same.
std::optional<FileText> readFile(const QString &path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    FileText file{QFileInfo(path).completeBaseName(), {}, {}};
    if (extension == u"rtf" || extension == u"rtfd") {
        const Result<AttributedText> text = readRichTextFile(path);
        if (!text)
            return {};
        file.text = text->text();
        file.textRTFD = richtext::writeRichText(*text);
        return file;
    }
    Progress unwatched;
    const Result<TextContent> content = readTextFile(path, {}, unwatched);
    if (!content || isBinary(content->utf8))
        return {};
    const QString text = QString::fromUtf8(content->utf8);
    file.text = extension.startsWith(u"htm") ? textOfHtml(text) : inOneForm(text);
    return file;
}

ReadRecords recordsOf(const QList<FileText> &texts, bool includingNames)
{
    ReadRecords records;
    records.count = texts.size();
    if (includingNames)
        records.fieldNames = {QCoreApplication::translate("Import", "File Name")};
    records.make = [texts, includingNames](const RecordsGoal &goal, Progress &progress) {
        return batchOfEach(texts, goal, progress, [&](const FileText &text, RecordData &record) {
            record.setTextString(text.text);
            record.setTextRTFD(text.textRTFD);
            if (includingNames && !goal.fields.isEmpty())
                record.setFieldValue(text.name, goal.fields.first());
        });
    };
    return records;
}

} // namespace

Result<FolderFiles>
filesOfFolder(const QString &folder, const QStringList &extensions, bool includingSubfolders)
{
    if (!QFileInfo(folder).isDir())
        return Error{Error::Kind::NotFound,
                     QCoreApplication::translate("Import", "The folder does not exist."),
                     folder};
    FolderFiles files;
    QStringList folders = {folder};
    while (!folders.isEmpty()) {
        const QDir directory(folders.takeFirst());
        const auto entries = directory.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        for (const QFileInfo &entry : entries) {
            const bool isWanted = extensions.contains(entry.suffix().toLower());
            const bool isPackage = entry.isDir() && entry.suffix().toLower() == u"rtfd";
            if (entry.isHidden() || (!entry.isDir() && !isWanted) || entry.isSymLink())
                files.skippedCount += entry.isDir() && !entry.isSymLink() ? 0 : 1;
            else if (!entry.isDir() || (isPackage && isWanted))
                files.paths.append(entry.filePath());
            else if (includingSubfolders)
                folders.append(entry.filePath());
        }
    }
    // Of a language: the collator of the locale "C" knows no numbers.
    QCollator natural{QLocale(QLocale::English)};
    natural.setNumericMode(true);
    natural.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::stable_sort(files.paths, [&natural](const QString &one, const QString &other) {
        return natural.compare(one, other) < 0;
    });
    return files;
}

Result<ReadRecords>
readTextFolder(const QString &folder, const FolderImportOptions &options, Progress &progress)
{
    const QStringList extensions = {
        u"txt"_s, u"text"_s, u"md"_s, u"markdown"_s, u"rtf"_s, u"rtfd"_s, u"html"_s, u"htm"_s};
    const Result<FolderFiles> files = filesOfFolder(folder, extensions, options.includingSubfolders);
    if (!files)
        return files.error();
    QList<FileText> texts;
    qsizetype skipped = files->skippedCount;
    WorkSteps steps(progress, static_cast<size_t>(files->paths.size()));
    for (const QString &path : files->paths) {
        if (!steps.goOn())
            return cancelled();
        if (const std::optional<FileText> text = readFile(path))
            texts.append(*text);
        else
            ++skipped;
    }
    ReadRecords records = recordsOf(texts, options.includingFileNames);
    records.skippedCount = skipped;
    return records;
}

bool isRichTextFile(const QString &path)
{
    const QFileInfo file(path);
    if (file.isDir())
        return true;
    const QString extension = file.suffix().toLower();
    if (extension == u"txt" || extension == u"text")
        return false;
    QFile opened(path);
    const QByteArray start = opened.open(QIODevice::ReadOnly) ? opened.read(5) : QByteArray();
    return start == "{\\rtf" || start == QByteArrayView("rtfd\0", 5);
}

QString richTextDocumentOf(const QString &path)
{
    const QString folder = QFileInfo(path).absolutePath();
    return folder.endsWith(u".rtfd"_s, Qt::CaseInsensitive) ? folder : path;
}

Result<AttributedText> readRichTextFile(const QString &path)
{
    if (QFileInfo(path).isDir())
        return richtext::readRtfdFolder(path);
    const Result<QByteArray> bytes = readWhole(path);
    if (!bytes)
        return bytes.error();
    return richtext::readRichText(*bytes);
}

ReadRecords cutRichText(const AttributedText &text, const QString &delimiter)
{
    QList<FileText> stretches;
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype found = delimiter.isEmpty() ? -1 : text.text().indexOf(delimiter, start);
        const qsizetype end = found < 0 ? text.size() : found;
        if (end > start) {
            const AttributedText stretch = text.substring(start, end - start);
            stretches.append({{}, stretch.text(), richtext::writeRichText(stretch)});
        }
        start = end + delimiter.size();
        if (found < 0)
            break;
    }
    return recordsOf(stretches, false);
}

} // namespace tavrin

// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/DatafilesFolder.h"

#include "document/DatafileBackups.h"
#include "document/DatafileKind.h"
#include "model/Preferences.h"
#include "model/StringOperations.h"

#include <QCollator>
#include <QDir>
#include <QDirIterator>
#include <QSet>
#include <QUrl>

#include <algorithm>

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr int deepestLevel = 5;
/// Somebody may choose a whole home folder; the menu is rebuilt after each save and must stay quick.
constexpr int mostEntries = 20'000;

/// One walk through the folder.
class Scan
{
public:
    QList<DatafilesMenuItem> folder(const QString &path, int level)
    {
        const QString canonical = QFileInfo(path).canonicalFilePath();
        if (level > deepestLevel || canonical.isEmpty() || g_visited.contains(canonical))
            return {};
        g_visited.insert(canonical);

        QList<DatafilesMenuItem> files;
        QStringList folders;
        QDirIterator entries(path, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
        while (entries.hasNext() && g_entriesLeft-- > 0) {
            entries.next();
            if (entries.fileInfo().isDir())
                folders.append(entries.filePath());
            else if (datafileKindOfPath(entries.filePath()))
                files.append({entries.fileInfo().completeBaseName(), entries.filePath(), {}});
        }
        tellApart(files);
        sort(files);
        return files + foldersWithDatafiles(folders, level + 1);
    }

private:
    /// Folders in order of name, so that of two ways to one folder always the same is taken.
    QList<DatafilesMenuItem> foldersWithDatafiles(const QStringList &paths, int level)
    {
        QList<DatafilesMenuItem> items;
        for (const QString &path : paths)
            items.append({lastPathComponent(path), path, {}});
        sort(items);
        for (DatafilesMenuItem &item : items)
            item.children = folder(std::exchange(item.path, QString()), level);
        items.removeIf([](const DatafilesMenuItem &item) { return item.children.isEmpty(); });
        return items;
    }

    /// Datafiles of both kinds under one name show their extensions.
    static void tellApart(QList<DatafilesMenuItem> &files)
    {
        QSet<QString> once;
        QSet<QString> twice;
        for (const DatafilesMenuItem &file : std::as_const(files))
            (once.contains(file.title) ? twice : once).insert(file.title);
        for (DatafilesMenuItem &file : files) {
            if (twice.contains(file.title))
                file.title = lastPathComponent(file.path);
        }
    }

    void sort(QList<DatafilesMenuItem> &items)
    {
        std::sort(items.begin(), items.end(), [this](const auto &left, const auto &right) {
            const int order = g_collator.compare(left.title, right.title);
            return order != 0 ? order < 0 : left.path < right.path;
        });
    }

    static QCollator naturalOrder()
    {
        QCollator collator;
        collator.setNumericMode(true);
        collator.setCaseSensitivity(Qt::CaseInsensitive);
        return collator;
    }

    QCollator g_collator = naturalOrder();
    QSet<QString> g_visited; ///< Canonical paths: a folder appears once, however many links lead to it.
    int g_entriesLeft = mostEntries;
};

} // namespace

bool operator==(const DatafilesMenuItem &left, const DatafilesMenuItem &right)
{
    return left.title == right.title && left.path == right.path && left.children == right.children;
}

QString DatafilesFolder::path() const
{
    return datafilesFolderPath(&g_preferences);
}

void DatafilesFolder::setPath(const QString &path)
{
    g_preferences.setObject(QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()),
                            u"DatafilesFolderURL"_s);
}

QList<DatafilesMenuItem> DatafilesFolder::scan() const
{
    const QString root = path();
    if (root.isEmpty())
        return {};
    return Scan().folder(root, 1);
}

} // namespace tavrin

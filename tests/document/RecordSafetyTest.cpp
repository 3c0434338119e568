// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// What could lose records, contents or backups when much is done at once.

#include "base/Progress.h"
#include "document/BackupWriting.h"
#include "document/DatafileFixture.h"
#include "document/DuplicateRemoval.h"
#include "document/FieldCommands.h"
#include "document/RecordLocking.h"
#include "document/RecordOperations.h"
#include "model/Preferences.h"
#include "model/RecordKey.h"

#include <QRandomGenerator>

using namespace tavrin;

class RecordSafetyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void backupsOfOneNameAreToldApart();
    void aBackupCancelledLateLeavesNoFile();
    void whatIsHalfMadeCanBeTakenBack();
    void duplicatesAreThoseOfTheLiteralWay();

private:
    DatafileFixture g_files;
};

namespace {

/// The keys that a record has beside fields and text: with them it stays in the bytes of the file.
QString otherKeys()
{
    QString keys;
    for (const QString &key : RecordKey::all) {
        if (key.endsWith(u"Date"_s))
            keys += u"<key>%1</key><date>2026-01-02T03:04:05Z</date>"_s.arg(key);
        else if (key == RecordKey::textRTFD)
            keys += u"<key>%1</key><data></data>"_s.arg(key);
        else if (key != RecordKey::fields && key != RecordKey::textString)
            keys += u"<key>%1</key><string></string>"_s.arg(key);
    }
    return keys;
}

/// Everything in the file but the order of the records.
plist::Dictionary written(DatafileDocument &document, const QString &path)
{
    (void)document.saveCopyAs(path);
    return *plist::readDictionary(DatafileFixture::contentOf(path));
}

} // namespace

void RecordSafetyTest::aBackupCancelledLateLeavesNoFile()
{
    struct LateCancel : Progress
    {
        bool isCancelled() const override { return g_asked++ > 0; }
        mutable int g_asked = 0;
    };
    const QString path = g_files.make(u"late.tv3"_s, DatafileFixture::root(2));
    const auto document = DatafileFixture::opened(path);
    BackupWriting writing(*document);
    LateCancel progress;
    writing.run(progress);
    QCOMPARE(writing.finish().error().kind, Error::Kind::Cancelled);
    const QDir backups(DatafileBackups(*document).folder());
    QVERIFY(backups.exists() && backups.entryList({u"late*"_s}).isEmpty());
}

void RecordSafetyTest::backupsOfOneNameAreToldApart()
{
    Preferences preferences{QString()};
    preferences.setObject(g_files.path(u"datafiles"_s), u"DatafilesFolderURL"_s);
    preferences.setObject(1, u"BackupsToKeep"_s);
    DocumentServices services = DatafileFixture::services();
    services.preferences = &preferences;
    const auto opened = [&](const QString &folder) {
        QDir(g_files.path(u"."_s)).mkpath(folder);
        const QString path = g_files.make(folder + u"/a.tv3"_s, DatafileFixture::root(2));
        return std::move(*DatafileDocument::open(services, path, SelectionOnOpening::AsStored));
    };
    const auto home = opened(u"home"_s);
    const auto work = opened(u"work"_s);
    const DatafileBackups ofHome(*home);
    const DatafileBackups ofWork(*work);
    // One that nobody knows of any more may be of either.
    QVERIFY(QDir().mkpath(ofHome.folder()));
    const QString unknown = ofHome.folder() + u"/a 1-1-20,_1.tv3"_s;
    QVERIFY(QFile::copy(home->filePath(), unknown));
    const QString kept = ofHome.write().value();
    QVERIFY(ofWork.write());
    const QString last = ofWork.write().value();
    const auto paths = [](const DatafileBackups &backups) {
        QStringList listed;
        for (const DatafileBackups::Backup &backup : backups.list())
            listed.append(backup.path + (backup.isOwn ? u""_s : u"?"_s));
        listed.sort();
        return listed;
    };
    QStringList expected{kept, unknown + u'?'};
    expected.sort();
    QCOMPARE(paths(ofHome), expected);
    expected = {last, unknown + u'?'};
    expected.sort();
    QCOMPARE(paths(ofWork), expected);
    // Where it is gone, it may have been renamed to this one: listed, but not ours to remove.
    QVERIFY(QFile::remove(home->filePath()));
    QCOMPARE(paths(ofWork).size(), 3);
    QVERIFY(ofWork.write());
    QVERIFY(QFile::exists(kept) && QFile::exists(unknown) && !QFile::exists(last));
}

void RecordSafetyTest::whatIsHalfMadeCanBeTakenBack()
{
    constexpr int count = 8;
    const auto document = DatafileFixture::opened(g_files.make(u"a.tv3"_s, DatafileFixture::root(count)));
    document->datafileRecords().recordForIdentifier(u"r3"_s)->setRecordLocked(true);
    for (int i = 0; i < count; i += 2)
        document->datafileCatalog().omitIdentifier(u"r%1"_s.arg(i));
    const plist::Dictionary before = written(*document, g_files.path(u"before.tv3"_s));
    Progress progress;
    RecordLocking locking(*document, RecordLocking::Kind::Lock);
    locking.run(progress);
    FillEmptyFields fill(*document, {{u"g"_s}, u"filled"_s, {}});
    fill.run(progress);
    const RecordOperations operations(*document);
    std::vector<std::unique_ptr<SteppedChange>> changes;
    changes.push_back(locking.takeChange());
    changes.push_back(*fill.takeChange(*document));
    changes.push_back(*operations.deletionOf(operations.selectedRecords()));
    for (const auto &change : changes) {
        for (int way = 0; way < 2; ++way) { // And back.
            const plist::Dictionary now = written(*document, g_files.path(u"now.tv3"_s));
            for (size_t parts = 0; parts <= change->reversiblePartCount(); ++parts) {
                change->begin(*document);
                change->makeParts(*document, 0, parts);
                change->unmakeParts(*document, 0, parts);
                QCOMPARE(written(*document, g_files.path(u"again.tv3"_s)), now);
            }
            change->exchange(*document);
            QCOMPARE(written(*document, g_files.path(u"made.tv3"_s)) == now, false);
        }
    }
    const RecordData *filled = document->datafileRecords().recordForIdentifier(u"r1"_s);
    QVERIFY(filled && !filled->recordLocked());
    QCOMPARE(written(*document, g_files.path(u"after.tv3"_s)).value(u"Catalog"_s),
             before.value(u"Catalog"_s));
}

void RecordSafetyTest::duplicatesAreThoseOfTheLiteralWay()
{
    QRandomGenerator random(2611);
    const QStringList contents{u""_s, u"a"_s, u"A"_s, u"a&amp;b"_s, u"a&#38;b"_s, u"\u00e9"_s};
    const auto any = [&] { return contents[random.bounded(int(contents.size()))]; };
    QString records;
    QString catalog;
    constexpr int count = 400;
    for (int i = 0; i < count; ++i) {
        QStringList fields;
        for (const QString &key : {u"f"_s, u"g"_s, u"unknown"_s}) {
            const QString entry = u"<key>%1</key><string>%2</string>"_s.arg(key, any());
            if (random.bounded(4) > 0)
                fields.insert(random.bounded(int(fields.size()) + 1), entry);
        }
        records += u"<key>r%1</key><dict>%2<key>Fields</key><dict>%3</dict><key>TextString</key>"
                   "<string>%4</string></dict>"_s.arg(i)
                       .arg(otherKeys(), fields.join(u""_s), any());
        catalog += u"<dict><key>Identifier</key><string>r%1</string></dict>"_s.arg(i);
    }
    const QString field =
        u"<dict><key>Identifier</key><string>%1</string><key>Name</key><string>%1</string></dict>"_s;
    const QString xml = u"<plist version=\"1.0\"><dict><key>Settings</key><dict><key>DataFormat</key>"
                        "<integer>1</integer><key>Fields</key><array>%1%2</array></dict><key>Records</key>"
                        "<dict>%3</dict><key>Catalog</key><array>%4</array></dict></plist>"_s;
    const auto document = DatafileFixture::opened(
        g_files.make(u"x.tv3"_s, xml.arg(field.arg(u"f"_s), field.arg(u"g"_s), records, catalog).toUtf8()));
    document->datafileCatalog().selectAll();

    // Sorted by all fields and the text, the same ones are neighbours; the later one goes.
    std::vector<std::pair<QStringList, QString>> sorted;
    for (const QString &identifier : document->datafileCatalog().identifiers()) {
        const auto record = document->datafileRecords().view(identifier);
        sorted.push_back({{record->fieldValue(u"f"_s).toString() + u'|',
                           record->fieldValue(u"g"_s).toString() + u'|',
                           record->textString().toString()},
                          identifier});
    }
    std::ranges::stable_sort(sorted, {}, &decltype(sorted)::value_type::first);
    QSet<QString> expected;
    for (size_t i = sorted.size() - 1; i > 0; --i) {
        if (sorted[i].first == sorted[i - 1].first)
            expected.insert(sorted[i].second);
    }
    DuplicateRemoval removal(*document, DuplicateRemoval::Compare::RichTexts);
    Progress progress;
    removal.run(progress);
    const QStringList removed = removal.apply(*document);
    QVERIFY(removed.size() > 100 && removed.size() < count - 50);
    QCOMPARE(QSet<QString>(removed.begin(), removed.end()), expected);
}

QTEST_GUILESS_MAIN(RecordSafetyTest)
#include "RecordSafetyTest.moc"

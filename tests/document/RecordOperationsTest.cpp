// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "document/RecordOperations.h"

#include "document/DatafileBackups.h"
#include "document/DatafileFixture.h"
#include "document/DuplicateRemoval.h"
#include "document/RecordAdding.h"
#include "document/TableOfContents.h"
#include "document/UndoHistory.h"
#include "model/Preferences.h"
#include "richtext/Rtfd.h"

#include <QRandomGenerator>
#include <QSignalSpy>

using namespace tavrin;

class RecordOperationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newRecordsGetTheirNumberAndPlace_data();
    void newRecordsGetTheirNumberAndPlace();
    void duplicatesHaveAllButTheNumber();
    void theLastRecordStays();
    void deletedRecordsComeBackAsTheyWere();
    void recordsMoveOnlyWhileAllAreSelected();
    void lockingRemembersWhatWas();
    void duplicatesAreThoseThatSayTheSame_data();
    void duplicatesAreThoseThatSayTheSame();
    void backupsAreDatedAndOnlySoManyKept();
    void aBackupIsNeverLostByRestoringIt();
    void theTableOfContentsLinksEachRecord();
    void undoingEverythingGivesTheOriginal();

private:
    std::unique_ptr<DatafileDocument> opened(const plist::Dictionary &root) const
    {
        return DatafileFixture::opened(g_files.make(u"records.tv3"_s, root));
    }

    DatafileFixture g_files;
};

namespace {

QString orderOf(const DatafileDocument &document)
{
    return document.datafileCatalog().identifiers().join(u' ').remove(u'r');
}

QString valueIn(DatafileDocument &document, const QString &identifier)
{
    const RecordData *record = document.datafileRecords().recordForIdentifier(identifier);
    return record ? record->fieldValue(u"f"_s) : u"(none)"_s;
}

/// Everything that people see of the records, and their order.
QStringList picture(const DatafileDocument &document)
{
    QStringList picture;
    for (const QString &identifier : document.datafileCatalog().identifiers()) {
        const std::optional<RecordView> record = document.datafileRecords().view(identifier);
        picture.append(QStringList{identifier,
                                   record->fieldValue(u"f"_s).toString(),
                                   record->textString().toString(),
                                   record->recordLocked() ? u"locked"_s : u""_s}
                           .join(u'|'));
    }
    picture.append(QString::number(document.datafileSettings().lastAutoAddInteger()));
    picture.append(QString::number(document.datafileRecords().count()));
    return picture;
}

void numberNewRecords(DatafileDocument &document, qint64 last, qint64 digits)
{
    DatafileSettingsData &settings = document.datafileSettings();
    settings.setAutoAddContentFieldID(u"f"_s);
    settings.setAutoAddPrefix(u"INV-"_s);
    settings.setAutoAddNumber(true);
    settings.setLastAutoAddInteger(last);
    settings.setAutoAddDigitCount(digits);
}

} // namespace

void RecordOperationsTest::newRecordsGetTheirNumberAndPlace_data()
{
    QTest::addColumn<int>("location");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("index");
    QTest::newRow("behind the current one") << 0 << u"r1"_s << 2;
    QTest::newRow("behind the last one") << 0 << u"r0"_s << 3;
    QTest::newRow("first") << 1 << u"r1"_s << 0;
    QTest::newRow("last") << 2 << u"r2"_s << 3;
}

void RecordOperationsTest::newRecordsGetTheirNumberAndPlace()
{
    QFETCH(const int, location);
    QFETCH(const QString, after);
    const auto document = opened(DatafileFixture::root(3));
    document->datafileSettings().setNewRecordLocation(location);
    numberNewRecords(*document, 41, 4);
    QSignalSpy added(document.get(), &DatafileDocument::didAddRecord);

    const QString made = RecordAdding(*document).addRecord(after);
    QCOMPARE(added.first(), (QVariantList{made, after}));
    QTEST(int(document->datafileCatalog().indexOfIdentifier(made)), "index");
    QCOMPARE(valueIn(*document, made), u"INV-0042"_s);
    QVERIFY(document->isModified() && document->datafileSettings().datafileSettingsDidChange());

    numberNewRecords(*document, 99, 2);
    QCOMPARE(valueIn(*document, RecordAdding(*document).addRecord(after)), u"INV-100"_s);
    document->undoHistory().undo();
    QCOMPARE(document->datafileSettings().lastAutoAddInteger(), 99);
}

void RecordOperationsTest::duplicatesHaveAllButTheNumber()
{
    const auto document = opened(DatafileFixture::root(2));
    document->storeFieldValue(u"r1"_s, u"g"_s, u"of no field"_s);
    numberNewRecords(*document, 6, 1);
    const QString made = RecordAdding(*document).duplicateRecord(u"r1"_s);
    QCOMPARE(document->datafileCatalog().indexOfIdentifier(made), 1);
    const RecordData *record = document->datafileRecords().recordForIdentifier(made);
    QCOMPARE(record->fieldValue(u"f"_s), u"INV-7"_s);
    QCOMPARE(record->textString(), u"text 1"_s);

    document->datafileSettings().setNewRecordLocation(2);
    document->datafileSettings().setDuplicateRecordLocationMatchesNewRecordLocation(true);
    const QString last = RecordAdding(*document).duplicateRecord(u"r1"_s);
    QCOMPARE(document->datafileCatalog().indexOfIdentifier(last), 3);
    document->datafileSettings().setAutoAddContentFieldID(u""_s);
    QVERIFY(RecordAdding(*document).duplicateRecord(RecordAdding(*document).addRecord({})).isNull());
}

void RecordOperationsTest::theLastRecordStays()
{
    const auto document = opened(DatafileFixture::root(2));
    RecordOperations operations(*document);
    QCOMPARE(operations.deleteRecords({u"r0"_s, u"r1"_s}).error().kind, Error::Kind::Refused);
    QCOMPARE(operations.deleteAllSelected().error().kind, Error::Kind::Refused);
    QCOMPARE(operations.deleteRecords({u"nobody"_s}).value(), 0);
    QVERIFY(!document->isModified());
    QCOMPARE(operations.deleteRecords({u"r0"_s, u"r0"_s}).value(), 1);
    QVERIFY(!operations.deleteRecords({u"r1"_s}));
}

void RecordOperationsTest::deletedRecordsComeBackAsTheyWere()
{
    constexpr int count = 100; // Enough for the way that many go.
    const auto document = opened(DatafileFixture::root(count));
    SubsetSortedData &catalog = document->datafileCatalog();
    for (int i = 0; i < count; i += 3)
        catalog.omitIdentifier(u"r%1"_s.arg(i));
    document->storeFieldValue(u"r1"_s, u"f"_s, u"changed"_s);
    const QStringList before = picture(*document);
    const QStringList selected = catalog.selectedIdentifiers();
    QSignalSpy willDelete(document.get(), &DatafileDocument::willDeleteRecord);

    QCOMPARE(RecordOperations(*document).deleteAllSelected().value(), 66);
    QCOMPARE(willDelete.size(), 66);
    QCOMPARE(willDelete.first().first(), selected.last());
    QCOMPARE(catalog.countSelected(), 34);
    QCOMPARE(document->undoHistory().undoName(), u"Delete All Selected Records"_s);
    document->undoHistory().undo();
    QCOMPARE(picture(*document), before);
    QCOMPARE(catalog.selectedIdentifiers(), selected);
    document->undoHistory().redo();
    QCOMPARE(document->datafileRecords().count(), 34);
    document->undoHistory().undo();
    // What comes back goes into the file as it was.
    QVERIFY(document->saveCopyAs(g_files.path(u"copy.tv3"_s)));
    QCOMPARE(picture(*DatafileFixture::opened(g_files.path(u"copy.tv3"_s))), before);
}

void RecordOperationsTest::recordsMoveOnlyWhileAllAreSelected()
{
    const auto document = opened(DatafileFixture::root(4)); // 3 2 1 0
    RecordOperations operations(*document);
    QVERIFY(operations.moveToFirst(u"r1"_s).value());
    QCOMPARE(orderOf(*document), u"1 3 2 0"_s);
    QVERIFY(operations.moveAfter(u"r1"_s, u"r2"_s).value());
    QCOMPARE(orderOf(*document), u"3 2 1 0"_s);
    QVERIFY(operations.moveAfter(u"r0"_s, u"r3"_s).value());
    QCOMPARE(orderOf(*document), u"3 0 2 1"_s);
    QVERIFY(!operations.moveToLast(u"r1"_s).value());
    QVERIFY(!operations.moveAfter(u"r0"_s, u"r3"_s).value());
    for (int step = 0; step < 3; ++step)
        document->undoHistory().undo();
    QCOMPARE(orderOf(*document), u"3 2 1 0"_s);
    document->datafileCatalog().omitIdentifier(u"r2"_s);
    QCOMPARE(operations.moveToFirst(u"r1"_s).error().kind, Error::Kind::Refused);
}

void RecordOperationsTest::lockingRemembersWhatWas()
{
    const auto document = opened(DatafileFixture::root(3));
    RecordOperations operations(*document);
    const auto locked = [&document] {
        QString marks;
        for (int i = 0; i < 3; ++i)
            marks += document->datafileRecords().view(u"r%1"_s.arg(i))->recordLocked() ? u'x' : u'-';
        return marks;
    };
    QVERIFY(operations.setLocked(u"r1"_s, true) && !operations.setLocked(u"r1"_s, true));
    operations.setAllLocked(true);
    QCOMPARE(locked(), u"xxx"_s);
    operations.revertAllLocked();
    operations.revertAllLocked();
    QCOMPARE(locked(), u"-x-"_s);
    QVERIFY(document->datafileSettings().datafileSettingsDidChange());
    document->undoHistory().undo();
    QCOMPARE(locked(), u"xxx"_s);
    document->undoHistory().undo();
    document->undoHistory().undo();
    QCOMPARE(locked(), u"---"_s);
}

void RecordOperationsTest::duplicatesAreThoseThatSayTheSame_data()
{
    // Field, text, and rich text (null: none) of each record. The catalog has them the other way round.
    using Records = QList<QStringList>;
    QTest::addColumn<Records>("records");
    QTest::addColumn<QString>("removed");
    QTest::addColumn<QString>("removedByPlainText");
    QTest::newRow("three") << Records{{u"a"_s, u"t"_s}, {u"a"_s, u"t"_s}, {u"a"_s, u"t"_s}} << u"1 0"_s
                           << u"1 0"_s;
    QTest::newRow("capitals") << Records{{u"a"_s, u"t"_s}, {u"A"_s, u"t"_s}} << u""_s << u""_s;
    QTest::newRow("field and text") << Records{{u"at"_s, u""_s}, {u""_s, u"at"_s}, {u"a"_s, u"t"_s}} << u""_s
                                    << u""_s;
    QTest::newRow("missing is empty") << Records{{u""_s, u"t"_s}, {{}, u"t"_s}} << u"0"_s << u"0"_s;
    QTest::newRow("entities") << Records{{u"a<b"_s, u"&"_s}, {u"a<b"_s, u"&"_s}} << u"0"_s << u"0"_s;
    const QString bold = u"{\\rtf1\\ansi \\b t}"_s;
    QTest::newRow("styles") << Records{{u"a"_s, u"t"_s, bold}, {u"a"_s, u"t"_s, u"{\\rtf1\\ansi t}"_s}}
                            << u"0"_s << u"0"_s;
    QTest::newRow("one is plain") << Records{{u"a"_s, u"t"_s, bold}, {u"a"_s, u"t"_s}} << u"0"_s << u"0"_s;
    QTest::newRow("stale plain text")
        << Records{{u"a"_s, u"t"_s, bold}, {u"a"_s, u"t"_s, u"{\\rtf1\\ansi u}"_s}} << u""_s << u"0"_s;
}

void RecordOperationsTest::duplicatesAreThoseThatSayTheSame()
{
    QFETCH(const QList<QStringList>, records);
    plist::Dictionary stored;
    for (int i = 0; i < records.size(); ++i) {
        plist::Dictionary fields;
        if (!records[i][0].isNull())
            fields.insert(u"f"_s, records[i][0]);
        stored.insert(u"r%1"_s.arg(i),
                      plist::Dictionary{{u"Fields"_s, fields},
                                        {u"TextString"_s, records[i][1]},
                                        {u"TextRTFD"_s, records[i].value(2).toLatin1()}});
    }
    plist::Dictionary root = DatafileFixture::root(int(records.size()));
    root.insert(u"Records"_s, stored);
    using Compare = DuplicateRemoval::Compare;
    for (const Compare compare : {Compare::RichTexts, Compare::PlainTexts}) {
        const auto document = opened(root);
        DuplicateRemoval removal(*document, compare);
        Progress progress;
        removal.run(progress);
        const QString gone = removal.apply(*document).join(u' ').remove(u'r');
        QTEST(gone, compare == Compare::RichTexts ? "removed" : "removedByPlainText");
        QCOMPARE(document->isModified(), !gone.isEmpty());
        document->undoHistory().undo();
        QCOMPARE(document->datafileRecords().count(), records.size());
    }
}

void RecordOperationsTest::backupsAreDatedAndOnlySoManyKept()
{
    for (const QLocale &locale : {QLocale(u"en_US"_s), QLocale(u"de_DE"_s), QLocale::c()}) {
        const QString stamp = fullDateTime(QDateTime({2026, 3, 5}, {20, 4, 9}), locale);
        QVERIFY2(!stamp.contains(u'/') && !stamp.contains(u':') && !stamp.contains(u' '), qPrintable(stamp));
        QVERIFY(stamp.contains(u"04\u202209"_s));
    }
    Preferences preferences{QString()};
    preferences.setObject(g_files.path(u"datafiles"_s), u"DatafilesFolderURL"_s);
    preferences.setObject(2, u"BackupsToKeep"_s);
    DocumentServices services = DatafileFixture::services();
    services.preferences = &preferences;
    const QString path = g_files.make(u"a.tv3"_s, DatafileFixture::root(2));
    const auto document = std::move(*DatafileDocument::open(services, path, SelectionOnOpening::AsStored));
    const DatafileBackups backups(*document);
    QVERIFY(QDir().mkpath(backups.folder()));
    QVERIFY(QFile::copy(path, backups.folder() + u"/a b 1_1\u20221.tv3"_s));
    QStringList written;
    for (int i = 0; i < 3; ++i)
        written.append(backups.write().value());
    QCOMPARE(QSet<QString>(written.begin(), written.end()).size(), 3);
    QCOMPARE(backups.list().size(), 2);
    QCOMPARE(QDir(backups.folder()).entryList(QDir::Files).size(), 3);
    QCOMPARE(document->filePath(), path);
    QCOMPARE(picture(*DatafileFixture::opened(backups.list().first().path)), picture(*document));
    QLocale::setDefault(QLocale(u"da_DK"_s)); // Without a colon in its times.
    QVERIFY(backups.write());
    QLocale::setDefault(QLocale::c());
    QCOMPARE(QDir(backups.folder()).entryList(QDir::Files).size(), 3);
}

void RecordOperationsTest::aBackupIsNeverLostByRestoringIt()
{
    const QString backup = g_files.make(u"backup.tv3"_s, DatafileFixture::root(2));
    const QString inUse = g_files.make(u"inUse.tv3"_s, DatafileFixture::root(1));
    const QString other = g_files.make(u"other.tv3"_s, DatafileFixture::root(3));
    const QByteArray content = DatafileFixture::contentOf(backup);
    const QByteArray otherContent = DatafileFixture::contentOf(other);
    const QString link = g_files.path(u"link.tv3"_s);
    QVERIFY(QFile::link(backup, link));
    const auto restore = [&inUse](const QString &from, const QString &target) {
        return DatafileBackups::restore(from, target, {inUse});
    };
    for (const QString &target : {backup, link, inUse})
        QCOMPARE(restore(backup, target).error().kind, Error::Kind::Refused);
    QVERIFY(!restore(g_files.path(u"nothing.tv3"_s), other));
    QCOMPARE(DatafileFixture::contentOf(backup), content);
    QCOMPARE(DatafileFixture::contentOf(other), otherContent);
    QVERIFY(restore(backup, other));
    QCOMPARE(DatafileFixture::contentOf(other), content);
}

void RecordOperationsTest::theTableOfContentsLinksEachRecord()
{
    const auto document = opened(DatafileFixture::root(2));
    document->storeText(u"r0"_s, u"first line\nsecond"_s);
    document->storeText(u"r1"_s, u""_s);
    TableOfContents contents(*document);
    Progress progress;
    contents.run(progress);
    const RecordData *record = document->datafileRecords().recordForIdentifier(contents.apply(*document));
    QCOMPARE(record->textString(), u"TABLE of CONTENTS\n\nvalue 1\nfirst line\n"_s);
    QCOMPARE(document->datafileCatalog().identifierAtIndex(0), record->identifier());
    const auto rich = richtext::readRichText(record->textRTFD());
    QCOMPARE(rich->text(), record->textString());
    QCOMPARE(rich->characterFormatAt(30).link, u"uuid://r0"_s);
    QCOMPARE(rich->characterFormatAt(5).link, QString());
}

void RecordOperationsTest::undoingEverythingGivesTheOriginal()
{
    const auto document = opened(DatafileFixture::root(40));
    numberNewRecords(*document, 7, 1);
    const QStringList original = picture(*document);
    QRandomGenerator random(4711);
    const auto any = [&] {
        return document->datafileCatalog().identifierAtIndex(
            random.bounded(int(document->datafileCatalog().count())));
    };
    RecordOperations operations(*document);
    QStringList last = original;
    for (int step = 0; step < UndoHistory::longest; ++step) {
        QStringList some;
        for (int i = random.bounded(3); i >= 0; --i)
            some.append(any());
        switch (random.bounded(8)) {
        case 0:
            RecordAdding(*document).addRecord(any());
            break;
        case 1:
            RecordAdding(*document).duplicateRecord(any());
            break;
        case 2:
            (void)operations.deleteRecords(some);
            break;
        case 3:
            (void)operations.moveAfter(some.first(), any());
            break;
        case 4:
            operations.setAllLocked(random.bounded(2) == 1);
            break;
        case 5:
            operations.setLocked(any(), true);
            break;
        case 6:
            (void)operations.moveToFirst(any());
            break;
        default:
            operations.revertAllLocked();
        }
        last = picture(*document);
    }
    const auto whole = [&](auto step) {
        for (qsizetype i = 0; i <= UndoHistory::longest; ++i)
            (document->undoHistory().*step)();
    };
    whole(&UndoHistory::undo);
    QCOMPARE(picture(*document), original);
    QVERIFY(!document->isModified());
    whole(&UndoHistory::redo);
    QCOMPARE(picture(*document), last);
}

QTEST_GUILESS_MAIN(RecordOperationsTest)
#include "RecordOperationsTest.moc"

#include "platform/Directories.h"
#include "platform/EarlierCopy.h"
#include "platform/InPlace.h"
#include "platform/TextFile.h"
#include "support/Files.h"
#include "support/OrdinaryUser.h"
#include "support/ScriptedPrompts.h"
#include "support/SmallDisk.h"

#include <QtTest>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace {

uint ModeOf(const QString& path) {
    struct stat status {};
    return stat(qPrintable(path), &status) == 0 ? status.st_mode & 07777 : 0;
}

} // namespace

/// What locales, permissions, links and full disks do to files.
class tst_unixfiles : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void ReadTextFile_Pipe_Reason();
    void EncodeForLocale_Letters_Kept();
    void EncodeForLocale_SingleByteLocale_Used();
    void ReadTextFile_NoPermission_Reason();
    void WriteFile_NewFile_OwnerOnly();
    void WriteFile_Existing_ReplacedAsItWas_data();
    void WriteFile_Existing_ReplacedAsItWas();
    void WriteFile_MayNotBeReplaced_WrittenInPlace_data();
    void WriteFile_MayNotBeReplaced_WrittenInPlace();
    void FileLock_EndedWritingInPlace_PutBack_data();
    void FileLock_EndedWritingInPlace_PutBack();
    void WriteFile_DiskFullNewFile_NoPieceLeft();
    void WriteFile_NoPermission_EarlierVersionUntouched_data();
    void WriteFile_NoPermission_EarlierVersionUntouched();
    void WriteFile_Impossible_MessageNamesFile_data();
    void WriteFile_Impossible_MessageNamesFile();
    void AppendToFile_DiskFull_CutBack();
    void EarlierCopy_Offered_AsAnswered();
    void MakeDirectory_Client_OwnerOnly();

  private:
    QString Path(const char* name) const { return folder_->filePath(QLatin1String(name)); }
    QStringList Names() const { return QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_unixfiles::init() { folder_ = std::make_unique<QTemporaryDir>(); }

void tst_unixfiles::ReadTextFile_Pipe_Reason() {
    // Nobody writes to it, so opening it would never come back.
    QCOMPARE(mkfifo(qPrintable(Path("pipe")), 0600), 0);
    TextOfFile file;
    QCOMPARE(ReadTextFile(Path("pipe"), 1000, file).Message(), QStringLiteral("it is not a regular file"));
}

void tst_unixfiles::EncodeForLocale_Letters_Kept() {
    QCOMPARE(EncodeForLocale(QStringLiteral("Zoë 李")), QByteArray("Zo\xC3\xAB \xE6\x9D\x8E"));
}

void tst_unixfiles::EncodeForLocale_SingleByteLocale_Used() {
    QProcess localedef;
    localedef.start(QStringLiteral("localedef"), {QStringLiteral("-i"), QStringLiteral("en_US"), QStringLiteral("-f"),
                                                  QStringLiteral("ISO-8859-15"), Path("single")});
    if (!localedef.waitForFinished() || !QFile::exists(Path("single/LC_CTYPE")))
        QSKIP("No locale with another encoding can be made here");
    const QByteArray before = qgetenv("LC_ALL");
    qputenv("LOCPATH", QFile::encodeName(folder_->path()));
    qputenv("LC_ALL", "single");
    const QByteArray euro = EncodeForLocale(QStringLiteral("Zoë €"));
    const QByteArray han = EncodeForLocale(QStringLiteral("Zoë 李"));
    qunsetenv("LOCPATH");
    qputenv("LC_ALL", before);
    QCOMPARE(euro, QByteArray("Zo\xEB \xA4"));
    QCOMPARE(han, QByteArray("Zo\xC3\xAB \xE6\x9D\x8E"));
}

void tst_unixfiles::ReadTextFile_NoPermission_Reason() {
    PutBytes(Path("a"), "secret");
    QVERIFY(chmod(qPrintable(Path("a")), 0) == 0 && chmod(qPrintable(folder_->path()), 0755) == 0);
    const OrdinaryUser user;
    QVERIFY(user.IsReal());
    TextOfFile file;
    QCOMPARE(ReadTextFile(Path("a"), 1000, file).Message(), QStringLiteral("Permission denied"));
}

void tst_unixfiles::WriteFile_NewFile_OwnerOnly() {
    QVERIFY(WriteFile(Path("a"), "x"));
    QCOMPARE(ModeOf(Path("a")), 0600u);
}

void tst_unixfiles::WriteFile_Existing_ReplacedAsItWas_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("itself") << QStringLiteral("far/a");
    QTest::newRow("link") << QStringLiteral("link");
    QTest::newRow("link to a link") << QStringLiteral("linklink");
}

void tst_unixfiles::WriteFile_Existing_ReplacedAsItWas() {
    QFETCH(QString, name);
    const QString path = folder_->filePath(name);
    const QString target = Path("far/a");
    QVERIFY(QDir(folder_->path()).mkdir(QStringLiteral("far")));
    PutBytes(target, "earlier");
    QVERIFY(QFile::link(QStringLiteral("far/a"), Path("link")) && QFile::link(Path("link"), Path("linklink")));
    QVERIFY(chmod(qPrintable(target), 0640) == 0 && (geteuid() != 0 || chown(qPrintable(target), 65534, 12345) == 0));
    QVERIFY(link(qPrintable(target), qPrintable(Path("hard"))) == 0);
    // Left by programs that were ended: nobody holds the lock, and nobody goes on with the new file.
    PutBytes(Path("far/.a.vellumo-new"), "half");
    PutBytes(Path("far/.a.vellumo-lock"), QByteArray());
    QFile reader(target);
    QVERIFY(reader.open(QIODevice::ReadOnly));
    {
        const SmallDisk disk(10);
        const Result written = WriteFile(path, QByteArray(1000, 'x'));
        QVERIFY2(written.Message().endsWith(qt_error_string(EFBIG) +
                                            QStringLiteral(". The earlier version was not changed.")),
                 qPrintable(written.Message()));
    }
    QCOMPARE(BytesOf(target), "earlier");
    QVERIFY(WriteFile(path, "two"));
    QCOMPARE(BytesOf(target), "two");
    // Whoever was reading reads the earlier version to its end, and so it stays under its other name.
    QCOMPARE(reader.readAll(), "earlier");
    QCOMPARE(BytesOf(Path("hard")), "earlier");
    QVERIFY(QFileInfo(Path("link")).isSymLink() && QFileInfo(Path("linklink")).isSymLink());
    struct stat status {};
    QCOMPARE(stat(qPrintable(target), &status), 0);
    QCOMPARE(status.st_mode & 07777, 0640u);
    QVERIFY(geteuid() != 0 || (status.st_uid == 65534 && status.st_gid == 12345));
    QCOMPARE(QDir(Path("far")).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a")});
}

void tst_unixfiles::WriteFile_MayNotBeReplaced_WrittenInPlace_data() {
    QTest::addColumn<qint64>("disk");
    QTest::newRow("room enough") << qint64(-1);
    QTest::newRow("full") << qint64(5);
}

void tst_unixfiles::WriteFile_MayNotBeReplaced_WrittenInPlace() {
    QFETCH(qint64, disk);
    if (geteuid() != 0)
        QSKIP("Only an administrator can make such a folder");
    PutBytes(Path("a"), "1234");
    QVERIFY(chmod(qPrintable(Path("a")), 0666) == 0 && chmod(qPrintable(folder_->path()), 01777) == 0);
    Result written = Result::Done();
    {
        const OrdinaryUser user;
        QVERIFY(user.IsReal());
        std::optional<SmallDisk> small;
        if (disk > 0)
            small.emplace(disk);
        written = WriteFile(Path("a"), "123456");
    }
    QCOMPARE(written.Ok(), disk < 0);
    QCOMPARE(BytesOf(Path("a")), written ? "123456" : "1234");
    QCOMPARE(ModeOf(Path("a")), 0666u);
    QCOMPARE(Names(), QStringList{QStringLiteral("a")});
}

void tst_unixfiles::FileLock_EndedWritingInPlace_PutBack_data() {
    QTest::addColumn<QByteArray>("note");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("copy");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<bool>("copyStays");
    const QByteArray earlier = "earlier";
    QTest::newRow("copying") << QByteArray("copying 1") << earlier << QByteArray("ear") << earlier << false;
    QTest::newRow("in the middle") << QByteArray("over 1") << QByteArray("newlier") << earlier << earlier << false;
    QTest::newRow("before the cut") << QByteArray("over 1") << QByteArray("new one, longer") << earlier
                                    << QByteArray("new one, longer") << false;
    QTest::newRow("changed since") << QByteArray("over 1") << QByteArray("by hand") << earlier << QByteArray("by hand")
                                   << true;
}

void tst_unixfiles::FileLock_EndedWritingInPlace_PutBack() {
    QFETCH(QByteArray, note);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, copy);
    QFETCH(bool, copyStays);
    PutBytes(Path("a"), content);
    PutBytes(Path("a.earlier(1)"), copy);
    PutBytes(Path(".a.vellumo-new"), "new one, longer");
    PutBytes(Path(".a.vellumo-lock"), "process 1 on x\nnote: " + note + "  \n");
    AwaitWriter(Path("a"));
    QTEST(BytesOf(Path("a")), "after");
    QCOMPARE(QFile::exists(Path("a.earlier(1)")), copyStays);
    QVERIFY(!QFile::exists(Path(".a.vellumo-lock")));
}

void tst_unixfiles::WriteFile_DiskFullNewFile_NoPieceLeft() {
    QVERIFY(QFile::link(Path("target"), Path("link")));
    for (const char* name : {"a", "link"}) {
        const SmallDisk disk(10);
        QVERIFY(!WriteFile(Path(name), QByteArray(1000, 'x')));
        QVERIFY(!AppendToFile(Path(name), QByteArray(1000, 'x')));
    }
    QCOMPARE(Names(), QStringList());
    QVERIFY(QFileInfo(Path("link")).isSymLink());
}

void tst_unixfiles::WriteFile_NoPermission_EarlierVersionUntouched_data() {
    QTest::addColumn<uint>("folderMode");
    QTest::addColumn<uint>("fileMode");
    QTest::newRow("file") << 0777u << 0444u;
    QTest::newRow("folder, which the new file needs") << 0555u << 0666u;
}

void tst_unixfiles::WriteFile_NoPermission_EarlierVersionUntouched() {
    QFETCH(uint, folderMode);
    QFETCH(uint, fileMode);
    PutBytes(Path("a"), "earlier");
    QVERIFY(chmod(qPrintable(Path("a")), fileMode) == 0 && chmod(qPrintable(folder_->path()), folderMode) == 0);
    Result written = Result::Done();
    {
        const OrdinaryUser user;
        QVERIFY(user.IsReal());
        written = WriteFile(Path("a"), "new");
    }
    chmod(qPrintable(folder_->path()), 0700);
    QVERIFY2(written.Message().contains(QStringLiteral("Permission denied. The earlier version was not changed.")),
             qPrintable(written.Message()));
    QCOMPARE(BytesOf(Path("a")), "earlier");
    QCOMPARE(Names(), QStringList{QStringLiteral("a")});
}

void tst_unixfiles::WriteFile_Impossible_MessageNamesFile_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("full device") << QStringLiteral("/dev/full") << QStringLiteral("the disk is full");
    QTest::newRow("directory") << QStringLiteral("/tmp") << QStringLiteral("it is a directory");
    QTest::newRow("below a file") << QStringLiteral("/etc/passwd/x") << QStringLiteral("there is no such folder");
    QTest::newRow("folder that isn't there")
        << QStringLiteral("/no such folder/x") << QStringLiteral("there is no such folder");
}

void tst_unixfiles::WriteFile_Impossible_MessageNamesFile() {
    QFETCH(QString, path);
    QFETCH(QString, reason);
    for (const Result& written : {WriteFile(path, "x"), AppendToFile(path, "x")}) {
        QVERIFY(!written);
        QVERIFY2(written.Message().startsWith(QStringLiteral("Can't write the file '") + path + QStringLiteral("': ") +
                                              reason),
                 qPrintable(written.Message()));
    }
}

void tst_unixfiles::AppendToFile_DiskFull_CutBack() {
    PutBytes(Path("a"), "earlier");
    {
        const SmallDisk disk(10);
        QVERIFY(!AppendToFile(Path("a"), "0123456789"));
    }
    QCOMPARE(BytesOf(Path("a")), "earlier");
    QCOMPARE(Names(), QStringList{QStringLiteral("a")});
}

void tst_unixfiles::EarlierCopy_Offered_AsAnswered() {
    ScriptedPrompts prompts;
    const QString copy = Path("a.earlier(1)");
    const auto offer = [&] {
        return OfferEarlierCopy(
            Path("a"), QStringLiteral("Bad."), [](const QString& p) { return p.contains(u'('); }, prompts);
    };
    PutBytes(Path("a"), "half");
    PutBytes(Path("a.earlier"), "older, and bad, too");
    QVERIFY(!offer());
    PutBytes(copy, "whole");
    const QString question = QStringLiteral("is in '%1'. Use it? What is in the file now will be kept as '%2'.");
    prompts.Expect(question.arg(copy, Path("a.damaged")), PromptAnswer::No).InPart();
    QVERIFY(!offer());
    QCOMPARE(BytesOf(Path("a")), "half");
    prompts.Expect(question.arg(copy, Path("a.damaged")), PromptAnswer::Yes).InPart();
    QVERIFY(offer());
    QCOMPARE(BytesOf(Path("a")), "whole");
    QCOMPARE(BytesOf(Path("a.damaged")), "half");
    QVERIFY(!QFile::exists(copy) && !offer());
}

void tst_unixfiles::MakeDirectory_Client_OwnerOnly() {
    MakeDirectory(Path("clients/Ann"));
    QVERIFY(DirectoryExists(Path("clients/Ann")));
    for (const char* made : {"clients", "clients/Ann"})
        QCOMPARE(ModeOf(Path(made)), 0700u);
    QVERIFY(QDir().mkdir(Path("shared")) && chmod(qPrintable(Path("shared")), 0755) == 0);
    MakeDirectory(Path("shared/Bo"));
    MakeDirectory(Path("shared"));
    QCOMPARE(ModeOf(Path("shared")), 0755u);
    MakeDirectory(QStringLiteral("/etc/passwd/x"));
    QVERIFY(!DirectoryExists(QStringLiteral("/etc/passwd/x")));
}

QTEST_GUILESS_MAIN(tst_unixfiles)
#include "tst_unixfiles.moc"

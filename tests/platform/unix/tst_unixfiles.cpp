#include "platform/Directories.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"
#include "support/OrdinaryUser.h"
#include "support/SmallDisk.h"

#include <QtTest>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

bool Make(const QString& path, const QByteArray& content) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
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
    void WriteFile_Link_FollowedAndPermissionsKept();
    void WriteFile_DiskFull_EarlierVersionKept();
    void WriteFile_DiskFullThroughALink_CopyBesideTheFile();
    void WriteFile_DiskFullNewFile_NoPieceLeft();
    void WriteFile_CopyDoesNotFit_TargetUntouched();
    void WriteFile_NoPermission_EarlierVersionUntouched_data();
    void WriteFile_NoPermission_EarlierVersionUntouched();
    void WriteFile_Impossible_MessageNamesFile_data();
    void WriteFile_Impossible_MessageNamesFile();
    void AppendToFile_DiskFull_CutBack();
    void MakeDirectory_Client_OwnerOnly();

  private:
    QString Path(const char* name) const { return folder_->filePath(QLatin1String(name)); }
    QStringList Names() const { return QDir(folder_->path()).entryList(QDir::Files, QDir::Name); }

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
    QVERIFY(Make(Path("a"), "secret"));
    QVERIFY(chmod(qPrintable(Path("a")), 0) == 0 && chmod(qPrintable(folder_->path()), 0755) == 0);
    const OrdinaryUser user;
    QVERIFY(user.IsReal());
    TextOfFile file;
    QCOMPARE(ReadTextFile(Path("a"), 1000, file).Message(), QStringLiteral("Permission denied"));
}

void tst_unixfiles::WriteFile_NewFile_OwnerOnly() {
    QVERIFY(WriteFile(Path("a"), "x"));
    struct stat status {};
    QCOMPARE(stat(qPrintable(Path("a")), &status), 0);
    QCOMPARE(status.st_mode & 0777, 0600u);
}

void tst_unixfiles::WriteFile_Link_FollowedAndPermissionsKept() {
    QVERIFY(Make(Path("target"), "one"));
    QCOMPARE(chmod(qPrintable(Path("target")), 0640), 0);
    QVERIFY(QFile::link(Path("target"), Path("link")));
    QVERIFY(WriteFile(Path("link"), "two"));
    QCOMPARE(Content(Path("target")), "two");
    QVERIFY(QFileInfo(Path("link")).isSymLink());
    struct stat status {};
    QCOMPARE(stat(qPrintable(Path("target")), &status), 0);
    QCOMPARE(status.st_mode & 0777, 0640u);
}

void tst_unixfiles::WriteFile_DiskFull_EarlierVersionKept() {
    QVERIFY(Make(Path("a"), "earlier"));
    Result written = Result::Done();
    {
        const SmallDisk disk(10);
        written = WriteFile(Path("a"), QByteArray(1000, 'x'));
    }
    QVERIFY(!written);
    QVERIFY2(written.Message().contains(Path("a.earlier")), qPrintable(written.Message()));
    // A piece was taken, and yet the message says why not the rest.
    QVERIFY2(written.Message().contains(qt_error_string(EFBIG)), qPrintable(written.Message()));
    QCOMPARE(Content(Path("a.earlier")), "earlier");
    // The next failure must not take the earlier copy away.
    {
        const SmallDisk disk(10);
        written = WriteFile(Path("a"), QByteArray(1000, 'y'));
    }
    QCOMPARE(Content(Path("a.earlier")), "earlier");
}

void tst_unixfiles::WriteFile_DiskFullThroughALink_CopyBesideTheFile() {
    QVERIFY(QDir(folder_->path()).mkdir(QStringLiteral("far")));
    QVERIFY(Make(Path("far/a"), "earlier"));
    QCOMPARE(chmod(qPrintable(Path("far/a")), 0640), 0);
    QVERIFY(QFile::link(Path("far/a"), Path("link")));
    {
        const SmallDisk disk(10);
        QVERIFY(!WriteFile(Path("link"), QByteArray(1000, 'x')));
    }
    QCOMPARE(Content(Path("far/a.earlier")), "earlier");
    // Who could read it before can read it still.
    struct stat status {};
    QCOMPARE(stat(qPrintable(Path("far/a.earlier")), &status), 0);
    QCOMPARE(status.st_mode & 0777, 0640u);
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

void tst_unixfiles::WriteFile_CopyDoesNotFit_TargetUntouched() {
    QVERIFY(Make(Path("a"), "an earlier version"));
    Result written = Result::Done();
    {
        const SmallDisk disk(10);
        written = WriteFile(Path("a"), "new");
    }
    QVERIFY(!written);
    QVERIFY2(written.Message().contains(QStringLiteral("The earlier version was not changed")) &&
                 written.Message().contains(qt_error_string(EFBIG)),
             qPrintable(written.Message()));
    QCOMPARE(Content(Path("a")), "an earlier version");
    QCOMPARE(Names(), QStringList{QStringLiteral("a")});
}

void tst_unixfiles::WriteFile_NoPermission_EarlierVersionUntouched_data() {
    QTest::addColumn<uint>("folderMode");
    QTest::addColumn<uint>("fileMode");
    QTest::newRow("file") << 0777u << 0444u;
    QTest::newRow("folder, which the copy needs") << 0555u << 0666u;
}

void tst_unixfiles::WriteFile_NoPermission_EarlierVersionUntouched() {
    QFETCH(uint, folderMode);
    QFETCH(uint, fileMode);
    QVERIFY(Make(Path("a"), "earlier"));
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
    QCOMPARE(Content(Path("a")), "earlier");
    QCOMPARE(Names(), QStringList{QStringLiteral("a")});
}

void tst_unixfiles::WriteFile_Impossible_MessageNamesFile_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("full device") << QStringLiteral("/dev/full") << qt_error_string(ENOSPC);
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
    QVERIFY(Make(Path("a"), "earlier"));
    Result written = Result::Done();
    {
        const SmallDisk disk(10);
        written = AppendToFile(Path("a"), "0123456789");
    }
    QVERIFY(!written);
    QCOMPARE(Content(Path("a")), "earlier");
}

void tst_unixfiles::MakeDirectory_Client_OwnerOnly() {
    MakeDirectory(Path("clients/Ann"));
    QVERIFY(DirectoryExists(Path("clients/Ann")));
    for (const char* made : {"clients", "clients/Ann"}) {
        struct stat status {};
        QCOMPARE(stat(qPrintable(Path(made)), &status), 0);
        QCOMPARE(status.st_mode & 0777, 0700u);
    }
    struct stat others {};
    QVERIFY(QDir().mkdir(Path("shared")) && chmod(qPrintable(Path("shared")), 0755) == 0);
    MakeDirectory(Path("shared/Bo"));
    MakeDirectory(Path("shared"));
    QCOMPARE(stat(qPrintable(Path("shared")), &others), 0);
    QCOMPARE(others.st_mode & 0777, 0755u);
    MakeDirectory(QStringLiteral("/etc/passwd/x"));
    QVERIFY(!DirectoryExists(QStringLiteral("/etc/passwd/x")));
}

QTEST_GUILESS_MAIN(tst_unixfiles)
#include "tst_unixfiles.moc"

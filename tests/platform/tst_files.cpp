#include "platform/CodePage.h"
#include "platform/Directories.h"
#include "platform/FileNames.h"
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

class tst_files : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void DecodeText_Bytes_TextAndEncoding_data();
    void DecodeText_Bytes_TextAndEncoding();
    void CodePage_EveryByte_ComesBack();
    void EncodeForLocale_Letters_Kept();
    void EncodeForLocale_SingleByteLocale_Used();
    void ReadTextFile_BadInput_Reason_data();
    void ReadTextFile_BadInput_Reason();
    void ReadTextFile_NoPermission_Reason();
    void WriteFile_NewAndReplaced_ContentAndNothingElse();
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
    void AppendToFile_Again_BehindWhatIsThere();
    void AppendToFile_DiskFull_CutBack();
    void FileNameOf_Names_Safe_data();
    void FileNameOf_Names_Safe();
    void MakeDirectory_Client_OwnerOnly();

  private:
    QString Path(const char* name) const { return folder_->filePath(QLatin1String(name)); }
    QStringList Names() const { return QDir(folder_->path()).entryList(QDir::Files, QDir::Name); }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_files::init() { folder_ = std::make_unique<QTemporaryDir>(); }

void tst_files::DecodeText_Bytes_TextAndEncoding_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<TextEncoding>("encoding");
    QTest::newRow("ASCII") << QByteArray("abc") << QStringLiteral("abc") << TextEncoding::CodePage;
    QTest::newRow("windows-1252") << QByteArray("\x80uro \xE4\x93") << QStringLiteral("€uro ä“")
                                  << TextEncoding::CodePage;
    QTest::newRow("UTF-8") << QByteArray("\xE2\x82\xACuro") << QStringLiteral("€uro") << TextEncoding::Utf8;
    QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBF"
                                                   "a")
                                     << QStringLiteral("a") << TextEncoding::Utf8WithMark;
    QTest::newRow("UTF-8 cut in a letter")
        << QByteArray("a\xE2\x82") << QStringLiteral("aâ‚") << TextEncoding::CodePage;
    QTest::newRow("overlong UTF-8") << QByteArray("\xC0\xAF") << QStringLiteral("À¯") << TextEncoding::CodePage;
    QTest::newRow("undefined bytes") << QByteArray("\x81\x8D") << QStringLiteral("\u0081\u008D")
                                     << TextEncoding::CodePage;
}

void tst_files::DecodeText_Bytes_TextAndEncoding() {
    QFETCH(QByteArray, bytes);
    const TextOfFile file = DecodeText(bytes);
    QTEST(file.Text, "text");
    QTEST(file.Encoding, "encoding");
}

void tst_files::CodePage_EveryByte_ComesBack() {
    QByteArray all;
    for (int byte = 1; byte < 256; ++byte)
        all += static_cast<char>(byte);
    bool fits = false;
    QCOMPARE(EncodeCodePage(DecodeText(all).Text, &fits), all);
    QVERIFY(fits);
    EncodeCodePage(QStringLiteral("李"), &fits);
    QVERIFY(!fits);
}

void tst_files::EncodeForLocale_Letters_Kept() {
    QCOMPARE(EncodeForLocale(QStringLiteral("Zoë 李")), QByteArray("Zo\xC3\xAB \xE6\x9D\x8E"));
}

void tst_files::EncodeForLocale_SingleByteLocale_Used() {
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

void tst_files::ReadTextFile_BadInput_Reason_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << QStringLiteral("none") << QByteArray() << QStringLiteral("there is no such file");
    QTest::newRow("directory") << QStringLiteral(".") << QByteArray() << QStringLiteral("it is a directory");
    QTest::newRow("pipe that nobody writes to")
        << QStringLiteral("pipe") << QByteArray() << QStringLiteral("it is not a regular file");
    QTest::newRow("NUL") << QStringLiteral("f") << QByteArray("ab\0c", 4)
                         << QStringLiteral("it isn't a text file (the byte 0x00 at position 3)");
    QTest::newRow("control character") << QStringLiteral("f") << QByteArray("\x02")
                                       << QStringLiteral("it isn't a text file (the byte 0x02 at position 1)");
    QTest::newRow("too long") << QStringLiteral("f") << QByteArray(1001, 'a')
                              << QStringLiteral("it is 1,001 bytes long, and at most 1,000 can be read");
    QTest::newRow("longest") << QStringLiteral("f") << QByteArray(1000, 'a') << QString();
    QTest::newRow("empty") << QStringLiteral("f") << QByteArray() << QString();
    QTest::newRow("old end mark") << QStringLiteral("f") << QByteArray("a\t\r\n\x1A") << QString();
}

void tst_files::ReadTextFile_BadInput_Reason() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    if (name == QStringLiteral("f"))
        QVERIFY(Make(Path("f"), content));
    QCOMPARE(mkfifo(qPrintable(Path("pipe")), 0600), 0);
    TextOfFile file{QStringLiteral("before"), TextEncoding::Utf8};
    const Result read = ReadTextFile(folder_->filePath(name), 1000, file);
    QTEST(read.Message(), "reason");
    QCOMPARE(file.Text, read ? DecodeText(content).Text : QStringLiteral("before"));
}

void tst_files::ReadTextFile_NoPermission_Reason() {
    QVERIFY(Make(Path("a"), "secret"));
    QVERIFY(chmod(qPrintable(Path("a")), 0) == 0 && chmod(qPrintable(folder_->path()), 0755) == 0);
    const OrdinaryUser user;
    QVERIFY(user.IsReal());
    TextOfFile file;
    QCOMPARE(ReadTextFile(Path("a"), 1000, file).Message(), QStringLiteral("Permission denied"));
}

void tst_files::WriteFile_NewAndReplaced_ContentAndNothingElse() {
    QVERIFY(WriteFile(Path("a"), "one"));
    QVERIFY(WriteFile(Path("a"), "two, and longer"));
    QVERIFY(WriteFile(Path("a"), "3"));
    QCOMPARE(Content(Path("a")), "3");
    QCOMPARE(Names(), QStringList{QStringLiteral("a")});
}

void tst_files::WriteFile_NewFile_OwnerOnly() {
    QVERIFY(WriteFile(Path("a"), "x"));
    struct stat status {};
    QCOMPARE(stat(qPrintable(Path("a")), &status), 0);
    QCOMPARE(status.st_mode & 0777, 0600u);
}

void tst_files::WriteFile_Link_FollowedAndPermissionsKept() {
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

void tst_files::WriteFile_DiskFull_EarlierVersionKept() {
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

void tst_files::WriteFile_DiskFullThroughALink_CopyBesideTheFile() {
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

void tst_files::WriteFile_DiskFullNewFile_NoPieceLeft() {
    QVERIFY(QFile::link(Path("target"), Path("link")));
    for (const char* name : {"a", "link"}) {
        const SmallDisk disk(10);
        QVERIFY(!WriteFile(Path(name), QByteArray(1000, 'x')));
        QVERIFY(!AppendToFile(Path(name), QByteArray(1000, 'x')));
    }
    QCOMPARE(Names(), QStringList());
    QVERIFY(QFileInfo(Path("link")).isSymLink());
}

void tst_files::WriteFile_CopyDoesNotFit_TargetUntouched() {
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

void tst_files::WriteFile_NoPermission_EarlierVersionUntouched_data() {
    QTest::addColumn<uint>("folderMode");
    QTest::addColumn<uint>("fileMode");
    QTest::newRow("file") << 0777u << 0444u;
    QTest::newRow("folder, which the copy needs") << 0555u << 0666u;
}

void tst_files::WriteFile_NoPermission_EarlierVersionUntouched() {
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

void tst_files::WriteFile_Impossible_MessageNamesFile_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("full device") << QStringLiteral("/dev/full") << qt_error_string(ENOSPC);
    QTest::newRow("directory") << QStringLiteral("/tmp") << QStringLiteral("it is a directory");
    QTest::newRow("below a file") << QStringLiteral("/etc/passwd/x") << QStringLiteral("there is no such folder");
    QTest::newRow("folder that isn't there")
        << QStringLiteral("/no such folder/x") << QStringLiteral("there is no such folder");
}

void tst_files::WriteFile_Impossible_MessageNamesFile() {
    QFETCH(QString, path);
    QFETCH(QString, reason);
    for (const Result& written : {WriteFile(path, "x"), AppendToFile(path, "x")}) {
        QVERIFY(!written);
        QVERIFY2(written.Message().startsWith(QStringLiteral("Can't write the file '") + path + QStringLiteral("': ") +
                                              reason),
                 qPrintable(written.Message()));
    }
}

void tst_files::AppendToFile_Again_BehindWhatIsThere() {
    for (const char* part : {"one", "two", "three"})
        QVERIFY(AppendToFile(Path("a"), part));
    QCOMPARE(Content(Path("a")), "onetwothree");
    QCOMPARE(Names(), QStringList{QStringLiteral("a")});
}

void tst_files::AppendToFile_DiskFull_CutBack() {
    QVERIFY(Make(Path("a"), "earlier"));
    Result written = Result::Done();
    {
        const SmallDisk disk(10);
        written = AppendToFile(Path("a"), "0123456789");
    }
    QVERIFY(!written);
    QCOMPARE(Content(Path("a")), "earlier");
}

void tst_files::FileNameOf_Names_Safe_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("plain") << QStringLiteral("Ann Lee") << QStringLiteral("Ann Lee");
    QTest::newRow("forbidden") << QStringLiteral("a/b\\c:d*e?f\"g<h>i|j\n") << QStringLiteral("a_b_c_d_e_f_g_h_i_j_");
    QTest::newRow("dots only") << QStringLiteral("...") << QStringLiteral("___");
    QTest::newRow("upwards") << QStringLiteral("../../x") << QStringLiteral(".._.._x");
    QTest::newRow("trailing") << QStringLiteral("Jr. . ") << QStringLiteral("Jr____");
    QTest::newRow("leading dot stays") << QStringLiteral(".x") << QStringLiteral(".x");
    QTest::newRow("later control characters") << QStringLiteral("a\u0085b\u007Fc") << QStringLiteral("a_b_c");
    QTest::newRow("empty") << QString() << QString();
}

void tst_files::FileNameOf_Names_Safe() {
    QFETCH(QString, name);
    QTEST(FileNameOf(name), "fileName");
}

void tst_files::MakeDirectory_Client_OwnerOnly() {
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

QTEST_GUILESS_MAIN(tst_files)
#include "tst_files.moc"

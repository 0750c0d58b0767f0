#include "platform/CodePage.h"
#include "platform/Directories.h"
#include "platform/FileNames.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"
#include "support/Files.h"

#include <QtTest>

class tst_files : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void DecodeText_Bytes_TextAndEncoding_data();
    void DecodeText_Bytes_TextAndEncoding();
    void CodePage_EveryByte_ComesBack();
    void ReadTextFile_BadInput_Reason_data();
    void ReadTextFile_BadInput_Reason();
    void WriteFile_NewAndReplaced_ContentAndNothingElse();
    void AppendToFile_Again_BehindWhatIsThere();
    void FileNameOf_Names_Safe_data();
    void FileNameOf_Names_Safe();

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

void tst_files::ReadTextFile_BadInput_Reason_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << QStringLiteral("none") << QByteArray() << QStringLiteral("there is no such file");
    QTest::newRow("directory") << QStringLiteral(".") << QByteArray() << QStringLiteral("it is a directory");
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
        PutBytes(Path("f"), content);
    TextOfFile file{QStringLiteral("before"), TextEncoding::Utf8};
    const Result read = ReadTextFile(folder_->filePath(name), 1000, file);
    QTEST(read.Message(), "reason");
    QCOMPARE(file.Text, read ? DecodeText(content).Text : QStringLiteral("before"));
}

void tst_files::WriteFile_NewAndReplaced_ContentAndNothingElse() {
    QVERIFY(WriteFile(Path("a"), "one"));
    QVERIFY(WriteFile(Path("a"), "two, and longer"));
    QVERIFY(WriteFile(Path("a"), "3"));
    QCOMPARE(BytesOf(Path("a")), "3");
    QCOMPARE(Names(), QStringList{QStringLiteral("a")});
}

void tst_files::AppendToFile_Again_BehindWhatIsThere() {
    for (const char* part : {"one", "two", "three"})
        QVERIFY(AppendToFile(Path("a"), part));
    QCOMPARE(BytesOf(Path("a")), "onetwothree");
    QCOMPARE(Names(), QStringList{QStringLiteral("a")});
}

void tst_files::FileNameOf_Names_Safe_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("plain") << QStringLiteral("Ann Lee") << QStringLiteral("Ann Lee");
    // The digits are the first of "printf NAME | sha256sum".
    QTest::newRow("forbidden") << QStringLiteral("a/b\\c:d*e?f\"g<h>i|j\n")
                               << QStringLiteral("a_b_c_d_e_f_g_h_i_j_~839231");
    QTest::newRow("slash") << QStringLiteral("a/b") << QStringLiteral("a_b~c14cdd");
    QTest::newRow("backslash") << QStringLiteral("a\\b") << QStringLiteral("a_b~c62016");
    QTest::newRow("what it becomes") << QStringLiteral("a_b") << QStringLiteral("a_b");
    QTest::newRow("digits of its own") << QStringLiteral("a_b~c14cdd") << QStringLiteral("a_b~c14cdd~833884");
    QTest::newRow("dots only") << QStringLiteral("...") << QStringLiteral("___~ab5df6");
    QTest::newRow("upwards") << QStringLiteral("../../x") << QStringLiteral(".._.._x~9cdf6a");
    QTest::newRow("trailing") << QStringLiteral("Jr. . ") << QStringLiteral("Jr____~69afe9");
    QTest::newRow("device") << QStringLiteral("Nul.x.y") << QStringLiteral("Nul_x_y~18f319");
    QTest::newRow("like a device") << QStringLiteral("Connor") << QStringLiteral("Connor");
    QTest::newRow("long") << QString(54, u'李') << QString(53, u'李') + QStringLiteral("~0a011f");
    QTest::newRow("leading dot stays") << QStringLiteral(".x") << QStringLiteral(".x");
    QTest::newRow("later control characters") << QStringLiteral("a\u0085b\u007Fc") << QStringLiteral("a_b_c~79d3e6");
    QTest::newRow("empty") << QString() << QString();
}

void tst_files::FileNameOf_Names_Safe() {
    QFETCH(QString, name);
    QTEST(FileNameOf(name), "fileName");
}

QTEST_GUILESS_MAIN(tst_files)
#include "tst_files.moc"

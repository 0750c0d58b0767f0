#include "platform/CodePage.h"
#include "platform/SafeFile.h"
#include "platform/SystemPorts.h"
#include "platform/TextFile.h"
#include "platform/windows/RegistryOfficeProbe.h"
#include "platform/windows/RegistrySettingsStore.h"
#include "settings/Settings.h"
#include "support/Files.h"
#include "support/ScriptedPrompts.h"

#include <QtTest>

#include <windows.h>

namespace {

const QString SettingsKey = QStringLiteral("Software\\Vellumo\\Settings");
const QString ProbedKey = QStringLiteral("Vellumo.Probed\\CurVer");

const wchar_t* Wide(const QString& text) { return reinterpret_cast<const wchar_t*>(text.utf16()); }

/// Stores bytes as the default value of the probed key.
void StoreProbed(DWORD type, const QByteArray& bytes) {
    QCOMPARE(RegSetKeyValueA(HKEY_CLASSES_ROOT, ProbedKey.toLatin1().constData(), nullptr, type, bytes.constData(),
                             static_cast<DWORD>(bytes.size())),
             ERROR_SUCCESS);
}

} // namespace

class tst_windows : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        RegDeleteTreeW(HKEY_CURRENT_USER, Wide(SettingsKey));
        RegDeleteTreeW(HKEY_CLASSES_ROOT, Wide(ProbedKey));
    }
    void cleanupTestCase() { init(); }
    void Settings_Texts_ComeBack_data();
    void Settings_Texts_ComeBack();
    void Settings_FirstRun_AllKeysInTheRegistry();
    void Settings_OtherKindOfValue_Default();
    void ApplicationInstalled_Keys_AsStored_data();
    void ApplicationInstalled_Keys_AsStored();
    void ApplicationInstalled_KeyAbsentOrWithoutDefault_No();
    void QueryRegistryString_CloseFails_ToldAndAnswered();
    void Open_Programs_CommandLine();
    void Open_NoSuchProgram_MessageNamesIt();
    void CodePage_Letters_AsTheSystemSays();
    void WriteFile_HeldByAnother_EarlierVersionUntouched();
    void WriteFile_ReadOnly_EarlierVersionUntouched();
    void WriteFile_Impossible_MessageNamesFile_data();
    void WriteFile_Impossible_MessageNamesFile();
};

void tst_windows::Settings_Texts_ComeBack_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QStringLiteral("notepad.exe");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << QStringLiteral(" ");
    QTest::newRow("at sign, which Qt's own store would double") << QStringLiteral("@someone, \"at\" C:\\x\\");
    QTest::newRow("letters of all kinds") << QStringLiteral("Zoë 李 \U0001F600");
    QTest::newRow("long") << QString(5000, u'x');
}

void tst_windows::Settings_Texts_ComeBack() {
    QFETCH(QString, text);
    RegistrySettingsStore store;
    QCOMPARE(store.Read(QStringLiteral("defaulteditor"), QStringLiteral("none")), QStringLiteral("none"));
    QVERIFY(store.Write(QStringLiteral("defaulteditor"), text));
    QCOMPARE(store.Read(QStringLiteral("defaulteditor"), QStringLiteral("none")), text);
    QVERIFY(store.Write(QStringLiteral("defaulteditor"), QStringLiteral("short")));
    QCOMPARE(store.Read(QStringLiteral("defaulteditor"), QStringLiteral("none")), QStringLiteral("short"));
}

void tst_windows::Settings_FirstRun_AllKeysInTheRegistry() {
    Settings settings;
    LoadSettings(settings, *MakeUserSettingsStore(), {QStringLiteral("C:\\Vellumo"), QStringLiteral("C:\\Vellumo")});
    QCOMPARE(settings.DefaultEditor, QStringLiteral("notepad.exe"));
    QCOMPARE(settings.DefaultBrowser, QStringLiteral("explorer.exe"));
    DWORD values = 0;
    HKEY key = nullptr;
    QCOMPARE(RegOpenKeyW(HKEY_CURRENT_USER, Wide(SettingsKey), &key), ERROR_SUCCESS);
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                     nullptr);
    RegCloseKey(key);
    QCOMPARE(values, 14u);
    const RegistrySettingsStore store;
    QCOMPARE(store.Read(QStringLiteral("NamePersist"), {}), QStringLiteral("True"));
    QCOMPARE(store.Read(QStringLiteral("defaultdirectory"), {}), QStringLiteral("C:\\Vellumo"));
}

void tst_windows::Settings_OtherKindOfValue_Default() {
    // Another program may store a text without even the zero that ends it.
    QCOMPARE(RegSetKeyValueW(HKEY_CURRENT_USER, Wide(SettingsKey), L"bare", REG_SZ, nullptr, 0), ERROR_SUCCESS);
    QCOMPARE(RegistrySettingsStore().Read(QStringLiteral("bare"), QStringLiteral("none")), QString());
    // Or more of them, and something behind.
    QCOMPARE(RegSetKeyValueW(HKEY_CURRENT_USER, Wide(SettingsKey), L"long", REG_SZ, L"a\0b\0", 8), ERROR_SUCCESS);
    QCOMPARE(RegistrySettingsStore().Read(QStringLiteral("long"), QStringLiteral("none")), QStringLiteral("a"));
    const DWORD number = 7;
    QCOMPARE(RegSetKeyValueW(HKEY_CURRENT_USER, Wide(SettingsKey), L"x", REG_DWORD, &number, sizeof number),
             ERROR_SUCCESS);
    QCOMPARE(RegistrySettingsStore().Read(QStringLiteral("x"), QStringLiteral("none")), QStringLiteral("none"));
}

void tst_windows::ApplicationInstalled_Keys_AsStored_data() {
    QTest::addColumn<uint>("type");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("present") << uint(REG_SZ) << QByteArray("Excel.Sheet.12\0", 15) << QStringLiteral("Excel.Sheet.12");
    QTest::newRow("empty, the one byte that ends it") << uint(REG_SZ) << QByteArray("\0", 1) << QString();
    QTest::newRow("nothing") << uint(REG_SZ) << QByteArray() << QString();
    QTest::newRow("one letter") << uint(REG_SZ) << QByteArray("x\0", 2) << QStringLiteral("x");
    QTest::newRow("as long as the buffer")
        << uint(REG_SZ) << QByteArray(254, 'a') + QByteArray(1, '\0') << QString(254, u'a');
    QTest::newRow("longer") << uint(REG_SZ) << QByteArray(255, 'a') + QByteArray(1, '\0') << QString();
    QTest::newRow("a number") << uint(REG_DWORD) << QByteArray(4, 'a') << QString();
}

void tst_windows::ApplicationInstalled_Keys_AsStored() {
    QFETCH(uint, type);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    StoreProbed(type, bytes);
    ScriptedPrompts prompts;
    const auto probe = MakeOfficeProbe(prompts);
    QCOMPARE(probe->QueryRegistryString(RegistryRoot::ClassesRoot, ProbedKey, QString()), text);
    QCOMPARE(probe->ApplicationInstalled(ProbedKey, QString()), !text.isEmpty());
    QVERIFY(!probe->ApplicationInstalled(ProbedKey, QStringLiteral("another value")));
}

void tst_windows::ApplicationInstalled_KeyAbsentOrWithoutDefault_No() {
    ScriptedPrompts prompts;
    QVERIFY(!MakeOfficeProbe(prompts)->ApplicationInstalled(ProbedKey, QString()));
    QCOMPARE(RegSetKeyValueW(HKEY_CLASSES_ROOT, Wide(ProbedKey), L"named", REG_SZ, L"x", 4), ERROR_SUCCESS);
    QVERIFY(!MakeOfficeProbe(prompts)->ApplicationInstalled(ProbedKey, QString()));
    QVERIFY(MakeOfficeProbe(prompts)->ApplicationInstalled(ProbedKey, QStringLiteral("named")));
}

void tst_windows::QueryRegistryString_CloseFails_ToldAndAnswered() {
    StoreProbed(REG_SZ, QByteArray("here\0", 5));
    ScriptedPrompts prompts;
    prompts.Expect(QStringLiteral("RegCloseKey Failed: ") + ProbedKey);
    const RegistryOfficeProbe probe(prompts, [](void* key) {
        RegCloseKey(static_cast<HKEY>(key));
        return false;
    });
    QCOMPARE(probe.QueryRegistryString(RegistryRoot::ClassesRoot, ProbedKey, QString()), QStringLiteral("here"));
}

void tst_windows::Open_Programs_CommandLine() {
    QTemporaryDir folder;
    const QString made = QDir::toNativeSeparators(folder.filePath(QStringLiteral("made")));
    // The path stands as it is behind the program, which may bring arguments of its own.
    const Result opened =
        MakeLauncher()->Open(QStringLiteral("cmd.exe /c mkdir"), folder.filePath(QStringLiteral("made")));
    QVERIFY2(opened, qPrintable(opened.Message()));
    QVERIFY(QTest::qWaitFor([&] { return QFileInfo(made).isDir(); }));
}

void tst_windows::Open_NoSuchProgram_MessageNamesIt() {
    for (const QString& program : {QStringLiteral("no-such-editor.exe"), QString()}) {
        const Result opened = MakeLauncher()->Open(program, QStringLiteral("C:/a/b.txt"));
        QVERIFY(!opened);
        QVERIFY2(opened.Message().startsWith(QStringLiteral("Can't open 'C:\\a\\b.txt' with '") + program + u'\''),
                 qPrintable(opened.Message()));
    }
}

void tst_windows::CodePage_Letters_AsTheSystemSays() {
    // What Qt's own converter for the system's code page makes of it is the second opinion.
    QByteArray letters;
    for (int code = 0x20; code < 0x100; ++code)
        if (!IsDBCSLeadByte(static_cast<BYTE>(code)))
            letters += static_cast<char>(code);
    QCOMPARE(DecodeCodePage(letters), QString::fromLocal8Bit(letters));
    bool fits = false;
    QCOMPARE(EncodeCodePage(QString::fromLocal8Bit("plain"), &fits), "plain");
    QVERIFY(fits);
    const QString nowhere = QStringLiteral("a\U0001F600");
    QVERIFY(EncodeCodePage(nowhere, &fits).startsWith('a'));
    QCOMPARE(fits, GetACP() == CP_UTF8);
    QCOMPARE(EncodeForLocale(nowhere), nowhere.toUtf8());
}

void tst_windows::WriteFile_HeldByAnother_EarlierVersionUntouched() {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("held.txt"));
    PutBytes(path, "earlier");
    const HANDLE held = CreateFileW(Wide(QDir::toNativeSeparators(path)), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    QVERIFY(held != INVALID_HANDLE_VALUE);
    const Result written = WriteFile(path, "new");
    const Result appended = AppendToFile(path, "new");
    CloseHandle(held);
    QVERIFY(!written && !appended);
    QVERIFY2(written.Message().contains(path) && written.Message().contains(QStringLiteral("was not changed")),
             qPrintable(written.Message()));
    QCOMPARE(BytesOf(path), "earlier");
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

void tst_windows::WriteFile_ReadOnly_EarlierVersionUntouched() {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("fixed.txt"));
    PutBytes(path, "earlier");
    SetFileAttributesW(Wide(QDir::toNativeSeparators(path)), FILE_ATTRIBUTE_READONLY);
    QFile direct(path);
    const bool respected = !direct.open(QIODevice::ReadWrite);
    const Result written = respected ? WriteFile(path, "new") : Result::Done();
    SetFileAttributesW(Wide(QDir::toNativeSeparators(path)), FILE_ATTRIBUTE_NORMAL);
    if (!respected)
        QSKIP("Wine lets an administrator write read-only files");
    QVERIFY(!written);
    QCOMPARE(BytesOf(path), "earlier");
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

void tst_windows::WriteFile_Impossible_MessageNamesFile_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("directory") << QStringLiteral(".") << QStringLiteral("it is a directory");
    QTest::newRow("folder that isn't there")
        << QStringLiteral("no such folder/x") << QStringLiteral("there is no such folder");
    QTest::newRow("forbidden letter") << QStringLiteral("a?b")
                                      << QStringLiteral("a file's name can't hold the character ?. Nothing");
    QTest::newRow("stream of another file")
        << QStringLiteral("At 10:30.txt") << QStringLiteral("a file's name can't hold the character :. Nothing");
    QTest::newRow("device") << QStringLiteral("NUL") << QStringLiteral("'NUL' is the name of a device. Nothing");
    QTest::newRow("device with an ending") << QStringLiteral("com1 .b.txt") << QStringLiteral("'com1' is the name of");
}

void tst_windows::WriteFile_Impossible_MessageNamesFile() {
    QFETCH(QString, name);
    QFETCH(QString, reason);
    QTemporaryDir folder;
    const QString path = folder.filePath(name);
    for (const Result& written : {WriteFile(path, "x"), AppendToFile(path, "x")}) {
        QVERIFY(!written);
        QVERIFY2(written.Message().startsWith(QStringLiteral("Can't write the file '") + path + QStringLiteral("': ") +
                                              reason),
                 qPrintable(written.Message()));
        QVERIFY2(!written.Message().contains(QStringLiteral("..")), qPrintable(written.Message()));
    }
    QVERIFY(WriteFile(folder.filePath(QStringLiteral("Console.txt")), "x"));
}

QTEST_GUILESS_MAIN(tst_windows)
#include "tst_windows.moc"

#include "platform/SystemPorts.h"
#include "platform/unix/IniSettingsStore.h"
#include "settings/DefaultFolders.h"
#include "support/MemorySettingsStore.h"
#include "support/ScriptedPrompts.h"

#include <QtTest>

namespace {

const DefaultFolders Folders{QStringLiteral("/program"), QStringLiteral("/work")};

} // namespace

class tst_settings : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void LoadSettings_FirstRun_DefaultsWritten();
    void LoadSettings_Stored_ReadBack();
    void LoadSettings_BadFlag_KeepsDefault_data();
    void LoadSettings_BadFlag_KeepsDefault();
    void PeekSettings_FirstRun_NothingWritten();
    void RestoreDefaults_AdministratorName_Kept();
    void IniStore_Texts_ComeBackExactly();
    void IniStore_ReadOnlyPlace_WriteFails();
    void IniStore_PlaceMended_WritesAgain();
    void DefaultFolders_ProgramFolderNotWritable_DocumentsAndSamples();
    void OfficeProbe_Keys_Installed();
};

void tst_settings::LoadSettings_FirstRun_DefaultsWritten() {
    QTemporaryDir folder;
    IniSettingsStore store(folder.filePath(QStringLiteral("v.ini")));
    Settings settings;
    QVERIFY(LoadSettings(settings, store, Folders));
    const std::pair<const char*, const char*> expected[] = {
        {"globaloptionQuestionPrefix", "Q."},
        {"globaloptionQuestionSuffix", " "},
        {"defaulteditor", "xdg-open"},
        {"defaultdirectory", "/work"},
        {"NamePersist", "True"},
        {"AdministratorName", ""},
        {"CarriageReturn", "False"},
        {"defaultHTMLTemplate", "HTML Template.vlx"},
        {"defaultBrowser", "xdg-open"},
        {"defaultEmail", "someone@example.com"},
        {"defaultNextPage", "https://www.example.com/vellumo"},
        {"dirhtml", "/program"},
        {"dirtemphtml", "/program"},
    };
    for (const auto& [key, text] : expected)
        QCOMPARE(store.Read(QString::fromLatin1(key), QStringLiteral("<missing>")), QString::fromLatin1(text));
    QVERIFY(!LoadSettings(settings, store, Folders));
}

void tst_settings::LoadSettings_Stored_ReadBack() {
    MemorySettingsStore store;
    Settings settings;
    RestoreDefaultSettings(settings, Folders);
    settings.QuestionSuffix = QStringLiteral(") ");
    settings.AdministratorName = QStringLiteral("Zoë");
    settings.NamePersist = false;
    settings.BreakAfterQuestionNumber = true;
    settings.DefaultDirectory = QStringLiteral("/elsewhere");
    SaveSettings(settings, store);

    Settings loaded;
    QVERIFY(!LoadSettings(loaded, store, Folders));
    QCOMPARE(loaded.QuestionSuffix, QStringLiteral(") "));
    QCOMPARE(loaded.AdministratorName, QStringLiteral("Zoë"));
    QCOMPARE(loaded.NamePersist, false);
    QCOMPARE(loaded.BreakAfterQuestionNumber, true);
    QCOMPARE(loaded.DefaultDirectory, QStringLiteral("/elsewhere"));
}

void tst_settings::LoadSettings_BadFlag_KeepsDefault_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("persist");
    QTest::addColumn<bool>("lineBreak");
    QTest::newRow("true in any case") << QStringLiteral("tRUE") << true << true;
    QTest::newRow("false") << QStringLiteral("False") << false << false;
    QTest::newRow("zero") << QStringLiteral("0") << false << false;
    QTest::newRow("minus one") << QStringLiteral("-1") << true << true;
    QTest::newRow("past 16 bits") << QStringLiteral("99999") << true << true;
    QTest::newRow("not a number") << QStringLiteral("nan") << true << false;
    QTest::newRow("no boolean") << QStringLiteral("perhaps") << true << false;
    QTest::newRow("missing") << QString() << true << false;
}

void tst_settings::LoadSettings_BadFlag_KeepsDefault() {
    QFETCH(QString, stored);
    MemorySettingsStore store;
    store.Write(QStringLiteral("defaultdirectory"), QStringLiteral("/x"));
    store.Write(NamePersistKey, stored);
    store.Write(QStringLiteral("CarriageReturn"), stored);
    store.Write(QStringLiteral("dirtemphtml"), QStringLiteral("/last"));
    Settings settings;
    LoadSettings(settings, store, Folders);
    QTEST(settings.NamePersist, "persist");
    QTEST(settings.BreakAfterQuestionNumber, "lineBreak");
    QCOMPARE(settings.TempHtmlDirectory, QStringLiteral("/last"));
}

void tst_settings::PeekSettings_FirstRun_NothingWritten() {
    MemorySettingsStore store;
    Settings settings;
    PeekSettings(settings, store, Folders);
    QCOMPARE(settings.QuestionPrefix, QStringLiteral("Q."));
    QCOMPARE(store.Read(QStringLiteral("defaultdirectory"), QStringLiteral("none")), QStringLiteral("none"));
}

void tst_settings::RestoreDefaults_AdministratorName_Kept() {
    Settings settings;
    settings.AdministratorName = QStringLiteral("Bo");
    settings.QuestionPrefix = QStringLiteral("x");
    RestoreDefaultSettings(settings, Folders);
    QCOMPARE(settings.AdministratorName, QStringLiteral("Bo"));
    QCOMPARE(settings.QuestionPrefix, QStringLiteral("Q."));
}

void tst_settings::IniStore_Texts_ComeBackExactly() {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("deep/v.ini"));
    const QStringList texts{QStringLiteral(" "),
                            QStringLiteral("a, b; c"),
                            QStringLiteral("\"q\" \\ %20"),
                            QStringLiteral("Zoë 李"),
                            QStringLiteral("one\r\ntwo"),
                            QStringLiteral("@Invalid()"),
                            QString(),
                            QStringLiteral("True")};
    for (const QString& text : texts) {
        QVERIFY(IniSettingsStore(path).Write(QStringLiteral("k"), text));
        QCOMPARE(IniSettingsStore(path).Read(QStringLiteral("k"), QStringLiteral("none")), text);
    }
    for (const QString& made : {path, folder.filePath(QStringLiteral("deep"))})
        QCOMPARE(QFile::permissions(made) & (QFileDevice::ReadGroup | QFileDevice::ReadOther),
                 QFileDevice::Permissions());
}

void tst_settings::IniStore_ReadOnlyPlace_WriteFails() {
    IniSettingsStore store(QStringLiteral("/etc/passwd/v.ini"));
    QVERIFY(!store.Write(QStringLiteral("k"), QStringLiteral("x")));
    QCOMPARE(store.Read(QStringLiteral("other"), QStringLiteral("d")), QStringLiteral("d"));
}

void tst_settings::IniStore_PlaceMended_WritesAgain() {
    QTemporaryDir folder;
    const QString place = folder.filePath(QStringLiteral("place"));
    QFile obstacle(place);
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    IniSettingsStore store(place + QStringLiteral("/v.ini"));
    QVERIFY(!store.Write(QStringLiteral("k"), QStringLiteral("x")));
    QVERIFY(obstacle.remove());
    QVERIFY(store.Write(QStringLiteral("k"), QStringLiteral("y")));
    QCOMPARE(IniSettingsStore(place + QStringLiteral("/v.ini")).Read(QStringLiteral("k"), QString()),
             QStringLiteral("y"));
}

void tst_settings::DefaultFolders_ProgramFolderNotWritable_DocumentsAndSamples() {
    QTemporaryDir folder;
    const QString samples = folder.filePath(QStringLiteral("samples"));
    QVERIFY(QDir().mkpath(samples));
    for (const char* name : {"a.vlm", "b.vlm", "notes.txt"}) {
        QFile file(samples + u'/' + QLatin1String(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("sample") == 6);
    }
    // A folder that isn't there can't be written by anybody, not even by the system administrator.
    const KnownFolders known{QStringLiteral("/no such folder"), folder.path(), samples};
    const DefaultFolders chosen = ChooseDefaultFolders(known);
    QCOMPARE(chosen.WorkingDirectory, folder.filePath(QStringLiteral("Vellumo")));

    QVERIFY(QDir().mkpath(chosen.WorkingDirectory));
    QFile own(chosen.WorkingDirectory + QStringLiteral("/b.vlm"));
    QVERIFY(own.open(QIODevice::WriteOnly) && own.write("the user's") == 10);
    own.close();
    PrepareWorkingDirectory(chosen, known);
    QCOMPARE(QDir(chosen.WorkingDirectory).entryList(QDir::Files, QDir::Name),
             (QStringList{QStringLiteral("a.vlm"), QStringLiteral("b.vlm")}));
    QVERIFY(own.open(QIODevice::ReadOnly));
    QCOMPARE(own.readAll(), "the user's");

    QCOMPARE(ChooseDefaultFolders({folder.path(), QStringLiteral("/d"), QString()}).WorkingDirectory, folder.path());
}

void tst_settings::OfficeProbe_Keys_Installed() {
    ScriptedPrompts prompts;
    const auto probe = MakeOfficeProbe(prompts);
    QVERIFY(probe->ApplicationInstalled(SpreadsheetKey, QString()));
    QVERIFY(!probe->ApplicationInstalled(QStringLiteral("Other\\CurVer"), QString()));

    QTemporaryDir programs;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(programs.path()));
    QVERIFY(!probe->ApplicationInstalled(WordProcessorKey, QString()));
    QFile writer(programs.filePath(QStringLiteral("lowriter")));
    QVERIFY(writer.open(QIODevice::WriteOnly) && writer.setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    writer.close();
    QVERIFY(probe->ApplicationInstalled(WordProcessorKey, QString()));
    qputenv("PATH", path);
}

QTEST_GUILESS_MAIN(tst_settings)
#include "tst_settings.moc"

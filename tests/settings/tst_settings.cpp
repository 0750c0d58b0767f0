#include "settings/DefaultFolders.h"
#include "support/MemorySettingsStore.h"

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
    void DefaultFolders_ProgramFolderNotWritable_DocumentsAndSamples();
};

void tst_settings::LoadSettings_FirstRun_DefaultsWritten() {
#ifdef Q_OS_WIN
    constexpr const char* editor = "notepad.exe";
    constexpr const char* browser = "explorer.exe";
#else
    constexpr const char* editor = "xdg-open";
    constexpr const char* browser = "xdg-open";
#endif
    MemorySettingsStore store;
    Settings settings;
    QVERIFY(LoadSettings(settings, store, Folders));
    const std::pair<const char*, const char*> expected[] = {
        {"globaloptionQuestionPrefix", "Q."},
        {"globaloptionQuestionSuffix", " "},
        {"defaulteditor", editor},
        {"defaultdirectory", "/work"},
        {"NamePersist", "True"},
        {"AdministratorName", ""},
        {"CarriageReturn", "False"},
        {"defaultHTMLTemplate", "HTML Template.vlx"},
        {"defaultBrowser", browser},
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
    QCOMPARE(QDir::fromNativeSeparators(chosen.WorkingDirectory), folder.filePath(QStringLiteral("Vellumo")));

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

QTEST_GUILESS_MAIN(tst_settings)
#include "tst_settings.moc"

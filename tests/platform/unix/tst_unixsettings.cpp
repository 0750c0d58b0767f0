#include "platform/SystemPorts.h"
#include "platform/unix/IniSettingsStore.h"
#include "support/ScriptedPrompts.h"

#include <QtTest>

class tst_unixsettings : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void IniStore_Texts_ComeBackExactly();
    void IniStore_ReadOnlyPlace_WriteFails();
    void IniStore_PlaceMended_WritesAgain();
    void OfficeProbe_Keys_Installed();
};

void tst_unixsettings::IniStore_Texts_ComeBackExactly() {
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

void tst_unixsettings::IniStore_ReadOnlyPlace_WriteFails() {
    IniSettingsStore store(QStringLiteral("/etc/passwd/v.ini"));
    QVERIFY(!store.Write(QStringLiteral("k"), QStringLiteral("x")));
    QCOMPARE(store.Read(QStringLiteral("other"), QStringLiteral("d")), QStringLiteral("d"));
}

void tst_unixsettings::IniStore_PlaceMended_WritesAgain() {
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

void tst_unixsettings::OfficeProbe_Keys_Installed() {
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

QTEST_GUILESS_MAIN(tst_unixsettings)
#include "tst_unixsettings.moc"

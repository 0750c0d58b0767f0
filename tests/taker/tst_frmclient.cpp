#include "support/MemorySettingsStore.h"
#include "support/RecordingNavigator.h"
#include "support/WindowDriver.h"
#include "taker/ui/frmClient.h"

#include <QtTest>

namespace {

struct NamesWindow {
    NamesWindow(bool persist, NamesAsked asked, NamesFor administration = NamesFor::Running) {
        session.UserSettings.NamePersist = persist;
        session.ClientName = QStringLiteral("Ann");
        session.KeptClientName = QStringLiteral("Earlier");
        session.AdministratorName = session.UserSettings.AdministratorName = QStringLiteral("Dr Bo");
        session.NamesCancelled = true;
        window = std::make_unique<frmClient>(session, store, navigator, QStringLiteral("Commencing 'Mood'"), asked,
                                             administration);
        ShowAndActivate(*window);
    }
    QLineEdit& Box(int i) { return Find<QLineEdit>(*window, QStringLiteral("txtclient_%1").arg(i)); }

    Session session;
    MemorySettingsStore store;
    RecordingNavigator navigator;
    std::unique_ptr<frmClient> window;
};

} // namespace

class tst_frmclient : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Open_Persist_KeepsOrClears_data();
    void Open_Persist_KeepsOrClears();
    void Open_NextAdministration_OffersTheKeptNameOnly();
    void Ok_EnabledBoxes_Taken_data();
    void Ok_EnabledBoxes_Taken();
    void Cancel_Ways_NamesStay_data();
    void Cancel_Ways_NamesStay();
    void Persist_Ticked_StoredAtOnce();
    void Open_Asked_FollowsTest();
    void Help_F1_Shown();
};

void tst_frmclient::Open_Persist_KeepsOrClears_data() {
    QTest::addColumn<bool>("persist");
    QTest::addColumn<NamesFor>("administration");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("kept") << true << NamesFor::Running << QStringList{QStringLiteral("Ann"), QStringLiteral("Dr Bo")};
    QTest::newRow("running, not kept") << false << NamesFor::Running
                                       << QStringList{QStringLiteral("Ann"), QStringLiteral("Dr Bo")};
    QTest::newRow("cleared") << false << NamesFor::Next << QStringList{QString(), QString()};
}

void tst_frmclient::Open_Persist_KeepsOrClears() {
    QFETCH(bool, persist);
    QFETCH(NamesFor, administration);
    NamesWindow names(persist, {}, administration);
    QCOMPARE(names.window->windowTitle(), QStringLiteral("Commencing 'Mood'"));
    // The names of the running administration are none of an earlier one.
    QTEST((QStringList{names.Box(0).text(), names.Box(1).text()}), "texts");
    QCOMPARE(Find<QCheckBox>(*names.window, QStringLiteral("Chkpersist")).isChecked(), persist);
    QCOMPARE(names.session.KeptClientName, persist ? QStringLiteral("Earlier") : QString());
    QVERIFY(!names.session.NamesCancelled);
    QVERIFY(names.Box(0).hasFocus());
}

void tst_frmclient::Open_NextAdministration_OffersTheKeptNameOnly() {
    NamesWindow names(true, {}, NamesFor::Next);
    QCOMPARE(names.Box(0).text(), QStringLiteral("Earlier"));
    QCOMPARE(names.session.NextClientName, QString());
    Type(names.Box(0), QStringLiteral("Eve")); // in the place of the selected name
    Click(*names.window, QStringLiteral("Lblok_0"));
    QCOMPARE(names.session.NextClientName, QStringLiteral("Eve"));
    QCOMPARE(names.session.KeptClientName, QStringLiteral("Eve"));
    QCOMPARE(names.session.ClientName, QStringLiteral("Ann"));
}

void tst_frmclient::Ok_EnabledBoxes_Taken_data() {
    QTest::addColumn<bool>("client");
    QTest::addColumn<bool>("administrator");
    QTest::addColumn<bool>("persist");
    QTest::addColumn<QStringList>("names"); // client, administrator, stored administrator ("-" for none)
    QTest::newRow("both kept") << true << true << true
                               << QStringList{QStringLiteral("x0"), QStringLiteral("x1"), QStringLiteral("x1")};
    QTest::newRow("both, not kept") << true << true << false
                                    << QStringList{QStringLiteral("x0"), QStringLiteral("x1"), QStringLiteral("-")};
    QTest::newRow("client alone") << true << false << true
                                  << QStringList{QStringLiteral("x0"), QStringLiteral("Dr Bo"),
                                                 QStringLiteral("Dr Bo")};
    QTest::newRow("administrator alone") << false << true << true
                                         << QStringList{QStringLiteral("Ann"), QStringLiteral("x1"),
                                                        QStringLiteral("x1")};
    QTest::newRow("client alone, not kept")
        << true << false << false << QStringList{QStringLiteral("x0"), QStringLiteral("Dr Bo"), QStringLiteral("-")};
}

void tst_frmclient::Ok_EnabledBoxes_Taken() {
    QFETCH(bool, client);
    QFETCH(bool, administrator);
    QFETCH(bool, persist);
    NamesWindow names(persist, {client, administrator});
    for (int i = 0; i < 2; ++i) {
        const bool enabled = i == 0 ? client : administrator;
        QCOMPARE(names.Box(i).isEnabled(), enabled);
        if (!enabled) {
            QCOMPARE(names.Box(i).text(), QStringLiteral("<Disabled>"));
            continue;
        }
        names.Box(i).clear();
        Type(names.Box(i), QStringLiteral("x%1").arg(i));
    }
    Click(*names.window, QStringLiteral("Lblok_0"));
    QCOMPARE(names.window->result(), static_cast<int>(QDialog::Accepted));
    QTEST((QStringList{names.session.ClientName, names.session.AdministratorName,
                       names.store.Read(QStringLiteral("AdministratorName"), QStringLiteral("-"))}),
          "names");
    QVERIFY(!names.session.NamesCancelled);
}

void tst_frmclient::Cancel_Ways_NamesStay_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("escape") << 1;
    QTest::newRow("title bar") << 2;
}

void tst_frmclient::Cancel_Ways_NamesStay() {
    QFETCH(int, way);
    NamesWindow names(true, {});
    Type(names.Box(0), QStringLiteral("other"));
    if (way == 0)
        Click(*names.window, QStringLiteral("Lblok_1"));
    else if (way == 1)
        Press(names.Box(0), Qt::Key_Escape);
    else
        names.window->close();
    QVERIFY(!names.window->isVisible());
    QCOMPARE(names.window->result(), static_cast<int>(QDialog::Rejected));
    QVERIFY(names.session.NamesCancelled);
    QCOMPARE(names.session.ClientName, QStringLiteral("Ann"));
    QCOMPARE(names.session.AdministratorName, QStringLiteral("Dr Bo"));
    QVERIFY(names.store.WrittenKeys.isEmpty());
}

void tst_frmclient::Persist_Ticked_StoredAtOnce() {
    NamesWindow names(true, {});
    names.store.Values[QStringLiteral("AdministratorName")] = QStringLiteral("Dr Bo");
    Click(*names.window, QStringLiteral("Chkpersist"));
    QCOMPARE(names.store.Values[QStringLiteral("NamePersist")], QStringLiteral("False"));
    QCOMPARE(names.store.Values[QStringLiteral("AdministratorName")], QString());
    QVERIFY(!names.session.UserSettings.NamePersist);
    QCOMPARE(names.Box(1).text(), QStringLiteral("Dr Bo"));
    Click(*names.window, QStringLiteral("Chkpersist"));
    QCOMPARE(names.store.Values[QStringLiteral("NamePersist")], QStringLiteral("True"));
    Click(*names.window, QStringLiteral("Lblok_1"));
    QVERIFY(names.session.UserSettings.NamePersist);
}

void tst_frmclient::Open_Asked_FollowsTest() {
    TestDocument test;
    test.TestOption(PromptTesterName) = true;
    const NamesAsked asked = NamesAskedBy(test);
    QVERIFY(!asked.Client && asked.Administrator);
    NamesWindow names(true, asked);
    QVERIFY(names.Box(1).hasFocus());
}

void tst_frmclient::Help_F1_Shown() {
    NamesWindow names(true, {});
    Press(names.Box(0), Qt::Key_F1);
    QCOMPARE(names.navigator.Calls, QStringList{QStringLiteral("ShowHelp(Names)")});
}

QTEST_MAIN(tst_frmclient)
#include "tst_frmclient.moc"

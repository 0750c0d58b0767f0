#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/WindowDriver.h"

#include <QStringList>
#include <QTest>

using namespace Qt::StringLiterals;

/// The doubles themselves: what goes against their script must fail a test and never hang it.
class TestTestSupport : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() { failures_.clear(); }
    void Ask_AgainstScript_FailsAndCloses_data();
    void Ask_AgainstScript_FailsAndCloses();
    void Ask_AsScripted_Answers();
    void Prompts_Unspent_Fail();
    void Chooser_AgainstScript_FailsAndCancels();
    void Driver_NoDialog_Fails();
    void Driver_DialogLeftOpen_FailsAndClosesIt();
    void Driver_DialogAnswered_IsFinished();

  private:
    FailureReport Collect() {
        return [this](const QString& message, std::source_location) { failures_.append(message); };
    }

    QStringList failures_;
};

void TestTestSupport::Ask_AgainstScript_FailsAndCloses_data() {
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("buttons");
    QTest::newRow("text") << u"Other?"_s << u"Confirm"_s << static_cast<int>(PromptButtons::YesNoCancel);
    QTest::newRow("title") << u"Save?"_s << u"Other"_s << static_cast<int>(PromptButtons::YesNoCancel);
    QTest::newRow("buttons") << u"Save?"_s << u"Confirm"_s << static_cast<int>(PromptButtons::OkCancel);
}

void TestTestSupport::Ask_AgainstScript_FailsAndCloses() {
    QFETCH(const QString, expected);
    QFETCH(const QString, title);
    QFETCH(const int, buttons);
    ScriptedPrompts prompts(Collect());
    prompts.Expect(expected, PromptAnswer::Yes).Titled(title).WithButtons(static_cast<PromptButtons>(buttons));
    QCOMPARE(prompts.Ask({u"Save?"_s, u"Confirm"_s, PromptButtons::YesNoCancel, {}}), PromptAnswer::Cancel);
    QCOMPARE(failures_.size(), 1);
    QCOMPARE(prompts.Ask({u"Unexpected"_s, {}, PromptButtons::Ok, {}}), PromptAnswer::Ok);
    QCOMPARE(failures_.size(), 2);
}

void TestTestSupport::Ask_AsScripted_Answers() {
    ScriptedPrompts prompts(Collect());
    prompts.Expect(u"av"_s, PromptAnswer::No).InPart().Titled(u"Confirm"_s);
    QCOMPARE(prompts.Ask({u"Save?"_s, u"Confirm"_s, PromptButtons::YesNoCancel, {}}), PromptAnswer::No);
    QCOMPARE(failures_, QStringList());
    prompts.Expect(u"Done"_s, PromptAnswer::Yes);
    prompts.Inform(u"Done"_s);
    QCOMPARE(failures_.size(), 1); // such a box has no button for that answer
}

void TestTestSupport::Prompts_Unspent_Fail() {
    {
        ScriptedPrompts prompts(Collect());
        prompts.Expect(u"Never"_s);
    }
    QCOMPARE(failures_.size(), 1);
    QVERIFY(failures_.constFirst().contains(u"Never"_s));
}

void TestTestSupport::Chooser_AgainstScript_FailsAndCancels() {
    ScriptedFileChooser chooser(Collect());
    QCOMPARE(chooser.OpenFile({}), QString());
    chooser.ExpectSave(u"a.txt"_s);
    QCOMPARE(chooser.OpenFile({}), QString());
    chooser.ExpectFolder(u"b"_s);
    QCOMPARE(chooser.ChooseFolder({}, {}), u"b"_s);
    QCOMPARE(failures_.size(), 2);
    chooser.ExpectOpen({});
    chooser.Verify();
    QCOMPARE(failures_.size(), 3);
}

void TestTestSupport::Driver_NoDialog_Fails() {
    {
        DialogDriver driver([](QDialog&) {}, 50, std::source_location::current(), Collect());
        QTest::qWait(120);
        QVERIFY(!driver.Finished());
    }
    QCOMPARE(failures_.size(), 1);
}

void TestTestSupport::Driver_DialogLeftOpen_FailsAndClosesIt() {
    QDialog dialog;
    DialogDriver driver([](QDialog&) {}, 100, std::source_location::current(), Collect());
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Rejected));
    QCOMPARE(failures_.size(), 1);
}

void TestTestSupport::Driver_DialogAnswered_IsFinished() {
    QDialog dialog;
    DialogDriver driver([](QDialog& opened) { opened.accept(); }, 2000, std::source_location::current(), Collect());
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Accepted));
    QVERIFY(driver.Finished());
    QCOMPARE(failures_, QStringList());
}

QTEST_MAIN(TestTestSupport)
#include "tst_testsupport.moc"

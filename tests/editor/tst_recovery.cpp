#include "editor/EditorFile.h"
#include "editor/Recovery.h"
#include "editor/TestSnapshot.h"
#include "support/Files.h"
#include "support/RecordingNavigator.h"
#include "testdoc/TestWriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

TestDocument Titled(const QString& title) {
    TestDocument test;
    test.TestFileName = u"/tests/mood.vlm"_s;
    test.TestTitle = title;
    test.SubscaleCount = 1;
    test.SubscaleRangeCount(1) = 1;
    test.SubscaleRangeLow(1, 1) = Value(u"1e3"_s);
    test.SubscaleRangeHigh(1, 1) = 7;
    test.QuestionCount = MaxQuestions;
    test.QuestionText(MaxQuestions) = u"[v=\r\n"_s;
    return test;
}

/// Something in every field that a test file has.
TestDocument Filled() {
    TestDocument test = Titled(u"Filled"_s);
    int number = 0;
    for (QString* text : {&test.TestIntroduction, &test.TestInstructions, &test.TestCompletionMessage,
                          &test.ReportDirectory, &test.ExcelDirectory, &test.ExcelFileName, &test.AutosaveFileName,
                          &test.SubscaleName(1), &test.SubscaleRangeText(1, 1), &test.TotalRangeText(1),
                          &test.TemplateAnswerText(MaxTemplateAnswers), &test.AnswerText(200, MaxAnswers)})
        *text = u"text %1"_s.arg(++number);
    test.TotalRangeCount = 1;
    test.TotalRangeLow(1) = -3;
    test.TotalRangeHigh(1) = 4;
    test.TemplateAnswerCount = MaxTemplateAnswers;
    test.TemplateAnswerValue(MaxTemplateAnswers) = 5;
    test.QuestionType(200) = Multichoice;
    test.QuestionSubscale(200) = 1;
    test.AnswerCount(200) = MaxAnswers;
    test.AnswerValue(200, MaxAnswers) = Value(u"half"_s);
    test.QuestionType(MaxQuestions) = LongAnswer;
    test.ReportOnlyWhenDone = test.NavigationButtons = true;
    test.TestOption.Fill(true);
    return test;
}

/// All dialogs and the window; something may happen while a dialog is up.
struct Outside : Prompts, FileChooser, EditorView {
    PromptAnswer Ask(const Prompt& prompt) override {
        if (Meanwhile)
            Meanwhile();
        Asked.append(prompt.Text);
        return prompt.Buttons == PromptButtons::YesNoCancel ? PromptAnswer::Yes : PromptAnswer::Ok;
    }
    int Choose(const ChoicePrompt& prompt) override { return prompt.Escape; }
    QString OpenFile(const FileQuestion&) override {
        if (Meanwhile)
            Meanwhile();
        return Answer;
    }
    QString SaveFile(const FileQuestion&) override { return {}; }
    QString ChooseFolder(const QString&, const QString&) override { return {}; }
    void RefreshFromTest() override {}
    void ShowHome() override {}
    void ShowTitle(const QString&) override {}
    void ShowSaveState(const QString&) override {}
    bool Settle() override { return true; }
    TypedEntries Typed() override { return {}; }
    void ShowTyped(const TypedEntries&) override {}

    QString Answer;
    QStringList Asked;
    std::function<void()> Meanwhile;
};

} // namespace

class tst_recovery : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void Left_ProgramEndedWithChanges_ToTheLetter() {
        const TestDocument changed = Filled();
        {
            Recovery run = Run();
            run.Begin(Titled(u"In its file"_s));
            QVERIFY(run.Keep(Titled(u"On the way"_s)).Ok());
            QVERIFY(run.Keep(changed).Ok());
        }
        Recovery next = Run();
        const auto left = next.Left();
        QVERIFY(left);
        QCOMPARE(WriteTest(left->Test).Text, WriteTest(changed).Text);
        QCOMPARE(left->Test.TestFileName, changed.TestFileName);
        QCOMPARE(left->KeptAt.time(), QTime(14, 5));

        // Going on with it keeps it until it is saved.
        QVERIFY(next.GoOnWith(*left));
        QVERIFY(!Run().GoOnWith(*left)); // one program at a time
        QVERIFY(next.Keep(left->Test).Ok());
        QVERIFY(!Run().Left());
        next.Drop(left->Test);
        QCOMPARE(Files().filter(QRegularExpression(u"recovery$"_s)), QStringList());
    }

    void Left_SavedDroppedOrUndone_Nothing() {
        {
            Recovery run = Run();
            run.Begin(Titled(u"In its file"_s));
            QVERIFY(run.Keep(Titled(u"Changed"_s)).Ok());
            QVERIFY(run.Keep(Titled(u"In its file"_s)).Ok());
        }
        QVERIFY(!Run().Left());
        {
            Recovery run = Run();
            run.Begin(Titled(u"In its file"_s));
            QVERIFY(run.Keep(Titled(u"Changed"_s)).Ok());
            run.Drop(Titled(u"Changed"_s));
            QVERIFY(run.Keep(Titled(u"Changed"_s)).Ok());
        }
        QVERIFY(!Run().Left());
        {
            Recovery run = Run();
            run.Begin(Titled(u"In its file"_s));
            QVERIFY(run.Keep(Titled(u"Changed"_s)).Ok());
        }
        const auto left = Run().Left();
        QVERIFY(left);
        Run().Discard(*left);
        QVERIFY(!Run().Left());
    }

    void Left_ProgramStillRuns_Nothing() {
        Recovery run = Run();
        run.Begin(Titled(u"In its file"_s));
        QVERIFY(run.Keep(Titled(u"Changed"_s)).Ok());
        QVERIFY(!Run().Left());
        // Nor is the copy of a test that was left unsaved in this run offered while it goes on with another.
        run.Begin(Titled(u"Another"_s));
        QVERIFY(run.Keep(Titled(u"Another, changed"_s)).Ok());
        QVERIFY(!Run().Left());
        QCOMPARE(Files().filter(QRegularExpression(u"recovery$"_s)).size(), 2);
    }

    void Left_SeveralTests_OldestFirst() {
        for (const int hour : {15, 9, 12}) {
            Recovery run = Run(QTime(hour, 0));
            run.Begin(Titled({}));
            QVERIFY(run.Keep(Titled(u"At %1"_s.arg(hour))).Ok());
        }
        QStringList titles;
        while (const auto left = Run().Left()) {
            titles.append(left->Test.TestTitle);
            Run().Discard(*left);
        }
        QCOMPARE(titles, (QStringList{u"At 9"_s, u"At 12"_s, u"At 15"_s}));
    }

    void Left_KilledWhileWriting_CopyBefore() {
        {
            Recovery run = Run();
            run.Begin(Titled({}));
            QVERIFY(run.Keep(Titled(u"Kept"_s)).Ok());
        }
        const QString path = folder_->filePath(u"test-1.recovery"_s);
        const QByteArray whole = BytesOf(path);
        for (qsizetype length = 0; length < whole.size(); length += 1 + length / 3) {
            // The lock of a program that was ended may hold anything, and locks nothing.
            PutBytes(path + u".lock"_s, whole.first(length));
            PutBytes(path, whole.first(length));
            QFile::remove(path + u".earlier"_s);
            QVERIFY(!Run().Left());
            PutBytes(path + u".earlier"_s, whole);
            const auto left = Run().Left();
            QVERIFY(left && left->Test.TestTitle == u"Kept"_s);
        }
        Run().Discard(*Run().Left());
        QVERIFY(Files().filter(QRegularExpression(u"recovery(.earlier)?$"_s)).isEmpty());
    }

    void Drop_AfterAKill_LeavesNothing() {
        {
            Recovery run = Run();
            run.Begin(Titled({}));
            QVERIFY(run.Keep(Titled(u"Kept"_s)).Ok());
        }
        const QString path = folder_->filePath(u"test-1.recovery"_s);
        PutBytes(path + u".earlier"_s, BytesOf(path));
        PutBytes(path, "half");
        Recovery next = Run();
        const auto left = next.Left();
        QVERIFY(left);
        next.GoOnWith(*left);
        QVERIFY(next.Keep(Titled(u"Changed"_s)).Ok());
        next.Drop(Titled(u"Changed"_s));
        QVERIFY(Files().filter(QRegularExpression(u"recovery(.earlier)?$"_s)).isEmpty());
    }

    void ReplaceTest_DialogStaysOpen_CopyOfTheEarlierOne_data() {
        QTest::addColumn<QString>("by");
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("replaced");
        QTest::newRow("New") << u"New"_s << QString() << true;
        QTest::newRow("Open, cancelled") << u"Open"_s << QString() << false;
        QTest::newRow("Open, a test") << u"Open"_s << u"other.vlm"_s << true;
        QTest::newRow("Open, no file") << u"Open"_s << u"none.vlm"_s << false;
        QTest::newRow("Open, a broken test") << u"Open"_s << u"broken.vlm"_s << false;
        QTest::newRow("file list, a broken test") << u"List"_s << u"broken.vlm"_s << false;
    }

    // While a dialog is open the pause of the copy may end.
    void ReplaceTest_DialogStaysOpen_CopyOfTheEarlierOne() {
        QFETCH(const QString, by);
        QFETCH(const QString, file);
        QFETCH(const bool, replaced);
        const QTemporaryDir tests;
        QDir::setCurrent(tests.path());
        PutBytes(tests.filePath(u"other.vlm"_s), "[TITLE]Other[/TITLE]");
        PutBytes(tests.filePath(u"broken.vlm"_s), "[TITLE]Broken[/TITLE][Q]");
        {
            Outside outside;
            outside.Answer = file.isEmpty() ? file : tests.filePath(file);
            Recovery run = Run();
            TestDocument test = Titled(u"In its file"_s);
            Settings settings;
            settings.DefaultDirectory = tests.path();
            RecordingNavigator navigator;
            EditorFile editor({test, settings, outside, outside, navigator, run}, outside);
            run.Begin(test);
            test.TestTitle = u"Changed"_s;
            outside.Meanwhile = [&] { editor.KeepCopy(); };
            if (by == u"Open"_s) {
                editor.Open();
            } else if (by == u"New"_s) {
                editor.New();
            } else {
                editor.ListFilesAgain();
                editor.OpenListed(1);
            }
            test.TestTitle = u"Next"_s;
            editor.KeepCopy();
        }
        QDir::setCurrent(QDir::rootPath());
        const auto left = Run().Left();
        QVERIFY(left);
        QCOMPARE(left->Test.TestTitle, replaced ? u"Changed"_s : u"Next"_s);
        Run().Discard(*left);
        const auto next = Run().Left();
        QCOMPARE(next.has_value(), replaced);
        if (replaced)
            QCOMPARE(next->Test.TestTitle, u"Next"_s);
    }

    void Keep_FolderCannotBeMade_Told() {
        const QString file = folder_->filePath(u"a file"_s);
        PutBytes(file, "x");
        const FixedClock now{QDateTime()};
        Recovery run(file + u"/below"_s, now);
        run.Begin(Titled({}));
        const Result kept = run.Keep(Titled(u"Changed"_s));
        QVERIFY(!kept.Ok());
        QVERIFY(kept.Message().contains(file));
    }

    void Load_EarlierVersionBesideBadFile_OfferedAndUsed_data() {
        QTest::addColumn<QByteArray>("inFile");
        QTest::addColumn<QString>("why");
        QTest::newRow("empty") << QByteArray() << u"it is empty\n\nAn earlier version of it, of "_s;
        QTest::newRow("cut off") << QByteArray("[TITLE]Mo[/TITLE][Q]") << u"I can't find the [/Q]"_s;
        QTest::newRow("no text") << QByteArray("\0\0", 2) << u"it isn't a text file"_s;
        QTest::newRow("a test") << QByteArray("[TITLE]Mood[/TITLE]") << QString();
    }

    void Load_EarlierVersionBesideBadFile_OfferedAndUsed() {
        QFETCH(const QByteArray, inFile);
        QFETCH(const QString, why);
        const QString path = folder_->filePath(u"mood.vlm"_s);
        PutBytes(path, inFile);
        PutBytes(path + u".earlier"_s, "[TITLE]Mood[/TITLE]");
        Outside outside;
        Recovery run = Run();
        TestDocument test;
        test.TestFileName = path;
        const Settings settings;
        RecordingNavigator navigator;
        EditorFile editor({test, settings, outside, outside, navigator, run}, outside);
        QVERIFY(editor.Load());
        QCOMPARE(test.TestTitle, u"Mood"_s);
        QCOMPARE(outside.Asked.size(), why.isEmpty() ? 0 : 1);
        QVERIFY(outside.Asked.value(0).contains(why));
        QCOMPARE(QFile::exists(path + u".damaged"_s), !why.isEmpty() && !inFile.isEmpty());
    }

  private:
    QStringList Files() const { return QDir(folder_->path()).entryList({u"*.recovery*"_s}, QDir::Files); }
    Recovery Run(const QTime& now = QTime(14, 5)) {
        times_.push_back(std::make_unique<FixedClock>(QDateTime(QDate(2026, 11, 21), now)));
        return Recovery(folder_->path(), *times_.back());
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::vector<std::unique_ptr<FixedClock>> times_;
};

QTEST_GUILESS_MAIN(tst_recovery)
#include "tst_recovery.moc"

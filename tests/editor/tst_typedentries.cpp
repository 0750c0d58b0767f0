#include "editor/EditorWindow.h"
#include "editor/EntryEdits.h"

#include <QComboBox>

namespace {

const QByteArray Full = "[TITLE]Full[/TITLE][SUBSCALES][S]Calm[SIG]0 to 5 =Low[/SIG][/S][S]Energy[/S][/SUBSCALES]"
                        "[TOTAL][SIG]0 to 9 =few[/SIG][SIG]10 to 20 =many[/SIG][/TOTAL]"
                        "[TEMPLATE][A]Never[v=0][/A][A]Often[v=1][/A][/TEMPLATE]"
                        "[Q]One[A]a[v=1][/A][A]b[v=2][/A][/Q][Q]Two[A]c[v=3][/A][A]d[v=4][/A][/Q]";

/// One kind of entry: how it is reached, and its boxes.
struct Kind {
    EditorPage Page;
    /// The first one of the document, or for questions the last, which the page shows by itself.
    TestPlace Place;
    QString Text;
    QStringList Numbers;
    /// The lists in which it is chosen, and what leads to a new one or to another one on its page: a button, or a list.
    QStringList Lists;
    QString New;
    QString Other;
};

const QList<Kind>& Kinds() {
    static const QList<Kind> kinds{
        {EditorPage::Questions,
         {TestPlace::Question, 2, 0},
         u"txtQuestion"_s,
         {},
         {},
         u"CmdQuestNav_4"_s,
         u"CmdQuestNav_0"_s},
        {EditorPage::Questions,
         {TestPlace::Answer, 2, 1},
         u"txtanswer"_s,
         {u"txtAnswerVal"_s},
         {},
         u"CmdQuestNav_5"_s,
         u"CmdQuestNav_3"_s},
        {EditorPage::Template,
         {TestPlace::TemplateAnswer, 0, 1},
         u"txtTemplate"_s,
         {u"txtValueTemplate"_s},
         {u"ListTemplate"_s},
         {},
         u"ListTemplate"_s},
        {EditorPage::Subscales,
         {TestPlace::Subscale, 1, 0},
         u"txtSubScale"_s,
         {},
         {u"ListSubScale"_s},
         {},
         u"ListSubScale"_s},
        {EditorPage::Subscales,
         {TestPlace::SubscaleRange, 1, 1},
         u"txtSubScaleSig"_s,
         {u"txtSubScaleSigLow"_s, u"txtSubScaleSigHigh"_s},
         {u"ListSubScale"_s, u"ListSubScaleSig"_s},
         {},
         u"ListSubScale"_s},
        {EditorPage::Analysis,
         {TestPlace::TotalRange, 0, 1},
         u"txtTotText"_s,
         {u"txtTotLow"_s, u"txtTotHigh"_s},
         {u"ListTotalAnalysis"_s},
         {},
         u"ListTotalAnalysis"_s},
    };
    return kinds;
}

/// The editor on the full test, with one kind of entry in its boxes.
struct Typing : Editor {
    explicit Typing(const Kind& kind) : Editor(u"mood.vlm"_s, Full), kind_(kind) {
        ChooseTab(static_cast<int>(kind.Page));
    }

    void Pick(const QString& list, int row) {
        auto& entries = The<QListWidget>(list);
        QTest::mouseClick(entries.viewport(), Qt::LeftButton, {}, entries.visualItemRect(entries.item(row)).center());
    }
    void Write(const QString& box, const QString& text) {
        auto& control = The<QWidget>(box);
        control.setFocus();
        Press(control, Qt::Key_A, Qt::ControlModifier);
        Press(control, Qt::Key_Delete);
        Type(control, text);
    }
    void ChangeExisting(const QString& text = u"typed"_s) {
        for (const QString& list : kind_.Lists)
            Pick(list, 0);
        Write(kind_.Text, text);
    }
    void TypeNew() {
        if (kind_.Place.What == TestPlace::SubscaleRange)
            Pick(kind_.Lists.first(), 0);
        if (!kind_.New.isEmpty())
            ClickOn(kind_.New);
        for (const QString& box : kind_.Numbers)
            Write(box, u"7"_s);
        Write(kind_.Text, u"typed"_s);
    }
    void GoToOther() {
        if (kind_.Lists.isEmpty())
            ClickOn(kind_.Other);
        else
            Pick(kind_.Other, 1);
    }
    QString Box() {
        if (const auto* line = window->findChild<QLineEdit*>(kind_.Text))
            return line->text();
        return The<TextBox>(kind_.Text).Text();
    }
    QString Stored() const { return StoredBoxes(test, kind_.Place).Text; }
    int Count() const { return EntryCount(test, kind_.Place); }
    ExpectedPrompt& ExpectNotAdded(const QString& answer) {
        return prompts.ExpectChoice(u"'typed' was typed, but not added."_s, answer).InPart().Titled(u"Not Added"_s);
    }

    const Kind& kind_;
};

/// The ways away from a page. Those that ask whether to save are answered with "No" by the test.
struct Way {
    const char* Name;
    bool AsksToSave;
    std::function<void(Typing&)> Go;
};

const QList<Way>& Ways() {
    static const QList<Way> ways{
        {"another page", false, [](Typing& editor) { editor.ChooseTab(0); }},
        {"Ctrl+Tab", false, [](Typing& editor) { Press(*editor.window, Qt::Key_Tab, Qt::ControlModifier); }},
        {"another entry", false, [](Typing& editor) { editor.GoToOther(); }},
        {"Save Test", false, [](Typing& editor) { editor.ClickOn(u"Command1"_s); }},
        {"Return To Editor Menu", false, [](Typing& editor) { editor.ClickOn(u"Command2"_s); }},
        {"a finding", false,
         [](Typing& editor) {
             Q_EMIT editor.The<FindingsLine>(u"FindingsLine"_s).Chosen({TestPlace::Title, 0, 0});
         }},
        {"web page", false, [](Typing& editor) { editor.ChooseItem(u"savehtml"_s); }},
        {"New", true, [](Typing& editor) { editor.ChooseItem(u"mnufile_1"_s); }},
        {"file list", true, [](Typing& editor) { editor.ChooseItem(u"mnuop_1"_s); }},
        {"Quit", true, [](Typing& editor) { editor.ClickOn(u"Quit"_s); }},
        {"title bar", true, [](Typing& editor) { editor.window->close(); }},
    };
    return ways;
}

} // namespace

class tst_typedentries : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void MoveOn_ExistingChanged_IsStored_data() { AddWays(); }
    void MoveOn_ExistingChanged_IsStored() {
        const Way& way = WayOfRow();
        for (const Kind& kind : Kinds()) {
            Typing editor(kind);
            editor.ChangeExisting();
            QVERIFY(editor.Stored() != u"typed"_s);
            QString stored;
            if (way.AsksToSave)
                editor.ExpectQuestion(PromptAnswer::No).Meanwhile([&] { stored = editor.Stored(); });
            way.Go(editor);
            QCOMPARE(way.AsksToSave ? stored : editor.Stored(), u"typed"_s);
        }
    }

    void MoveOn_NewTyped_IsAskedAbout_data() { AddWays(); }
    void MoveOn_NewTyped_IsAskedAbout() {
        const Way& way = WayOfRow();
        for (const Kind& kind : Kinds()) {
            Typing editor(kind);
            editor.TypeNew();
            const int before = editor.Count();
            editor.ExpectNotAdded(u"Cancel"_s);
            way.Go(editor);
            QCOMPARE(editor.Box(), u"typed"_s);
            QVERIFY(editor.The<QWidget>(kind.Text).hasFocus());
            QCOMPARE(editor.PageInView(), static_cast<int>(kind.Page) + 1);
            QCOMPARE(editor.Count(), before);

            editor.ExpectNotAdded(u"Add"_s);
            int after = 0;
            if (way.AsksToSave)
                editor.ExpectQuestion(PromptAnswer::No).Meanwhile([&] { after = editor.Count(); });
            way.Go(editor);
            QCOMPARE(way.AsksToSave ? after : editor.Count(), before + 1);
            editor.prompts.Verify();
        }
    }

    void MoveOn_NewDiscarded_IsGoneAndNotAskedAgain() {
        for (const Kind& kind : Kinds()) {
            Typing editor(kind);
            editor.TypeNew();
            const int before = editor.Count();
            editor.ExpectNotAdded(u"Discard"_s);
            editor.ChooseTab(0);
            editor.ChooseTab(static_cast<int>(kind.Page));
            QCOMPARE(editor.PageInView(), static_cast<int>(kind.Page) + 1);
            QCOMPARE(editor.Count(), before);
            QVERIFY(editor.Box() != u"typed"_s);
        }
    }

    void MoveOn_ExistingEmptied_KeepsWhatWasThere() {
        for (const Kind& kind : Kinds()) {
            Typing editor(kind);
            const QString before = editor.Stored();
            editor.ChangeExisting(QString());
            for (const QString& choice : {u"Cancel"_s, u"Keep"_s}) {
                editor.prompts.ExpectChoice(u"was emptied"_s, choice).InPart();
                editor.ChooseTab(0);
                QCOMPARE(editor.PageInView(), choice == u"Keep"_s ? 1 : static_cast<int>(kind.Page) + 1);
                QCOMPARE(editor.Stored(), before);
            }
        }
    }

    void MoveOn_ValueIsNoNumber_SaysSoAndStays() {
        for (const Kind& kind : Kinds()) {
            if (kind.Numbers.isEmpty() || kind.Place.What == TestPlace::SubscaleRange)
                continue;
            Typing editor(kind);
            editor.ChangeExisting();
            editor.Write(kind.Numbers.first(), u"-"_s);
            editor.prompts.Expect(u"Not a valid value"_s);
            editor.ChooseTab(0);
            QCOMPARE(editor.PageInView(), static_cast<int>(kind.Page) + 1);
            QVERIFY(editor.The<QWidget>(kind.Numbers.first()).hasFocus());
            QCOMPARE(editor.Box(), u"typed"_s);
            QVERIFY(editor.Stored() != u"typed"_s);
        }
    }

    void SaveState_BoxesDiffer_TellsSo() {
        for (const Kind& kind : {Kinds()[0], Kinds()[5]}) {
            Typing editor(kind);
            editor.ChangeExisting();
            QTRY_COMPARE(editor.State(), u"Not saved"_s);
            editor.ClickOn(u"Command1"_s);
            QCOMPARE(editor.State(), u"Saved"_s);
            QVERIFY(BytesOf(editor.Path(u"mood.vlm"_s)).contains("typed"));
        }
    }

    void MoveOn_TypeWithoutAnswers_AsksBeforeTheyAreLost_data() {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("answers");
        QTest::newRow("keep") << u"Keep"_s << int(Multichoice) << 2;
        QTest::newRow("lose") << u"Lose"_s << int(ShortAnswer) << 0;
        QTest::newRow("cancel") << u"Cancel"_s << int(Multichoice) << 2;
    }
    void MoveOn_TypeWithoutAnswers_AsksBeforeTheyAreLost() {
        QFETCH(QString, choice);
        Typing editor(Kinds()[0]);
        editor.ChangeExisting();
        editor.ClickOn(u"ChkQType_2"_s);
        editor.prompts.ExpectChoice(u"Question 2 has 2 answers of its own."_s, choice).InPart();
        editor.ChooseTab(0);
        QCOMPARE(editor.PageInView(), choice == u"Cancel"_s ? 4 : 1);
        QCOMPARE(editor.Stored(), choice == u"Cancel"_s ? u"Two"_s : u"typed"_s);
        QTEST(editor.test.QuestionType(2), "type");
        QTEST(editor.test.AnswerCount(2), "answers");
    }

    // The text of a question just added is selected, and the next one is typed over it.
    void MoveOn_TypedOverTheOneJustAdded_AsksWhatItIs_data() {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("a new one") << u"Add"_s << QStringList{u"Three"_s, u"Thirsty?"_s};
        QTest::newRow("in its place") << u"Edit"_s << QStringList{u"Thirsty?"_s, QString()};
        QTest::newRow("corrected") << QString() << QStringList{u"Three!"_s, QString()};
    }
    void MoveOn_TypedOverTheOneJustAdded_AsksWhatItIs() {
        QFETCH(QString, choice);
        Typing editor(Kinds()[0]);
        editor.ClickOn(u"CmdQuestNav_4"_s);
        editor.Write(u"txtQuestion"_s, u"Three"_s);
        editor.ClickOn(u"CmdQuestion_0"_s);
        auto& box = *editor.window->focusWidget();
        if (choice.isEmpty())
            Press(box, Qt::Key_End);
        else
            editor.prompts.ExpectChoice(u"'Thirsty?' was typed over 'Three'"_s, choice).InPart();
        Type(box, choice.isEmpty() ? u"!"_s : u"Thirsty?"_s);
        editor.ChooseTab(0);
        QTEST((QStringList{editor.test.QuestionText(3), editor.test.QuestionText(4)}), "texts");
    }

    void AddQuestion_AnswerTypedBefore_StaysInItsBox() {
        Typing editor(Kinds()[0]);
        editor.ClickOn(u"CmdQuestNav_4"_s);
        editor.Write(u"txtanswer"_s, u"typed"_s);
        editor.Write(u"txtQuestion"_s, u"Three"_s);
        editor.ClickOn(u"CmdQuestion_0"_s);
        QCOMPARE(editor.The<TextBox>(u"txtanswer"_s).Text(), u"typed"_s);
        editor.ClickOn(u"CmdQuestion_3"_s);
        QCOMPARE(editor.test.AnswerText(3, 1), u"typed"_s);
        QCOMPARE(editor.test.AnswerCount(3), 1);
    }

    void Killed_Typed_IsInItsBoxesAgain() {
        for (const Kind& kind : Kinds()) {
            // A new one of each kind, and one that exists.
            const bool isNew = &kind != &Kinds().last();
            Typing editor(kind);
            if (isNew) {
                editor.TypeNew();
                editor.ExpectNotAdded(u"Cancel"_s);
                editor.window->close();
            } else {
                editor.ChangeExisting();
                QTRY_VERIFY_WITH_TIMEOUT(!QDir(editor.kept.path()).isEmpty(), 10000);
            }
            editor.window.reset();
            editor.copies = std::make_unique<Recovery>(editor.kept.path(), editor.clock);
            editor.prompts.Expect(u"has changes that were not saved when Vellumo ended"_s, PromptAnswer::Yes).InPart();
            QVERIFY(editor.OpenAgain());
            QCOMPARE(editor.PageInView(), static_cast<int>(kind.Page) + 1);
            QCOMPARE(editor.Box(), u"typed"_s);
            QCOMPARE(editor.State(), u"Not saved"_s);
            const int before = editor.Count();
            if (isNew)
                editor.ExpectNotAdded(u"Add"_s);
            editor.ChooseTab(0);
            QCOMPARE(editor.Count(), before + (isNew ? 1 : 0));
            QCOMPARE(editor.Stored() == u"typed"_s, !isNew);
        }
    }

    void MainMenu_UnsavedChanges_AreOfferedWithTheSameTest_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<PromptAnswer>("answer");
        for (const QString& file : {u"mood.vlm"_s, QString()}) {
            QTest::addRow("%s yes", qPrintable(file)) << file << PromptAnswer::Yes;
            QTest::addRow("%s no", qPrintable(file)) << file << PromptAnswer::No;
            QTest::addRow("%s cancel", qPrintable(file)) << file << PromptAnswer::Cancel;
        }
    }
    void MainMenu_UnsavedChanges_AreOfferedWithTheSameTest() {
        QFETCH(QString, file);
        QFETCH(PromptAnswer, answer);
        Editor editor{file};
        if (file.isEmpty())
            editor.ChooseItem(u"mnufile_1"_s);
        editor.ChooseTab(0);
        editor.TypeTitle(u"!"_s);
        editor.ClickOn(u"Command2"_s);
        editor.ClickOn(u"Command2"_s);
        editor.test = TestDocument();
        editor.test.TestFileName = file;
        editor.prompts.Expect(u"has changes that were not saved when you left it."_s, answer).InPart();
        QCOMPARE(editor.OpenAgain(), answer != PromptAnswer::Cancel);
        editor.prompts.Verify();
        if (answer != PromptAnswer::Cancel)
            QCOMPARE(editor.test.TestTitle.contains(u'!'), answer == PromptAnswer::Yes);
        editor.window.reset();
        editor.copies.reset();
        QCOMPARE(editor.CopyIsLeft(), answer != PromptAnswer::No);
    }

  private:
    static void AddWays() {
        QTest::addColumn<int>("way");
        for (int i = 0; i < Ways().size(); ++i)
            QTest::newRow(Ways()[i].Name) << i;
    }
    static const Way& WayOfRow() {
        QFETCH(int, way);
        return Ways()[way];
    }
};

QTEST_MAIN(tst_typedentries)
#include "tst_typedentries.moc"

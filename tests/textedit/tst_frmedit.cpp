#include "platform/TextFile.h"
#include "support/FakeClipboard.h"
#include "support/FakeOfficeProbe.h"
#include "support/FakeWordProcessor.h"
#include "support/Files.h"
#include "support/RecordingNavigator.h"
#include "support/RecordingPrinter.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/WindowDriver.h"
#include "textedit/ui/frmEdit.h"

#include <QFontDialog>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString SaveQuestion = u"Do you Want to Save Changes?"_s;
const QString TextFilter = u"Text Files (*.txt)|*.txt| All Files (*.*)|*.*"_s;

/// A window with everything that it touches.
struct Desk {
    ScriptedPrompts Boxes;
    ScriptedFileChooser Files;
    RecordingPrinter Paper;
    FakeClipboard Board;
    FakeOfficeProbe Office;
    FakeWordProcessor Word;
    RecordingNavigator Navigator;
    QTemporaryDir Folder;
    std::unique_ptr<frmEdit> Window;

    explicit Desk(bool wordInstalled = true) {
        if (wordInstalled)
            Office.Entries[WordProcessorKey] = u"Word.Document.8"_s;
        Window = std::make_unique<frmEdit>(ReportPorts{Boxes, Files, Paper, Board, Office, Word}, Navigator);
        ShowAndActivate(*Window);
    }

    QString Path(const QString& name) const { return Folder.filePath(name); }
    QString Text() const { return Window->txtEdit->toPlainText(); }
    void ExpectSaveQuestion(PromptAnswer answer) {
        Boxes.Expect(SaveQuestion, answer)
            .Titled(u"Confirm"_s)
            .WithButtons(PromptButtons::YesNoCancel)
            .WithIcon(PromptIcon::Question);
    }
    void SaveAs(const QString& name) {
        Files.ExpectSave(Path(name));
        Choose(*Window, u"MnuFileSaveAs"_s);
    }
};

} // namespace

class TestFrmEdit : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Window_New_HasItsCaptionsInOrder();
    void Close_UntouchedWindow_AsksNothing();
    void Close_OneCharacterTypedAndCancel_StaysOpen();
    void Close_Declined_ClosesWithoutWriting();
    void Close_AcceptedOnNewDocument_RunsSaveAs();
    void Close_SaveAsCancelled_StaysOpenWithText();
    void Close_SaveFails_StaysOpenWithText();
    void Close_AfterSaveAs_AsksNothing();
    void Close_ReportNeverSaved_Asks();
    void Close_TextToRead_AsksOnlyWhileItDiffers();
    void Close_FileJustOpened_AsksNothing();
    void CloseWithoutQuestion_UnsavedText_Closes();
    void Save_NewDocument_OpensSaveAsDialog();
    void Save_NamedDocument_WritesWithoutDialog();
    void Save_AnyLineEnds_WritesCarriageReturnsAndOneBreakMore_data();
    void Save_AnyLineEnds_WritesCarriageReturnsAndOneBreakMore();
    void SaveAs_Cancelled_LeavesFileNameAndFlags();
    void SaveAs_Twice_OffersEarlierName();
    void New_Declined_EmptiesAndForgetsFileName();
    void New_Accepted_WritesToKnownFileFirst();
    void New_Cancelled_KeepsTextAndCaption();
    void Open_TextFile_ShowsTextAndTitle();
    void Open_SavedBefore_AsksNothing();
    void Open_Cancelled_KeepsEverything();
    void Open_Unreadable_SaysWhyAndKeepsText_data();
    void Open_Unreadable_SaysWhyAndKeepsText();
    void Clipboard_CutCopyAllPaste_UseSelection();
    void Clipboard_Keys_ActAsTheMenu();
    void Copy_NoSelection_KeepsClipboard();
    void ChangeFont_Accepted_AppliesToWholeBoxOnly();
    void ChangeFont_AcceptedUnchanged_ChangesNothing();
    void ChangeFont_Cancelled_KeepsFont();
    void PasteWord_NotInstalled_IsDisabled();
    void PasteWord_Installed_TypesWholeText();
    void PasteWord_Fails_SaysSo();
    void Print_Report_SendsTextAndCaption();
    void Print_Fails_SaysWhy();
    void Help_F1InText_ShowsTopic();
    void Escape_ChangedText_DoesNothing();
};

void TestFrmEdit::Window_New_HasItsCaptionsInOrder() {
    Desk desk;
    QCOMPARE(desk.Window->Caption(), u"New - Document"_s);
    QVERIFY(!desk.Window->isWindowModified());
    QStringList captions;
    for (const QAction* menu : desk.Window->menuBar()->actions()) {
        captions.append(menu->text());
        for (const QAction* item : menu->menu()->actions())
            captions.append(item->isSeparator() ? item->objectName() : item->text());
    }
    const QStringList expected{u"&File"_s,
                               u"&New"_s,
                               u"MnuFileSeperator1"_s,
                               u"&Open"_s,
                               u"MnuFileSeperator2"_s,
                               u"&Save"_s,
                               u"Save &As"_s,
                               u"MnuFileSeperator3"_s,
                               u"&Print"_s,
                               u"MnuFileSeperator4"_s,
                               u"E&xit"_s,
                               u"&Edit"_s,
                               u"C&ut"_s,
                               u"&Copy"_s,
                               u"Copy &All"_s,
                               u"&Paste"_s,
                               u"MnuEditSeperator1"_s,
                               u"C&hange Font"_s,
                               u"Paste into &Word document"_s};
    QCOMPARE(captions, expected);
}

void TestFrmEdit::Close_UntouchedWindow_AsksNothing() {
    Desk desk;
    QVERIFY(desk.Window->close());
}

void TestFrmEdit::Close_OneCharacterTypedAndCancel_StaysOpen() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    QVERIFY(desk.Window->isWindowModified());
    desk.ExpectSaveQuestion(PromptAnswer::Cancel);
    Choose(*desk.Window, u"MnuFileExit"_s);
    QVERIFY(desk.Window->isVisible());
    QCOMPARE(desk.Text(), u"x"_s);
}

void TestFrmEdit::Close_Declined_ClosesWithoutWriting() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    desk.ExpectSaveQuestion(PromptAnswer::No);
    Choose(*desk.Window, u"MnuFileExit"_s);
    QVERIFY(!desk.Window->isVisible());
    QVERIFY(QDir(desk.Folder.path()).isEmpty());
}

void TestFrmEdit::Close_AcceptedOnNewDocument_RunsSaveAs() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    desk.ExpectSaveQuestion(PromptAnswer::Yes);
    desk.Files.ExpectSave(desk.Path(u"kept.txt"_s));
    QVERIFY(desk.Window->close());
    QCOMPARE(BytesOf(desk.Path(u"kept.txt"_s)), "x\r\n");
}

void TestFrmEdit::Close_SaveAsCancelled_StaysOpenWithText() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    desk.ExpectSaveQuestion(PromptAnswer::Yes);
    desk.Files.ExpectSave({});
    QVERIFY(!desk.Window->close());
    QCOMPARE(desk.Text(), u"x"_s);
}

void TestFrmEdit::Close_SaveFails_StaysOpenWithText() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    desk.ExpectSaveQuestion(PromptAnswer::Yes);
    const QString unreachable = desk.Path(u"no such folder/report.txt"_s);
    desk.Files.ExpectSave(unreachable);
    desk.Boxes.Expect(unreachable).InPart().WithButtons(PromptButtons::Ok).WithIcon(PromptIcon::Critical);
    QVERIFY(!desk.Window->close());
    QVERIFY(desk.Window->isVisible());
    QCOMPARE(desk.Text(), u"x"_s);
    QVERIFY(desk.Window->isWindowModified());
    QCOMPARE(desk.Window->Caption(), u"New - Document"_s);
}

void TestFrmEdit::Close_AfterSaveAs_AsksNothing() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    desk.SaveAs(u"report.txt"_s);
    QCOMPARE(desk.Window->Caption(), u"report.txt"_s);
    QVERIFY(!desk.Window->isWindowModified());
    QVERIFY(desk.Window->close());
}

void TestFrmEdit::Close_ReportNeverSaved_Asks() {
    Desk desk;
    desk.Window->ShowText(u"Total score: 12"_s, u"Report - Mood"_s, TextKind::Report);
    QCOMPARE(desk.Window->Caption(), u"Report - Mood"_s);
    QVERIFY(desk.Window->isWindowModified());
    desk.ExpectSaveQuestion(PromptAnswer::Cancel);
    QVERIFY(!desk.Window->close());
}

void TestFrmEdit::Close_TextToRead_AsksOnlyWhileItDiffers() {
    Desk desk;
    desk.Window->ShowText(u"Welcome.\r\n\u00a0Sit down."_s, u"Mood - Introduction"_s, TextKind::Reading);
    QVERIFY(!desk.Window->isWindowModified());
    Type(*desk.Window->txtEdit, u"x"_s);
    QVERIFY(desk.Window->isWindowModified());
    desk.ExpectSaveQuestion(PromptAnswer::Cancel);
    QVERIFY(!desk.Window->close());
    Press(*desk.Window->txtEdit, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!desk.Window->isWindowModified());
    Choose(*desk.Window, u"MnuFileNew"_s); // asks nothing either
    Type(*desk.Window->txtEdit, u"y"_s);
    Press(*desk.Window->txtEdit, Qt::Key_Backspace);
    QVERIFY(desk.Window->close());
}

void TestFrmEdit::Close_FileJustOpened_AsksNothing() {
    Desk desk;
    PutBytes(desk.Path(u"notes.txt"_s), "one\r\ntwo\r\n");
    for (int i = 0; i < 2; ++i) { // nor does opening the next one
        desk.Files.ExpectOpen(desk.Path(u"notes.txt"_s));
        Choose(*desk.Window, u"MnuFileOpen"_s);
    }
    QVERIFY(!desk.Window->isWindowModified());
    QVERIFY(desk.Window->close());
}

void TestFrmEdit::CloseWithoutQuestion_UnsavedText_Closes() {
    Desk desk;
    desk.Window->ShowText(u"Total score: 12"_s, u"Report"_s, TextKind::Report);
    desk.Window->CloseWithoutQuestion();
    QVERIFY(!desk.Window->isVisible());
}

void TestFrmEdit::Save_NewDocument_OpensSaveAsDialog() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    desk.Files.ExpectSave(desk.Path(u"first.txt"_s));
    Press(*desk.Window->txtEdit, Qt::Key_S, Qt::ControlModifier);
    const FileQuestion& question = desk.Files.Questions().constFirst();
    QCOMPARE(question.Filter, TextFilter);
    QCOMPARE(question.DefaultExtension, u".txt"_s);
    QCOMPARE(question.FileName, QString());
    QCOMPARE(BytesOf(desk.Path(u"first.txt"_s)), "x\r\n");
}

void TestFrmEdit::Save_NamedDocument_WritesWithoutDialog() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"one"_s);
    desk.SaveAs(u"report.txt"_s);
    Type(*desk.Window->txtEdit, u"\ntwo"_s);
    QVERIFY(desk.Window->isWindowModified());
    Choose(*desk.Window, u"MnuFileSave"_s);
    QCOMPARE(BytesOf(desk.Path(u"report.txt"_s)), "one\r\ntwo\r\n");
    QVERIFY(!desk.Window->isWindowModified());
    QVERIFY(desk.Window->close());
}

void TestFrmEdit::Save_AnyLineEnds_WritesCarriageReturnsAndOneBreakMore_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QString() << QByteArray("\r\n");
    QTest::newRow("report") << u"a\r\n\r\nb\r\n"_s << QByteArray("a\r\n\r\nb\r\n\r\n");
    QTest::newRow("line feeds") << u"a\nb"_s << QByteArray("a\r\nb\r\n");
    QTest::newRow("carriage returns") << u"a\rb"_s << QByteArray("a\r\nb\r\n");
    QTest::newRow("blanks and tabs at the ends") << u"  a\t \r\n b "_s << QByteArray("  a\t \r\n b \r\n");
    QTest::newRow("letters") << u"Zo\u00eb \u0141ukasz \U0001F642"_s
                             << QByteArray("Zo\xc3\xab \xc5\x81ukasz \xf0\x9f\x99\x82\r\n");
    QTest::newRow("non-breaking space") << u"5\u00a0mg"_s << EncodeForLocale(u"5\u00a0mg\r\n"_s);
}

void TestFrmEdit::Save_AnyLineEnds_WritesCarriageReturnsAndOneBreakMore() {
    QFETCH(const QString, text);
    QFETCH(const QByteArray, bytes);
    Desk desk;
    desk.Window->ShowText(text, u"Report"_s, TextKind::Report);
    desk.SaveAs(u"report.txt"_s);
    QCOMPARE(BytesOf(desk.Path(u"report.txt"_s)), bytes);
}

void TestFrmEdit::SaveAs_Cancelled_LeavesFileNameAndFlags() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    desk.Files.ExpectSave({});
    Press(*desk.Window->txtEdit, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(desk.Window->isWindowModified());
    QCOMPARE(desk.Window->Caption(), u"New - Document"_s);
    desk.ExpectSaveQuestion(PromptAnswer::No);
    QVERIFY(desk.Window->close());
}

void TestFrmEdit::SaveAs_Twice_OffersEarlierName() {
    Desk desk;
    desk.SaveAs(u"one.txt"_s);
    desk.SaveAs(u"two.txt"_s);
    QCOMPARE(desk.Files.Questions().constLast().FileName, desk.Path(u"one.txt"_s));
    QCOMPARE(desk.Window->Caption(), u"two.txt"_s);
}

void TestFrmEdit::New_Declined_EmptiesAndForgetsFileName() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"old"_s);
    desk.SaveAs(u"old.txt"_s);
    Type(*desk.Window->txtEdit, u"er"_s);
    desk.ExpectSaveQuestion(PromptAnswer::No);
    Press(*desk.Window->txtEdit, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(desk.Text(), QString());
    QCOMPARE(desk.Window->Caption(), u"New - Document"_s);
    // The new document must not land in the old one's file.
    desk.Files.ExpectSave({});
    Choose(*desk.Window, u"MnuFileSave"_s);
    QCOMPARE(BytesOf(desk.Path(u"old.txt"_s)), "old\r\n");
}

void TestFrmEdit::New_Accepted_WritesToKnownFileFirst() {
    Desk desk;
    desk.SaveAs(u"known.txt"_s);
    Type(*desk.Window->txtEdit, u"more"_s);
    desk.ExpectSaveQuestion(PromptAnswer::Yes);
    Choose(*desk.Window, u"MnuFileNew"_s);
    QCOMPARE(BytesOf(desk.Path(u"known.txt"_s)), "more\r\n");
    QCOMPARE(desk.Text(), QString());
}

void TestFrmEdit::New_Cancelled_KeepsTextAndCaption() {
    Desk desk;
    desk.Window->ShowText(u"text"_s, u"Report"_s, TextKind::Report);
    desk.ExpectSaveQuestion(PromptAnswer::Cancel);
    Choose(*desk.Window, u"MnuFileNew"_s);
    QCOMPARE(desk.Text(), u"text"_s);
    QCOMPARE(desk.Window->Caption(), u"Report"_s);
}

void TestFrmEdit::Open_TextFile_ShowsTextAndTitle() {
    Desk desk;
    PutBytes(desk.Path(u"notes.txt"_s), "one\r\ntwo \xc3\xa9\r\n");
    desk.Files.ExpectOpen(desk.Path(u"notes.txt"_s));
    Press(*desk.Window->txtEdit, Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(desk.Files.Questions().constFirst().Filter, TextFilter);
    QCOMPARE(desk.Text(), u"one\ntwo \u00e9\n"_s);
    QCOMPARE(desk.Window->Caption(), u"notes.txt"_s);
    QVERIFY(!desk.Window->isWindowModified());
    Choose(*desk.Window, u"MnuFileSave"_s);
    QCOMPARE(BytesOf(desk.Path(u"notes.txt"_s)), "one\r\ntwo " + EncodeForLocale(u"\u00e9"_s) + "\r\n\r\n");
}

void TestFrmEdit::Open_SavedBefore_AsksNothing() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    desk.SaveAs(u"a.txt"_s);
    desk.Files.ExpectOpen({});
    Choose(*desk.Window, u"MnuFileOpen"_s);
    Type(*desk.Window->txtEdit, u"y"_s);
    desk.ExpectSaveQuestion(PromptAnswer::Cancel);
    Choose(*desk.Window, u"MnuFileOpen"_s);
    QCOMPARE(desk.Text(), u"xy"_s);
}

void TestFrmEdit::Open_Cancelled_KeepsEverything() {
    Desk desk;
    desk.Window->ShowText(u"text"_s, u"Report"_s, TextKind::Report);
    desk.ExpectSaveQuestion(PromptAnswer::No);
    desk.Files.ExpectOpen({});
    Choose(*desk.Window, u"MnuFileOpen"_s);
    QCOMPARE(desk.Text(), u"text"_s);
    QCOMPARE(desk.Window->Caption(), u"Report"_s);
    QVERIFY(desk.Window->isWindowModified());
}

void TestFrmEdit::Open_Unreadable_SaysWhyAndKeepsText_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << u"missing.txt"_s;
    QTest::newRow("directory") << u"."_s;
    QTest::newRow("binary") << u"binary.txt"_s;
    QTest::newRow("huge") << u"huge.txt"_s;
}

void TestFrmEdit::Open_Unreadable_SaysWhyAndKeepsText() {
    QFETCH(const QString, name);
    Desk desk;
    PutBytes(desk.Path(u"binary.txt"_s), QByteArray("a\0b", 3));
    QFile huge(desk.Path(u"huge.txt"_s));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(MaxReportFileBytes + 1));
    Type(*desk.Window->txtEdit, u"mine"_s);
    desk.SaveAs(u"mine.txt"_s);
    const QString path = desk.Path(name);
    desk.Files.ExpectOpen(path);
    desk.Boxes.Expect(u"Can't read the file '%1': "_s.arg(path)).InPart().WithIcon(PromptIcon::Critical);
    Choose(*desk.Window, u"MnuFileOpen"_s);
    QCOMPARE(desk.Text(), u"mine"_s);
    QCOMPARE(desk.Window->Caption(), u"mine.txt"_s);
    // What is saved next still goes to the text's own file.
    Choose(*desk.Window, u"MnuFileSave"_s);
    QCOMPARE(BytesOf(desk.Path(u"mine.txt"_s)), "mine\r\n");
}

void TestFrmEdit::Clipboard_CutCopyAllPaste_UseSelection() {
    Desk desk;
    desk.Window->ShowText(u"one\r\ntwo"_s, u"Report"_s, TextKind::Report);
    Choose(*desk.Window, u"mncopyall"_s);
    QCOMPARE(desk.Board.Content, u"one\ntwo"_s);
    QVERIFY(desk.Window->txtEdit->textCursor().hasSelection());

    desk.Window->txtEdit->moveCursor(QTextCursor::Start);
    desk.Window->txtEdit->moveCursor(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    Choose(*desk.Window, u"MnuEditCut"_s);
    QCOMPARE(desk.Board.Content, u"one"_s);
    QCOMPARE(desk.Text(), u"\ntwo"_s);

    desk.Window->txtEdit->moveCursor(QTextCursor::End);
    desk.Window->txtEdit->moveCursor(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    Choose(*desk.Window, u"MnuEditPaste"_s);
    QCOMPARE(desk.Text(), u"\none"_s);
}

void TestFrmEdit::Clipboard_Keys_ActAsTheMenu() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"word"_s);
    desk.Window->txtEdit->selectAll();
    Press(*desk.Window->txtEdit, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(desk.Board.Content, u"word"_s);
    Press(*desk.Window->txtEdit, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(desk.Text(), QString());
    Press(*desk.Window->txtEdit, Qt::Key_V, Qt::ControlModifier);
    Press(*desk.Window->txtEdit, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(desk.Text(), u"wordword"_s);
}

void TestFrmEdit::Copy_NoSelection_KeepsClipboard() {
    Desk desk;
    desk.Board.Content = u"from elsewhere"_s;
    Type(*desk.Window->txtEdit, u"x"_s);
    Choose(*desk.Window, u"MnuEditCopy"_s);
    Choose(*desk.Window, u"MnuEditCut"_s);
    QCOMPARE(desk.Board.Content, u"from elsewhere"_s);
    QCOMPARE(desk.Text(), u"x"_s);
}

void TestFrmEdit::ChangeFont_Accepted_AppliesToWholeBoxOnly() {
    Desk desk;
    const QFont menuFont = desk.Window->menuBar()->font();
    DialogDriver driver([&](QDialog& dialog) {
        auto* fonts = qobject_cast<QFontDialog*>(&dialog);
        QVERIFY(fonts != nullptr);
        QCOMPARE(fonts->currentFont().pointSize(), desk.Window->txtEdit->font().pointSize());
        QFont font = fonts->currentFont();
        font.setStyleName({}); // it would win over what follows
        font.setPointSize(23);
        font.setBold(true);
        font.setItalic(true);
        fonts->setCurrentFont(font);
        fonts->accept();
    });
    Choose(*desk.Window, u"MnuEditFont"_s);
    const QFont font = desk.Window->txtEdit->font();
    QCOMPARE(font.pointSize(), 23);
    QVERIFY(font.bold() && font.italic());
    QCOMPARE(desk.Window->menuBar()->font(), menuFont);
    QVERIFY(desk.Window->close()); // a font is no change of the text
}

void TestFrmEdit::ChangeFont_AcceptedUnchanged_ChangesNothing() {
    Desk desk;
    for (const bool bold : {false, true})
        for (const bool italic : {false, true}) {
            QFont font = desk.Window->txtEdit->font();
            font.setBold(bold);
            font.setItalic(italic);
            desk.Window->txtEdit->setFont(font);
            DialogDriver driver([&](QDialog& dialog) {
                const QFont offered = dynamic_cast<QFontDialog&>(dialog).currentFont();
                QCOMPARE(offered.bold(), bold);
                QCOMPARE(offered.italic(), italic);
                dialog.accept();
            });
            Choose(*desk.Window, u"MnuEditFont"_s);
            QCOMPARE(desk.Window->txtEdit->font(), font);
        }
}

void TestFrmEdit::ChangeFont_Cancelled_KeepsFont() {
    Desk desk;
    const QFont before = desk.Window->txtEdit->font();
    DialogDriver driver([](QDialog& dialog) { Press(dialog, Qt::Key_Escape); });
    Choose(*desk.Window, u"MnuEditFont"_s);
    QCOMPARE(desk.Window->txtEdit->font(), before);
}

void TestFrmEdit::PasteWord_NotInstalled_IsDisabled() {
    Desk desk(false);
    QVERIFY(!Find<QAction>(*desk.Window, u"pasteword"_s).isEnabled());
}

void TestFrmEdit::PasteWord_Installed_TypesWholeText() {
    Desk desk;
    desk.Window->ShowText(u"one\r\ntwo"_s, u"Report"_s, TextKind::Report);
    Choose(*desk.Window, u"pasteword"_s);
    QCOMPARE(desk.Word.Texts, QStringList{u"one\ntwo"_s});
    QCOMPARE(desk.Board.Content, u"one\ntwo"_s);
}

void TestFrmEdit::PasteWord_Fails_SaysSo() {
    Desk desk;
    desk.Word.FailWith = u"no answer"_s;
    Type(*desk.Window->txtEdit, u"x"_s);
    desk.Boxes.Expect(u"Can't paste to word"_s).WithButtons(PromptButtons::Ok);
    Choose(*desk.Window, u"pasteword"_s);
    QCOMPARE(desk.Text(), u"x"_s);
}

void TestFrmEdit::Print_Report_SendsTextAndCaption() {
    Desk desk;
    desk.Window->ShowText(u"one\r\ntwo"_s, u"Report"_s, TextKind::Report);
    Press(*desk.Window->txtEdit, Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(desk.Paper.Jobs, (QList<RecordingPrinter::Job>{{u"one\ntwo"_s, u"Report"_s}}));
}

void TestFrmEdit::Print_Fails_SaysWhy() {
    Desk desk;
    desk.Paper.FailWith = u"out of paper"_s;
    desk.Boxes.Expect(u"out of paper"_s).WithIcon(PromptIcon::Critical);
    Choose(*desk.Window, u"MnuFilePrint"_s);
}

void TestFrmEdit::Help_F1InText_ShowsTopic() {
    Desk desk;
    Press(*desk.Window->txtEdit, Qt::Key_F1);
    QCOMPARE(desk.Navigator.Calls, QStringList{u"ShowHelp(ReportEditor)"_s});
}

void TestFrmEdit::Escape_ChangedText_DoesNothing() {
    Desk desk;
    Type(*desk.Window->txtEdit, u"x"_s);
    Press(*desk.Window->txtEdit, Qt::Key_Escape);
    QVERIFY(desk.Window->isVisible());
    QCOMPARE(desk.Text(), u"x"_s);
}

QTEST_MAIN(TestFrmEdit)
#include "tst_frmedit.moc"

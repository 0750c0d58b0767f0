#include "export/ui/DialogHTML.h"
#include "platform/ui/LanguageBox.h"
#include "platform/ui/QtPrompts.h"
#include "support/Files.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingLauncher.h"
#include "support/RecordingNavigator.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/TestText.h"
#include "support/WindowDriver.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

const QByteArray Page = "<html lang=\"en\"><head><title>Mood</title></head><body bgcolor='#FFFFFF' text='#000080'>to "
                        "me@example.com<p align='center'>Test Created By <a "
                        "href='https://www.example.com/vellumo'>Vellumo</a>.</p></body></html>\r\n";
const QByteArray EmptyPage =
    "<html lang=\"en\"><head><title>Mood</title></head><body bgcolor='#FFFFFF' text='#000080'><p "
    "align='center'>Test Created By <a "
    "href='https://www.example.com/vellumo'>Vellumo</a>.</p></body></html>\r\n";

struct Export {
    Export() {
        session.Test = TestFromText(QStringLiteral("[TITLE]Mood[/TITLE]"));
        session.UserSettings.DefaultDirectory = folder.path();
        session.UserSettings.DefaultBrowser = QStringLiteral("browser");
        session.HtmlTemplatePath = Path("T.vlx");
        session.HtmlEmailAddress = QStringLiteral("me@example.com");
        session.HtmlNextPage = QStringLiteral("next.html");
        session.HtmlLanguage = QStringLiteral("en");
        PutBytes(Path("T.vlx"), "[DESCRIPTION]Two\nlines[/DESCRIPTION][HEADER]to [EMAIL][/HEADER]");
        PutBytes(Path("Host.html"), "<body>\nhost</BODY>x</body>");
    }
    ~Export() { QDir::setCurrent(QDir::rootPath()); }

    QString Path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }
    void Open() {
        window = std::make_unique<DialogHTML>(HtmlExportParts{session, prompts, launcher, store, QString()}, chooser,
                                              navigator);
        ShowAndActivate(*window);
    }
    QLineEdit& Box(const char* name) { return Find<QLineEdit>(*window, QLatin1String(name)); }
    QString Description() { return Find<QPlainTextEdit>(*window, QStringLiteral("txttempdesc")).toPlainText(); }
    /// Clicks OK on these files and returns whether the window stayed open.
    bool StaysOnOk(const QString& target, const QString& host = {}) {
        Box("Text1").setText(target);
        Box("Text2").setText(host);
        Click(*window, QStringLiteral("OKButton"));
        return window->isVisible();
    }
    void ExpectQuestion(const QString& text, PromptAnswer answer) {
        prompts.Expect(text, answer)
            .Titled(QStringLiteral("File Already Exists"))
            .WithButtons(PromptButtons::YesNoCancel);
    }

    QTemporaryDir folder;
    Session session;
    ScriptedPrompts prompts;
    RecordingLauncher launcher;
    MemorySettingsStore store;
    ScriptedFileChooser chooser;
    RecordingNavigator navigator;
    std::unique_ptr<DialogHTML> window;
};

} // namespace

class tst_dialoghtml : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Open_Always_ShowsTheValuesAndCaptions() {
        Export dialog;
        dialog.Open();
        QCOMPARE(dialog.window->windowTitle(), QStringLiteral("Save As HTML File"));
        QCOMPARE(dialog.Box("txteditor").text(), dialog.Path("T.vlx"));
        QCOMPARE(dialog.Description(), QStringLiteral("Two\nlines"));
        QCOMPARE(dialog.Box("txtEmail").text(), QStringLiteral("me@example.com"));
        QCOMPARE(dialog.Box("txtNextPage").text(), QStringLiteral("next.html"));
        QCOMPARE(dialog.Box("Text3").text(), QStringLiteral("</body>"));
        QVERIFY(Find<QRadioButton>(*dialog.window, QStringLiteral("Option1_0")).isChecked());

        QStringList texts;
        for (const auto* group : dialog.window->findChildren<QGroupBox*>())
            texts.append(group->title());
        for (const auto* label : dialog.window->findChildren<QLabel*>())
            texts.append(label->text());
        for (const auto* button : dialog.window->findChildren<QAbstractButton*>())
            texts.append(button->text());
        for (const char* text : {"Page Language", "Using HTML Template File", "Template File", "Description",
                                 "Required by CGI scripts", "E-mail Address", "Next Page", "File name:",
                                 "Insert html into this file:", "Insert", "Before", "After", "Text:", "Cancel"})
            QVERIFY2(texts.contains(QLatin1String(text)), text);
        GrabToPng(*dialog.window, QStringLiteral("dialog-html"));
    }

    void Boxes_Changed_HoldForTheRun() {
        Export dialog;
        dialog.session.HtmlLanguage = QStringLiteral("sr-Latn-RS");
        dialog.Open();
        dialog.Box("txteditor").setText(QStringLiteral("other.vlx"));
        dialog.Box("txtEmail").setText(QStringLiteral("you@example.com"));
        dialog.Box("txtNextPage").setText(QStringLiteral("there"));
        auto& language = Find<LanguageBox>(*dialog.window, QStringLiteral("cboLanguage"));
        QCOMPARE(language.Language(), QStringLiteral("sr-Latn-RS"));
        language.setCurrentIndex(language.findText(QStringLiteral("German"), Qt::MatchStartsWith));
        QCOMPARE(dialog.session.HtmlLanguage, QStringLiteral("de"));
        Click(*dialog.window, QStringLiteral("CancelButton"));
        QVERIFY(!dialog.window->isVisible());
        QCOMPARE(dialog.session.HtmlTemplatePath, QStringLiteral("other.vlx"));
        QCOMPARE(dialog.session.HtmlEmailAddress, QStringLiteral("you@example.com"));
        QCOMPARE(dialog.session.HtmlNextPage, QStringLiteral("there"));
        QVERIFY(dialog.store.WrittenKeys.isEmpty());
        QVERIFY(dialog.launcher.Starts.isEmpty());
    }

    void Description_FocusLost_IsTheTemplates_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("description");
        const QString none = QStringLiteral("Description can't be found or file not valid");
        QTest::newRow("some") << QByteArray("[description]a\r\nb[/Description]") << "a\nb";
        QTest::newRow("none in it") << QByteArray("[HEADER][/HEADER]") << "";
        QTest::newRow("no such file") << QByteArray() << none;
        QTest::newRow("no text file") << QByteArray("\0x", 2) << none;
        QTest::newRow("no closing tag") << QByteArray("[DESCRIPTION]") << none;
    }
    void Description_FocusLost_IsTheTemplates() {
        QFETCH(QByteArray, content);
        Export dialog;
        if (!content.isEmpty())
            PutBytes(dialog.Path("New.vlx"), content);
        dialog.Open();
        if (content == "[DESCRIPTION]")
            dialog.prompts.Expect(QStringLiteral("I can't find the [/DESCRIPTION]tag in the file: ") +
                                  dialog.Path("New.vlx"));
        dialog.Box("txteditor").setFocus();
        dialog.Box("txteditor").setText(dialog.Path("New.vlx"));
        QCOMPARE(dialog.Description(), QStringLiteral("Two\nlines"));
        dialog.Box("Text1").setFocus();
        QTEST(dialog.Description(), "description");
    }

    void Command2_Clicked_FindsATemplate() {
        Export dialog;
        dialog.Open();
        PutBytes(dialog.Path("New.vlx"), "[DESCRIPTION]new[/DESCRIPTION]");
        dialog.chooser.ExpectOpen({});
        dialog.chooser.ExpectOpen(dialog.Path("New.vlx"));
        Click(*dialog.window, QStringLiteral("Command2"));
        QCOMPARE(dialog.Box("txteditor").text(), dialog.Path("T.vlx"));
        Click(*dialog.window, QStringLiteral("Command2"));
        QCOMPARE(dialog.session.HtmlTemplatePath, dialog.Path("New.vlx"));
        QCOMPARE(dialog.Description(), QStringLiteral("new"));
        QCOMPARE(dialog.chooser.Questions()[1].Title, QStringLiteral("Find Template File"));
        QCOMPARE(dialog.chooser.Questions()[1].Filter, QStringLiteral("Program Files (*.vlx)|*.vlx"));
        QCOMPARE(QDir(QDir::currentPath()).canonicalPath(), QDir(dialog.folder.path()).canonicalPath());
    }

    void Command1_Clicked_FindsAFileAndKeepsItsFolder_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("key");
        QTest::newRow("target") << 0 << "Select HTML File for Saving"
                                << ".html"
                                << "dirhtml";
        QTest::newRow("host") << 1 << "Select HTML File for Template" << QString() << "dirtemphtml";
    }
    void Command1_Clicked_FindsAFileAndKeepsItsFolder() {
        QFETCH(int, index);
        QFETCH(QString, key);
        Export dialog;
        QDir(dialog.folder.path()).mkdir(QStringLiteral("a"));
        dialog.Open();
        const auto expect = [&](const QString& path) {
            index == 0 ? dialog.chooser.ExpectSave(path) : dialog.chooser.ExpectOpen(path);
        };
        expect({});
        expect(dialog.Path("b/x.html"));
        Settings& settings = dialog.session.UserSettings;
        settings.HtmlDirectory = settings.TempHtmlDirectory = dialog.Path("a");
        const QString button = QStringLiteral("Command1_%1").arg(index);
        const char* box = index == 0 ? "Text1" : "Text2";
        Click(*dialog.window, button);
        QCOMPARE(dialog.Box(box).text(), QString());
        // The dialog opened there, and it was the current folder when it was closed.
        QCOMPARE(QDir(dialog.store.Values.value(key)).canonicalPath(), QDir(dialog.Path("a")).canonicalPath());
        Click(*dialog.window, button);
        QCOMPARE(dialog.Box(box).text(), dialog.Path("b/x.html"));
        QTEST(dialog.chooser.Questions()[1].Title, "title");
        QTEST(dialog.chooser.Questions()[1].DefaultExtension, "extension");
        QCOMPARE(dialog.chooser.Questions()[1].Filter,
                 QStringLiteral("HTML Files (*.html)|*.html|HTM Files (*.htm)|*.htm| All Files (*.*)|*.*"));
        QCOMPARE(dialog.store.WrittenKeys, (QStringList{key, key}));
        const QString folder = QDir::toNativeSeparators(dialog.Path("b"));
        QCOMPARE(dialog.store.Values.value(key), folder);
        QCOMPARE(index == 0 ? settings.HtmlDirectory : settings.TempHtmlDirectory, folder);
        QCOMPARE(QDir(QDir::currentPath()).canonicalPath(), QDir(dialog.folder.path()).canonicalPath());
    }

    void Ok_NameWithoutExtension_GetsHtml() {
        Export dialog;
        PutBytes(dialog.Path("there"), "x");
        dialog.Open();
        QVERIFY(!dialog.StaysOnOk(dialog.Path("new")));
        QCOMPARE(BytesOf(dialog.Path("new.html")), Page);
        QCOMPARE(dialog.Box("Text1").text(), dialog.Path("new.html"));
        for (const char* name : {"a.b/new.", "x.htm", "there"})
            QCOMPARE(HtmlExportFlow::TargetOf(dialog.Path(name)),
                     dialog.Path(name) + QLatin1String(QLatin1String(name).endsWith(u'.') ? "html" : ""));
    }

    void Ok_ExistingTarget_EnterIsHarmless_data() {
        QTest::addColumn<QByteArray>("page");
        QTest::addColumn<QStringList>("questions");
        QTest::addColumn<bool>("replaced");
        const QString insert = QStringLiteral("Would you like to insert html into '%1' ?");
        const QString replace = QStringLiteral("Would you like to replace '%1' as a new file ?");
        QTest::newRow("made by Vellumo") << QByteArray(EmptyPage) << QStringList{replace} << true;
        QTest::newRow("not made by it") << QByteArray("<body></body>") << QStringList{insert, replace} << false;
        QTest::newRow("made by another version")
            << QByteArray(EmptyPage).replace("www.example.com", "x").replace(" lang=\"en\"", "") << QStringList{replace}
            << true;
        QTest::newRow("made by it, and then added to")
            << QByteArray(EmptyPage + "<p>x") << QStringList{insert, replace} << false;
        QTest::newRow("a test was put into it")
            << QByteArray("<body><!-- vellumo begins --></body>") << QStringList{insert, replace} << false;
    }
    void Ok_ExistingTarget_EnterIsHarmless() {
        QFETCH(QByteArray, page);
        QFETCH(QStringList, questions);
        QFETCH(bool, replaced);
        Export dialog;
        const QString target = dialog.Path("old.html");
        PutBytes(target, page);
        QtPrompts boxes;
        DialogHTML window({dialog.session, boxes, dialog.launcher, dialog.store, {}}, dialog.chooser, dialog.navigator);
        ShowAndActivate(window);
        Find<QLineEdit>(window, QStringLiteral("Text1")).setText(target);
        QStringList asked;
        QTimer enter;
        connect(&enter, &QTimer::timeout, this, [&asked] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                box && box->isActiveWindow()) {
                asked.append(box->text());
                QTest::keyClick(box, Qt::Key_Return);
            }
        });
        enter.start(20);
        Click(window, QStringLiteral("OKButton"));
        QCOMPARE(asked, questions.replaceInStrings(QStringLiteral("%1"), target));
        QCOMPARE(BytesOf(target), replaced ? Page : page);
    }

    void Ok_NewFile_WritesAndShowsThePage() {
        Export dialog;
        dialog.Open();
        QVERIFY(!dialog.StaysOnOk(dialog.Path("new.html")));
        QCOMPARE(BytesOf(dialog.Path("new.html")), Page);
        QCOMPARE(dialog.launcher.Starts,
                 (QList<RecordingLauncher::Start>{
                     {QStringLiteral("browser"), dialog.Path("new.html"), WindowState::Minimized}}));
    }

    void Ok_NoTarget_Asks() {
        Export dialog;
        dialog.Open();
        dialog.prompts.Expect(QStringLiteral("Please Select an Html file for save")).WithButtons(PromptButtons::Ok);
        QVERIFY(dialog.StaysOnOk({}, dialog.Path("Host.html")));
        QVERIFY(dialog.launcher.Starts.isEmpty());
    }

    void Ok_ExistingTarget_AsAnswered_data() {
        using Answers = QList<PromptAnswer>;
        QTest::addColumn<bool>("host");
        QTest::addColumn<Answers>("answers");
        QTest::addColumn<QByteArray>("written");
        const QByteArray old("old</Body>");
        const QByteArray inserted("oldto me@example.com</Body>\r\n\r\n");
        const QByteArray hosted("<body>\r\nhostto me@example.com</BODY>x</body>\r\n\r\n");
        QTest::newRow("insert") << false << Answers{PromptAnswer::Yes} << inserted;
        QTest::newRow("cancel") << false << Answers{PromptAnswer::Cancel} << old;
        QTest::newRow("replace") << false << Answers{PromptAnswer::No, PromptAnswer::Yes} << Page;
        QTest::newRow("don't replace") << false << Answers{PromptAnswer::No, PromptAnswer::No} << old;
        QTest::newRow("cancel the second") << false << Answers{PromptAnswer::No, PromptAnswer::Cancel} << old;
        QTest::newRow("host, replace") << true << Answers{PromptAnswer::Yes} << hosted;
        QTest::newRow("host, don't") << true << Answers{PromptAnswer::No} << old;
        QTest::newRow("host, cancel") << true << Answers{PromptAnswer::Cancel} << old;
    }
    void Ok_ExistingTarget_AsAnswered() {
        QFETCH(bool, host);
        QFETCH(QList<PromptAnswer>, answers);
        QFETCH(QByteArray, written);
        Export dialog;
        const QString target = dialog.Path("old.html");
        PutBytes(target, "old</Body>");
        dialog.Open();
        dialog.ExpectQuestion((host ? QStringLiteral("Would you like to replace'")
                                    : QStringLiteral("Would you like to insert html into '")) +
                                  target + QStringLiteral("' ?"),
                              answers[0]);
        if (answers.size() > 1)
            dialog.ExpectQuestion(QStringLiteral("Would you like to replace '") + target +
                                      QStringLiteral("' as a new file ?"),
                                  answers[1]);
        const bool stays = dialog.StaysOnOk(target, host ? dialog.Path("Host.html") : QString());
        QCOMPARE(stays, written == "old</Body>");
        QCOMPARE(BytesOf(target), written);
        QCOMPARE(dialog.launcher.Starts.isEmpty(), stays);
        dialog.prompts.Verify();
    }

    void Ok_Host_InsertsBeforeOrAfter_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("after");
        QTest::addColumn<QByteArray>("written");
        QTest::newRow("before") << "HOST" << false
                                << QByteArray("<body>\r\nto me@example.comhost</BODY>x</body>\r\n\r\n");
        QTest::newRow("after") << "</body>" << true
                               << QByteArray("<body>\r\nhost</BODY>to me@example.comx</body>\r\n\r\n");
    }
    void Ok_Host_InsertsBeforeOrAfter() {
        QFETCH(QString, text);
        QFETCH(bool, after);
        Export dialog;
        dialog.Open();
        dialog.Box("Text3").setText(text);
        Click(*dialog.window, after ? QStringLiteral("Option1_1") : QStringLiteral("Option1_0"));
        QVERIFY(!dialog.StaysOnOk(dialog.Path("new.html"), dialog.Path("Host.html")));
        QTEST(BytesOf(dialog.Path("new.html")), "written");
    }

    void Ok_InsertionImpossible_SaysWhyAndStays_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("host");
        QTest::addColumn<QString>("message");
        QTest::newRow("no text") << ""
                                 << "Host.html"
                                 << "Please enter some text to use as an insertion point";
        QTest::newRow("text not there") << "nowhere"
                                        << "Host.html"
                                        << "Text For Insertion Not Found";
        QTest::newRow("no such host") << "x"
                                      << "no.html"
                                      << "Can't read the page '%1': there is no such file";
        QTest::newRow("a folder as host") << "x"
                                          << "."
                                          << "Can't read the page '%1': it is a directory";
    }
    void Ok_InsertionImpossible_SaysWhyAndStays() {
        QFETCH(QString, text);
        QFETCH(QString, host);
        QFETCH(QString, message);
        Export dialog;
        dialog.Open();
        dialog.Box("Text3").setText(text);
        const QString path = dialog.folder.filePath(host);
        dialog.prompts.Expect(message.replace(QStringLiteral("%1"), path)).WithButtons(PromptButtons::Ok);
        QVERIFY(dialog.StaysOnOk(dialog.Path("new.html"), path));
        QVERIFY(!QFileInfo::exists(dialog.Path("new.html")));
    }

    void Ok_NoTestInThePage_OnlyIntoANewFile_data() {
        QTest::addColumn<QString>("templatePath");
        QTest::addColumn<QString>("message");
        QTest::newRow("failing") << "missing.vlx" << "Error loading HTML template file: missing.vlx";
        QTest::newRow("another file") << "Host.html" << "The template 'Host.html' makes no page: it has none of the "
                                                        "sections that a page consists of";
    }

    void Ok_NoTestInThePage_OnlyIntoANewFile() {
        QFETCH(const QString, templatePath);
        QFETCH(const QString, message);
        Export dialog;
        dialog.session.HtmlTemplatePath = templatePath;
        QDir::setCurrent(dialog.folder.path());
        PutBytes(dialog.Path("good.html"), Page);
        dialog.Open();
        dialog.ExpectQuestion(QStringLiteral("Would you like to replace '") + dialog.Path("good.html") +
                                  QStringLiteral("' as a new file ?"),
                              PromptAnswer::Yes);
        dialog.prompts.Expect(message);
        dialog.prompts.Expect(QStringLiteral("Nothing was written; the page '") + dialog.Path("good.html") +
                              QStringLiteral("' is as it was."));
        QVERIFY(dialog.StaysOnOk(dialog.Path("good.html")));
        QCOMPARE(BytesOf(dialog.Path("good.html")), Page);
        dialog.prompts.Expect(message);
        QVERIFY(!dialog.StaysOnOk(dialog.Path("new.html")));
        QCOMPARE(BytesOf(dialog.Path("new.html")), EmptyPage);
        QCOMPARE(dialog.session.GeneratedHtml, QString());
    }

    void Ok_TargetIsAFolder_SaysSoAndStays() {
        Export dialog;
        dialog.Open();
        dialog.prompts.Expect(QStringLiteral("Can't write the file '") + dialog.folder.path()).InPart();
        QVERIFY(dialog.StaysOnOk(dialog.folder.path()));
        QVERIFY(dialog.launcher.Starts.isEmpty());
    }

    void Ok_NoBrowser_SaysSoAndCloses() {
        Export dialog;
        dialog.launcher.FailWith = QStringLiteral("no browser");
        dialog.Open();
        dialog.prompts.Expect(QStringLiteral("no browser"));
        QVERIFY(!dialog.StaysOnOk(dialog.Path("new.html")));
        QCOMPARE(BytesOf(dialog.Path("new.html")), Page);
    }

    void Keys_EscapeAndF1_CloseAndHelp() {
        Export dialog;
        dialog.Open();
        Press(*dialog.window->focusWidget(), Qt::Key_F1);
        QCOMPARE(dialog.navigator.Calls, QStringList{QStringLiteral("ShowHelp(HtmlExport)")});
        Press(*dialog.window, Qt::Key_Escape);
        QVERIFY(!dialog.window->isVisible());
    }
};

QTEST_MAIN(tst_dialoghtml)
#include "tst_dialoghtml.moc"

#include "settings/TemplateDescription.h"
#include "settings/ui/frmOptions.h"
#include "support/Files.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingNavigator.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/WindowDriver.h"

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QByteArray Template = "<HTML>\r\n[description]Two\r\nlines[/DESCRIPTION]\r\n";

struct Options {
    Options() {
        settings.QuestionPrefix = QStringLiteral("Item ");
        settings.QuestionSuffix = QStringLiteral(")");
        settings.DefaultEditor = QStringLiteral("editor");
        settings.DefaultDirectory = folder.path();
        settings.NamePersist = false;
        settings.AdministratorName = QStringLiteral("Dr. Stone");
        settings.BreakAfterQuestionNumber = true;
        settings.HtmlTemplatePath = folder.filePath(QStringLiteral("T.vlx"));
        settings.DefaultBrowser = QStringLiteral("browser");
        settings.DefaultEmail = QStringLiteral("me@example.com");
        settings.DefaultNextPage = QStringLiteral("next.html");
        PutBytes(settings.HtmlTemplatePath, Template);
    }
    ~Options() { QDir::setCurrent(QDir::rootPath()); }

    void Open() {
        window = std::make_unique<frmOptions>(settings, store, folders, prompts, chooser, navigator);
        ShowAndActivate(*window);
    }
    QString Text(const char* name) { return Find<QLineEdit>(*window, QLatin1String(name)).text(); }
    void SetText(const char* name, const QString& text) { Find<QLineEdit>(*window, QLatin1String(name)).setText(text); }
    bool Ticked(const char* name) { return Find<QCheckBox>(*window, QLatin1String(name)).isChecked(); }
    QString Description() { return Find<QPlainTextEdit>(*window, QStringLiteral("txttempdesc")).toPlainText(); }
    void ShowTab(int index) { Find<QTabWidget>(*window, QStringLiteral("tbsOptions")).setCurrentIndex(index); }

    QTemporaryDir folder;
    Settings settings;
    MemorySettingsStore store;
    DefaultFolders folders{QStringLiteral("/program"), QStringLiteral("/work")};
    ScriptedPrompts prompts;
    ScriptedFileChooser chooser;
    RecordingNavigator navigator;
    std::unique_ptr<frmOptions> window;
};

} // namespace

class tst_frmoptions : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Open_Always_ShowsTheSettings();
    void Open_Always_HasTabsCaptionsAndToolTips();
    void Open_NameDisabled_BoxCannotBeEdited_data();
    void Open_NameDisabled_BoxCannotBeEdited();
    void Buttons_Changed_TakeAndStoreAsTheySay_data();
    void Buttons_Changed_TakeAndStoreAsTheySay();
    void Buttons_NoSuchWorkingDirectory_RefuseAndStay_data();
    void Buttons_NoSuchWorkingDirectory_RefuseAndStay();
    void RestoreDefaults_ThenCancel_HoldsForTheRunOnly();
    void CtrlTab_FromEither_WrapsAround();
    void DirectoryChooser_Answer_FillsTheBox_data();
    void DirectoryChooser_Answer_FillsTheBox();
    void Browse_EachButton_AsksAndFillsItsBox_data();
    void Browse_EachButton_AsksAndFillsItsBox();
    void Browse_Template_ReadsItsDescriptionAgain();
    void Description_AnyFile_IsItsSectionOrNothing_data();
    void Description_AnyFile_IsItsSectionOrNothing();
    void F1_Pressed_ShowsTheTopic();
};

void tst_frmoptions::Open_Always_ShowsTheSettings() {
    Options options;
    options.Open();
    QCOMPARE(options.Text("TxtTestAdministrator"), QStringLiteral("Dr. Stone"));
    QVERIFY(Find<QLineEdit>(*options.window, QStringLiteral("TxtTestAdministrator")).isEnabled());
    QVERIFY(!options.Ticked("Chkpersist"));
    QCOMPARE(options.Text("txtsuffix_0"), QStringLiteral("Item "));
    QCOMPARE(options.Text("txtsuffix_1"), QStringLiteral(")"));
    QVERIFY(options.Ticked("ChkCarriageReturn"));
    QCOMPARE(options.Text("Txtdirectory"), options.folder.path());
    QCOMPARE(options.Text("txteditor_0"), QStringLiteral("editor"));
    QCOMPARE(options.Text("txteditor_1"), QStringLiteral("browser"));
    QCOMPARE(options.Text("txteditor_2"), options.settings.HtmlTemplatePath);
    QCOMPARE(options.Description(), QStringLiteral("Two\nlines"));
    QVERIFY(Find<QPlainTextEdit>(*options.window, QStringLiteral("txttempdesc")).isReadOnly());
    QCOMPARE(options.Text("txtEmail"), QStringLiteral("me@example.com"));
    QCOMPARE(options.Text("txtNextPage"), QStringLiteral("next.html"));
}

void tst_frmoptions::Open_Always_HasTabsCaptionsAndToolTips() {
    Options options;
    options.Open();
    QCOMPARE(options.window->windowTitle(), QStringLiteral("Options"));
    auto& tabs = Find<QTabWidget>(*options.window, QStringLiteral("tbsOptions"));
    QCOMPARE(tabs.tabText(0), QStringLiteral("General Options"));
    QCOMPARE(tabs.tabToolTip(0), QStringLiteral("Set Options for Group 1"));
    QCOMPARE(tabs.tabText(1), QStringLiteral("HTML Export Options"));
    QCOMPARE(tabs.tabToolTip(1), QStringLiteral("Set Options for Group 3"));

    QStringList texts;
    for (const auto* group : options.window->findChildren<QGroupBox*>())
        texts.append(group->title());
    for (const auto* label : options.window->findChildren<QLabel*>())
        texts.append(label->text());
    for (const auto* button : options.window->findChildren<QAbstractButton*>())
        texts.append(button->text());
    for (const char* text : {"Test Administrator",
                             "Persist Between Tests",
                             "Reporting Questions",
                             "Question Prefix",
                             "Question Suffix",
                             "Carriage Return after",
                             "Files",
                             "Working Directory",
                             "Default Text Editor",
                             "Default Web Browser",
                             "HTML Template File",
                             "Template File",
                             "Description",
                             "E-mail Address",
                             "Next Page",
                             "Required by CGI scripts",
                             "Apply",
                             "Cancel",
                             "Save",
                             "Restore Defaults"})
        QVERIFY2(texts.contains(QLatin1String(text)), text);
}

void tst_frmoptions::Open_NameDisabled_BoxCannotBeEdited_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("as written") << "<Disabled>" << false;
    QTest::newRow("any case") << "<dISABLED>" << false;
    QTest::newRow("part of a name") << "<Disabled> Smith" << true;
    QTest::newRow("empty") << "" << true;
}

void tst_frmoptions::Open_NameDisabled_BoxCannotBeEdited() {
    QFETCH(QString, name);
    Options options;
    options.settings.AdministratorName = name;
    options.Open();
    QTEST(Find<QLineEdit>(*options.window, QStringLiteral("TxtTestAdministrator")).isEnabled(), "enabled");
}

void tst_frmoptions::Buttons_Changed_TakeAndStoreAsTheySay_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<bool>("stored");
    QTest::newRow("Apply") << "OkButton" << true << false;
    QTest::newRow("Save") << "SaveButton" << true << true;
    QTest::newRow("Cancel") << "CancelButton" << false << false;
}

void tst_frmoptions::Buttons_Changed_TakeAndStoreAsTheySay() {
    QFETCH(QString, button);
    QFETCH(bool, taken);
    QFETCH(bool, stored);
    Options options;
    options.Open();
    const QStringList boxes = {QStringLiteral("TxtTestAdministrator"),
                               QStringLiteral("txtsuffix_0"),
                               QStringLiteral("txtsuffix_1"),
                               QStringLiteral("txteditor_0"),
                               QStringLiteral("txteditor_1"),
                               QStringLiteral("txteditor_2"),
                               QStringLiteral("txtEmail"),
                               QStringLiteral("txtNextPage")};
    options.SetText("Txtdirectory", QDir::rootPath());
    for (const QString& box : boxes)
        Find<QLineEdit>(*options.window, box).setText(QStringLiteral("new ") + box);
    Find<QComboBox>(*options.window, QStringLiteral("cboLanguage")).setCurrentIndex(5);
    Click(*options.window, QStringLiteral("Chkpersist"));
    Click(*options.window, QStringLiteral("ChkCarriageReturn"));
    const Settings before = options.settings;
    Click(*options.window, button);

    QVERIFY(!options.window->isVisible());
    const Settings& now = options.settings;
    const auto expected = [&](const char* box, const QString& old) {
        return taken ? QStringLiteral("new ") + QLatin1String(box) : old;
    };
    QCOMPARE(now.AdministratorName, expected("TxtTestAdministrator", before.AdministratorName));
    QCOMPARE(now.QuestionPrefix, expected("txtsuffix_0", before.QuestionPrefix));
    QCOMPARE(now.QuestionSuffix, expected("txtsuffix_1", before.QuestionSuffix));
    QCOMPARE(now.DefaultDirectory, taken ? QDir::rootPath() : before.DefaultDirectory);
    QCOMPARE(now.DefaultEditor, expected("txteditor_0", before.DefaultEditor));
    QCOMPARE(now.DefaultBrowser, expected("txteditor_1", before.DefaultBrowser));
    QCOMPARE(now.HtmlTemplatePath, expected("txteditor_2", before.HtmlTemplatePath));
    QCOMPARE(now.DefaultEmail, expected("txtEmail", before.DefaultEmail));
    QCOMPARE(now.DefaultNextPage, expected("txtNextPage", before.DefaultNextPage));
    QCOMPARE(now.HtmlLanguage != before.HtmlLanguage, taken);
    QCOMPARE(now.NamePersist, taken);
    QCOMPARE(now.BreakAfterQuestionNumber, !taken);
    QCOMPARE(options.store.WrittenKeys.size(), stored ? 14 : 0);
    if (stored)
        QCOMPARE(options.store.Values.value(QStringLiteral("globaloptionQuestionPrefix")),
                 QStringLiteral("new txtsuffix_0"));
}

void tst_frmoptions::Buttons_NoSuchWorkingDirectory_RefuseAndStay_data() {
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("message");
    QTest::newRow("empty") << ""
                           << "The working directory is empty";
    QTest::newRow("blank") << " "
                           << "The working directory is empty";
    QTest::newRow("missing") << "HERE/gone"
                             << "The working directory 'HERE/gone' can't be used: it doesn't exist.";
    QTest::newRow("a file") << "HERE/T.vlx"
                            << "The working directory 'HERE/T.vlx' can't be used: it is not a folder.";
}

void tst_frmoptions::Buttons_NoSuchWorkingDirectory_RefuseAndStay() {
    QFETCH(QString, directory);
    QFETCH(QString, message);
    Options options;
    options.Open();
    options.SetText("Txtdirectory", directory.replace(QStringLiteral("HERE"), options.folder.path()));
    options.SetText("txtsuffix_0", QStringLiteral("other"));
    for (const char* button : {"OkButton", "SaveButton"}) {
        options.ShowTab(1);
        options.prompts.Expect(message.replace(QStringLiteral("HERE"), options.folder.path())).InPart();
        Click(*options.window, QLatin1String(button));
        QVERIFY(options.window->isVisible());
        QVERIFY(Find<QLineEdit>(*options.window, QStringLiteral("Txtdirectory")).hasFocus());
    }
    QCOMPARE(options.settings.QuestionPrefix, QStringLiteral("Item "));
    QCOMPARE(options.settings.DefaultDirectory, options.folder.path());
    QVERIFY(options.store.WrittenKeys.isEmpty());
}

void tst_frmoptions::RestoreDefaults_ThenCancel_HoldsForTheRunOnly() {
    Options options;
    options.Open();
    Click(*options.window, QStringLiteral("CmdDefault"));
    QVERIFY(options.window->isVisible());
    QCOMPARE(options.Text("txtsuffix_0"), QStringLiteral("Q."));
    QCOMPARE(options.Text("Txtdirectory"), QStringLiteral("/work"));
    QCOMPARE(options.Text("TxtTestAdministrator"), QStringLiteral("Dr. Stone"));
    QVERIFY(options.Ticked("Chkpersist"));
    Click(*options.window, QStringLiteral("CancelButton"));
    QCOMPARE(options.settings.QuestionPrefix, QStringLiteral("Q."));
    QVERIFY(options.store.WrittenKeys.isEmpty());
}

void tst_frmoptions::CtrlTab_FromEither_WrapsAround() {
    Options options;
    options.Open();
    auto& tabs = Find<QTabWidget>(*options.window, QStringLiteral("tbsOptions"));
    for (const int index : {1, 0, 1}) {
        QTest::keyClick(options.window->focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(tabs.currentIndex(), index);
        QCOMPARE(Find<QWidget>(*options.window, QStringLiteral("picOptions_0")).isVisible(), index == 0);
        QCOMPARE(Find<QWidget>(*options.window, QStringLiteral("picOptions_1")).isVisible(), index == 1);
    }
}

void tst_frmoptions::DirectoryChooser_Answer_FillsTheBox_data() {
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("box");
    QTest::newRow("chosen") << "/"
                            << "/";
    QTest::newRow("cancelled") << ""
                               << "HERE";
}

void tst_frmoptions::DirectoryChooser_Answer_FillsTheBox() {
    QFETCH(QString, answer);
    QFETCH(QString, box);
    Options options;
    options.Open();
    options.chooser.ExpectFolder(answer);
    Click(*options.window, QStringLiteral("CmddefaultDir"));
    QCOMPARE(options.Text("Txtdirectory"), box.replace(QStringLiteral("HERE"), options.folder.path()));
    QCOMPARE(options.chooser.Questions().value(0).Title, QStringLiteral("Select a directory"));
    QCOMPARE(QDir(QDir::currentPath()).canonicalPath(), QDir(options.folder.path()).canonicalPath());
    QCOMPARE(options.settings.DefaultDirectory, options.folder.path());
}

void tst_frmoptions::Browse_EachButton_AsksAndFillsItsBox_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("filter");
    const QString programs = QStringLiteral("Program Files (*.exe)|*.exe| All Files (*.*)|*.*");
    QTest::newRow("editor") << 0 << "Find Default Editor" << programs;
    QTest::newRow("browser") << 1 << "Find Default Browser" << programs;
    QTest::newRow("template") << 2 << "Find Template File"
                              << "Program Files (*.vlx)|*.vlx";
}

void tst_frmoptions::Browse_EachButton_AsksAndFillsItsBox() {
    QFETCH(int, index);
    Options options;
    options.Open();
    options.ShowTab(index == 2 ? 1 : 0);
    const QString box = QStringLiteral("txteditor_%1").arg(index);
    const QString before = Find<QLineEdit>(*options.window, box).text();
    options.chooser.ExpectOpen({});
    options.chooser.ExpectOpen(QStringLiteral("/found"));
    Click(*options.window, QStringLiteral("Command2_%1").arg(index));
    QCOMPARE(Find<QLineEdit>(*options.window, box).text(), before);
    Click(*options.window, QStringLiteral("Command2_%1").arg(index));
    QCOMPARE(Find<QLineEdit>(*options.window, box).text(), QStringLiteral("/found"));
    QTEST(options.chooser.Questions().value(1).Title, "title");
    QTEST(options.chooser.Questions().value(1).Filter, "filter");
    QCOMPARE(QDir(QDir::currentPath()).canonicalPath(), QDir(options.folder.path()).canonicalPath());
}

void tst_frmoptions::Browse_Template_ReadsItsDescriptionAgain() {
    Options options;
    const QString other = options.folder.filePath(QStringLiteral("Other.vlx"));
    const QString bare = options.folder.filePath(QStringLiteral("Bare.vlx"));
    PutBytes(other, "[DESCRIPTION]Other[/DESCRIPTION]");
    PutBytes(bare, "<HTML>");
    options.Open();
    options.ShowTab(1);
    options.chooser.ExpectOpen(other);
    options.chooser.ExpectOpen(bare);
    Click(*options.window, QStringLiteral("Command2_2"));
    QCOMPARE(options.Description(), QStringLiteral("Other"));
    Click(*options.window, QStringLiteral("Command2_2"));
    QCOMPARE(options.Description(), QString());
}

void tst_frmoptions::Description_AnyFile_IsItsSectionOrNothing_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("description");
    QTest::newRow("one line") << QByteArray("[DESCRIPTION]Plain[/DESCRIPTION]") << "Plain";
    QTest::newRow("lines of any kind") << QByteArray("[DESCRIPTION]a\nb\rc\r\nd[/DESCRIPTION]") << "a\r\nb\r\nc\r\nd";
    QTest::newRow("no section") << QByteArray("<HTML>") << "";
    QTest::newRow("not closed") << QByteArray("[DESCRIPTION]a") << "";
    QTest::newRow("binary") << QByteArray("[DESCRIPTION]\0[/DESCRIPTION]", 28) << "";
    QTest::newRow("no file") << QByteArray() << "";
}

void tst_frmoptions::Description_AnyFile_IsItsSectionOrNothing() {
    QFETCH(QByteArray, content);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("T.vlx"));
    if (!content.isEmpty())
        PutBytes(path, content);
    QTEST(ReadTemplateDescription(path), "description");
}

void tst_frmoptions::F1_Pressed_ShowsTheTopic() {
    Options options;
    options.Open();
    Press(*options.window, Qt::Key_F1);
    QCOMPARE(options.navigator.Calls, QStringList{QStringLiteral("ShowHelp(GeneralOptions)")});
}

QTEST_MAIN(tst_frmoptions)
#include "tst_frmoptions.moc"

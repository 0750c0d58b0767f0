#pragma once

#include "app/BeginFlow.h"
#include "app/ProgramStart.h"
#include "app/TestList.h"
#include "app/ui/PictureMenu.h"
#include "platform/FileChooser.h"
#include "platform/ui/LinkButton.h"
#include "settings/Settings.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <array>

/// What the start screen is made of.
struct StartScreenParts {
    Session& Run;
    ProgramStart& Start;
    SettingsStore& Store;
    const DefaultFolders& Folders;
    Prompts& Boxes;
    FileChooser& Files;
    Navigator& Ways;
    TrustedTests& Trusted;
};

/// The start screen: the tests of the working directory by title, and the ways to everything else.
class Loading_Test : public QWidget {
    Q_OBJECT

  public:
    explicit Loading_Test(const StartScreenParts& parts, QWidget* parent = nullptr);

    /// The steps of every start: settings (once in a run), working directory, list.
    void Form_Load();
    /// Once in a run: begins the test of the command line. True when its window opened.
    bool BeginFromCommandLine();

    QString SelectedTestPath() const { return selectedTestPath_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QLayout* MakeHeading();
    QLayout* MakeTests();
    QLayout* MakeTestPanel();
    QLayout* MakeMenu();
    QLayout* MakeLinks();
    void Connect();
    void FitToSize();

    void EnterWorkingDirectory();
    void ListTestsAgain();
    int RowOf(const QString& path) const;
    void ShowWhetherTestsAreListed(bool listed);
    void ShowPartButtons(bool introduction, bool instructions, bool questions);
    bool BeginSelectedTest();
    bool LeaveWhen(bool otherWindowOpened);

    /// Reads what is shown of the selected test into the document. Returns why it can't be, or "".
    QString ReadParts();

    void Listselect_Click();
    void cmdBeginTest_Click();
    void CmdEditTest_Click();
    void CmdIntro_Click(int index);
    void Label1_Click(int index);
    void Label2_Click();
    void Label3_Click();
    void Label5_Click();
    void Label7_Click();
    void Picture1_Click(PictureMenu::Region region);

    Session& session_;
    StartScreenParts parts_;
    BeginFlow flow_;
    std::vector<ListedTest> FileList_;
    QString selectedTestPath_;

    QListWidget* Listselect_ = nullptr;
    QLabel* lblalt_ = nullptr;
    QLabel* selectedTitle_ = nullptr;
    QLabel* selectedFile_ = nullptr;
    std::array<QPushButton*, 3> CmdIntro_{};
    QPushButton* cmdBeginTest_ = nullptr;
    QPushButton* CmdEditTest_ = nullptr;
    QLabel* Lblinstruct_ = nullptr;
    PictureMenu* Picture1_ = nullptr;
    std::array<LinkButton*, 2> Label1_{};
    LinkButton* Label2_ = nullptr;
    LinkButton* Label3_ = nullptr;
    LinkButton* Label5_ = nullptr;
    LinkButton* Label7_ = nullptr;
};

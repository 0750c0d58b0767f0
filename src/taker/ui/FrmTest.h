#pragma once

#include "platform/Clock.h"
#include "platform/FileChooser.h"
#include "platform/Launcher.h"
#include "platform/Navigator.h"
#include "platform/OfficeProbe.h"
#include "platform/Prompts.h"
#include "taker/Administration.h"
#include "taker/AnswerSizes.h"
#include "taker/ReadingSize.h"
#include "taker/ResultFiling.h"
#include "taker/ui/AnswerPanel.h"
#include "taker/ui/QuestionWindow.h"
#include "taker/ui/StatusLine.h"
#include "taker/ui/TestMenus.h"

#include <QGroupBox>
#include <QMainWindow>
#include <QPushButton>

#include <functional>

/// What the test window works with. The exporter may be missing; everything else outlives the window.
struct TestWindowParts {
    Session& TheSession;
    Prompts& ThePrompts;
    FileChooser& TheFileChooser;
    const Clock& TheClock;
    Launcher& TheLauncher;
    const OfficeProbe& TheOfficeProbe;
    Navigator& TheNavigator;
    SpreadsheetExporter* Exporter = nullptr;
    /// Keeps the size of the text; without it every window begins with the usual one.
    SettingsStore* Store = nullptr;
};

/// The test window: gives the session's test, which must have a question, to the client. Making one starts a new
/// administration. Closing it from its title bar shows the start screen. However it is left, it asks first where
/// answers or results would be lost.
class FrmTest : public QMainWindow {
    Q_OBJECT

  public:
    explicit FrmTest(const TestWindowParts& parts, QWidget* parent = nullptr);

    /// 1 to 3: shows the introduction, the instructions, all questions; 4: all questions in a window of their own.
    void mnutestshow_Click(int index);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Form_Load();
    QWidget* MakeQuestionFrame();
    QLayout* MakeButtonRow();
    QPushButton* MakeButton(const QString& name, const QString& caption, void (FrmTest::*handler)());
    void ConnectMenus();

    void Opt_Click(int index);
    void Label1_Click(int index);
    void txtanswer_Change(int index);
    void CmdContinue_Click();
    void CmdBegin_Click();
    void CmdBack_Click();
    void CmdForward_Click();
    void CmdReport_Click();
    void CmdExport_Click();
    void auto_Click();
    void mnuNew_Click();
    void edittest_Click();
    void mnut_Click();

    /// Runs a step of the administration and shows where it led. What fails is told, and the window stays as it was.
    void Step(const std::function<void()>& step);
    void ShowPage();
    void ShowButtons();
    void RunCompletion();
    /// Whether the window may be left: nothing would be lost, or the person said so.
    bool MayLeave();
    /// Shows what failed, and what is in which file.
    void ShowStatus();
    void ClearStatus();
    void ChangeReadingSize(int direction);
    void ApplyReadingSize();

    TestWindowParts parts_;
    AnswerSizes sizes_;
    Administration course_;
    ResultFiling filing_;
    bool leaving_ = false;
    ReadingSize readingSize_;

    TestMenus* menus_ = nullptr;
    QGroupBox* framequest_ = nullptr;
    QuestionWindow* TxtQuest_ = nullptr;
    AnswerPanel* answers_ = nullptr;
    QPushButton* CmdBegin_ = nullptr;
    QPushButton* CmdBack_ = nullptr;
    QPushButton* CmdForward_ = nullptr;
    QPushButton* auto_ = nullptr;
    QPushButton* CmdExport_ = nullptr;
    QPushButton* CmdReport_ = nullptr;
    QPushButton* CmdQuit_ = nullptr;
    StatusLine* LblStatus_ = nullptr;
};

#pragma once

#include "platform/FileChooser.h"
#include "platform/Navigator.h"
#include "platform/Prompts.h"
#include "settings/Settings.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

#include <array>

class LanguageBox;

/// The general options: the window in which the user-wide settings are changed.
class frmOptions : public QDialog {
    Q_OBJECT

  public:
    /// Changes settings on Apply, Save and Restore Defaults; Save also writes them to the store.
    frmOptions(Settings& settings, SettingsStore& store, const DefaultFolders& folders, Prompts& prompts,
               FileChooser& chooser, Navigator& navigator, QWidget* parent = nullptr);

  private:
    QWidget* MakeGeneralPage();
    QWidget* MakeHtmlPage();
    QWidget* MakeAdministratorGroup();
    QWidget* MakeQuestionsGroup();
    QWidget* MakeFilesGroup();
    QWidget* MakeTemplateGroup();
    QWidget* MakePageGroup();
    QLayout* MakeButtons();
    void MakeShortcuts();

    void Form_Load();
    void Form_KeyDown(int step);
    void FillControls();
    /// False, with nothing changed, when the working directory is refused.
    bool TakeControls();
    void ReadDescription();
    void BackToWorkingDirectory();

    void OkButton_Click();
    void SaveButton_Click();
    void CancelButton_Click();
    void CmdDefault_Click();
    void CmddefaultDir_Click();
    void Command2_Click(int index);

    Settings& settings_;
    SettingsStore& store_;
    DefaultFolders folders_;
    Prompts& prompts_;
    FileChooser& chooser_;

    QTabWidget* tbsOptions_ = nullptr;
    std::array<QWidget*, 2> picOptions_{};
    QLineEdit* TxtTestAdministrator_ = nullptr;
    QCheckBox* Chkpersist_ = nullptr;
    std::array<QLineEdit*, 2> txtsuffix_{};
    QCheckBox* ChkCarriageReturn_ = nullptr;
    QLineEdit* Txtdirectory_ = nullptr;
    QPushButton* CmddefaultDir_ = nullptr;
    std::array<QLineEdit*, 3> txteditor_{};
    std::array<QPushButton*, 3> Command2_{};
    QPlainTextEdit* txttempdesc_ = nullptr;
    QLineEdit* txtEmail_ = nullptr;
    QLineEdit* txtNextPage_ = nullptr;
    LanguageBox* cboLanguage_ = nullptr;
    QPushButton* OkButton_ = nullptr;
    QPushButton* SaveButton_ = nullptr;
    QPushButton* CancelButton_ = nullptr;
    QPushButton* CmdDefault_ = nullptr;
};

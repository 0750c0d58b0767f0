#pragma once

#include "export/HtmlExportFlow.h"
#include "platform/FileChooser.h"
#include "platform/Navigator.h"

#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include <array>

class LanguageBox;

/// The window in which the test in memory is made a web page.
class DialogHTML : public QDialog {
    Q_OBJECT

  public:
    DialogHTML(const HtmlExportParts& parts, FileChooser& chooser, Navigator& navigator, QWidget* parent = nullptr);

  private:
    QWidget* MakePage();
    QWidget* MakeTemplateFrame();
    QWidget* MakeScriptFrame();
    QWidget* MakeFilesFrame();
    QWidget* MakeInsertFrame();
    QLayout* MakeButtons();

    void Form_Load();
    void LoadDescription();
    void Command1_Click(int index);
    void Command2_Click();
    void OKButton_Click();
    void CancelButton_Click();
    void BackToWorkingDirectory();

    Session& session_;
    HtmlExportFlow flow_;
    FileChooser& chooser_;

    QLineEdit* txteditor_ = nullptr;
    QPushButton* Command2_ = nullptr;
    QPlainTextEdit* txttempdesc_ = nullptr;
    QGroupBox* DialogHTMLOptions_ = nullptr;
    QLineEdit* txtEmail_ = nullptr;
    QLineEdit* txtNextPage_ = nullptr;
    LanguageBox* cboLanguage_ = nullptr;
    QLineEdit* Text1_ = nullptr;
    QLineEdit* Text2_ = nullptr;
    std::array<QPushButton*, 2> Command1_{};
    std::array<QRadioButton*, 2> Option1_{};
    QLineEdit* Text3_ = nullptr;
    QPushButton* OKButton_ = nullptr;
    QPushButton* CancelButton_ = nullptr;
};

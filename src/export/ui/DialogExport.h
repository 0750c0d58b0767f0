#pragma once

#include "export/SpreadsheetExport.h"
#include "platform/FileChooser.h"
#include "platform/Navigator.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// Confirms the workbook and the columns before an export.
class DialogExport : public QDialog {
    Q_OBJECT

  public:
    DialogExport(ExportForm& form, FileChooser& chooser, Navigator& navigator, QWidget* parent = nullptr);

  private:
    QLayout* MakeFileRow();
    QWidget* MakeInclude();
    QCheckBox* MakeBox(const OptionBox& box);
    QLayout* MakeButtons();

    void Command1_Click();
    void OKButton_Click();
    void CancelButton_Click();

    ExportForm& form_;
    FileChooser& chooser_;
    std::map<Option, QCheckBox*> ChkReportOptions_;
    QLineEdit* Text1_ = nullptr;
    QPushButton* Command1_ = nullptr;
    QLabel* Label2_ = nullptr;
    QPushButton* OKButton_ = nullptr;
    QPushButton* CancelButton_ = nullptr;
};

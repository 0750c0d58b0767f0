#pragma once

#include "platform/FileChooser.h"
#include "platform/Navigator.h"
#include "taker/AutoReportFlow.h"
#include "taker/ui/OptionChecks.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

/// Asks, before an automatic report is written, for its file and for what it holds.
class DialogAutoReport : public QDialog {
    Q_OBJECT

  public:
    DialogAutoReport(AutoReportForm& form, const Session& session, FileChooser& chooser, Navigator& navigator,
                     QWidget* parent = nullptr);

  private:
    QLayout* MakeFileRow();
    QWidget* MakeOptions();
    QLayout* MakeButtons();

    void Command1_Click();
    void CMDOK_Click();
    void CancelButton_Click();

    AutoReportForm& form_;
    const Session& session_;
    FileChooser& chooser_;
    OptionChecks ChkReportOptions_;
    QLineEdit* Text1_ = nullptr;
    QPushButton* Command1_ = nullptr;
    QPushButton* CMDOK_ = nullptr;
    QPushButton* CancelButton_ = nullptr;
};

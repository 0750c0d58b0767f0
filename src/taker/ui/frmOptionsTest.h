#pragma once

#include "platform/Navigator.h"
#include "taker/ui/OptionChecks.h"

#include <QDialog>
#include <QPushButton>

#include <array>

/// The options of the loaded test, changed for this run only.
class frmOptionsTest : public QDialog {
    Q_OBJECT

  public:
    frmOptionsTest(TestDocument& test, Navigator& navigator, QWidget* parent = nullptr);

  private:
    QGroupBox* MakeTestOptions();
    QGroupBox* MakeReportOptions();
    QLayout* MakeButtons();

    void OKButton_Click();
    void CancelButton_Click();

    TestDocument& test_;
    std::array<QCheckBox*, 2> ChkTestOptions_{};
    OptionChecks ChkReportOptions_;
    QPushButton* OKButton_ = nullptr;
    QPushButton* CancelButton_ = nullptr;
};

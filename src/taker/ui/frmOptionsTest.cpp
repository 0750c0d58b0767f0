#include "taker/ui/frmOptionsTest.h"

#include "platform/ui/FormRows.h"
#include "platform/ui/HelpKey.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"
#include "taker/ui/FittingScrollArea.h"

#include <QLabel>
#include <QVBoxLayout>

frmOptionsTest::frmOptionsTest(TestDocument& test, Navigator& navigator, QWidget* parent)
    : QDialog(parent), test_(test), ChkReportOptions_(test) {
    setObjectName(QStringLiteral("frmOptionsTest"));
    setWindowTitle(QStringLiteral("Test Options"));
    new HelpKey(*this, navigator, HelpTopic::TestOptions);

    auto* content = new QWidget;
    auto* options = new QVBoxLayout(content);
    SetRoom(*options, 0, 2);
    options->addWidget(MakeTestOptions());
    options->addWidget(MakeReportOptions());

    auto* note = new QLabel(QStringLiteral("N.B. Some automation options may only be changed using the Test Editor"));
    note->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(new FittingScrollArea(content));
    column->addWidget(note);
    column->addStretch(1);
    column->addLayout(MakeButtons());

    resize(sizeHint());
    CentreOnScreen(*this);
    ChkTestOptions_[0]->setFocus();
}

QGroupBox* frmOptionsTest::MakeTestOptions() {
    auto* group = new QGroupBox(QStringLiteral("Test Options"));
    auto* column = new QVBoxLayout(group);
    SetRoom(*column, 2, 1);
    const std::array<QString, 2> captions = {QStringLiteral("Allow Reporting Only When Test Completed"),
                                             QStringLiteral("Allow Navigation Buttons")};
    const std::array<bool, 2> ticks = {test_.ReportOnlyWhenDone, test_.NavigationButtons};
    for (size_t i = 0; i < captions.size(); ++i) {
        ChkTestOptions_[i] = Named(new QCheckBox(captions[i]), QStringLiteral("ChkTestOptions_%1").arg(i + 1));
        ChkTestOptions_[i]->setChecked(ticks[i]);
        column->addWidget(ChkTestOptions_[i]);
    }
    return group;
}

QGroupBox* frmOptionsTest::MakeReportOptions() {
    auto* group = new QGroupBox(QStringLiteral("Report Options"));
    auto* column = new QVBoxLayout(group);
    SetRoom(*column, 2, 2);
    column->addWidget(ChkReportOptions_.MakeFrame(OptionFrame::Prompts, PromptOptionBoxes()));
    column->addWidget(ChkReportOptions_.MakeReportFrames());
    return group;
}

QLayout* frmOptionsTest::MakeButtons() {
    OKButton_ = Named(new QPushButton(QStringLiteral("OK")), QStringLiteral("OKButton"));
    OKButton_->setDefault(true);
    connect(OKButton_, &QPushButton::clicked, this, &frmOptionsTest::OKButton_Click);
    CancelButton_ = Named(new QPushButton(QStringLiteral("Cancel")), QStringLiteral("CancelButton"));
    connect(CancelButton_, &QPushButton::clicked, this, &frmOptionsTest::CancelButton_Click);
    return ButtonRow({OKButton_, CancelButton_});
}

void frmOptionsTest::OKButton_Click() {
    test_.ReportOnlyWhenDone = ChkTestOptions_[0]->isChecked();
    test_.NavigationButtons = ChkTestOptions_[1]->isChecked();
    TakeTicks(test_, ChkReportOptions_.Ticks());
    accept();
}

void frmOptionsTest::CancelButton_Click() { reject(); }

#include "export/ui/DialogExport.h"

#include "export/WorkbookPath.h"
#include "platform/Directories.h"
#include "platform/ui/FormRows.h"
#include "platform/ui/HelpKey.h"
#include "platform/ui/Named.h"
#include "platform/ui/ScrollingPage.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"

#include <QGroupBox>
#include <QVBoxLayout>

DialogExport::DialogExport(ExportForm& form, FileChooser& chooser, Navigator& navigator, QWidget* parent)
    : QDialog(parent), form_(form), chooser_(chooser) {
    setObjectName(QStringLiteral("DialogExport"));
    setWindowTitle(QStringLiteral("Export Test Results"));
    new HelpKey(*this, navigator, HelpTopic::SpreadsheetExport);

    Label2_ = Named(new QLabel(QStringLiteral("N.B. This Test Has Already Been Exported")), QStringLiteral("Label2"));
    Label2_->setWordWrap(true);
    Label2_->setVisible(form_.AlreadyExported());

    auto* page = new QWidget;
    auto* content = new QVBoxLayout(page);
    SetRoom(*content, 0, 2);
    content->addLayout(MakeFileRow());
    content->addWidget(Label2_);
    content->addWidget(MakeInclude());
    content->addWidget(MakeBox(OpenWorkbookBox()));
    content->addStretch(1);

    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(new ScrollingPage(page), 1);
    column->addLayout(MakeButtons());
    connect(this, &QDialog::rejected, this, [this] { form_.Cancel(); });

    resize(sizeHint().expandedTo({64 * GridUnit, 0}));
    CentreOnScreen(*this);
    Text1_->setFocus();
}

QLayout* DialogExport::MakeFileRow() {
    Text1_ = Named(new QLineEdit(form_.FilePath()), QStringLiteral("Text1"));
    Command1_ = MakeBrowseButton(QStringLiteral("Command1"), QStringLiteral("Find An Excel File For Export"));
    connect(Command1_, &QPushButton::clicked, this, &DialogExport::Command1_Click);
    return BoxWithButton(QStringLiteral("Excel File For Export"), Text1_, Command1_);
}

QWidget* DialogExport::MakeInclude() {
    auto* group = Named(new QGroupBox(QStringLiteral("Include In Export")), QStringLiteral("FrameInclude"));
    auto* grid = new QGridLayout(group);
    SetRoom(*grid, 2, 1);
    const QList<OptionBox>& boxes = ExportIncludeBoxes();
    // Down the left column first, as the keyboard goes.
    const int rows = static_cast<int>(boxes.size() + 1) / 2;
    for (int i = 0; i < boxes.size(); ++i)
        grid->addWidget(MakeBox(boxes[i]), i % rows, i / rows);
    return group;
}

QCheckBox* DialogExport::MakeBox(const OptionBox& box) {
    auto* check = Named(new QCheckBox(box.Caption), QStringLiteral("ChkReportOptions_%1").arg(box.Index));
    check->setChecked(form_.Test().TestOption(box.Index));
    check->setEnabled(ExportOptionMatters(form_.Test(), box.Index));
    ChkReportOptions_[box.Index] = check;
    return check;
}

QLayout* DialogExport::MakeButtons() {
    OKButton_ = Named(new QPushButton(QStringLiteral("OK")), QStringLiteral("OKButton"));
    OKButton_->setDefault(true);
    connect(OKButton_, &QPushButton::clicked, this, &DialogExport::OKButton_Click);
    CancelButton_ = Named(new QPushButton(QStringLiteral("Cancel")), QStringLiteral("CancelButton"));
    connect(CancelButton_, &QPushButton::clicked, this, &DialogExport::CancelButton_Click);
    return ButtonRow({OKButton_, CancelButton_});
}

// One that is there is appended to; the name of one that isn't is typed into the box.
void DialogExport::Command1_Click() {
    const QString path = chooser_.OpenFile({.Title = QStringLiteral("Find An Excel File For Export"),
                                            .Filter = QStringLiteral("Excel Files (*.exl)|*.exl| All Files (*.*)|*.*"),
                                            .FileName = Text1_->text(),
                                            .DefaultExtension = WorkbookExtension});
    if (!path.isEmpty())
        Text1_->setText(path);
    ChangeDirectory(form_.UserSettings().DefaultDirectory);
}

void DialogExport::OKButton_Click() {
    OptionTicks ticks;
    for (const auto& [option, box] : ChkReportOptions_)
        ticks[option] = box->isChecked();
    form_.Accept(Text1_->text(), ticks);
    accept();
}

void DialogExport::CancelButton_Click() { reject(); }

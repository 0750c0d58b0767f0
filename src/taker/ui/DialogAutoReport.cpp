#include "taker/ui/DialogAutoReport.h"

#include "platform/Directories.h"
#include "platform/ui/FormRows.h"
#include "platform/ui/HelpKey.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"
#include "taker/ui/FittingScrollArea.h"

#include <QLabel>
#include <QVBoxLayout>

DialogAutoReport::DialogAutoReport(AutoReportForm& form, const Session& session, FileChooser& chooser,
                                   Navigator& navigator, QWidget* parent)
    : QDialog(parent), form_(form), session_(session), chooser_(chooser), ChkReportOptions_(session.Test) {
    setObjectName(QStringLiteral("DialogAutoReport"));
    setWindowTitle(QStringLiteral("Auto Report"));
    new HelpKey(*this, navigator, HelpTopic::AutoReport);

    auto* note = Named(new QLabel(QStringLiteral("N.B. A report has already been created for this test")),
                       QStringLiteral("LblNote"));
    note->setWordWrap(true);
    note->setVisible(form_.AlreadyReported());

    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addLayout(MakeFileRow());
    column->addWidget(note);
    column->addWidget(new FittingScrollArea(MakeOptions()));
    column->addStretch(1);
    column->addLayout(MakeButtons());
    connect(this, &QDialog::rejected, this, [this] { form_.Cancel(); });

    resize(sizeHint());
    CentreOnScreen(*this);
    Text1_->setFocus();
}

QLayout* DialogAutoReport::MakeFileRow() {
    Text1_ = Named(new QLineEdit(form_.FilePath()), QStringLiteral("Text1"));
    Command1_ = MakeBrowseButton(QStringLiteral("Command1"), QStringLiteral("Select File For Autoreport"));
    connect(Command1_, &QPushButton::clicked, this, &DialogAutoReport::Command1_Click);
    return BoxWithButton(QStringLiteral("Report File Name:"), Text1_, Command1_);
}

QWidget* DialogAutoReport::MakeOptions() {
    auto* options = new QWidget;
    auto* column = new QVBoxLayout(options);
    SetRoom(*column, 0, 2);
    column->addWidget(ChkReportOptions_.MakeReportFrames());
    auto* file = new QHBoxLayout;
    file->setContentsMargins(2 * GridUnit, 0, 2 * GridUnit, 0);
    for (const OptionBox& box : ReportFileBoxes())
        file->addWidget(ChkReportOptions_.Make(box), 1);
    column->addLayout(file);
    return options;
}

QLayout* DialogAutoReport::MakeButtons() {
    CMDOK_ = Named(new QPushButton(QStringLiteral("OK")), QStringLiteral("CMDOK"));
    CMDOK_->setDefault(true);
    connect(CMDOK_, &QPushButton::clicked, this, &DialogAutoReport::CMDOK_Click);
    CancelButton_ = Named(new QPushButton(QStringLiteral("Cancel")), QStringLiteral("CancelButton"));
    connect(CancelButton_, &QPushButton::clicked, this, &DialogAutoReport::CancelButton_Click);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(GridUnit);
    buttons->addStretch(1);
    buttons->addWidget(CMDOK_);
    buttons->addWidget(CancelButton_);
    return buttons;
}

void DialogAutoReport::Command1_Click() {
    const QString path = chooser_.SaveFile({.Title = QStringLiteral("Select File For Autoreport"),
                                            .Filter = QStringLiteral("Text Files (*.txt)|*.txt| All Files (*.*)|*.*"),
                                            .FileName = Text1_->text(),
                                            .DefaultExtension = QStringLiteral(".txt")});
    if (!path.isEmpty())
        Text1_->setText(path);
    ChangeDirectory(session_.UserSettings.DefaultDirectory);
}

void DialogAutoReport::CMDOK_Click() {
    if (form_.Accept(Text1_->text(), ChkReportOptions_.Ticks()))
        accept();
}

void DialogAutoReport::CancelButton_Click() { reject(); }

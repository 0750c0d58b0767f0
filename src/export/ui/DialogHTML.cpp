#include "export/ui/DialogHTML.h"

#include "platform/Directories.h"
#include "platform/ui/FormRows.h"
#include "platform/ui/HelpKey.h"
#include "platform/ui/LanguageBox.h"
#include "platform/ui/Named.h"
#include "platform/ui/ScrollingPage.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

const QString TemplateTitle = QStringLiteral("Find Template File");
const QString TargetTitle = QStringLiteral("Select HTML File for Saving");
const QString HostTitle = QStringLiteral("Select HTML File for Template");
const QString PageFilter = QStringLiteral("HTML Files (*.html)|*.html|HTM Files (*.htm)|*.htm| All Files (*.*)|*.*");

} // namespace

DialogHTML::DialogHTML(const HtmlExportParts& parts, FileChooser& chooser, Navigator& navigator, QWidget* parent)
    : QDialog(parent), session_(parts.Run), flow_(parts), chooser_(chooser) {
    setObjectName(QStringLiteral("DialogHTML"));
    setWindowTitle(QStringLiteral("Save As HTML File"));
    new HelpKey(*this, navigator, HelpTopic::HtmlExport);

    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(new ScrollingPage(MakePage()), 1);
    column->addLayout(MakeButtons());
    Form_Load();
}

QWidget* DialogHTML::MakePage() {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    SetRoom(*column, 0, 2);
    for (QWidget* frame : {MakeTemplateFrame(), MakeScriptFrame(), MakeFilesFrame(), MakeInsertFrame()})
        column->addWidget(frame);
    column->addStretch(1);
    return page;
}

QWidget* DialogHTML::MakeTemplateFrame() {
    auto* frame = new QGroupBox(QStringLiteral("Using HTML Template File"));
    auto* grid = MakeFormGrid(frame);
    txteditor_ = Named(new QLineEdit, QStringLiteral("txteditor"));
    connect(txteditor_, &QLineEdit::textChanged, this,
            [this](const QString& text) { session_.HtmlTemplatePath = text; });
    connect(txteditor_, &QLineEdit::editingFinished, this, &DialogHTML::LoadDescription);
    Command2_ = MakeBrowseButton(QStringLiteral("Command2"), TemplateTitle);
    connect(Command2_, &QPushButton::clicked, this, &DialogHTML::Command2_Click);
    AddFormRow(grid, QStringLiteral("Template File"), txteditor_, Command2_);

    txttempdesc_ = Named(new QPlainTextEdit, QStringLiteral("txttempdesc"));
    txttempdesc_->setReadOnly(true);
    txttempdesc_->setTabChangesFocus(true);
    txttempdesc_->setMinimumHeight(14 * GridUnit);
    AddFormRow(grid, QStringLiteral("Description"), txttempdesc_);
    return frame;
}

QWidget* DialogHTML::MakeScriptFrame() {
    DialogHTMLOptions_ =
        Named(new QGroupBox(QStringLiteral("Required by CGI scripts")), QStringLiteral("DialogHTMLOptions"));
    auto* grid = MakeFormGrid(DialogHTMLOptions_);
    txtEmail_ = Named(new QLineEdit, QStringLiteral("txtEmail"));
    connect(txtEmail_, &QLineEdit::textChanged, this,
            [this](const QString& text) { session_.HtmlEmailAddress = text; });
    txtNextPage_ = Named(new QLineEdit, QStringLiteral("txtNextPage"));
    connect(txtNextPage_, &QLineEdit::textChanged, this, [this](const QString& text) { session_.HtmlNextPage = text; });
    AddFormRow(grid, QStringLiteral("E-mail Address"), txtEmail_);
    AddFormRow(grid, QStringLiteral("Next Page"), txtNextPage_);
    return DialogHTMLOptions_;
}

QWidget* DialogHTML::MakeFilesFrame() {
    auto* frame = new QGroupBox;
    frame->setAccessibleName(QStringLiteral("HTML files"));
    auto* grid = MakeFormGrid(frame);
    Text1_ = Named(new QLineEdit, QStringLiteral("Text1"));
    Text2_ = Named(new QLineEdit, QStringLiteral("Text2"));
    Command1_[0] = MakeBrowseButton(QStringLiteral("Command1_0"), TargetTitle);
    Command1_[1] = MakeBrowseButton(QStringLiteral("Command1_1"), HostTitle);
    for (size_t i = 0; i < Command1_.size(); ++i)
        connect(Command1_[i], &QPushButton::clicked, this, [this, i] { Command1_Click(static_cast<int>(i)); });
    AddFormRow(grid, QStringLiteral("File name:"), Text1_, Command1_[0]);
    AddFormRow(grid, QStringLiteral("Insert html into this file:"), Text2_, Command1_[1]);
    cboLanguage_ = Named(new LanguageBox(session_.HtmlLanguage), QStringLiteral("cboLanguage"));
    connect(cboLanguage_, &QComboBox::currentIndexChanged, this,
            [this] { session_.HtmlLanguage = cboLanguage_->Language(); });
    AddFormRow(grid, QStringLiteral("Page Language"), cboLanguage_);
    return frame;
}

QWidget* DialogHTML::MakeInsertFrame() {
    auto* frame = new QGroupBox(QStringLiteral("Insert"));
    auto* row = new QHBoxLayout(frame);
    SetRoom(*row, 2, 2);
    const std::array<QString, 2> captions{QStringLiteral("Before"), QStringLiteral("After")};
    for (size_t i = 0; i < Option1_.size(); ++i) {
        Option1_[i] = Named(new QRadioButton(captions[i]), QStringLiteral("Option1_%1").arg(i));
        row->addWidget(Option1_[i]);
    }
    Option1_[0]->setChecked(true);
    const QString caption = QStringLiteral("Text:");
    auto* label = new QLabel(caption);
    Text3_ = Named(new QLineEdit(QStringLiteral("</body>")), QStringLiteral("Text3"));
    Text3_->setAccessibleName(caption);
    label->setBuddy(Text3_);
    row->addWidget(label);
    row->addWidget(Text3_, 1);
    return frame;
}

QLayout* DialogHTML::MakeButtons() {
    OKButton_ = Named(new QPushButton(QStringLiteral("OK")), QStringLiteral("OKButton"));
    OKButton_->setDefault(true);
    connect(OKButton_, &QPushButton::clicked, this, &DialogHTML::OKButton_Click);
    CancelButton_ = Named(new QPushButton(QStringLiteral("Cancel")), QStringLiteral("CancelButton"));
    CancelButton_->setAutoDefault(false);
    connect(CancelButton_, &QPushButton::clicked, this, &DialogHTML::CancelButton_Click);
    return ButtonRow({OKButton_, CancelButton_});
}

void DialogHTML::Form_Load() {
    txteditor_->setText(session_.HtmlTemplatePath);
    txtNextPage_->setText(session_.HtmlNextPage);
    txtEmail_->setText(session_.HtmlEmailAddress);
    LoadDescription();
    resize(90 * GridUnit, sizeHint().height());
    CentreOnScreen(*this);
    Text1_->setFocus();
}

void DialogHTML::LoadDescription() { txttempdesc_->setPlainText(flow_.Description()); }

void DialogHTML::Command1_Click(int index) {
    const bool target = index == 0;
    const HtmlFile file = target ? HtmlFile::Target : HtmlFile::Host;
    flow_.GoToFolderOf(file);
    const QString path = target ? chooser_.SaveFile({TargetTitle, PageFilter, {}, QStringLiteral(".html"), false})
                                : chooser_.OpenFile({HostTitle, PageFilter, {}, {}});
    if (!path.isEmpty())
        (target ? Text1_ : Text2_)->setText(path);
    flow_.RememberFolderOf(file, path);
    BackToWorkingDirectory();
}

void DialogHTML::Command2_Click() {
    BackToWorkingDirectory();
    const QString path = chooser_.OpenFile({TemplateTitle, QStringLiteral("Program Files (*.vlx)|*.vlx"), {}, {}});
    BackToWorkingDirectory();
    if (path.isEmpty())
        return;
    txteditor_->setText(path);
    LoadDescription();
}

void DialogHTML::OKButton_Click() {
    Text1_->setText(HtmlExportFlow::TargetOf(Text1_->text()));
    if (flow_.Export({Text1_->text(), Text2_->text(), {Text3_->text(), Option1_[1]->isChecked()}}))
        accept();
}

void DialogHTML::CancelButton_Click() { reject(); }

void DialogHTML::BackToWorkingDirectory() { ChangeDirectory(session_.UserSettings.DefaultDirectory); }

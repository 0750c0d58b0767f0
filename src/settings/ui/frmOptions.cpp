#include "settings/ui/frmOptions.h"

#include "platform/Directories.h"
#include "platform/ui/FormRows.h"
#include "platform/ui/HelpKey.h"
#include "platform/ui/LanguageBox.h"
#include "platform/ui/Named.h"
#include "platform/ui/ScrollingPage.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"
#include "settings/DefaultFolders.h"
#include "settings/TemplateDescription.h"

#include <QDir>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

const QString ProgramFilter = QStringLiteral("Program Files (*.exe)|*.exe| All Files (*.*)|*.*");

/// A file dialog behind one of the browse buttons.
struct BrowseDialog {
    QString Title;
    QString Filter;
};

const std::array<BrowseDialog, 3>& BrowseDialogs() {
    static const std::array<BrowseDialog, 3> dialogs{{
        {QStringLiteral("Find Default Editor"), ProgramFilter},
        {QStringLiteral("Find Default Browser"), ProgramFilter},
        {QStringLiteral("Find Template File"), QStringLiteral("Program Files (*.vlx)|*.vlx")},
    }};
    return dialogs;
}

constexpr int TemplateBox = 2;

QWidget* MakePage(const QString& name, std::initializer_list<QWidget*> groups) {
    auto* page = Named(new QWidget, name);
    auto* column = new QVBoxLayout(page);
    SetRoom(*column, 2, 2);
    for (QWidget* group : groups)
        column->addWidget(group);
    column->addStretch(1);
    return page;
}

} // namespace

frmOptions::frmOptions(Settings& settings, SettingsStore& store, const DefaultFolders& folders, Prompts& prompts,
                       FileChooser& chooser, Navigator& navigator, QWidget* parent)
    : QDialog(parent), settings_(settings), store_(store), folders_(folders), prompts_(prompts), chooser_(chooser) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Options"));

    tbsOptions_ = Named(new QTabWidget, QStringLiteral("tbsOptions"));
    picOptions_ = {MakeGeneralPage(), MakeHtmlPage()};
    tbsOptions_->addTab(new ScrollingPage(picOptions_[0]), QStringLiteral("General Options"));
    tbsOptions_->addTab(new ScrollingPage(picOptions_[1]), QStringLiteral("HTML Export Options"));
    tbsOptions_->setTabToolTip(0, QStringLiteral("Set Options for Group 1"));
    tbsOptions_->setTabToolTip(1, QStringLiteral("Set Options for Group 3"));

    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(tbsOptions_, 1);
    column->addLayout(MakeButtons());
    MakeShortcuts();
    new HelpKey(*this, navigator, HelpTopic::GeneralOptions);
    Form_Load();
}

QWidget* frmOptions::MakeGeneralPage() {
    return MakePage(QStringLiteral("picOptions_0"), {MakeAdministratorGroup(), MakeQuestionsGroup(), MakeFilesGroup()});
}

QWidget* frmOptions::MakeHtmlPage() {
    return MakePage(QStringLiteral("picOptions_1"), {MakeTemplateGroup(), MakePageGroup()});
}

QWidget* frmOptions::MakeAdministratorGroup() {
    auto* group = new QGroupBox(QStringLiteral("Test Administrator"));
    auto* grid = MakeFormGrid(group);
    TxtTestAdministrator_ = Named(new QLineEdit, QStringLiteral("TxtTestAdministrator"));
    TxtTestAdministrator_->setAccessibleName(QStringLiteral("Test Administrator"));
    Chkpersist_ = Named(new QCheckBox(QStringLiteral("Persist Between Tests")), QStringLiteral("Chkpersist"));
    grid->addWidget(TxtTestAdministrator_, 0, 0, 1, 3);
    grid->addWidget(Chkpersist_, 1, 0, 1, 3);
    return group;
}

QWidget* frmOptions::MakeQuestionsGroup() {
    auto* group = new QGroupBox(QStringLiteral("Reporting Questions"));
    auto* grid = MakeFormGrid(group);
    for (size_t i = 0; i < txtsuffix_.size(); ++i)
        txtsuffix_[i] = Named(new QLineEdit, QStringLiteral("txtsuffix_%1").arg(i));
    AddFormRow(grid, QStringLiteral("Question Prefix"), txtsuffix_[0]);
    AddFormRow(grid, QStringLiteral("Question Suffix"), txtsuffix_[1]);
    ChkCarriageReturn_ =
        Named(new QCheckBox(QStringLiteral("Carriage Return after")), QStringLiteral("ChkCarriageReturn"));
    grid->addWidget(ChkCarriageReturn_, grid->rowCount(), 1, 1, 2);
    return group;
}

QWidget* frmOptions::MakeFilesGroup() {
    auto* group = new QGroupBox(QStringLiteral("Files"));
    auto* grid = MakeFormGrid(group);
    Txtdirectory_ = Named(new QLineEdit, QStringLiteral("Txtdirectory"));
    CmddefaultDir_ = MakeBrowseButton(QStringLiteral("CmddefaultDir"), QStringLiteral("Select a directory"));
    connect(CmddefaultDir_, &QPushButton::clicked, this, &frmOptions::CmddefaultDir_Click);
    for (size_t i = 0; i < txteditor_.size(); ++i) {
        txteditor_[i] = Named(new QLineEdit, QStringLiteral("txteditor_%1").arg(i));
        Command2_[i] = MakeBrowseButton(QStringLiteral("Command2_%1").arg(i), BrowseDialogs()[i].Title);
        connect(Command2_[i], &QPushButton::clicked, this, [this, i] { Command2_Click(static_cast<int>(i)); });
    }
    AddFormRow(grid, QStringLiteral("Working Directory"), Txtdirectory_, CmddefaultDir_);
    AddFormRow(grid, QStringLiteral("Default Text Editor"), txteditor_[0], Command2_[0]);
    AddFormRow(grid, QStringLiteral("Default Web Browser"), txteditor_[1], Command2_[1]);
    return group;
}

QWidget* frmOptions::MakeTemplateGroup() {
    auto* group = new QGroupBox(QStringLiteral("HTML Template File"));
    auto* grid = MakeFormGrid(group);
    AddFormRow(grid, QStringLiteral("Template File"), txteditor_[TemplateBox], Command2_[TemplateBox]);
    connect(txteditor_[TemplateBox], &QLineEdit::editingFinished, this, &frmOptions::ReadDescription);
    txttempdesc_ = Named(new QPlainTextEdit, QStringLiteral("txttempdesc"));
    txttempdesc_->setReadOnly(true);
    txttempdesc_->setTabChangesFocus(true);
    txttempdesc_->setMinimumHeight(12 * GridUnit);
    AddFormRow(grid, QStringLiteral("Description"), txttempdesc_);
    cboLanguage_ = Named(new LanguageBox(settings_.HtmlLanguage), QStringLiteral("cboLanguage"));
    AddFormRow(grid, QStringLiteral("Page Language"), cboLanguage_);
    return group;
}

QWidget* frmOptions::MakePageGroup() {
    auto* group = new QGroupBox(QStringLiteral("Required by CGI scripts"));
    auto* grid = MakeFormGrid(group);
    txtEmail_ = Named(new QLineEdit, QStringLiteral("txtEmail"));
    txtNextPage_ = Named(new QLineEdit, QStringLiteral("txtNextPage"));
    AddFormRow(grid, QStringLiteral("E-mail Address"), txtEmail_);
    AddFormRow(grid, QStringLiteral("Next Page"), txtNextPage_);
    return group;
}

QLayout* frmOptions::MakeButtons() {
    OkButton_ = Named(new QPushButton(QStringLiteral("Apply")), QStringLiteral("OkButton"));
    SaveButton_ = Named(new QPushButton(QStringLiteral("Save")), QStringLiteral("SaveButton"));
    CancelButton_ = Named(new QPushButton(QStringLiteral("Cancel")), QStringLiteral("CancelButton"));
    CmdDefault_ = Named(new QPushButton(QStringLiteral("Restore Defaults")), QStringLiteral("CmdDefault"));
    OkButton_->setToolTip(QStringLiteral("Use these settings until Vellumo is closed"));
    SaveButton_->setToolTip(QStringLiteral("Use these settings now and every time Vellumo is started"));
    CmdDefault_->setToolTip(QStringLiteral("Fill in the settings that Vellumo came with"));
    OkButton_->setDefault(true);
    SaveButton_->setAutoDefault(false);
    CmdDefault_->setAutoDefault(false);

    connect(OkButton_, &QPushButton::clicked, this, &frmOptions::OkButton_Click);
    connect(SaveButton_, &QPushButton::clicked, this, &frmOptions::SaveButton_Click);
    connect(CancelButton_, &QPushButton::clicked, this, &frmOptions::CancelButton_Click);
    connect(CmdDefault_, &QPushButton::clicked, this, &frmOptions::CmdDefault_Click);

    auto* row = new QHBoxLayout;
    row->setSpacing(GridUnit);
    row->addWidget(CmdDefault_);
    row->addStretch(1);
    row->addWidget(OkButton_);
    row->addWidget(SaveButton_);
    row->addWidget(CancelButton_);
    return row;
}

void frmOptions::MakeShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto handler) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, handler);
    };
    add(QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { Form_KeyDown(1); });
    add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), [this] { Form_KeyDown(-1); });
    add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), [this] { Form_KeyDown(-1); });
}

void frmOptions::Form_Load() {
    FillControls();
    resize(80 * GridUnit, sizeHint().height());
    CentreOnScreen(*this);
}

void frmOptions::Form_KeyDown(int step) {
    const int count = tbsOptions_->count();
    tbsOptions_->setCurrentIndex((tbsOptions_->currentIndex() + step + count) % count);
}

void frmOptions::FillControls() {
    TxtTestAdministrator_->setText(settings_.AdministratorName);
    TxtTestAdministrator_->setEnabled(settings_.AdministratorName.toUpper() != QStringLiteral("<DISABLED>"));
    Chkpersist_->setChecked(settings_.NamePersist);
    txteditor_[0]->setText(settings_.DefaultEditor);
    Txtdirectory_->setText(settings_.DefaultDirectory);
    txtsuffix_[0]->setText(settings_.QuestionPrefix);
    txtsuffix_[1]->setText(settings_.QuestionSuffix);
    txteditor_[1]->setText(settings_.DefaultBrowser);
    txteditor_[TemplateBox]->setText(settings_.HtmlTemplatePath);
    txtNextPage_->setText(settings_.DefaultNextPage);
    txtEmail_->setText(settings_.DefaultEmail);
    cboLanguage_->SetLanguage(settings_.HtmlLanguage);
    ChkCarriageReturn_->setChecked(settings_.BreakAfterQuestionNumber);
    ReadDescription();
}

bool frmOptions::TakeControls() {
    if (const Result usable = CheckWorkingDirectory(Txtdirectory_->text()); !usable) {
        prompts_.Inform(usable.Message() + u'.');
        tbsOptions_->setCurrentIndex(0);
        Txtdirectory_->selectAll();
        Txtdirectory_->setFocus();
        return false;
    }
    settings_.AdministratorName = TxtTestAdministrator_->text();
    settings_.NamePersist = Chkpersist_->isChecked();
    settings_.DefaultEditor = txteditor_[0]->text();
    // A relative one would be another folder as soon as it is the current one.
    settings_.DefaultDirectory = QDir::isAbsolutePath(Txtdirectory_->text())
                                     ? Txtdirectory_->text()
                                     : QDir::toNativeSeparators(QDir(Txtdirectory_->text()).absolutePath());
    settings_.QuestionPrefix = txtsuffix_[0]->text();
    settings_.QuestionSuffix = txtsuffix_[1]->text();
    settings_.DefaultBrowser = txteditor_[1]->text();
    settings_.HtmlTemplatePath = txteditor_[TemplateBox]->text();
    settings_.DefaultNextPage = txtNextPage_->text();
    settings_.DefaultEmail = txtEmail_->text();
    settings_.HtmlLanguage = cboLanguage_->Language();
    settings_.BreakAfterQuestionNumber = ChkCarriageReturn_->isChecked();
    return true;
}

void frmOptions::ReadDescription() {
    txttempdesc_->setPlainText(ReadTemplateDescription(txteditor_[TemplateBox]->text(), folders_.ProgramFolder));
}

void frmOptions::BackToWorkingDirectory() { ChangeDirectory(settings_.DefaultDirectory); }

void frmOptions::OkButton_Click() {
    if (TakeControls())
        accept();
}

void frmOptions::SaveButton_Click() {
    if (!TakeControls())
        return;
    SaveSettings(settings_, store_);
    accept();
}

void frmOptions::CancelButton_Click() { reject(); }

void frmOptions::CmdDefault_Click() {
    RestoreDefaultSettings(settings_, folders_);
    FillControls();
}

void frmOptions::CmddefaultDir_Click() {
    const QString folder = chooser_.ChooseFolder(QStringLiteral("Select a directory"), Txtdirectory_->text());
    if (!folder.isEmpty())
        Txtdirectory_->setText(folder);
    BackToWorkingDirectory();
}

void frmOptions::Command2_Click(int index) {
    const auto i = static_cast<size_t>(index);
    const QString path = chooser_.OpenFile({BrowseDialogs()[i].Title, BrowseDialogs()[i].Filter, {}, {}});
    BackToWorkingDirectory();
    if (path.isEmpty())
        return;
    txteditor_[i]->setText(path);
    if (index == TemplateBox)
        ReadDescription();
}

#include "app/ui/Loading_Test.h"

#include "base/LineBreak.h"
#include "platform/Directories.h"
#include "platform/ui/Choosing.h"
#include "platform/ui/GradientBackground.h"
#include "platform/ui/HelpKey.h"
#include "platform/ui/Named.h"
#include "platform/ui/ScrollingPage.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"
#include "testdoc/TestParser.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize UsualSize(112 * GridUnit, 76 * GridUnit);
constexpr QSize LeastRoomySize(80 * GridUnit, 60 * GridUnit);
constexpr int PanelWidth = 34 * GridUnit;

/// Rows that are easy to hit, with room around their text.
class RoomyRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const QStyle* style = option.widget->style();
        style->drawPrimitive(QStyle::PE_PanelItemViewItem, &row, painter, option.widget);
        row.rect.adjust(GridUnit, 0, 0, 0);
        style->drawControl(QStyle::CE_ItemViewItem, &row, painter, option.widget);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * GridUnit);
    }
};

QPushButton* MakeButton(const QString& name, const QString& caption) {
    auto* button = Named(new QPushButton(caption), name);
    button->setFont(BodyFont());
    button->setMinimumHeight(4 * GridUnit);
    button->setAutoDefault(true); // so that Return presses it, too
    return button;
}

LinkButton* MakeLink(const QString& name, const QString& caption) {
    auto* link = Named(new LinkButton(caption), name);
    link->setAutoDefault(true);
    return link;
}

QLabel* MakeLabel(const QString& name, const QFont& font) {
    auto* label = Named(new QLabel, name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(font);
    return label;
}

/// Titles may hold line breaks; a line of the list doesn't.
QString OnOneLine(QString title) { return title.replace(LineBreak, QStringLiteral(" ")); }

} // namespace

Loading_Test::Loading_Test(const StartScreenParts& parts, QWidget* parent)
    : QWidget(parent, Qt::Window),
      session_(parts.Run),
      parts_(parts),
      flow_(parts.Run, parts.Ways, parts.Boxes, parts.Trusted) {
    setObjectName(QStringLiteral("Loading_Test"));
    auto* column = new QVBoxLayout(this);
    column->addLayout(MakeHeading());
    column->addLayout(MakeTests(), 1);
    column->addLayout(MakeMenu());
    Connect();
    new HelpKey(*this, parts.Ways, HelpTopic::StartScreen);
    resize(UsualSize);
}

QLayout* Loading_Test::MakeHeading() {
    auto* name = MakeLabel(QStringLiteral("lblTitle"), TitleFont());
    name->setText(QStringLiteral("Vellumo"));
    Lblinstruct_ = MakeLabel(QStringLiteral("Lblinstruct"), BodyFont());
    Lblinstruct_->setText(QStringLiteral("Press [F1] for help"));
    Lblinstruct_->setWordWrap(false);

    auto* row = new QHBoxLayout;
    row->addWidget(name, 1);
    row->addWidget(Lblinstruct_, 0, Qt::AlignBottom);
    return row;
}

QLayout* Loading_Test::MakeTests() {
    Listselect_ = Named(new QListWidget, QStringLiteral("Listselect"));
    Listselect_->setAccessibleName(QStringLiteral("Tests"));
    Listselect_->setFont(BodyFont());
    Listselect_->setWordWrap(true);
    Listselect_->setItemDelegate(new RoomyRows(Listselect_));
    Listselect_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lblalt_ = MakeLabel(QStringLiteral("lblalt"), HeadingFont());
    lblalt_->setAlignment(Qt::AlignCenter);
    lblalt_->setText(
        QStringLiteral("There are no valid 'Vellumo' files in the 'Vellumo' default directory. Select 'Browse' to look "
                       "in another directory or select 'Edit Test' to create a new test."));
    lblalt_->hide();

    auto* row = new QHBoxLayout;
    row->setSpacing(3 * GridUnit);
    row->addWidget(Listselect_, 1);
    row->addWidget(lblalt_, 1);
    row->addLayout(MakeTestPanel());
    return row;
}

QLayout* Loading_Test::MakeTestPanel() {
    selectedTitle_ = MakeLabel(QStringLiteral("lblSelectedTitle"), HeadingFont());
    selectedTitle_->setMinimumWidth(1); // a long word is cut, and doesn't widen the panel
    selectedFile_ = MakeLabel(QStringLiteral("lblSelectedFile"), QFont());
    selectedFile_->setMinimumWidth(1);

    const std::array<QString, 3> captions{QStringLiteral("Test Introduction"), QStringLiteral("Test Instructions"),
                                          QStringLiteral("Test Questions")};
    auto* about = new QWidget;
    auto* column = new QVBoxLayout(about);
    SetRoom(*column, 0, 1);
    column->addWidget(selectedTitle_);
    column->addWidget(selectedFile_);
    column->addSpacing(2 * GridUnit);
    for (size_t i = 0; i < captions.size(); ++i) {
        CmdIntro_[i] = MakeButton(QStringLiteral("CmdIntro_%1").arg(i), captions[i]);
        column->addWidget(CmdIntro_[i]);
    }
    column->addStretch(1);
    CmdEditTest_ = MakeButton(QStringLiteral("CmdEditTest"), QStringLiteral("Edit Test"));
    cmdBeginTest_ = MakeButton(QStringLiteral("cmdBeginTest"), QStringLiteral("&Begin Test"));
    cmdBeginTest_->setFont(HeadingFont());
    cmdBeginTest_->setMinimumHeight(6 * GridUnit);
    cmdBeginTest_->setDefault(true);
    auto* scrolled = new ScrollingPage(about);
    scrolled->setFixedWidth(PanelWidth);
    auto* panel = new QVBoxLayout;
    panel->setSpacing(GridUnit);
    panel->addWidget(scrolled, 1);
    panel->addWidget(CmdEditTest_);
    panel->addWidget(cmdBeginTest_);
    return panel;
}

QLayout* Loading_Test::MakeMenu() {
    Picture1_ = Named(new PictureMenu, QStringLiteral("Picture1"));
    Label7_ = MakeLink(QStringLiteral("Label7"), QStringLiteral("Editor"));
    Label3_ = MakeLink(QStringLiteral("Label3"), QStringLiteral("Browse"));
    Label5_ = MakeLink(QStringLiteral("Label5"), QStringLiteral("Options"));

    auto* menu = new QGridLayout;
    menu->setSpacing(0);
    menu->addWidget(Picture1_, 0, 0, 1, 3);
    int place = 0;
    for (LinkButton* link : {Label7_, Label3_, Label5_}) {
        menu->addWidget(link, 1, place++, Qt::AlignLeft);
    }

    auto* row = new QHBoxLayout;
    row->addLayout(menu);
    row->addStretch(1);
    row->addLayout(MakeLinks());
    return row;
}

QLayout* Loading_Test::MakeLinks() {
    Label1_ = {MakeLink(QStringLiteral("Label1_0"), QStringLiteral("About")),
               MakeLink(QStringLiteral("Label1_1"), QStringLiteral("Client && Tester"))};
    Label2_ = MakeLink(QStringLiteral("Label2"), QStringLiteral("Quit"));
    auto* row = new QHBoxLayout;
    row->setSpacing(GridUnit);
    for (LinkButton* link : {Label1_[1], Label1_[0], Label2_})
        row->addWidget(link, 0, Qt::AlignBottom);
    return row;
}

void Loading_Test::Connect() {
    connect(Listselect_, &QListWidget::currentRowChanged, this, &Loading_Test::Listselect_Click);
    MakeSelectedRowCurrent(*Listselect_);
    // Not "activated": where the desktop activates with one click, looking at a test would begin it.
    connect(Listselect_, &QListWidget::itemDoubleClicked, this, &Loading_Test::cmdBeginTest_Click);
    connect(cmdBeginTest_, &QPushButton::clicked, this, &Loading_Test::cmdBeginTest_Click);
    connect(CmdEditTest_, &QPushButton::clicked, this, &Loading_Test::CmdEditTest_Click);
    for (size_t i = 0; i < CmdIntro_.size(); ++i)
        connect(CmdIntro_[i], &QPushButton::clicked, this, [this, i] { CmdIntro_Click(static_cast<int>(i)); });
    for (size_t i = 0; i < Label1_.size(); ++i)
        connect(Label1_[i], &QPushButton::clicked, this, [this, i] { Label1_Click(static_cast<int>(i)); });
    connect(Label2_, &QPushButton::clicked, this, &Loading_Test::Label2_Click);
    connect(Label3_, &QPushButton::clicked, this, &Loading_Test::Label3_Click);
    connect(Label5_, &QPushButton::clicked, this, &Loading_Test::Label5_Click);
    connect(Label7_, &QPushButton::clicked, this, &Loading_Test::Label7_Click);
    connect(Picture1_, &PictureMenu::Picture1_Click, this, &Loading_Test::Picture1_Click);
}

void Loading_Test::keyPressEvent(QKeyEvent* event) {
    if (focusWidget() == Listselect_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        cmdBeginTest_Click();
    else
        QWidget::keyPressEvent(event);
}

void Loading_Test::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintGradient(*this, painter);
}

void Loading_Test::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FitToSize();
}

// A small or much enlarged screen has no room to spare; the links do all that the pictures do.
void Loading_Test::FitToSize() {
    const bool roomy = width() >= LeastRoomySize.width() && height() >= LeastRoomySize.height();
    SetRoom(*layout(), roomy ? 3 : 1, roomy ? 2 : 1);
    Picture1_->setVisible(roomy);
    for (LinkButton* link : {Label7_, Label3_, Label5_})
        link->setMinimumWidth(roomy ? PictureMenu::TileWidth : 0);
}

void Loading_Test::Form_Load() {
    LoadSettingsOnce(parts_.Start, session_, parts_.Store, parts_.Folders);
    EnterWorkingDirectory();
    CentreOnScreen(*this);
    FitToSize();
    setWindowTitle(QStringLiteral("Vellumo - Version ") + QLatin1String(VELLUMO_VERSION));
    ListTestsAgain();
}

bool Loading_Test::BeginFromCommandLine() {
    if (parts_.Start.StartedFromCommandLine || parts_.Start.CommandLinePath.isEmpty())
        return false;
    parts_.Start.StartedFromCommandLine = true;
    selectedTestPath_ = parts_.Start.CommandLinePath;
    return BeginSelectedTest();
}

void Loading_Test::EnterWorkingDirectory() {
    if (const Result there = EnsureWorkingDirectory(session_.UserSettings, parts_.Folders); !there)
        parts_.Boxes.Inform(there.Message());
    ChangeDirectory(session_.UserSettings.DefaultDirectory);
}

void Loading_Test::ListTestsAgain() {
    {
        const QSignalBlocker quiet(Listselect_);
        Listselect_->clear();
    }
    selectedTestPath_.clear();
    // The test that was taken, edited or looked at last.
    const QString last = session_.Test.TestFileName.isEmpty() ? QString() : AbsolutePath(session_.Test.TestFileName);
    // Another folder's tests, listed in the place of those of a folder that can't be entered, would mislead.
    FileList_ = CheckWorkingDirectory(session_.UserSettings.DefaultDirectory) ? ListTests(session_.Test)
                                                                              : std::vector<ListedTest>();
    if (RowOf(last) >= 0)
        parts_.Start.SelectedTest = last;
    QStringList titles;
    for (const ListedTest& test : FileList_)
        titles.append(OnOneLine(test.Title));
    {
        const QSignalBlocker quiet(Listselect_);
        Listselect_->addItems(titles);
    }
    ShowWhetherTestsAreListed(!FileList_.empty());
}

int Loading_Test::RowOf(const QString& path) const {
    const auto listed =
        std::ranges::find_if(FileList_, [&](const ListedTest& test) { return AbsolutePath(test.FileName) == path; });
    return listed == FileList_.end() ? -1 : static_cast<int>(listed - FileList_.begin());
}

void Loading_Test::ShowWhetherTestsAreListed(bool listed) {
    Listselect_->setVisible(listed);
    Lblinstruct_->setVisible(listed);
    cmdBeginTest_->setVisible(listed);
    lblalt_->setVisible(!listed);
    // The text that takes the list's place sends the person there.
    CmdEditTest_->setVisible(true);
    if (listed) {
        {
            const QSignalBlocker quiet(Listselect_);
            Listselect_->setCurrentRow(qMax(0, RowOf(parts_.Start.SelectedTest)));
        }
        Listselect_->scrollToItem(Listselect_->currentItem());
        Listselect_Click();
        Listselect_->setFocus();
    } else {
        selectedTitle_->clear();
        selectedFile_->clear();
        ShowPartButtons(false, false, false);
        Label3_->setFocus();
    }
}

void Loading_Test::ShowPartButtons(bool introduction, bool instructions, bool questions) {
    CmdIntro_[0]->setVisible(introduction);
    CmdIntro_[1]->setVisible(instructions);
    CmdIntro_[2]->setVisible(questions);
}

void Loading_Test::Listselect_Click() {
    const int row = Listselect_->currentRow();
    if (row < 0)
        return;
    selectedTestPath_ = FileList_[static_cast<size_t>(row)].FileName;
    parts_.Start.SelectedTest = AbsolutePath(selectedTestPath_);
    cmdBeginTest_->show();
    CmdEditTest_->show();

    TestDocument& test = session_.Test;
    const QString problem = ReadParts();
    selectedTitle_->setText(problem.isEmpty() ? test.TestTitle : selectedTestPath_);
    selectedFile_->setText(problem.isEmpty() ? selectedTestPath_ : problem);
    ShowPartButtons(problem.isEmpty() && !test.TestIntroduction.isEmpty(),
                    problem.isEmpty() && !test.TestInstructions.isEmpty(), problem.isEmpty());
}

QString Loading_Test::ReadParts() {
    TestDocument& test = session_.Test;
    ClearTest(test);
    if (const Result read = ReadTestFile(test, selectedTestPath_); !read)
        return CantReadTestFile(selectedTestPath_, read.Message());
    try {
        LoadTitleAndTexts(test);
    } catch (const Failure& failure) {
        return failure.Message();
    }
    return {};
}

void Loading_Test::cmdBeginTest_Click() { BeginSelectedTest(); }

bool Loading_Test::BeginSelectedTest() { return LeaveWhen(flow_.Begin(selectedTestPath_)); }

bool Loading_Test::LeaveWhen(bool otherWindowOpened) {
    if (otherWindowOpened)
        close();
    else
        Listselect_Click(); // the attempt left another test, or none, in memory
    return otherWindowOpened;
}

void Loading_Test::CmdEditTest_Click() {
    LeaveWhen(FileList_.empty() ? parts_.Ways.EditNewTest() : parts_.Ways.EditTest());
}

void Loading_Test::CmdIntro_Click(int index) {
    const auto part = static_cast<TestPart>(index);
    if (part == TestPart::Questions && !flow_.Load(selectedTestPath_)) {
        LeaveWhen(false);
        return;
    }
    parts_.Ways.ShowText(TextOfPart(session_.Test, part), CaptionOfPart(session_.Test, part));
}

void Loading_Test::Label1_Click(int index) {
    if (index == 0)
        parts_.Ways.ShowAbout();
    else
        parts_.Ways.AskNames({});
}

void Loading_Test::Label2_Click() { parts_.Ways.EndProgram(); }

void Loading_Test::Label3_Click() {
    ChangeDirectory(session_.UserSettings.DefaultDirectory);
    const QString path =
        parts_.Files.OpenFile({{}, QStringLiteral("Test Files (*.vlm)|*.vlm| All Files (*.*)|*.*"), {}, {}});
    ChangeDirectory(session_.UserSettings.DefaultDirectory);
    if (path.isEmpty())
        return;
    LeaveWhen(flow_.Begin(path));
}

void Loading_Test::Label5_Click() {
    parts_.Ways.ShowGeneralOptions();
    EnterWorkingDirectory();
    ListTestsAgain();
}

void Loading_Test::Label7_Click() {
    ClearTest(session_.Test);
    LeaveWhen(parts_.Ways.EditNewTest());
}

void Loading_Test::Picture1_Click(PictureMenu::Region region) {
    switch (region) {
    case PictureMenu::Region::Editor:
        return Label7_Click();
    case PictureMenu::Region::Browse:
        return Label3_Click();
    case PictureMenu::Region::Options:
        return Label5_Click();
    }
}

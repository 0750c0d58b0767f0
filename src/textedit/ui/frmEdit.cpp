#include "textedit/ui/frmEdit.h"

#include "platform/ui/HelpKey.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"

#include <QCloseEvent>
#include <QFontDialog>
#include <QFontInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTextDocument>

namespace {

constexpr QSize UsualSize(88 * GridUnit, 72 * GridUnit);
constexpr QSize SmallestSize(40 * GridUnit, 30 * GridUnit);

QMenu& AddMenu(QMainWindow& window, const QString& name, const QString& caption) {
    QMenu* menu = window.menuBar()->addMenu(caption);
    menu->setObjectName(name);
    return *menu;
}

QAction* AddItem(QMenu& menu, const QString& name, const QString& caption, const QKeySequence& keys = {}) {
    QAction* item = menu.addAction(caption);
    item->setObjectName(name);
    item->setShortcut(keys);
    return item;
}

void AddSeparator(QMenu& menu, const QString& name) { menu.addSeparator()->setObjectName(name); }

// Text documents separate their paragraphs with a character of their own.
QString WithLineFeeds(QString text) { return text.replace(QChar::ParagraphSeparator, QChar::LineFeed); }

} // namespace

frmEdit::frmEdit(const ReportPorts& ports, Navigator& navigator)
    : ports_(ports), document_(*this, ports.Boxes, ports.Files) {
    setObjectName(QStringLiteral("frmEdit"));
    txtEdit = new QPlainTextEdit(this);
    txtEdit->setObjectName(QStringLiteral("txtEdit"));
    txtEdit->setAccessibleName(QStringLiteral("Text"));
    txtEdit->setFont(BodyFont());
    txtEdit->setFrameShape(QFrame::NoFrame);
    txtEdit->document()->setDocumentMargin(2 * GridUnit);
    txtEdit->installEventFilter(this);
    setCentralWidget(txtEdit);
    MakeFileMenu();
    MakeEditMenu();
    connect(txtEdit, &QPlainTextEdit::textChanged, this, [this] { document_.TextChanged(); });
    new HelpKey(*this, navigator, HelpTopic::ReportEditor);
    Form_Load();
}

void frmEdit::MakeFileMenu() {
    QMenu& menu = AddMenu(*this, QStringLiteral("MnuFile"), QStringLiteral("&File"));
    MnuFileNew = AddItem(menu, QStringLiteral("MnuFileNew"), QStringLiteral("&New"), QKeySequence::New);
    AddSeparator(menu, QStringLiteral("MnuFileSeperator1"));
    MnuFileOpen = AddItem(menu, QStringLiteral("MnuFileOpen"), QStringLiteral("&Open"), QKeySequence::Open);
    AddSeparator(menu, QStringLiteral("MnuFileSeperator2"));
    MnuFileSave = AddItem(menu, QStringLiteral("MnuFileSave"), QStringLiteral("&Save"), QKeySequence::Save);
    MnuFileSaveAs =
        AddItem(menu, QStringLiteral("MnuFileSaveAs"), QStringLiteral("Save &As"), Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    AddSeparator(menu, QStringLiteral("MnuFileSeperator3"));
    MnuFilePrint = AddItem(menu, QStringLiteral("MnuFilePrint"), QStringLiteral("&Print"), QKeySequence::Print);
    AddSeparator(menu, QStringLiteral("MnuFileSeperator4"));
    MnuFileExit = AddItem(menu, QStringLiteral("MnuFileExit"), QStringLiteral("E&xit"));

    connect(MnuFileNew, &QAction::triggered, this, [this] { document_.New(); });
    connect(MnuFileOpen, &QAction::triggered, this, [this] { document_.Open(); });
    connect(MnuFileSave, &QAction::triggered, this, [this] { document_.Save(); });
    connect(MnuFileSaveAs, &QAction::triggered, this, [this] { document_.SaveAs(); });
    connect(MnuFilePrint, &QAction::triggered, this, &frmEdit::MnuFilePrint_Click);
    connect(MnuFileExit, &QAction::triggered, this, &QWidget::close);
}

void frmEdit::MakeEditMenu() {
    QMenu& menu = AddMenu(*this, QStringLiteral("MnuEdit"), QStringLiteral("&Edit"));
    MnuEditCut = AddItem(menu, QStringLiteral("MnuEditCut"), QStringLiteral("C&ut"), QKeySequence::Cut);
    MnuEditCopy = AddItem(menu, QStringLiteral("MnuEditCopy"), QStringLiteral("&Copy"), QKeySequence::Copy);
    mncopyall = AddItem(menu, QStringLiteral("mncopyall"), QStringLiteral("Copy &All"));
    MnuEditPaste = AddItem(menu, QStringLiteral("MnuEditPaste"), QStringLiteral("&Paste"), QKeySequence::Paste);
    AddSeparator(menu, QStringLiteral("MnuEditSeperator1"));
    MnuEditFont = AddItem(menu, QStringLiteral("MnuEditFont"), QStringLiteral("C&hange Font"));
    pasteword = AddItem(menu, QStringLiteral("pasteword"), QStringLiteral("Paste into &Word document"));

    connect(MnuEditCut, &QAction::triggered, this, &frmEdit::MnuEditCut_Click);
    connect(MnuEditCopy, &QAction::triggered, this, &frmEdit::MnuEditCopy_Click);
    connect(mncopyall, &QAction::triggered, this, &frmEdit::mncopyall_Click);
    connect(MnuEditPaste, &QAction::triggered, this, &frmEdit::MnuEditPaste_Click);
    connect(MnuEditFont, &QAction::triggered, this, &frmEdit::MnuEditFont_Click);
    connect(pasteword, &QAction::triggered, this, &frmEdit::pasteword_Click);
}

void frmEdit::Form_Load() {
    ShowCaption(document_.Caption(), false);
    setMinimumSize(SmallestSize);
    resize(UsualSize);
    CentreOnScreen(*this);
    pasteword->setEnabled(ports_.Office.ApplicationInstalled(WordProcessorKey, {}));
}

void frmEdit::ShowText(const QString& text, const QString& caption, TextKind kind) {
    document_.Fill(text, caption, kind);
    show();
    raise();
    activateWindow();
    txtEdit->setFocus();
}

void frmEdit::CloseWithoutQuestion() {
    closeWithoutQuestion_ = true;
    close();
}

void frmEdit::closeEvent(QCloseEvent* event) {
    const bool closes = closeWithoutQuestion_ || document_.MayClose();
    if (closes && document_.Unsaved())
        Q_EMIT Dropped();
    event->setAccepted(closes);
}

// The text box would answer these keys itself; they belong to the menu.
bool frmEdit::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtEdit && event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        if (key->matches(QKeySequence::Cut) || key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Paste)) {
            event->ignore();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

// Not toPlainText, which turns non-breaking spaces into others.
QString frmEdit::ReportText() const { return WithLineFeeds(txtEdit->document()->toRawText()); }

void frmEdit::SetReportText(const QString& text) {
    if (text.isEmpty() && txtEdit->document()->isEmpty())
        return;
    txtEdit->setPlainText(text);
}

void frmEdit::ShowCaption(const QString& caption, bool unsaved) {
    setWindowTitle(QString(caption).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")) + QStringLiteral("[*]"));
    setWindowModified(unsaved);
}

void frmEdit::MnuFilePrint_Click() {
    if (const Result printed = ports_.Paper.Print(ReportText(), Caption()); !printed)
        ports_.Boxes.Ask({printed.Message(), {}, PromptButtons::Ok, PromptIcon::Critical});
}

QString frmEdit::SelectedText() const { return WithLineFeeds(txtEdit->textCursor().selectedText()); }

void frmEdit::MnuEditCut_Click() {
    MnuEditCopy_Click();
    txtEdit->textCursor().removeSelectedText();
}

// Without a selection there is nothing to put, and what another program left on the clipboard stays.
void frmEdit::MnuEditCopy_Click() {
    if (txtEdit->textCursor().hasSelection())
        ports_.Board.Put(SelectedText());
}

void frmEdit::mncopyall_Click() {
    txtEdit->selectAll();
    ports_.Board.Put(SelectedText());
}

void frmEdit::MnuEditPaste_Click() {
    txtEdit->insertPlainText(ports_.Board.Text());
    txtEdit->ensureCursorVisible();
}

void frmEdit::MnuEditFont_Click() {
    QFont current = txtEdit->font();
    // A generic name such as "Sans Serif" isn't in the dialog's list, nor is every family's upright style called
    // "Normal" there: what the dialog doesn't find, it takes for the first of the list.
    const QFontInfo shown(current);
    current.setFamily(shown.family());
    current.setStyleName(shown.styleName());
    QFontDialog dialog(current, this);
    dialog.setWindowTitle(QStringLiteral("Change Font"));
    dialog.setOptions(QFontDialog::ScalableFonts | QFontDialog::NonScalableFonts);
    const QFont offered = dialog.currentFont();
    if (dialog.exec() != QDialog::Accepted)
        return;
    // Only what was chosen: what the dialog couldn't show stays as it was.
    const QFont chosen = dialog.selectedFont();
    QFont font = txtEdit->font();
    if (chosen.family() != offered.family())
        font.setFamily(chosen.family());
    if (chosen.pointSizeF() != offered.pointSizeF())
        font.setPointSizeF(chosen.pointSizeF());
    if (chosen.bold() != offered.bold())
        font.setBold(chosen.bold());
    if (chosen.italic() != offered.italic())
        font.setItalic(chosen.italic());
    txtEdit->setFont(font);
}

void frmEdit::pasteword_Click() {
    mncopyall_Click();
    if (const Result typed = ports_.Word.TypeText(SelectedText()); !typed)
        ports_.Boxes.Inform(QStringLiteral("Can't paste to word"));
}

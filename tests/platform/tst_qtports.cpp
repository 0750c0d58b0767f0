#include "platform/ui/GradientBackground.h"
#include "platform/ui/QtClipboard.h"
#include "platform/ui/QtFileChooser.h"
#include "platform/ui/QtPrinter.h"
#include "platform/ui/QtPrompts.h"
#include "platform/ui/WindowPlacement.h"
#include "support/Files.h"
#include "support/WindowDriver.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The system's own dialogs, which a test can't look into, stay away while it lives.
struct QtsOwnDialogs {
    QtsOwnDialogs() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, true); }
    ~QtsOwnDialogs() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false); }
    QtsOwnDialogs(const QtsOwnDialogs&) = delete;
    QtsOwnDialogs& operator=(const QtsOwnDialogs&) = delete;
};

} // namespace

class TestQtPorts : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Ask_Button_AnswersIt_data();
    void Ask_Button_AnswersIt();
    void Choose_OwnCaptions_AnswersTheIndex_data();
    void Choose_OwnCaptions_AnswersTheIndex();
    void Ask_MarkupInText_IsShownAsItStands();
    void Ask_NoActiveWindow_BelongsToTheLastThatCanBeSeen();
    void Filters_LabelPatternPairs_BecomeNameFilters_data();
    void Filters_LabelPatternPairs_BecomeNameFilters();
    void SaveFile_NameWithoutExtension_GetsIt();
    void SaveFile_ExistingFile_AsksFirst();
    void OpenFile_Cancelled_IsEmpty();
    void Print_LongText_TakesSeveralPages();
    void Print_UnwritableTarget_Fails();
    void Clipboard_Put_IsReadBack();
    void Gradient_Palettes_KeepTextReadable_data();
    void Gradient_Palettes_KeepTextReadable();
    void Centre_Sizes_StayOnScreen_data();
    void Centre_Sizes_StayOnScreen();
};

void TestQtPorts::Ask_Button_AnswersIt_data() {
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("press"); // a standard button, or 0 for the Escape key
    QTest::addColumn<int>("answer");
    const auto row = [](const char* name, PromptButtons buttons, int press, PromptAnswer answer) {
        QTest::newRow(name) << static_cast<int>(buttons) << press << static_cast<int>(answer);
    };
    row("ok", PromptButtons::Ok, QMessageBox::Ok, PromptAnswer::Ok);
    row("ok, closed", PromptButtons::Ok, 0, PromptAnswer::Ok);
    row("ok of two", PromptButtons::OkCancel, QMessageBox::Ok, PromptAnswer::Ok);
    row("two, closed", PromptButtons::OkCancel, 0, PromptAnswer::Cancel);
    row("yes", PromptButtons::YesNoCancel, QMessageBox::Yes, PromptAnswer::Yes);
    row("no", PromptButtons::YesNoCancel, QMessageBox::No, PromptAnswer::No);
    row("cancel", PromptButtons::YesNoCancel, QMessageBox::Cancel, PromptAnswer::Cancel);
    row("three, closed", PromptButtons::YesNoCancel, 0, PromptAnswer::Cancel);
}

void TestQtPorts::Ask_Button_AnswersIt() {
    QFETCH(const int, buttons);
    QFETCH(const int, press);
    QFETCH(const int, answer);
    DialogDriver driver([press](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        QVERIFY(box != nullptr);
        if (press == 0)
            Press(*box, Qt::Key_Escape);
        else
            box->button(static_cast<QMessageBox::StandardButton>(press))->click();
    });
    const Prompt prompt{u"Go on?"_s, {}, static_cast<PromptButtons>(buttons), PromptIcon::Question};
    QCOMPARE(static_cast<int>(QtPrompts().Ask(prompt)), answer);
}

void TestQtPorts::Choose_OwnCaptions_AnswersTheIndex_data() {
    QTest::addColumn<QString>("press"); // a caption, or a key
    QTest::addColumn<int>("answer");
    QTest::newRow("first") << u"&Keep"_s << 0;
    QTest::newRow("last") << u"&Cancel"_s << 2;
    QTest::newRow("Enter") << u"\r"_s << 1;
    QTest::newRow("Escape") << u"\x1b"_s << 2;
}

void TestQtPorts::Choose_OwnCaptions_AnswersTheIndex() {
    QFETCH(const QString, press);
    QFETCH(const int, answer);
    DialogDriver driver([press](QDialog& dialog) {
        for (auto* button : dialog.findChildren<QPushButton*>())
            if (button->text() == press)
                return button->click();
        Press(dialog, press == u"\r"_s ? Qt::Key_Return : Qt::Key_Escape);
    });
    const ChoicePrompt prompt{u"Go on later?"_s,
                              {{u"&Keep"_s}, {u"&Discard"_s, ChoiceRole::Discard}, {u"&Cancel"_s, ChoiceRole::Reject}},
                              1,
                              2};
    QCOMPARE(QtPrompts().Choose(prompt), answer);
}

void TestQtPorts::Ask_MarkupInText_IsShownAsItStands() {
    DialogDriver driver([](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        QVERIFY(box != nullptr);
        QCOMPARE(box->windowTitle(), u"Vellumo"_s);
        QCOMPARE(box->textFormat(), Qt::PlainText);
        QCOMPARE(box->text(), u"<b>1 < 2</b>"_s);
        box->accept();
    });
    QtPrompts().Inform(u"<b>1 < 2</b>"_s);
}

// As it is while the system gives the keyboard back after a dialog of its own.
void TestQtPorts::Ask_NoActiveWindow_BelongsToTheLastThatCanBeSeen() {
    QWidget first;
    QWidget last;
    QWidget hidden;
    for (QWidget* window : {&first, &last, &hidden})
        window->show();
    hidden.hide();
    QApplication::setActiveWindow(nullptr);
    QCOMPARE(QApplication::activeWindow(), nullptr);
    DialogDriver driver([&](QDialog& dialog) {
        QCOMPARE(dialog.parentWidget(), &last);
        dialog.accept();
    });
    QtPrompts().Inform(u"Saved."_s);
}

void TestQtPorts::Filters_LabelPatternPairs_BecomeNameFilters_data() {
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none") << QString() << QStringList();
    QTest::newRow("text files") << u"Text Files (*.txt)|*.txt| All Files (*.*)|*.*"_s
                                << QStringList{u"Text Files (*.txt)"_s, u"All Files (*)"_s};
    QTest::newRow("several patterns") << u"Pages|*.htm;*.html"_s << QStringList{u"Pages (*.htm *.html)"_s};
    QTest::newRow("label alone at the end") << u"Tests (*.vlm)|*.vlm|Left"_s << QStringList{u"Tests (*.vlm)"_s};
}

void TestQtPorts::Filters_LabelPatternPairs_BecomeNameFilters() {
    QFETCH(const QString, filter);
    QFETCH(const QStringList, names);
    QCOMPARE(NameFiltersOf(filter), names);
}

void TestQtPorts::SaveFile_NameWithoutExtension_GetsIt() {
    const QtsOwnDialogs own;
    const QTemporaryDir folder;
    DialogDriver driver([](QDialog& dialog) {
        auto* files = qobject_cast<QFileDialog*>(&dialog);
        QVERIFY(files != nullptr);
        QCOMPARE(files->nameFilters(), QStringList{u"Text Files (*.txt)"_s});
        auto* name = files->findChild<QLineEdit*>(u"fileNameEdit"_s);
        QVERIFY(name != nullptr);
        QCOMPARE(name->text(), u"old.txt"_s);
        name->setText(u"report"_s);
        Press(*name, Qt::Key_Return);
    });
    const FileQuestion question{u"Save"_s, u"Text Files (*.txt)|*.txt"_s, folder.filePath(u"old.txt"_s), u".txt"_s};
    QCOMPARE(QDir::fromNativeSeparators(QtFileChooser().SaveFile(question)), folder.filePath(u"report.txt"_s));
}

void TestQtPorts::SaveFile_ExistingFile_AsksFirst() {
    const QtsOwnDialogs own;
    const QTemporaryDir folder;
    PutBytes(folder.filePath(u"old.txt"_s), "x");
    bool asked = false;
    DialogDriver driver([&asked](QDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
        QVERIFY(name != nullptr);
        DialogDriver overwrite([&asked](QDialog& box) {
            asked = true;
            qobject_cast<QMessageBox*>(&box)->button(QMessageBox::No)->click();
        });
        Press(*name, Qt::Key_Return);
        dialog.reject();
    });
    QCOMPARE(QtFileChooser().SaveFile({{}, {}, folder.filePath(u"old.txt"_s), u".txt"_s}), QString());
    QVERIFY(asked);
}

void TestQtPorts::OpenFile_Cancelled_IsEmpty() {
    const QString before = QDir::currentPath();
    DialogDriver driver([](QDialog& dialog) { Press(dialog, Qt::Key_Escape); });
    QCOMPARE(QtFileChooser().OpenFile({}), QString());
    QCOMPARE(QDir::currentPath(), before);
}

void TestQtPorts::Print_LongText_TakesSeveralPages() {
    const QTemporaryDir folder;
    const auto pagesOf = [&folder](const QString& text) {
        const QString path = folder.filePath(u"paper.pdf"_s);
        const Result printed = QtPrinter(path).Print(text, u"Report"_s);
        if (!printed)
            FailTest(printed.Message());
        static const QRegularExpression page(u"/Type\\s*/Page\\b(?!s)"_s);
        return QString::fromLatin1(BytesOf(path)).count(page);
    };
    QCOMPARE(pagesOf(u"one line"_s), 1);
    QVERIFY(pagesOf(u"line\r\n"_s.repeated(200)) >= 3);
}

void TestQtPorts::Print_UnwritableTarget_Fails() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"missing/paper.pdf"_s);
    const Result printed = QtPrinter(path).Print(u"text"_s, u"Report"_s);
    QVERIFY(!printed);
    QVERIFY2(printed.Message().contains(u"Report"_s) && printed.Message().contains(path),
             qPrintable(printed.Message()));
}

void TestQtPorts::Clipboard_Put_IsReadBack() {
    QtClipboard board;
    board.Put(u"Zo\u00eb\n2"_s);
    QCOMPARE(board.Text(), u"Zo\u00eb\n2"_s);
}

void TestQtPorts::Gradient_Palettes_KeepTextReadable_data() {
    QTest::addColumn<QColor>("window");
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("highlight");
    QTest::addColumn<bool>("tinted");
    QTest::newRow("light") << QColor(239, 239, 239) << QColor(Qt::black) << QColor(48, 140, 198) << true;
    QTest::newRow("dark") << QColor(45, 45, 45) << QColor(Qt::white) << QColor(48, 140, 198) << true;
    QTest::newRow("high contrast") << QColor(Qt::black) << QColor(Qt::yellow) << QColor(Qt::cyan) << true;
    QTest::newRow("highlight like text") << QColor(Qt::white) << QColor(110, 110, 110) << QColor(0, 0, 0) << true;
    QTest::newRow("just readable") << QColor(Qt::white) << QColor(118, 118, 118) << QColor(0, 0, 0) << false;
}

void TestQtPorts::Gradient_Palettes_KeepTextReadable() {
    QFETCH(const QColor, window);
    QFETCH(const QColor, text);
    QFETCH(const QColor, highlight);
    QFETCH(const bool, tinted);
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Highlight, highlight);
    const GradientColours colours = GradientColoursOf(palette);
    QVERIFY(ContrastRatio(colours.Top, text) >= 4.5);
    QVERIFY(ContrastRatio(colours.Bottom, text) >= 4.5);
    QCOMPARE(colours.Top != colours.Bottom, tinted);
}

void TestQtPorts::Centre_Sizes_StayOnScreen_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("place");
    QTest::newRow("even") << QSize(400, 300) << QRect(312, 254, 400, 300);
    QTest::newRow("odd, rounded down") << QSize(401, 301) << QRect(311, 253, 401, 301);
    QTest::newRow("too large") << QSize(2000, 900) << QRect(0, 40, 1024, 728);
}

void TestQtPorts::Centre_Sizes_StayOnScreen() {
    QFETCH(const QSize, size);
    QFETCH(const QRect, place);
    QCOMPARE(CentredWithin(QRect(0, 40, 1024, 728), size), place);
}

QTEST_MAIN(TestQtPorts)
#include "tst_qtports.moc"

#pragma once

#include "platform/Clipboard.h"
#include "platform/Navigator.h"
#include "platform/OfficeProbe.h"
#include "platform/Printer.h"
#include "platform/WordProcessor.h"
#include "textedit/ReportDocument.h"

#include <QAction>
#include <QMainWindow>
#include <QPlainTextEdit>

/// The parts of the outside that a report window uses.
struct ReportPorts {
    Prompts& Boxes;
    FileChooser& Files;
    Printer& Paper;
    Clipboard& Board;
    const OfficeProbe& Office;
    WordProcessor& Word;
};

/// The report text editor: a window with one text box, in which a report or any text file is read, changed, saved,
/// printed and copied. Its maker owns it.
class frmEdit : public QMainWindow, private ReportView {
    Q_OBJECT

  public:
    frmEdit(const ReportPorts& ports, Navigator& navigator);

    /// Shows the window with a text that is in no file yet. Leaving it asks when it is a report or was changed.
    void ShowText(const QString& text, const QString& caption, TextKind kind);
    /// Closes the window, whatever it holds.
    void CloseWithoutQuestion();
    /// The caption without the mark of unsaved changes.
    QString Caption() const { return document_.Caption(); }

    QPlainTextEdit* txtEdit = nullptr;
    QAction* MnuFileNew = nullptr;
    QAction* MnuFileOpen = nullptr;
    QAction* MnuFileSave = nullptr;
    QAction* MnuFileSaveAs = nullptr;
    QAction* MnuFilePrint = nullptr;
    QAction* MnuFileExit = nullptr;
    QAction* MnuEditCut = nullptr;
    QAction* MnuEditCopy = nullptr;
    QAction* mncopyall = nullptr;
    QAction* MnuEditPaste = nullptr;
    QAction* MnuEditFont = nullptr;
    QAction* pasteword = nullptr;

  Q_SIGNALS:
    /// The window closes with a text that is not saved.
    void Dropped();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QString ReportText() const override;
    void SetReportText(const QString& text) override;
    void ShowCaption(const QString& caption, bool unsaved) override;

    void MakeFileMenu();
    void MakeEditMenu();

    void Form_Load();
    void MnuFilePrint_Click();
    void MnuEditCut_Click();
    void MnuEditCopy_Click();
    void mncopyall_Click();
    void MnuEditPaste_Click();
    void MnuEditFont_Click();
    void pasteword_Click();

    QString SelectedText() const;

    ReportPorts ports_;
    ReportDocument document_;
    bool closeWithoutQuestion_ = false;
};

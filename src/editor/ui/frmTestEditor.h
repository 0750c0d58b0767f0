#pragma once

#include "editor/EditorFile.h"
#include "editor/EditorPages.h"
#include "editor/ui/AboutTestTab.h"
#include "editor/ui/AnalysisTab.h"
#include "editor/ui/AutomationTab.h"
#include "editor/ui/EditorMenus.h"
#include "editor/ui/EditorOptionChecks.h"
#include "editor/ui/EditorTabStrip.h"
#include "editor/ui/ExportTab.h"
#include "editor/ui/FindingsLine.h"
#include "editor/ui/HomeView.h"
#include "editor/ui/OptionsTab.h"
#include "editor/ui/QuestionsTab.h"
#include "editor/ui/SubscalesTab.h"
#include "editor/ui/TemplateTab.h"
#include "platform/ui/HelpKey.h"

#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

#include <array>

/// The test editor: the frame around its pages, with the home view, the menus, and the ways in and out.
class frmTestEditor : public QMainWindow, private EditorView {
    Q_OBJECT

  public:
    explicit frmTestEditor(const EditorFileParts& parts);

    /// Reads the test that the document names, or begins with an empty one. False when that isn't possible or wanted;
    /// the window is not to be shown then.
    bool Form_Load();
    /// Goes on with a document whose changes are in no file, and with what was typed for it.
    void LoadRecovered(const TypedEntries& typed);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void RefreshFromTest() override;
    void ShowHome() override { ShowHome(EditorPage::Options); }
    void ShowTitle(const QString& title) override { setWindowTitle(title); }
    void ShowSaveState(const QString& state) override { saveState_->setText(state); }
    bool Settle() override;
    TypedEntries Typed() override;
    void ShowTyped(const TypedEntries& typed) override;
    /// The home view. A page behind lastMoved stays in view over it.
    void ShowHome(EditorPage lastMoved);

    void MakePages(const EditorParts& parts);
    QWidget* MakeHeading();
    QLayout* MakeButtons();
    void ConnectMenus();
    void ConnectPages();

    EditorTab* PageOfForm(const TestPlace& place) const { return PageAt(static_cast<int>(PageOf(place))); }
    EditorTab* PageAt(int index) const { return picOptions_[static_cast<size_t>(index)]; }
    void tbsOptions_Click(int index);
    void Form_KeyDown(int step);
    void Command1_Click();
    void Command2_Click();
    void Quit_Click();
    void hlp_Click();
    void ExportHtml();
    void DocumentChanged();
    void ShowHeading();
    void ShowFindings();
    void GoTo(const TestPlace& place);
    void Guarded(const std::function<void()>& action);
    void ShowStartScreen();
    void ShowStartScreenAndClose();

    EditorFileParts parts_;
    EditorFile file_;
    EditorMenus* menus_ = nullptr;
    HelpKey* help_ = nullptr;

    QLabel* heading_ = nullptr;
    QLabel* saveState_ = nullptr;
    EditorTabStrip* tbsOptions_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    HomeView* home_ = nullptr;
    EditorOptionChecks* checks_ = nullptr;
    SubscalesTab* subscales_ = nullptr;
    QuestionsTab* questions_ = nullptr;
    ExportTab* export_ = nullptr;
    std::array<EditorTab*, EditorPageCount> picOptions_{};
    FindingsLine* findings_ = nullptr;
    QPushButton* Command1_ = nullptr;
    QPushButton* Command2_ = nullptr;
    QPushButton* Quit_ = nullptr;

    QTimer findingsTimer_;
    QTimer copyTimer_;
    bool leaving_ = false;
};

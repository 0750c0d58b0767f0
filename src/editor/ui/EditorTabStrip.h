#pragma once

#include <QTabBar>

/// The tabs of the editor. On the home view none of them looks chosen, and choosing the current one again counts too.
class EditorTabStrip : public QTabBar {
    Q_OBJECT

  public:
    explicit EditorTabStrip(QWidget* parent = nullptr);

    /// Shows none as chosen, until the next one is.
    void ShowNone();
    /// Shows that tab as chosen, without a signal: the page is to stay.
    void Show(int index);
    /// Whether the arrow keys are choosing, which go on through the tabs.
    bool IsWalking() const { return walking_; }
    /// The tab behind the one last chosen (step 1) or before it (-1), round the ends; the first or last one where none
    /// was chosen yet.
    int NextTab(int step) const;
    /// Whether that page is shown.
    bool IsChosen(int index) const { return !noneChosen_ && index == currentIndex(); }
    /// As a click on the tab, the current one included.
    void Choose(int index);

  Q_SIGNALS:
    void Chosen(int index);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void initStyleOption(QStyleOptionTab* option, int tabIndex) const override;

  private:
    void TakeChoice(int index);

    bool walking_ = false;
    bool noneChosen_ = true;
    bool noneYet_ = true;
};

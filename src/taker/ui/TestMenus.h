#pragma once

#include <QMenu>
#include <QMenuBar>
#include <QObject>

/// The menus of the test window. Each item is told by a signal; what it does is the window's matter.
class TestMenus : public QObject {
    Q_OBJECT

  public:
    explicit TestMenus(QMenuBar& bar);

    /// Offers only what the test has.
    void OfferTexts(bool introduction, bool instructions);
    /// The items that change the size of what a client reads; their keys work while the menus are hidden, too.
    QList<QAction*> SizeItems() const { return {Larger_, Smaller_, Usual_}; }

    /// The menus by which the client could leave the test or change its options.
    void SetOptionsVisible(bool visible);

  Q_SIGNALS:
    void mnuNew_Click();
    void edittest_Click();
    void mnuQuit_Click();
    /// 1 introduction, 2 instructions, 3 questions
    void mnutestshow_Click(int index);
    void mnuclient_Click();
    void mnugeneraloptions_Click();
    void mnut_Click();
    /// 1 larger, -1 smaller, 0 the usual size
    void mnusize_Click(int direction);
    void hlpy_Click();
    void mnuhelpabout_Click();

  private:
    QMenu* MakeMenu(QMenuBar& bar, const QString& name, const QString& caption);
    QAction* MakeItem(QMenu& menu, const QString& name, const QString& caption);
    template <typename Signal> void AddItem(QMenu& menu, const QString& name, const QString& caption, Signal signal) {
        connect(MakeItem(menu, name, caption), &QAction::triggered, this, signal);
    }
    void FillFileMenu();
    void FillTestMenu();
    void FillOptionsMenu();
    void FillHelpMenu();

    QAction* MakeSizeItem(const QString& name, const QString& caption, int direction, const QList<QKeySequence>& keys);

    QAction* Larger_ = nullptr;
    QAction* Smaller_ = nullptr;
    QAction* Usual_ = nullptr;
    QMenu* mnutest_ = nullptr;
    QMenu* mnuint_ = nullptr;
    QMenu* mnuOptions_ = nullptr;
    QMenu* mnuhelp_ = nullptr;
};

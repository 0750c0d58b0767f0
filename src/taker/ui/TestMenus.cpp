#include "taker/ui/TestMenus.h"

#include "platform/ui/Named.h"

TestMenus::TestMenus(QMenuBar& bar) : QObject(&bar) {
    mnutest_ = MakeMenu(bar, QStringLiteral("mnutest"), QStringLiteral("&File"));
    mnuint_ = MakeMenu(bar, QStringLiteral("mnuint"), QStringLiteral("&Test"));
    mnuOptions_ = MakeMenu(bar, QStringLiteral("mnuOptions"), QStringLiteral("&Options"));
    mnuhelp_ = MakeMenu(bar, QStringLiteral("mnuhelp"), QStringLiteral("&Help"));
    FillFileMenu();
    FillTestMenu();
    FillOptionsMenu();
    FillHelpMenu();
}

QMenu* TestMenus::MakeMenu(QMenuBar& bar, const QString& name, const QString& caption) {
    return Named(bar.addMenu(caption), name);
}

QAction* TestMenus::MakeItem(QMenu& menu, const QString& name, const QString& caption) {
    return Named(menu.addAction(caption), name);
}

void TestMenus::FillFileMenu() {
    AddItem(*mnutest_, QStringLiteral("mnuNew"), QStringLiteral("&Main Menu"), &TestMenus::mnuNew_Click);
    AddItem(*mnutest_, QStringLiteral("edittest"), QStringLiteral("&Edit Current Test"), &TestMenus::edittest_Click);
    mnutest_->addSeparator();
    AddItem(*mnutest_, QStringLiteral("mnuQuit"), QStringLiteral("&Quit"), &TestMenus::mnuQuit_Click);
}

void TestMenus::FillTestMenu() {
    const QStringList captions = {QStringLiteral("Intro&duction"), QStringLiteral("&Instructions"),
                                  QStringLiteral("&Show Questions")};
    for (int i = 1; i <= captions.size(); ++i)
        AddItem(*mnuint_, QStringLiteral("mnutestshow_%1").arg(i), captions[i - 1],
                [this, i] { Q_EMIT mnutestshow_Click(i); });
    Named(mnuint_->addSeparator(), QStringLiteral("divider"));
    AddItem(*mnuint_, QStringLiteral("mnuclient"), QStringLiteral("Test Client and Adminstrator"),
            &TestMenus::mnuclient_Click);
}

void TestMenus::FillOptionsMenu() {
    AddItem(*mnuOptions_, QStringLiteral("mnugeneraloptions"), QStringLiteral("&General Options"),
            &TestMenus::mnugeneraloptions_Click);
    AddItem(*mnuOptions_, QStringLiteral("mnut"), QStringLiteral("&Test Options"), &TestMenus::mnut_Click);
    mnuOptions_->addSeparator();
    Larger_ = MakeSizeItem(QStringLiteral("mnularger"), QStringLiteral("&Larger Text"), 1,
                           {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    Smaller_ = MakeSizeItem(QStringLiteral("mnusmaller"), QStringLiteral("&Smaller Text"), -1,
                            {QKeySequence(Qt::CTRL | Qt::Key_Minus)});
    Usual_ = MakeSizeItem(QStringLiteral("mnuusual"), QStringLiteral("&Usual Size"), 0,
                          {QKeySequence(Qt::CTRL | Qt::Key_0)});
}

QAction* TestMenus::MakeSizeItem(const QString& name, const QString& caption, int direction,
                                 const QList<QKeySequence>& keys) {
    QAction* item = MakeItem(*mnuOptions_, name, caption);
    item->setShortcuts(keys);
    connect(item, &QAction::triggered, this, [this, direction] { Q_EMIT mnusize_Click(direction); });
    return item;
}

void TestMenus::OfferTexts(bool introduction, bool instructions) {
    const QList<QAction*> items = mnuint_->actions();
    items[0]->setVisible(introduction);
    items[1]->setVisible(instructions);
}

void TestMenus::FillHelpMenu() {
    AddItem(*mnuhelp_, QStringLiteral("hlpy"), QStringLiteral("Help"), &TestMenus::hlpy_Click);
    AddItem(*mnuhelp_, QStringLiteral("mnuhelpabout"), QStringLiteral("&About Vellumo"),
            &TestMenus::mnuhelpabout_Click);
}

void TestMenus::SetOptionsVisible(bool visible) {
    for (QMenu* menu : {mnuOptions_, mnutest_, mnuint_})
        menu->menuAction()->setVisible(visible);
}

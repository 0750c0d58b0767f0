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

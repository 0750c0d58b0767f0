#include "editor/ui/EditorTabStrip.h"

#include "editor/ui/EditorTabAccess.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyleOptionTab>

EditorTabStrip::EditorTabStrip(QWidget* parent) : QTabBar(parent) {
    UseEditorTabAccess();
    setExpanding(false);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideNone);
    setDrawBase(true);
    connect(this, &QTabBar::tabBarClicked, this, [this](int index) {
        // Another tab than the current one comes by the change that follows.
        if (index >= 0 && index == currentIndex())
            TakeChoice(index);
    });
    connect(this, &QTabBar::currentChanged, this, &EditorTabStrip::TakeChoice);
}

void EditorTabStrip::ShowNone() {
    noneChosen_ = true;
    update();
}

void EditorTabStrip::Show(int index) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(index);
    noneChosen_ = false;
    update();
}

void EditorTabStrip::Choose(int index) {
    if (index == currentIndex())
        TakeChoice(index);
    else
        setCurrentIndex(index);
}

int EditorTabStrip::NextTab(int step) const {
    if (noneYet_)
        return step > 0 ? 0 : count() - 1;
    return (currentIndex() + step + count()) % count();
}

void EditorTabStrip::keyPressEvent(QKeyEvent* event) {
    const bool chooses =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (chooses && currentIndex() >= 0)
        return TakeChoice(currentIndex());
    walking_ = true;
    // With no tab chosen yet, the strip's own keys would pass over the first one.
    if (noneYet_ && count() > 0 && event->key() == Qt::Key_Right)
        TakeChoice(currentIndex());
    else
        QTabBar::keyPressEvent(event);
    walking_ = false;
}

void EditorTabStrip::initStyleOption(QStyleOptionTab* option, int tabIndex) const {
    QTabBar::initStyleOption(option, tabIndex);
    if (noneChosen_)
        option->state &= ~QStyle::State_Selected;
}

void EditorTabStrip::TakeChoice(int index) {
    if (index < 0)
        return;
    noneChosen_ = noneYet_ = false;
    update();
    Q_EMIT Chosen(index);
}

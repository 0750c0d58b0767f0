#include "platform/ui/WindowInFront.h"

#include <QApplication>
#include <QWindow>

QWidget* WindowInFront() {
    if (QWidget* active = QApplication::activeWindow())
        return active;
    // They stand in the order in which they were made.
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (auto window = windows.crbegin(); window != windows.crend(); ++window) {
        const bool holdsDialogs = (*window)->type() == Qt::Window || (*window)->type() == Qt::Dialog;
        if (!holdsDialogs || !(*window)->isVisible())
            continue;
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets)
            if (widget->windowHandle() == *window)
                return widget;
    }
    return nullptr;
}

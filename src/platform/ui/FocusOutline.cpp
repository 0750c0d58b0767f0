#include "platform/ui/FocusOutline.h"

#include <QEvent>

FocusOutline::FocusOutline(QFrame& frame) : QObject(&frame), frame_(frame), usualStyle_(frame.frameStyle()) {
    frame.installEventFilter(this);
}

bool FocusOutline::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        Show(true);
    else if (event->type() == QEvent::FocusOut)
        Show(false);
    return QObject::eventFilter(watched, event);
}

void FocusOutline::Show(bool focused) {
    const int width = frame_.frameWidth();
    if (focused) {
        frame_.setFrameStyle(QFrame::Box | QFrame::Plain);
        // Of the same width, lest the content moves.
        frame_.setLineWidth(width);
        QPalette palette = frame_.palette();
        palette.setColor(QPalette::WindowText, palette.color(QPalette::Highlight));
        frame_.setPalette(palette);
    } else {
        frame_.setPalette(QPalette());
        frame_.setFrameStyle(usualStyle_);
    }
}

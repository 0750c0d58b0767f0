#include "taker/ui/ControlWheel.h"

#include <QAbstractScrollArea>
#include <QWheelEvent>

ControlWheel::ControlWheel(QWidget& window, std::function<void(int direction)> turned)
    : QObject(&window), turned_(std::move(turned)) {
    window.installEventFilter(this);
    for (auto* area : window.findChildren<QAbstractScrollArea*>())
        area->viewport()->installEventFilter(this);
}

bool ControlWheel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Wheel || !static_cast<QWheelEvent*>(event)->modifiers().testFlag(Qt::ControlModifier))
        return QObject::eventFilter(watched, event);
    if (const int turn = static_cast<QWheelEvent*>(event)->angleDelta().y(); turn != 0)
        turned_(turn > 0 ? 1 : -1);
    event->accept();
    return true;
}

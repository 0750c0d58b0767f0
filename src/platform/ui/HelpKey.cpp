#include "platform/ui/HelpKey.h"

#include <QKeyEvent>

// A key that the control in focus doesn't use comes up to its window, where the filter sees it.
HelpKey::HelpKey(QWidget& window, Navigator& navigator, HelpTopic topic)
    : QObject(&window), navigator_(navigator), topic_(topic) {
    window.installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto* key = static_cast<const QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return QObject::eventFilter(watched, event);
    navigator_.ShowHelp(topic_);
    return true;
}

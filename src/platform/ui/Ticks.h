#pragma once

#include <QAbstractButton>
#include <QSignalBlocker>

/// Shows a value in a check box or another checkable button. Its toggled signal then means that a person changed it,
/// with the mouse, the keyboard or through the accessibility interface, which doesn't click.
inline void ShowTicked(QAbstractButton& button, bool ticked) {
    const QSignalBlocker quiet(button);
    button.setChecked(ticked);
}

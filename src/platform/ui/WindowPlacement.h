#pragma once

#include <QRect>
#include <QWidget>

/// A rectangle of that size, or as much of it as fits, in the middle of the available one, in whole units.
QRect CentredWithin(const QRect& available, const QSize& size);

/// Moves the window to the middle of its screen, and makes it smaller where it wouldn't fit there with its title bar.
void CentreOnScreen(QWidget& window);

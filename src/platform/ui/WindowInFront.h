#pragma once

#include <QWidget>

/// The window that a dialog belongs to: the active one. Where none is, as right after one of the system's own dialogs
/// or before the program has the keyboard, the one opened last of those that can be seen; null when there is none.
QWidget* WindowInFront();

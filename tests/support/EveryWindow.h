#pragma once

#include <QString>
#include <QWidget>

#include <functional>

using WindowVisitor = std::function<void(QWidget& window, const QString& name)>;

/// Makes every window of the desktop program, in its main states, on the samples of the checkout, and has each visited
/// under a name such as "start-screen". The visitor shows it; afterwards it goes on to its next state or goes away.
void VisitEveryWindow(const QString& sourceFolder, const WindowVisitor& visit);

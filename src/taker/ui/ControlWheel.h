#pragma once

#include <QWidget>

#include <functional>

/// Takes the turns of the wheel with the Ctrl key held, anywhere in a window.
class ControlWheel : public QObject {
  public:
    /// Make it when the window has all its scroll areas, which would take the wheel for themselves. A turn away from
    /// the person is 1, one towards the person -1.
    ControlWheel(QWidget& window, std::function<void(int direction)> turned);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void(int)> turned_;
};

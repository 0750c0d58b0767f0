#pragma once

#include "platform/Navigator.h"

#include <QObject>
#include <QWidget>

/// Shows the window's help topic when F1 is pressed in it. Belongs to the window.
class HelpKey : public QObject {
  public:
    HelpKey(QWidget& window, Navigator& navigator, HelpTopic topic);

    void SetTopic(HelpTopic topic) { topic_ = topic; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Navigator& navigator_;
    HelpTopic topic_;
};

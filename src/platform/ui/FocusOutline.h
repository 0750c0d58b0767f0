#pragma once

#include <QFrame>
#include <QObject>

/// Draws the frame of a list or text box in the highlight's colour while it has the focus, where the style leaves it
/// grey. Belongs to the frame.
class FocusOutline : public QObject {
  public:
    explicit FocusOutline(QFrame& frame);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Show(bool focused);

    QFrame& frame_;
    int usualStyle_;
};

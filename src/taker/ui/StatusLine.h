#pragma once

#include <QLabel>
#include <QStringList>

/// The line at the bottom of the test window that says what failed and what is in which file. Its text can be selected
/// with mouse and keyboard, and what is new in it is announced to screen readers. Hidden while it has nothing to say.
class StatusLine : public QLabel {
  public:
    StatusLine();

    void Show(const QStringList& lines);

    QSize minimumSizeHint() const override;
};

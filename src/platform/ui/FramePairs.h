#pragma once

#include <QGridLayout>
#include <QWidget>

/// Frames in pairs side by side, or all below each other where the width is too small for pairs.
class FramePairs : public QWidget {
  public:
    /// The shares are those of the width that the left and the right ones of the pairs get.
    explicit FramePairs(const QList<QWidget*>& frames, int leftShare = 1, int rightShare = 1);

    /// As narrow as the frames below each other.
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Arrange(int columns);
    int WidthOfPairs() const;

    QList<QWidget*> frames_;
    QGridLayout* grid_;
    int leftShare_;
    int rightShare_;
    int columns_ = 0;
};

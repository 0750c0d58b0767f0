#pragma once

#include <QGridLayout>
#include <QGroupBox>

/// Frames in pairs side by side, or all below each other where the width is too small for pairs.
class FramePairs : public QWidget {
  public:
    explicit FramePairs(const QList<QGroupBox*>& frames);

    /// As narrow as the frames below each other.
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Arrange(int columns);
    int WidthOfPairs() const;

    QList<QGroupBox*> frames_;
    QGridLayout* grid_;
    int columns_ = 0;
};

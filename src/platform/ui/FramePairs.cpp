#include "platform/ui/FramePairs.h"

#include "platform/ui/Typography.h"

#include <algorithm>

FramePairs::FramePairs(const QList<QWidget*>& frames, int leftShare, int rightShare)
    : frames_(frames), grid_(new QGridLayout(this)), leftShare_(leftShare), rightShare_(rightShare) {
    SetRoom(*grid_, 0, 2);
    Arrange(2);
}

QSize FramePairs::minimumSizeHint() const {
    int width = 0;
    for (const QWidget* frame : frames_)
        width = std::max(width, frame->minimumSizeHint().width());
    return {width, grid_->minimumSize().height()};
}

void FramePairs::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Arrange(width() >= WidthOfPairs() ? 2 : 1);
}

void FramePairs::Arrange(int columns) {
    if (columns == columns_)
        return;
    columns_ = columns;
    for (int i = 0; i < frames_.size(); ++i) {
        grid_->removeWidget(frames_[i]);
        grid_->addWidget(frames_[i], i / columns, i % columns);
    }
    grid_->setColumnStretch(0, leftShare_);
    grid_->setColumnStretch(1, columns > 1 ? rightShare_ : 0);
    grid_->setHorizontalSpacing(columns > 1 ? 2 * GridUnit : 0);
    updateGeometry();
}

int FramePairs::WidthOfPairs() const {
    int widths[2] = {0, 0};
    for (int i = 0; i < frames_.size(); ++i)
        widths[i % 2] = std::max(widths[i % 2], frames_[i]->minimumSizeHint().width());
    return widths[0] + widths[1] + 2 * GridUnit;
}

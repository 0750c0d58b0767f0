#pragma once

#include <QScrollArea>

/// Scrolls up and down when its content is higher than the room there is, and takes no more room than the content.
/// The gradient behind it shines through.
class FittingScrollArea : public QScrollArea {
  public:
    explicit FittingScrollArea(QWidget* content, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
};

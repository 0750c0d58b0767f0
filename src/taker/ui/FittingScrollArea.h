#pragma once

#include <QScrollArea>

/// Scrolls its content where the room there is doesn't hold it, and takes no more room than the content.
/// The gradient behind it shines through.
class FittingScrollArea : public QScrollArea {
  public:
    explicit FittingScrollArea(QWidget* content, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
};

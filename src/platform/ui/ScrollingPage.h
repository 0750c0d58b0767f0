#pragma once

#include <QScrollArea>

/// A page that scrolls where a small screen leaves too little room for it.
class ScrollingPage : public QScrollArea {
  public:
    explicit ScrollingPage(QWidget* page);

    QSize sizeHint() const override;
};

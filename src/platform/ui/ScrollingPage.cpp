#include "platform/ui/ScrollingPage.h"

ScrollingPage::ScrollingPage(QWidget* page) {
    setWidget(page);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

QSize ScrollingPage::sizeHint() const { return widget()->sizeHint(); }

#include "taker/ui/FittingScrollArea.h"

#include "platform/ui/Typography.h"

#include <QLayout>
#include <QResizeEvent>
#include <QScrollBar>

FittingScrollArea::FittingScrollArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(content);
    content->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
}

QSize FittingScrollArea::sizeHint() const {
    QSize hint = widget()->sizeHint();
    if (const QLayout* layout = widget()->layout();
        layout && layout->hasHeightForWidth() && testAttribute(Qt::WA_Resized))
        hint.setHeight(layout->heightForWidth(viewport()->width()));
    return hint + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

QSize FittingScrollArea::minimumSizeHint() const {
    const int width = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
    return {qMin(width, 40 * GridUnit), qMin(sizeHint().height(), 12 * GridUnit)};
}

// The height that fits depends on the width.
void FittingScrollArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    if (event->oldSize().width() != event->size().width())
        updateGeometry();
}

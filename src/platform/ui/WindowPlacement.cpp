#include "platform/ui/WindowPlacement.h"

#include <QScreen>

QRect CentredWithin(const QRect& available, const QSize& size) {
    const QSize fitting = size.boundedTo(available.size());
    const QPoint corner((available.width() - fitting.width()) / 2, (available.height() - fitting.height()) / 2);
    return {available.topLeft() + corner, fitting};
}

void CentreOnScreen(QWidget& window) {
    const QRect place = CentredWithin(window.screen()->availableGeometry(), window.size());
    window.resize(place.size());
    window.move(place.topLeft());
}

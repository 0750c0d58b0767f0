#include "platform/ui/WindowPlacement.h"

#include <QScreen>
#include <QStyle>

QRect CentredWithin(const QRect& available, const QSize& size) {
    const QSize fitting = size.boundedTo(available.size());
    const QPoint corner((available.width() - fitting.width()) / 2, (available.height() - fitting.height()) / 2);
    return {available.topLeft() + corner, fitting};
}

void CentreOnScreen(QWidget& window) {
    const QRect available = window.screen()->availableGeometry();
    const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    const QSize room = available.size() - QSize(0, titleBar);
    QRect place = CentredWithin(available, window.size().boundedTo(room));
    place.moveTop(qMin(place.top(), available.top() + room.height() - place.height()));
    window.resize(place.size());
    window.move(place.topLeft());
}

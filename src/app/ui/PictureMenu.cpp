#include "app/ui/PictureMenu.h"

#include "platform/ui/Typography.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int RegionCount = 3;
constexpr int RegionWidth = PictureMenu::TileWidth + PictureMenu::Gap;
constexpr int PictureHeight = 7 * GridUnit;
// The pictures are drawn on a field of this side.
constexpr double Field = 32;

void DrawPencil(QPainter& painter) {
    painter.drawRoundedRect(QRectF(4, 2, 20, 28), 2, 2);
    painter.drawLine(QPointF(8, 9), QPointF(17, 9));
    painter.drawLine(QPointF(8, 15), QPointF(14, 15));
    QPainterPath pencil(QPointF(13, 26));
    pencil.lineTo(14.5, 20.5);
    pencil.lineTo(26, 9);
    pencil.lineTo(30, 13);
    pencil.lineTo(18.5, 24.5);
    pencil.closeSubpath();
    painter.drawPath(pencil);
}

void DrawFolder(QPainter& painter) {
    QPainterPath folder(QPointF(3, 27));
    folder.lineTo(3, 6);
    folder.lineTo(12, 6);
    folder.lineTo(15, 10);
    folder.lineTo(29, 10);
    folder.lineTo(29, 27);
    folder.closeSubpath();
    painter.drawPath(folder);
    painter.drawLine(QPointF(3, 15), QPointF(29, 15));
}

void DrawSliders(QPainter& painter) {
    const double knobs[] = {21, 10, 18};
    for (int i = 0; i < 3; ++i) {
        const double y = 7 + 9 * i;
        painter.drawLine(QPointF(3, y), QPointF(29, y));
        painter.drawEllipse(QPointF(knobs[i], y), 3.2, 3.2);
    }
}

} // namespace

PictureMenu::PictureMenu(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(QStringLiteral("Picture menu: Editor, Browse, Options"));
}

QSize PictureMenu::sizeHint() const { return {RegionCount * RegionWidth, PictureHeight}; }

std::optional<PictureMenu::Region> PictureMenu::RegionAt(const QPointF& point) const {
    for (const Region region : {Region::Editor, Region::Browse, Region::Options})
        if (RectOf(region).contains(point))
            return region;
    return std::nullopt;
}

QRectF PictureMenu::RectOf(Region region) const {
    return {static_cast<double>(region) * RegionWidth, 0, RegionWidth, PictureHeight};
}

QRectF PictureMenu::TileOf(Region region) const { return RectOf(region).adjusted(0, 0, -Gap, 0); }

void PictureMenu::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Region region : {Region::Editor, Region::Browse, Region::Options}) {
        const QRectF place = TileOf(region);
        QColor tile = palette().color(QPalette::Base);
        tile.setAlphaF(hovered_ == region ? 0.95F : 0.6F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tile);
        painter.drawRoundedRect(place, GridUnit, GridUnit);

        painter.save();
        painter.translate(place.center() - QPointF(Field / 2, Field / 2));
        painter.setPen(QPen(palette().color(QPalette::Text), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(palette().color(QPalette::Base));
        if (region == Region::Editor)
            DrawPencil(painter);
        else if (region == Region::Browse)
            DrawFolder(painter);
        else
            DrawSliders(painter);
        painter.restore();
    }
}

void PictureMenu::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton ? RegionAt(event->position()) : std::nullopt;
}

void PictureMenu::mouseReleaseEvent(QMouseEvent* event) {
    const std::optional<Region> released = RegionAt(event->position());
    const bool clicked = event->button() == Qt::LeftButton && released && released == pressed_;
    pressed_.reset();
    if (clicked)
        Q_EMIT Picture1_Click(*released);
}

void PictureMenu::mouseMoveEvent(QMouseEvent* event) { SetHovered(RegionAt(event->position())); }

void PictureMenu::leaveEvent(QEvent*) { SetHovered(std::nullopt); }

void PictureMenu::SetHovered(std::optional<Region> region) {
    if (hovered_ == region)
        return;
    hovered_ = region;
    setCursor(region ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

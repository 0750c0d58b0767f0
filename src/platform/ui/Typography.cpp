#include "platform/ui/Typography.h"

#include <QGuiApplication>

#include <cmath>

QFont ScaledFont(double factor) {
    QFont font = QGuiApplication::font();
    // A font is given either in points (half ones at the smallest) or in pixels; the other size is -1.
    if (font.pointSizeF() > 0)
        font.setPointSizeF(std::round(font.pointSizeF() * factor * 2) / 2);
    else
        font.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * factor)));
    return font;
}

QFont BodyFont() { return ScaledFont(1.15); }

QFont HeadingFont() {
    QFont font = ScaledFont(1.3);
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont TitleFont() {
    QFont font = ScaledFont(1.7);
    font.setWeight(QFont::DemiBold);
    return font;
}

void SetRoom(QLayout& layout, int marginUnits, int gapUnits) {
    const int margin = marginUnits * GridUnit;
    layout.setContentsMargins(margin, margin, margin, margin);
    layout.setSpacing(gapUnits * GridUnit);
}

#include "platform/ui/GradientBackground.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double ReadableContrast = 4.5;
constexpr double StrongestTint = 0.28;
constexpr double TintStep = 0.04;

QColor Mixed(const QColor& one, const QColor& other, double share) {
    const auto mix = [share](float from, float to) { return static_cast<float>(from * (1 - share) + to * share); };
    return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                            mix(one.blueF(), other.blueF()));
}

double Luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

double ContrastRatio(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

GradientColours GradientColoursOf(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    for (double tint = StrongestTint; tint > TintStep / 2; tint -= TintStep) {
        const QColor top = Mixed(window, palette.color(QPalette::Highlight), tint);
        if (ContrastRatio(top, text) >= ReadableContrast)
            return {top, window};
    }
    return {window, window};
}

void PaintGradient(const QWidget& widget, QPainter& painter) {
    const GradientColours colours = GradientColoursOf(widget.palette());
    QLinearGradient gradient(0, 0, 0, widget.height());
    gradient.setColorAt(0, colours.Top);
    gradient.setColorAt(1, colours.Bottom);
    painter.fillRect(widget.rect(), gradient);
}

void GradientBackground::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintGradient(*this, painter);
}

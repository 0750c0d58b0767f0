#include "platform/ui/LinkButton.h"

#include "platform/ui/GradientBackground.h"
#include "platform/ui/Typography.h"

#include <QPainter>
#include <QStyleOptionButton>

#include <algorithm>

namespace {

constexpr double ReadableContrast = 4.5;

} // namespace

QColor ReadableLink(const QPalette& palette, const QList<QColor>& backgrounds, const QColor& otherwise) {
    const QColor link = palette.color(QPalette::Link);
    const bool readable = std::ranges::all_of(
        backgrounds, [&link](const QColor& background) { return ContrastRatio(link, background) >= ReadableContrast; });
    return readable ? link : otherwise;
}

LinkButton::LinkButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setFont(BodyFont());
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    QString name = text;
    setAccessibleName(name.replace(QStringLiteral("&&"), QStringLiteral("&")));
}

QSize LinkButton::sizeHint() const {
    const QSize text = fontMetrics().size(Qt::TextShowMnemonic, this->text());
    return text + QSize(2 * GridUnit, 2 * GridUnit);
}

void LinkButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const GradientColours back = GradientColoursOf(palette());
    const QColor colour = isEnabled()
                              ? ReadableLink(palette(), {back.Top, back.Bottom}, palette().color(QPalette::WindowText))
                              : palette().color(QPalette::Disabled, QPalette::WindowText);
    if (hasFocus()) {
        painter.setPen(QPen(colour, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
    }
    QFont lined = font();
    lined.setUnderline(isEnabled() && (underMouse() || !hasFocus()));
    painter.setFont(lined);
    painter.setPen(isDown() ? palette().color(QPalette::WindowText) : colour);
    painter.drawText(rect(), static_cast<int>(Qt::AlignCenter) | Qt::TextShowMnemonic, text());
}

#include "app/ui/AboutBox.h"

#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QTimerEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr int TimerInterval = 40; // milliseconds
constexpr int Scales = 3;
constexpr int Marks = 5;
constexpr double LargestMarkRadius = 9;

/// Where the answer of a scale is at a moment: 0 at the first mark to 1 at the last. Each scale has its own pace, and
/// the answer rests at the ends for a while.
double AnswerPosition(int scale, double moment) {
    const double pace = 0.11 + 0.035 * scale;
    const double wave = std::sin(2 * std::numbers::pi * (pace * moment + 0.29 * scale));
    return 0.5 + 0.5 * std::sin(wave * std::numbers::pi / 2);
}

QColor Mixed(const QColor& one, const QColor& other, double share) {
    return QColor::fromRgbF(static_cast<float>(one.redF() + (other.redF() - one.redF()) * share),
                            static_cast<float>(one.greenF() + (other.greenF() - one.greenF()) * share),
                            static_cast<float>(one.blueF() + (other.blueF() - one.blueF()) * share));
}

QLabel* MakeLine(const QString& text) {
    auto* label = new QLabel(text);
    label->setAlignment(Qt::AlignHCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

AboutPicture::AboutPicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("AboutPicture"));
    setAccessibleName(QStringLiteral("A sheet with three rating scales"));
    setMinimumSize(320, 64);
}

void AboutPicture::Advance(double seconds) {
    moment_ += seconds;
    update();
}

void AboutPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor window = palette().color(QPalette::Window);
    const QColor highlight = palette().color(QPalette::Highlight);
    QLinearGradient sky(rect().topLeft(), rect().bottomLeft());
    sky.setColorAt(0, Mixed(window, highlight, 0.28));
    sky.setColorAt(1, Mixed(window, highlight, 0.06));
    painter.fillRect(rect(), sky);

    const QRectF sheet = QRectF(rect()).adjusted(40, std::min(24, height() / 8), -40, 0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 36));
    painter.drawRoundedRect(sheet.translated(0, 3), 8, 8);
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(sheet.adjusted(0, 0, 0, 16), 8, 8);

    const double step = sheet.height() / Scales;
    for (int scale = 0; scale < Scales; ++scale)
        PaintScale(painter, {sheet.left() + 32, sheet.top() + step * (scale + 0.5), sheet.width() - 64, 0}, scale);
}

void AboutPicture::PaintScale(QPainter& painter, const QRectF& line, int scale) const {
    const QColor base = palette().color(QPalette::Base);
    const QColor ink = Mixed(base, palette().color(QPalette::Text), 0.35);
    const double first = line.left() + line.width() * 0.35;
    const double step = (line.right() - first) / (Marks - 1);
    const double radius = std::min(LargestMarkRadius, height() / 16.0);

    painter.setPen(QPen(Mixed(base, ink, 0.6), 6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(line.left(), line.top()),
                     QPointF(line.left() + line.width() * (0.22 - 0.04 * scale), line.top()));

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 1.5));
    for (int mark = 0; mark < Marks; ++mark)
        painter.drawEllipse(QPointF(first + mark * step, line.top()), radius, radius);

    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawEllipse(QPointF(first + AnswerPosition(scale, moment_) * (Marks - 1) * step, line.top()),
                        radius * 2 / 3, radius * 2 / 3);
}

AboutBox::AboutBox(QWidget* parent) : QDialog(parent), picture_(new AboutPicture) {
    setObjectName(QStringLiteral("AboutBox"));
    setWindowTitle(QStringLiteral("About Vellumo"));

    auto* name = MakeLine(QStringLiteral("Vellumo"));
    name->setFont(TitleFont());
    auto* version = MakeLine(QStringLiteral("Version ") + QLatin1String(VELLUMO_VERSION));
    version->setObjectName(QStringLiteral("AboutVersion"));
    auto* purpose =
        MakeLine(QStringLiteral("Writes questionnaires, gives them at the keyboard, scores them and reports "
                                "the results."));
    auto* licence = MakeLine(QStringLiteral("Free software under the MIT licence."));
    licence->setObjectName(QStringLiteral("AboutLicence"));

    auto* buttons = new QDialogButtonBox;
    auto* ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("AboutOk"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* texts = new QVBoxLayout;
    texts->setContentsMargins(32, 24, 32, 24);
    texts->setSpacing(8);
    for (QLabel* line : {name, version, purpose, licence})
        texts->addWidget(line);
    texts->addSpacing(8);
    texts->addWidget(buttons);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(picture_, 1);
    column->addLayout(texts);
    const int width = picture_->sizeHint().width();
    resize(width, column->heightForWidth(width));
    CentreOnScreen(*this);
}

void AboutBox::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0)
        timer_.start(TimerInterval, this);
}

void AboutBox::hideEvent(QHideEvent* event) {
    timer_.stop();
    QDialog::hideEvent(event);
}

void AboutBox::timerEvent(QTimerEvent* event) {
    if (event->timerId() == timer_.timerId())
        picture_->Advance(TimerInterval / 1000.0);
    else
        QDialog::timerEvent(event);
}

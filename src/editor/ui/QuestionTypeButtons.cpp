#include "editor/ui/QuestionTypeButtons.h"

#include "platform/ui/Choosing.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"
#include "testdoc/TestDocument.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

void SegmentButton::paintEvent(QPaintEvent*) {
    const QPalette& colours = palette();
    const QColor text = colours.color(isChecked() ? QPalette::HighlightedText : QPalette::ButtonText);
    QColor line = colours.color(QPalette::WindowText);
    line.setAlphaF(0.35F);

    QPainter painter(this);
    // One line between two of them: the left one's.
    const qreal left = pos().x() > 0 ? -0.5 : 0.5;
    const QRectF area = QRectF(rect()).adjusted(left, 0.5, -0.5, -0.5);
    painter.fillRect(area, colours.color(isChecked() ? QPalette::Highlight : QPalette::Button));
    painter.setPen(line);
    painter.drawRect(area);
    painter.setPen(text);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, this->text());
    if (hasFocus()) {
        painter.setPen(QPen(text, 1, Qt::DotLine));
        painter.drawRect(area.adjusted(3, 3, -3, -3));
    }
}

QuestionTypeButtons::QuestionTypeButtons() {
    static const std::array<QString, 4> captions{QStringLiteral("Template"), QStringLiteral("Multichoice"),
                                                 QStringLiteral("Short Answer"), QStringLiteral("Long Answer")};
    setAccessibleName(QStringLiteral("Type of the question"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (size_t i = 0; i < ChkQType_.size(); ++i) {
        auto* button = Named(new SegmentButton(captions[i]), QStringLiteral("ChkQType_%1").arg(i));
        button->setCheckable(true);
        button->setAutoExclusive(true);
        button->setAccessibleName(QStringLiteral("Question type ") + captions[i]);
        button->setMinimumHeight(4 * GridUnit);
        button->installEventFilter(this);
        // Assistive technologies check a button without clicking it.
        connect(button, &QPushButton::toggled, this, [this, i](bool chosen) {
            if (chosen)
                Choose(static_cast<int>(i));
        });
        row->addWidget(button, 1);
        ChkQType_[i] = button;
    }
}

void QuestionTypeButtons::Show(int type) {
    for (SegmentButton* button : ChkQType_)
        button->setAutoExclusive(false);
    for (size_t i = 0; i < ChkQType_.size(); ++i)
        ShowTicked(*ChkQType_[i], static_cast<int>(i) == type);
    for (SegmentButton* button : ChkQType_)
        button->setAutoExclusive(true);
    KeepReachable();
}

void QuestionTypeButtons::SetTemplateEnabled(bool enabled) {
    ChkQType_[TypeUnset]->setEnabled(enabled);
    KeepReachable();
}

void QuestionTypeButtons::Choose(int type) {
    KeepReachable();
    Q_EMIT ChkQType_Click(type);
}

bool QuestionTypeButtons::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<const QKeyEvent*>(event)->key();
    const int step = key == Qt::Key_Right || key == Qt::Key_Down ? 1
                     : key == Qt::Key_Left || key == Qt::Key_Up  ? -1
                                                                 : 0;
    if (step == 0)
        return QWidget::eventFilter(watched, event);
    Step(static_cast<int>(std::find(ChkQType_.begin(), ChkQType_.end(), watched) - ChkQType_.begin()), step);
    return true;
}

void QuestionTypeButtons::Step(int from, int step) {
    const int count = static_cast<int>(ChkQType_.size());
    int to = from;
    do
        to = (to + step + count) % count;
    while (to != from && !ChkQType_[static_cast<size_t>(to)]->isEnabled());
    SegmentButton* button = ChkQType_[static_cast<size_t>(to)];
    button->setFocus(Qt::TabFocusReason);
    button->click();
}

// Tab goes to the chosen one, as with all exclusive buttons; to the others when that one can't be reached.
void QuestionTypeButtons::KeepReachable() {
    const bool reachable = std::any_of(ChkQType_.begin(), ChkQType_.end(),
                                       [](const SegmentButton* one) { return one->isChecked() && one->isEnabled(); });
    for (SegmentButton* button : ChkQType_)
        button->setFocusPolicy(!reachable || button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

#include "taker/ui/AnswerButton.h"

#include "platform/ui/Typography.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int TextFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextWrapAnywhere;
constexpr int Padding = GridUnit;
constexpr int LeastTextWidth = 20 * GridUnit;

} // namespace

AnswerButton::AnswerButton(int number, QWidget* parent)
    : QPushButton(parent), key_(QString::number(number % 10)) {
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setAccessibleDescription(QStringLiteral("Answer ") + QString::number(number));
}

void AnswerButton::SetAnswer(const QString& answer) {
    if (answer == text())
        return;
    setText(answer);
    setShortcut(QKeySequence());
    setAccessibleName(answer);
    updateGeometry();
}

void AnswerButton::SetChosen(bool chosen) {
    if (chosen == font().bold())
        return;
    QFont changed = font();
    changed.setBold(chosen);
    setFont(changed);
    updateGeometry();
}

int AnswerButton::KeyWidth() const { return fontMetrics().horizontalAdvance(QStringLiteral("00")) + Padding; }

QRect AnswerButton::TextRect(const QRect& whole) const {
    return whole.adjusted(Padding + KeyWidth(), Padding / 2, -Padding, -Padding / 2);
}

QSize AnswerButton::sizeHint() const {
    const int width = 2 * LeastTextWidth;
    return {width, heightForWidth(width)};
}

QSize AnswerButton::minimumSizeHint() const { return {LeastTextWidth, minimumHeight()}; }

int AnswerButton::heightForWidth(int width) const {
    const QRect room = TextRect({0, 0, qMax(width, LeastTextWidth), 0});
    const QRect needed = fontMetrics().boundingRect({0, 0, room.width(), 0}, TextFlags, text());
    return qMax(minimumHeight(), needed.height() + 2 * Padding);
}

void AnswerButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);

    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    const QRect key(Padding, 0, KeyWidth(), height());
    painter.drawText(key, Qt::AlignLeft | Qt::AlignVCenter, key_);
    painter.drawText(TextRect(rect()), TextFlags, text());
}

void AnswerButton::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

void AnswerButton::focusInEvent(QFocusEvent* event) {
    takesReturn_ = event->reason() != Qt::OtherFocusReason;
    QPushButton::focusInEvent(event);
}

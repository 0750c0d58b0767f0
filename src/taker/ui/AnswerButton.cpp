#include "taker/ui/AnswerButton.h"

#include "base/LineBreak.h"
#include "platform/ui/Typography.h"

#include <QAccessibleWidget>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTextLayout>

#include <cmath>

namespace {

constexpr int Padding = GridUnit;
constexpr int LeastTextWidth = 20 * GridUnit;

/// Breaks the text into lines between words, and within a word only where it is wider than the line.
void LayOut(QTextLayout& layout, int width) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    qreal top = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, top});
        top += line.height();
    }
    layout.endLayout();
}

class AnswerAccess : public QAccessibleWidget {
  public:
    explicit AnswerAccess(AnswerButton* button) : QAccessibleWidget(button, QAccessible::RadioButton) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = static_cast<const AnswerButton*>(widget())->Chosen();
        return state;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == setFocusAction())
            return QAccessibleWidget::doAction(name);
        // Later: what the answer leads to may open a window and would keep the caller waiting.
        if (widget()->isEnabled() && (name == pressAction() || name == toggleAction()))
            QMetaObject::invokeMethod(widget(), "click", Qt::QueuedConnection);
    }
};

QAccessibleInterface* MakeAccess(const QString& className, QObject* object) {
    if (className != QLatin1String(AnswerButton::staticMetaObject.className()))
        return nullptr;
    return new AnswerAccess(static_cast<AnswerButton*>(object));
}

} // namespace

AnswerButton::AnswerButton(int number, QWidget* parent)
    : QPushButton(parent),
      place_(QStringLiteral("Answer ") + QString::number(number)),
      key_(QString::number(number % 10)) {
    static const bool accessMade = (QAccessible::installFactory(MakeAccess), true);
    Q_UNUSED(accessMade);
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setAccessibleDescription(place_);
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
    QAccessible::State state;
    state.checked = true;
    QAccessibleStateChangeEvent event(this, state);
    QAccessible::updateAccessibility(&event);
}

void AnswerButton::TakeFirstFocus(const QString& question) {
    // The button may have had the focus for the question before, and who listens has to hear of the next one.
    clearFocus();
    setAccessibleDescription(question + QStringLiteral(". ") + place_);
    setFocus();
    takesReturn_ = false;
}

QString AnswerButton::ShownText() const {
    QString shown = text();
    return shown.replace(LineBreak, QString(QChar::LineSeparator));
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
    QTextLayout layout(ShownText(), font());
    LayOut(layout, TextRect({0, 0, qMax(width, LeastTextWidth), 0}).width());
    return qMax(minimumHeight(), static_cast<int>(std::ceil(layout.boundingRect().height())) + 2 * Padding);
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
    const QRect room = TextRect(rect());
    QTextLayout layout(ShownText(), font());
    LayOut(layout, room.width());
    layout.draw(&painter, {double(room.left()), room.center().y() - layout.boundingRect().height() / 2});

    // Only for who works with the keys: to others a marked answer would look like a suggestion.
    if (option.state.testFlag(QStyle::State_HasFocus) && option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRoundedRect(rect().adjusted(2, 2, -2, -2), 2, 2);
    }
}

void AnswerButton::keyPressEvent(QKeyEvent* event) {
    // Nobody has gone to this answer yet, so the blank bar, like Return, doesn't choose it.
    if (event->key() == Qt::Key_Space && !takesReturn_)
        event->ignore();
    else
        QPushButton::keyPressEvent(event);
}

void AnswerButton::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

void AnswerButton::focusInEvent(QFocusEvent* event) {
    switch (event->reason()) {
    case Qt::MouseFocusReason:
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
        takesReturn_ = true;
        break;
    default:
        break;
    }
    QPushButton::focusInEvent(event);
}

void AnswerButton::focusOutEvent(QFocusEvent* event) {
    setAccessibleDescription(place_);
    QPushButton::focusOutEvent(event);
}

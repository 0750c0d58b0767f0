#include "taker/ui/StatusLine.h"

#include "platform/ui/Typography.h"

#include <QAccessible>

StatusLine::StatusLine() {
    setObjectName(QStringLiteral("LblStatus"));
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
    hide();
}

void StatusLine::Show(const QStringList& lines) {
    const QString text = lines.join(u'\n');
    if (text == this->text())
        return;
    setText(text);
    setVisible(!text.isEmpty());
    if (text.isEmpty())
        return;
    for (const QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::Alert}) {
        QAccessibleEvent event(this, kind);
        QAccessible::updateAccessibility(&event);
    }
}

// A long path must not make the window wider than its screen.
QSize StatusLine::minimumSizeHint() const { return {20 * GridUnit, QLabel::minimumSizeHint().height()}; }

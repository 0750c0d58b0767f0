#include "editor/ui/ButtonArray.h"

#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

ButtonArray::ButtonArray(QString name, std::function<void(int)> handler)
    : name_(std::move(name)), handler_(std::move(handler)) {}

QPushButton* ButtonArray::Make(int index, const QString& caption, const QString& accessibleName) {
    auto* button = Named(new QPushButton(caption), QStringLiteral("%1_%2").arg(name_).arg(index));
    button->setAccessibleName(accessibleName);
    // Return presses it as Space does.
    button->setAutoDefault(true);
    // The style's own least width would make a row of six too wide for a small window.
    button->setMinimumSize(button->fontMetrics().horizontalAdvance(caption) + 2 * GridUnit, 4 * GridUnit);
    QObject::connect(button, &QPushButton::clicked, button, [handler = handler_, index] { handler(index); });
    buttons_[index] = button;
    return button;
}

void ButtonArray::SetEnabled(bool enabled) {
    for (const auto& [index, button] : buttons_)
        button->setEnabled(enabled);
}

#include "platform/ui/QtPrompts.h"

#include "platform/ui/WindowInFront.h"

#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace {

QMessageBox::StandardButtons ButtonsOf(PromptButtons buttons) {
    switch (buttons) {
    case PromptButtons::Ok:
        return QMessageBox::Ok;
    case PromptButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case PromptButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(PromptIcon icon) {
    switch (icon) {
    case PromptIcon::None:
        return QMessageBox::NoIcon;
    case PromptIcon::Information:
        return QMessageBox::Information;
    case PromptIcon::Question:
        return QMessageBox::Question;
    case PromptIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton ButtonOf(PromptAnswer answer) {
    switch (answer) {
    case PromptAnswer::Ok:
        return QMessageBox::Ok;
    case PromptAnswer::Cancel:
        return QMessageBox::Cancel;
    case PromptAnswer::Yes:
        return QMessageBox::Yes;
    case PromptAnswer::No:
        return QMessageBox::No;
    }
    return QMessageBox::Ok;
}

PromptAnswer AnswerOf(int button, PromptButtons buttons) {
    switch (button) {
    case QMessageBox::Yes:
        return PromptAnswer::Yes;
    case QMessageBox::No:
        return PromptAnswer::No;
    case QMessageBox::Ok:
        return PromptAnswer::Ok;
    default:
        return buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::Cancel;
    }
}

QMessageBox::ButtonRole RoleOf(ChoiceRole role) {
    switch (role) {
    case ChoiceRole::Accept:
        return QMessageBox::AcceptRole;
    case ChoiceRole::Discard:
        return QMessageBox::DestructiveRole;
    case ChoiceRole::Reject:
        return QMessageBox::RejectRole;
    }
    return QMessageBox::RejectRole;
}

void Fill(QMessageBox& box, const QString& title, const QString& text, PromptIcon icon) {
    box.setWindowTitle(title.isEmpty() ? QStringLiteral("Vellumo") : title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setIcon(IconOf(icon));
    box.setWindowModality(Qt::ApplicationModal);
}

} // namespace

PromptAnswer QtPrompts::Ask(const Prompt& prompt) {
    QMessageBox box(WindowInFront());
    Fill(box, prompt.Title, prompt.Text, prompt.Icon);
    box.setStandardButtons(ButtonsOf(prompt.Buttons));
    if (prompt.Buttons != PromptButtons::Ok)
        box.setEscapeButton(QMessageBox::Cancel);
    box.setDefaultButton(prompt.Buttons == PromptButtons::YesNoCancel ? ButtonOf(prompt.Default) : QMessageBox::Ok);
    return AnswerOf(box.exec(), prompt.Buttons);
}

int QtPrompts::Choose(const ChoicePrompt& prompt) {
    QMessageBox box(WindowInFront());
    Fill(box, prompt.Title, prompt.Text, prompt.Icon);
    std::vector<QPushButton*> buttons;
    for (const PromptChoice& choice : prompt.Choices)
        buttons.push_back(box.addButton(choice.Caption, RoleOf(choice.Role)));
    box.setDefaultButton(buttons.at(static_cast<std::size_t>(prompt.Default)));
    box.setEscapeButton(buttons.at(static_cast<std::size_t>(prompt.Escape)));
    box.exec();
    const auto clicked = std::ranges::find(buttons, box.clickedButton());
    return clicked == buttons.end() ? prompt.Escape : static_cast<int>(clicked - buttons.begin());
}

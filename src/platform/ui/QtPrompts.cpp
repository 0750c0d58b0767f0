#include "platform/ui/QtPrompts.h"

#include "platform/ui/WindowInFront.h"

#include <QMessageBox>

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

} // namespace

PromptAnswer QtPrompts::Ask(const Prompt& prompt) {
    QMessageBox box(WindowInFront());
    box.setWindowTitle(prompt.Title.isEmpty() ? QStringLiteral("Vellumo") : prompt.Title);
    box.setTextFormat(Qt::PlainText);
    box.setText(prompt.Text);
    box.setIcon(IconOf(prompt.Icon));
    box.setStandardButtons(ButtonsOf(prompt.Buttons));
    if (prompt.Buttons != PromptButtons::Ok)
        box.setEscapeButton(QMessageBox::Cancel);
    box.setDefaultButton(prompt.Buttons == PromptButtons::YesNoCancel ? ButtonOf(prompt.Default) : QMessageBox::Ok);
    box.setWindowModality(Qt::ApplicationModal);
    return AnswerOf(box.exec(), prompt.Buttons);
}

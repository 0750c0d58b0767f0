#include "support/ScriptedPrompts.h"

namespace {

PromptAnswer AnswerOfClosing(PromptButtons buttons) {
    return buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::Cancel;
}

bool CanBeAnswered(PromptButtons buttons, PromptAnswer answer) {
    switch (buttons) {
    case PromptButtons::Ok:
        return answer == PromptAnswer::Ok;
    case PromptButtons::OkCancel:
        return answer == PromptAnswer::Ok || answer == PromptAnswer::Cancel;
    case PromptButtons::YesNoCancel:
        return answer != PromptAnswer::Ok;
    }
    return false;
}

} // namespace

ExpectedPrompt& ExpectedPrompt::Titled(const QString& title) {
    title_ = title;
    return *this;
}

ExpectedPrompt& ExpectedPrompt::WithButtons(PromptButtons buttons) {
    buttons_ = buttons;
    return *this;
}

ExpectedPrompt& ExpectedPrompt::WithIcon(PromptIcon icon) {
    icon_ = icon;
    return *this;
}

ExpectedPrompt& ExpectedPrompt::InPart() {
    inPart_ = true;
    return *this;
}

ExpectedPrompt& ExpectedPrompt::Meanwhile(std::function<void()> action) {
    meanwhile_ = std::move(action);
    return *this;
}

QString ExpectedPrompt::DifferenceFrom(const Prompt& prompt) const {
    const bool sameText = inPart_ ? prompt.Text.contains(text_) : prompt.Text == text_;
    if (!sameText)
        return QStringLiteral("A box with another text came: \"%1\" instead of \"%2\"").arg(prompt.Text, text_);
    if (title_ && *title_ != prompt.Title)
        return QStringLiteral("The box \"%1\" has the title \"%2\" instead of \"%3\"")
            .arg(prompt.Text, prompt.Title, *title_);
    if (buttons_ && *buttons_ != prompt.Buttons)
        return QStringLiteral("The box \"%1\" has other buttons than expected").arg(prompt.Text);
    if (icon_ && *icon_ != prompt.Icon)
        return QStringLiteral("The box \"%1\" has another icon than expected").arg(prompt.Text);
    if (!CanBeAnswered(prompt.Buttons, answer_))
        return QStringLiteral("The box \"%1\" has no button for the scripted answer").arg(prompt.Text);
    return {};
}

ScriptedPrompts::~ScriptedPrompts() { Verify(); }

ExpectedPrompt& ScriptedPrompts::Expect(const QString& text, PromptAnswer answer, std::source_location where) {
    return script_.emplace_back(text, answer, where);
}

PromptAnswer ScriptedPrompts::Ask(const Prompt& prompt) {
    shown_.append(prompt.Text);
    if (script_.empty()) {
        fail_(QStringLiteral("An unexpected box came: \"%1\"").arg(prompt.Text), std::source_location::current());
        return AnswerOfClosing(prompt.Buttons);
    }
    const ExpectedPrompt expected = std::move(script_.front());
    script_.pop_front();
    if (const QString difference = expected.DifferenceFrom(prompt); !difference.isEmpty()) {
        fail_(difference, expected.where_);
        return AnswerOfClosing(prompt.Buttons);
    }
    if (expected.meanwhile_)
        expected.meanwhile_();
    return expected.answer_;
}

void ScriptedPrompts::Verify() {
    for (const ExpectedPrompt& expected : script_)
        fail_(QStringLiteral("An expected box never came: \"%1\"").arg(expected.text_), expected.where_);
    script_.clear();
}

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

/// The index of the button with this caption, or -1.
int IndexOf(const QString& caption, const ChoicePrompt& prompt) {
    for (std::size_t i = 0; i < prompt.Choices.size(); ++i)
        if (QString(prompt.Choices[i].Caption).remove(QLatin1Char('&')) == caption)
            return static_cast<int>(i);
    return -1;
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

QString ExpectedPrompt::DifferenceFrom(const QString& text, const QString& title, PromptIcon icon) const {
    const bool sameText = inPart_ ? text.contains(text_) : text == text_;
    if (!sameText)
        return QStringLiteral("A box with another text came: \"%1\" instead of \"%2\"").arg(text, text_);
    if (title_ && *title_ != title)
        return QStringLiteral("The box \"%1\" has the title \"%2\" instead of \"%3\"").arg(text, title, *title_);
    if (icon_ && *icon_ != icon)
        return QStringLiteral("The box \"%1\" has another icon than expected").arg(text);
    return {};
}

QString ExpectedPrompt::DifferenceFrom(const Prompt& prompt) const {
    if (const QString difference = DifferenceFrom(prompt.Text, prompt.Title, prompt.Icon); !difference.isEmpty())
        return difference;
    if (buttons_ && *buttons_ != prompt.Buttons)
        return QStringLiteral("The box \"%1\" has other buttons than expected").arg(prompt.Text);
    if (caption_ || !CanBeAnswered(prompt.Buttons, answer_))
        return QStringLiteral("The box \"%1\" has no button for the scripted answer").arg(prompt.Text);
    return {};
}

QString ExpectedPrompt::DifferenceFrom(const ChoicePrompt& prompt) const {
    if (const QString difference = DifferenceFrom(prompt.Text, prompt.Title, prompt.Icon); !difference.isEmpty())
        return difference;
    if (buttons_ || !caption_ || IndexOf(*caption_, prompt) < 0)
        return QStringLiteral("The box \"%1\" has no button for the scripted answer").arg(prompt.Text);
    return {};
}

ScriptedPrompts::~ScriptedPrompts() { Verify(); }

ExpectedPrompt& ScriptedPrompts::Expect(const QString& text, PromptAnswer answer, std::source_location where) {
    return script_.emplace_back(text, answer, where);
}

ExpectedPrompt& ScriptedPrompts::ExpectChoice(const QString& text, const QString& caption,
                                              std::source_location where) {
    return script_.emplace_back(text, caption, where);
}

template <class Box> std::optional<ExpectedPrompt> ScriptedPrompts::Next(const Box& prompt) {
    shown_.append(prompt.Text);
    if (script_.empty()) {
        fail_(QStringLiteral("An unexpected box came: \"%1\"").arg(prompt.Text), std::source_location::current());
        return std::nullopt;
    }
    const ExpectedPrompt expected = std::move(script_.front());
    script_.pop_front();
    if (const QString difference = expected.DifferenceFrom(prompt); !difference.isEmpty()) {
        fail_(difference, expected.where_);
        return std::nullopt;
    }
    if (expected.meanwhile_)
        expected.meanwhile_();
    return expected;
}

PromptAnswer ScriptedPrompts::Ask(const Prompt& prompt) {
    const auto expected = Next(prompt);
    return expected ? expected->answer_ : AnswerOfClosing(prompt.Buttons);
}

int ScriptedPrompts::Choose(const ChoicePrompt& prompt) {
    const auto expected = Next(prompt);
    return expected ? IndexOf(*expected->caption_, prompt) : prompt.Escape;
}

void ScriptedPrompts::Verify() {
    for (const ExpectedPrompt& expected : script_)
        fail_(QStringLiteral("An expected box never came: \"%1\"").arg(expected.text_), expected.where_);
    script_.clear();
}

#pragma once

#include "platform/Prompts.h"
#include "support/FailTest.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <optional>

/// One box that a test expects, and the answer to it.
class ExpectedPrompt {
  public:
    ExpectedPrompt(QString text, PromptAnswer answer, std::source_location where)
        : text_(std::move(text)), answer_(answer), where_(where) {}
    ExpectedPrompt(QString text, QString caption, std::source_location where)
        : text_(std::move(text)), caption_(std::move(caption)), where_(where) {}

    ExpectedPrompt& Titled(const QString& title);
    ExpectedPrompt& WithButtons(PromptButtons buttons);
    ExpectedPrompt& WithIcon(PromptIcon icon);
    /// The expected text is only a piece of the one shown.
    ExpectedPrompt& InPart();
    /// Runs while the box is up, before the answer.
    ExpectedPrompt& Meanwhile(std::function<void()> action);

  private:
    friend class ScriptedPrompts;
    /// What differs, or the empty text.
    QString DifferenceFrom(const QString& text, const QString& title, PromptIcon icon) const;
    QString DifferenceFrom(const Prompt& prompt) const;
    QString DifferenceFrom(const ChoicePrompt& prompt) const;

    QString text_;
    PromptAnswer answer_ = PromptAnswer::Ok;
    /// The caption of the button to press, without its `&`, in a box that has its own captions.
    std::optional<QString> caption_;
    std::source_location where_;
    bool inPart_ = false;
    std::optional<QString> title_;
    std::optional<PromptButtons> buttons_;
    std::optional<PromptIcon> icon_;
    std::function<void()> meanwhile_;
};

/// Answers message boxes from an ordered script. A box that the script doesn't hold next fails the test and is
/// answered as if it had been closed; so does, at the end, one that never came.
class ScriptedPrompts : public Prompts {
  public:
    explicit ScriptedPrompts(FailureReport fail = FailRunningTest()) : fail_(std::move(fail)) {}
    ~ScriptedPrompts() override;
    ScriptedPrompts(const ScriptedPrompts&) = delete;
    ScriptedPrompts& operator=(const ScriptedPrompts&) = delete;

    ExpectedPrompt& Expect(const QString& text, PromptAnswer answer = PromptAnswer::Ok,
                           std::source_location where = std::source_location::current());

    /// A box with captions of its own; `caption` is that of the button to press, without its `&`.
    ExpectedPrompt& ExpectChoice(const QString& text, const QString& caption,
                                 std::source_location where = std::source_location::current());

    PromptAnswer Ask(const Prompt& prompt) override;
    int Choose(const ChoicePrompt& prompt) override;

    /// Fails the test for each box that was expected and hasn't come, and drops them.
    void Verify();
    /// The texts of all boxes so far.
    const QStringList& Shown() const { return shown_; }

  private:
    /// The box that comes next, after a look at whether it is the shown one; nothing when it isn't.
    template <class Box> std::optional<ExpectedPrompt> Next(const Box& prompt);

    FailureReport fail_;
    std::deque<ExpectedPrompt> script_;
    QStringList shown_;
};

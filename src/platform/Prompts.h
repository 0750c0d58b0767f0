#pragma once

#include <QString>

#include <vector>

enum class PromptButtons { Ok, OkCancel, YesNoCancel };
enum class PromptAnswer { Ok, Cancel, Yes, No };
enum class PromptIcon { None, Information, Question, Critical };

struct Prompt {
    QString Text;
    /// The title of the box; empty for the application's own.
    QString Title;
    PromptButtons Buttons = PromptButtons::Ok;
    PromptIcon Icon = PromptIcon::None;
    /// What Enter answers in a box with Yes, No and Cancel.
    PromptAnswer Default = PromptAnswer::Yes;
};

/// What a button does; it decides the button's place, which differs from system to system.
enum class ChoiceRole { Accept, Discard, Reject };

struct PromptChoice {
    /// With `&` before the mnemonic's letter.
    QString Caption;
    ChoiceRole Role = ChoiceRole::Accept;
};

/// A box whose buttons have captions of their own.
struct ChoicePrompt {
    QString Text;
    std::vector<PromptChoice> Choices;
    /// The index of the button that Enter presses.
    int Default = 0;
    /// The index of the button that stands for closing the box.
    int Escape = 0;
    /// The title of the box; empty for the application's own.
    QString Title = {};
    PromptIcon Icon = PromptIcon::Question;
};

/// Message boxes.
class Prompts {
  public:
    virtual ~Prompts() = default;

    /// Shows a box and waits for the answer. Closing the box is Cancel, or Ok where that is the only button.
    virtual PromptAnswer Ask(const Prompt& prompt) = 0;
    /// Shows a box and waits; returns the index of the chosen button. Closing the box chooses `Escape`.
    virtual int Choose(const ChoicePrompt& prompt) = 0;

    void Inform(const QString& text) { Ask({text, {}, PromptButtons::Ok, PromptIcon::None}); }
};

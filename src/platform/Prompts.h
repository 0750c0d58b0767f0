#pragma once

#include <QString>

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

/// Message boxes.
class Prompts {
  public:
    virtual ~Prompts() = default;

    /// Shows a box and waits for the answer. Closing the box is Cancel, or Ok where that is the only button.
    virtual PromptAnswer Ask(const Prompt& prompt) = 0;

    void Inform(const QString& text) { Ask({text, {}, PromptButtons::Ok, PromptIcon::None}); }
};

#pragma once

#include "platform/Prompts.h"

/// Message boxes over the window in front. Texts are shown as they are, never as markup.
class QtPrompts : public Prompts {
  public:
    PromptAnswer Ask(const Prompt& prompt) override;
    int Choose(const ChoicePrompt& prompt) override;
};

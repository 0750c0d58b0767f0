#pragma once

#include "base/Failure.h"
#include "platform/Prompts.h"

/// Runs the action. What it throws is shown as a message.
template <typename Action> void RunGuarded(Prompts& prompts, const Action& action) {
    try {
        action();
    } catch (const Failure& failure) {
        prompts.Inform(failure.Message());
    } catch (const std::exception& failure) {
        prompts.Inform(QString::fromLocal8Bit(failure.what()));
    }
}

#pragma once

#include "platform/Navigator.h"
#include "platform/Prompts.h"
#include "taker/Session.h"

/// From a test file to its test window: load, ask for the names if the test wants them, begin.
class BeginFlow {
  public:
    BeginFlow(Session& session, Navigator& navigator, Prompts& prompts)
        : session_(session), navigator_(navigator), prompts_(prompts) {}

    /// Loads the file and begins its test. False when the test window stayed closed: the file couldn't be read or has
    /// no questions (a message says so), the names window was left with Cancel, or the program is ending.
    bool Begin(const QString& path);

    /// The same without the names window.
    bool BeginWithoutNames(const QString& path);

    /// Loads the whole test, alone. A file that can't be read is told in a message; one that can't be understood ends
    /// the program after its message. False when it isn't loaded.
    bool Load(const QString& path);

    /// Shows why a test file can't be understood, and ends the program.
    void EndOn(const Failure& failure);
    bool Ended() const { return ended_; }

  private:
    bool LoadTestWithQuestions(const QString& path);

    Session& session_;
    Navigator& navigator_;
    Prompts& prompts_;
    bool ended_ = false;
};

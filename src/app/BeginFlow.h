#pragma once

#include "platform/Navigator.h"
#include "platform/Prompts.h"
#include "taker/Session.h"
#include "taker/TrustedTests.h"

/// From a test file to its test window: load, ask whether the test may do more than file its results, ask for the names
/// if the test wants them, begin.
class BeginFlow {
  public:
    BeginFlow(Session& session, Navigator& navigator, Prompts& prompts, TrustedTests& trusted)
        : session_(session), navigator_(navigator), prompts_(prompts), trusted_(trusted) {}

    /// Loads the file and begins its test. False when the test window stayed closed: the file can't be used (a message
    /// says so), or the names window was left with Cancel.
    bool Begin(const QString& path);

    /// Loads the whole test, alone. A message tells why a file can't be read or understood. False when it isn't loaded.
    bool Load(const QString& path);

  private:
    bool LoadTestWithQuestions(const QString& path);
    void AskForTrust();

    Session& session_;
    Navigator& navigator_;
    Prompts& prompts_;
    TrustedTests& trusted_;
};

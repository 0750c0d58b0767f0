#pragma once

#include "platform/SettingsStore.h"

#include <QtGlobal>

/// How large the test window shows what a client reads, in percent of the usual size. Remembered from one run to the
/// next, for all tests.
class ReadingSize {
  public:
    /// Without a store nothing is remembered. A stored size that isn't one counts as the nearest, or as the usual one.
    explicit ReadingSize(SettingsStore* store);

    int Percent() const;
    /// One step larger (1) or smaller (-1), as far as there are steps.
    void Step(int direction);
    void Reset();

  private:
    void Take(qsizetype step);

    SettingsStore* store_;
    qsizetype step_;
};

#pragma once

#include "platform/SettingsStore.h"

#include <QtGlobal>

/// How large the test window shows what a client reads, in percent of the usual size. Remembered from one run to the
/// next, for all tests.
class ReadingSize {
  public:
    /// Without a store nothing is remembered. A stored size that isn't one counts as the nearest, or as the usual one.
    /// Sizes above largest, in percent, aren't offered, but for the usual one and smaller ones.
    ReadingSize(SettingsStore* store, int largest);

    /// The largest size with which the test window fits on a screen with that much room, in its own pixels.
    static int LargestOn(int width, int height);

    int Percent() const;
    /// One step larger (1) or smaller (-1), as far as there are steps.
    void Step(int direction);
    void Reset();

  private:
    void Take(qsizetype step);

    SettingsStore* store_;
    qsizetype lastStep_;
    qsizetype step_;
};

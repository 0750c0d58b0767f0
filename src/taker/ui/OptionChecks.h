#pragma once

#include "taker/ReportOptions.h"

#include <QCheckBox>
#include <QGroupBox>

/// The check boxes of a test's options, ChkReportOptions(i) by the option's number: ticked as the option is set,
/// disabled where it can't matter.
class OptionChecks {
  public:
    explicit OptionChecks(const TestDocument& test) : test_(test) {}

    QCheckBox* Make(const OptionBox& box);
    /// The frame with the boxes that belong to it.
    QGroupBox* MakeFrame(OptionFrame frame, const QList<OptionBox>& boxes);
    /// The frames "General", "Questions" and "Scoring", side by side where there is room.
    QWidget* MakeReportFrames();

    OptionTicks Ticks() const;

  private:
    const TestDocument& test_;
    std::map<Option, QCheckBox*> boxes_;
};

#pragma once

#include "editor/OptionBoxes.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPointer>

/// The check boxes of the options, ChkReportOptions(1..31), on the three pages that show them. A click sets the
/// option in the test and then, whichever box it was, enables those that need the client's name.
class EditorOptionChecks : public QObject {
    Q_OBJECT

  public:
    explicit EditorOptionChecks(TestDocument& test);
    /// Deletes the boxes that no page has taken.
    ~EditorOptionChecks() override;

    /// i: 1 to 31.
    QCheckBox* Box(int i) { return ChkReportOptions_[static_cast<size_t>(i - 1)]; }
    /// The frame with the boxes that belong to it, below the layout when there is one.
    QGroupBox* MakeFrame(EditorOptionFrame frame, QLayout* above = nullptr);
    /// Shows the options of the test. Changes nothing in the test and sends no signal.
    void RefreshFromTest();

  Q_SIGNALS:
    /// The person changed an option.
    void Changed();

  private:
    void ChkReportOptions_Click(int i);
    void EnableBoxes();

    TestDocument& test_;
    std::array<QPointer<QCheckBox>, OptionCount> ChkReportOptions_;
};

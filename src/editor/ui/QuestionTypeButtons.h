#pragma once

#include <QPushButton>

#include <array>

/// One of buttons that stand in a row without gaps. The chosen one has the colours of a selection.
class SegmentButton : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The four types of a question, of which at most one is chosen. The arrow keys choose too.
class QuestionTypeButtons : public QWidget {
    Q_OBJECT

  public:
    QuestionTypeButtons();

    /// Shows the type as the chosen one, without a signal; one outside 0 to 3 leaves none chosen.
    void Show(int type);
    void SetTemplateEnabled(bool enabled);

  Q_SIGNALS:
    /// The person chose a type.
    void ChkQType_Click(int type);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Choose(int type);
    void Step(int from, int step);
    void KeepReachable();

    std::array<SegmentButton*, 4> ChkQType_{};
};

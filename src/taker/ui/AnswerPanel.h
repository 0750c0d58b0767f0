#pragma once

#include "taker/Administration.h"
#include "taker/AnswerSizes.h"
#include "taker/ui/AnswerButton.h"
#include "taker/ui/FittingScrollArea.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <array>

/// The three answer frames of the test window, of which at most one is seen: buttons, a short answer's line, and a
/// long answer's box.
class AnswerPanel : public QWidget {
    Q_OBJECT

  public:
    explicit AnswerPanel(const AnswerSizes& sizes, QWidget* parent = nullptr);

    /// Shows what the course's page needs, filled from the Response set.
    void Show(const Administration& course, const Session& session);
    /// Gives the focus to the answer chosen earlier, to the first one, or to the box. False when no frame is seen.
    bool TakeFocus();
    /// The text in box i (0 short, 1 long), its lines joined as everywhere.
    QString TypedText(int i) const;

  Q_SIGNALS:
    void Opt_Click(int index);
    void Label1_Click(int index);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QGroupBox* MakeFrame(int index, const QString& caption);
    void MakeButtons(const AnswerSizes& sizes);
    void MakeBox(int index, QWidget* box, const QString& key);
    void ShowAnswers(const Administration& course, const Session& session);

    std::array<QGroupBox*, 3> FrmAnswer_{};
    std::array<AnswerButton*, MaxAnswers> Opt_{};
    QLineEdit* shortAnswer_ = nullptr;
    QPlainTextEdit* longAnswer_ = nullptr;
    std::array<QPushButton*, 2> Label1_{};
    FittingScrollArea* scroll_ = nullptr;
    AnswerButton* first_ = nullptr;
};

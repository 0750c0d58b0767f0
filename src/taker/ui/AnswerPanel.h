#pragma once

#include "taker/Administration.h"
#include "taker/AnswerSizes.h"
#include "taker/ui/AnswerButton.h"
#include "taker/ui/FittingScrollArea.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <array>

/// The answer frames of the test window, of which at most one is seen: buttons, a short answer's line, a long answer's
/// box, and for a question that can't be answered the reason and what goes on.
class AnswerPanel : public QWidget {
    Q_OBJECT

  public:
    explicit AnswerPanel(const AnswerSizes& sizes, QWidget* parent = nullptr);

    /// Shows what the course's page needs, filled from the Response set.
    void Show(const Administration& course, const Session& session);
    /// Says below the box whether what is in it still has to be accepted.
    void ShowDraft(bool draft);
    /// Shows everything in that size, in percent of the usual one.
    void SetReadingSize(int percent);
    /// Scrolls the answers by a page, down (1) or up (-1).
    void ScrollByPage(int direction);
    /// Gives the focus to the answer chosen earlier, to the first one, or to the box. False when no frame is seen.
    bool TakeFocus();
    /// The text in box i (0 short, 1 long), its lines joined as everywhere.
    QString TypedText(int i) const;

  Q_SIGNALS:
    void Opt_Click(int index);
    void Label1_Click(int index);
    /// What box index holds was changed by the person.
    void txtanswer_Change(int index);
    void CmdContinue_Click();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QGroupBox* MakeFrame(int index, const QString& caption);
    void MakeButtons(const AnswerSizes& sizes);
    void MakeBox(int index, QWidget* box, const QString& key);
    void MakeContinue();
    void ShowAnswers(const Administration& course, const Session& session);
    void ShowTyped(const Administration& course, const Session& session);
    QGroupBox* ShownFrame() const;

    std::array<QGroupBox*, 4> FrmAnswer_{};
    std::array<AnswerButton*, MaxAnswers> Opt_{};
    QLineEdit* shortAnswer_ = nullptr;
    QPlainTextEdit* longAnswer_ = nullptr;
    std::array<QPushButton*, 2> Label1_{};
    std::array<QLabel*, 2> LblDraft_{};
    QLabel* LblCannotAnswer_ = nullptr;
    QPushButton* CmdContinue_ = nullptr;
    FittingScrollArea* scroll_ = nullptr;
    AnswerButton* first_ = nullptr;
    AnswerSizes sizes_;
    /// The question as a screen reader says it.
    QString spokenQuestion_;
    /// The boxes are being filled, which is no typing.
    bool filling_ = false;
};

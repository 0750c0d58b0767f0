#pragma once

#include <QPushButton>

/// One answer: a button whose text wraps, with the key that chooses it at its left. A second click in quick
/// succession is ignored, so that a double click doesn't answer the next question, which stands in the same place.
/// To assistive technology it is a radio button, checked when it is the answer chosen earlier; to the keyboard it isn't
/// one, since going to an answer with the arrow keys must not choose it.
class AnswerButton : public QPushButton {
    Q_OBJECT

  public:
    /// number: 1 to 10; the tenth has the key 0.
    explicit AnswerButton(int number, QWidget* parent = nullptr);

    /// Shows the text as it stands; "&" is no mark for a key.
    void SetAnswer(const QString& text);
    /// Bold marks the answer chosen earlier.
    void SetChosen(bool chosen);
    bool Chosen() const { return font().bold(); }
    /// Takes the focus because its question came up, which is read out with it.
    void TakeFirstFocus(const QString& question);
    /// Whether the Return key may press it: only once the person has gone to it, so that a Return too many after a
    /// typed answer doesn't answer the next question.
    bool TakesReturn() const { return takesReturn_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    QString ShownText() const;
    int KeyWidth() const;
    QRect TextRect(const QRect& whole) const;

    QString place_;
    QString key_;
    bool takesReturn_ = false;
};

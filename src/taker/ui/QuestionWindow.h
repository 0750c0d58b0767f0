#pragma once

#include <QTextEdit>

/// The read-only box of the test window. A question takes the height that its text needs, within bounds; every other
/// text takes all the room there is.
class QuestionWindow : public QTextEdit {
  public:
    /// leastHeight: of the box while it shows a question, in pixels.
    explicit QuestionWindow(int leastHeight, QWidget* parent = nullptr);

    void ShowQuestion(const QString& text);
    void ShowInformation(const QString& text, Qt::Alignment alignment);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ShowText(const QString& text, Qt::Alignment alignment, QSizePolicy::Policy height);

    int leastHeight_;
};

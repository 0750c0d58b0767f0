#pragma once

#include "testdoc/TestChecker.h"

#include <QPushButton>
#include <QWidget>

class QLabel;
class QListWidget;
class QListWidgetItem;

/// A button that shows one line, cut to its width, in the look of a calm text.
class SummaryButton : public QPushButton {
  public:
    using QPushButton::QPushButton;

    enum class Tone { Quiet, Warning, Error };
    void ShowSummary(const QString& summary, Tone tone);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Tone tone_ = Tone::Quiet;
};

/// One quiet line on what a check finds in the test as it is now, and on how much of its length is used. It blocks
/// nothing and never takes the focus by itself; a click on it leads to the finding, or to a list of all of them.
class FindingsLine : public QWidget {
    Q_OBJECT

  public:
    explicit FindingsLine(QWidget* parent = nullptr);

    /// lengthUsed is in characters, as the reader of the file counts them.
    void Show(const std::vector<Finding>& findings, int lengthUsed);

  Q_SIGNALS:
    /// The person wants to see the place. The test may have changed since the findings were shown.
    void Chosen(const TestPlace& place);

  private:
    void Summary_Click();
    void OpenList();
    void Item_Chosen(const QListWidgetItem& item, QWidget& popup);
    void PlaceList(QWidget& popup, const QListWidget& list);

    SummaryButton* Summary_;
    QLabel* Length_;
    /// Errors first.
    std::vector<Finding> findings_;
};

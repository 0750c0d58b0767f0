#pragma once

#include "platform/Navigator.h"

#include <QPushButton>
#include <QTextBrowser>
#include <QWidget>

/// The help pages, which are part of the program.
class HelpWindow : public QWidget {
    Q_OBJECT

  public:
    explicit HelpWindow(QWidget* parent = nullptr);

    void ShowTopic(HelpTopic topic);
    void ShowIndex();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void ShowPage(const QString& page);
    QLayout* MakeButtons();
    void MakeShortcuts();
    void TakeColours();

    QTextBrowser* browser_;
    QPushButton* contents_ = nullptr;
    QPushButton* back_ = nullptr;
    QPushButton* forward_ = nullptr;
    QPushButton* close_ = nullptr;
};

#pragma once

#include <QPushButton>

#include <functional>
#include <map>

/// Buttons of one kind that are told apart by an index and share one handler.
class ButtonArray {
  public:
    /// name is the array's; button i of it is called "<name>_i".
    ButtonArray(QString name, std::function<void(int)> handler);

    /// Makes button index. What it does is told to those who can't see where it stands.
    QPushButton* Make(int index, const QString& caption, const QString& accessibleName);
    QPushButton* operator()(int index) const { return buttons_.at(index); }
    void SetEnabled(bool enabled);

  private:
    QString name_;
    std::function<void(int)> handler_;
    std::map<int, QPushButton*> buttons_;
};

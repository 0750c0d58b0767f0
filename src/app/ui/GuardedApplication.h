#pragma once

#include "platform/Prompts.h"

#include <QApplication>

/// The application with a last catch: what a handler failed to catch is told in a message, and the window that it
/// happened in stays usable.
class GuardedApplication : public QApplication {
  public:
    /// argc and argv must outlive the application.
    GuardedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

    /// Where messages are shown. Until this is called they go to standard error.
    void ShowFailuresWith(Prompts& prompts) { prompts_ = &prompts; }

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    void Tell(const QString& message);

    Prompts* prompts_ = nullptr;
};

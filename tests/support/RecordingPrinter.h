#pragma once

#include "platform/Printer.h"

#include <QList>

/// Notes what would be printed; fails while FailWith holds a message.
class RecordingPrinter : public Printer {
  public:
    struct Job {
        QString Text;
        QString Title;
        bool operator==(const Job&) const = default;
    };

    Result Print(const QString& text, const QString& title) override {
        Jobs.append({text, title});
        return FailWith.isEmpty() ? Result::Done() : Result::Failed(FailWith);
    }

    QList<Job> Jobs;
    QString FailWith;
};

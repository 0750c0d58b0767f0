#pragma once

#include "platform/WordProcessor.h"

#include <QStringList>

/// Notes the texts typed; fails while FailWith holds a message.
class FakeWordProcessor : public WordProcessor {
  public:
    Result TypeText(const QString& text) override {
        if (!FailWith.isEmpty())
            return Result::Failed(FailWith);
        Texts.append(text);
        return Result::Done();
    }

    QStringList Texts;
    QString FailWith;
};

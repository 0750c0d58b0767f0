#pragma once

#include "platform/OfficeProbe.h"

#include <QMap>

/// Nothing is installed but what a test puts in, such as `Entries[WordProcessorKey] = "Word.Document.8"`.
class FakeOfficeProbe : public OfficeProbe {
  public:
    QString QueryRegistryString(RegistryRoot, const QString& subKey, const QString& valueName) const override {
        return valueName.isEmpty() ? Entries.value(subKey) : QString();
    }

    QMap<QString, QString> Entries;
};

#include "support/Files.h"

#include "support/FailTest.h"

#include <QFile>

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        FailTest(QStringLiteral("Can't read %1: %2").arg(path, file.errorString()));
        return {};
    }
    return file.readAll();
}

void PutBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        FailTest(QStringLiteral("Can't write %1: %2").arg(path, file.errorString()));
}

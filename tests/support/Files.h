#pragma once

#include <QByteArray>
#include <QString>

/// The bytes of the file; the test fails when it can't be read.
QByteArray BytesOf(const QString& path);

/// Makes or replaces the file; the test fails when it can't be written.
void PutBytes(const QString& path, const QByteArray& bytes);

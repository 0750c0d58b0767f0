#include "platform/CodePage.h"

#include "platform/Windows1252.h"

QString DecodeCodePage(const QByteArray& bytes) { return DecodeWindows1252(bytes); }

QByteArray EncodeCodePage(const QString& text, bool* fits) { return EncodeWindows1252(text, fits); }

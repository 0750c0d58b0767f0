#include "platform/ui/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

void QtClipboard::Put(const QString& text) { QGuiApplication::clipboard()->setText(text); }

QString QtClipboard::Text() const { return QGuiApplication::clipboard()->text(); }

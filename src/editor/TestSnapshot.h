#pragma once

#include "testdoc/TestDocument.h"

#include <QByteArray>

/// Everything that the editor can change in a document, and its file name, to the letter; unlike a test file it also
/// keeps what a reader would lose or not understand.
QByteArray ToSnapshot(const TestDocument& test);

/// False, and test unchanged, when the bytes are no whole snapshot.
bool FromSnapshot(const QByteArray& bytes, TestDocument& test);

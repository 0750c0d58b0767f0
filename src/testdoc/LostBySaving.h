#pragma once

#include "testdoc/TestDocument.h"

#include <QStringList>

/// What is in the test file at path and would be gone if the test were saved in its place: text that the reader passes
/// over, such as the rest of a question after a square bracket, and line breaks that it drops. Each names the place and
/// the line. Empty when nothing would be lost, and when there is no such file or it can't be read as a test.
QStringList LostBySaving(const TestDocument& test, const QString& path);

/// The first of them in one sentence.
QString FirstLost(const QStringList& lost);

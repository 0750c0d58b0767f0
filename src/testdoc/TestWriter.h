#pragma once

#include "base/Failure.h"
#include "testdoc/TestDocument.h"

inline const QString TestCannotBeSaved = QStringLiteral("Test Cannot Be Saved");

/// A test as its file holds it, with CR LF at the line ends.
struct WrittenTest {
    QString Text;
    /// Why the text stops before the end of the test; empty when it is whole.
    QString StopsBecause;
};

/// The document in the test file format. Texts stand in it as they are; only line breaks of the introduction, the
/// instructions and the completion message become "<P>". The text stops behind the first line of a multichoice question
/// above 200, whose answers have no place in the document.
WrittenTest WriteTest(const TestDocument& test);

/// How many characters the written text has for the reader, who drops the line ends and takes "<P>" for CR LF.
int LengthWhenRead(const QString& written);

/// How saving a test ended.
struct SaveOutcome {
    /// The file holds the whole test.
    bool Written = false;
    /// It can also be opened again.
    bool OpensAgain = false;
    /// What the person has to know; empty when all is well.
    QString Message;
};

/// Writes the document to the file TestFileName, empties TestFileText, and tries whether the file can be opened again.
/// A test that would be read back as another one, or not at all, isn't written: WhatForbidsSaving gives the reasons.
/// When nothing is written, the message is "Test Cannot Be Saved: path: reason", and the earlier version is what it was.
SaveOutcome SaveTestFile(TestDocument& test);

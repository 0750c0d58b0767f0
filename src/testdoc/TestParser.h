#pragma once

#include "testdoc/TestDocument.h"

/// Puts the document back to "no test". The arrays of the questions, SubscaleName, ExcelDirectory, AutosaveFileName and
/// TestBaseName stay as they are: a question read later without a type or sub-scale of its own keeps what its number
/// had before. Use OpenTest where a test must not inherit anything from the one before.
void ClearTest(TestDocument& test);

/// Sets TestFileName and reads the file into TestFileText, TestFileLength and TestFileHash. A path is used as it
/// stands. Fails when the file can't be read, is no text, or holds more than 32,767 characters; then TestFileText keeps
/// what it was. The message is the reason alone; CantReadTestFile makes the sentence for the user.
Result ReadTestFile(TestDocument& test, const QString& path);

/// The text of a file as the reader sees it: without line ends, with CR LF for each "<P>" and "<p>", and without the
/// end-of-file mark of old systems.
QString TextWhenRead(QString fileText);

/// Fills every other field from TestFileText. Takes time in proportion to the text's length.
/// Throws ParseError, whose message names the file, when the content can't be understood; the document is then
/// half filled and must not be used.
void LoadTest(TestDocument& test);

/// Only the title, from TestFileText. Throws ParseError.
void LoadTitle(TestDocument& test);

/// Only the title, introduction and instructions, from TestFileText; what the list of tests needs. Throws ParseError.
void LoadTitleAndTexts(TestDocument& test);

/// "Can't read the test file 'path': reason".
QString CantReadTestFile(const QString& path, const QString& reason);

/// Clears, reads and loads a test into a fresh document, so that nothing of an earlier test is left in it.
/// Fails with the whole sentence when the file can't be read; throws ParseError as LoadTest does.
Result OpenTest(TestDocument& test, const QString& path);

/// The path as an absolute one: a relative one is joined to the current directory, without the "." and ".." that only
/// tell the way (a dot among them would cut the base name short); an absolute path stays as it stands.
QString AbsolutePath(const QString& path);

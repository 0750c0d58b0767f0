#pragma once

#include "testdoc/TestDocument.h"

#include <QString>

#include <vector>

/// One test file of the working directory.
struct ListedTest {
    QString FileName;
    /// The test's title; for a file that can't be read or understood, its file name and the reason.
    QString Title;
};

/// The "*.vlm" files of the current directory, sorted by title as the user's language does, and by file name where
/// titles are the same. The document serves for reading and is cleared afterwards.
std::vector<ListedTest> ListTests(TestDocument& test);

/// The parts of a test that the start screen shows, in the order of its buttons.
enum class TestPart { Introduction = 0, Instructions = 1, Questions = 2 };

/// What is shown of the test, and under which caption. The questions need the whole test to be loaded.
QString TextOfPart(const TestDocument& test, TestPart part);
QString CaptionOfPart(const TestDocument& test, TestPart part);

#include "app/TestList.h"

#include "base/LineBreak.h"
#include "platform/Directories.h"
#include "testdoc/TestParser.h"

namespace {

QString PrintableQuestions(const TestDocument& test) {
    QString text;
    if (!test.TestInstructions.isEmpty())
        text += QStringLiteral("INSTRUCTIONS") + LineBreak + test.TestInstructions + LineBreak;
    for (int q = 1; q <= test.QuestionCount; ++q) {
        text += QStringLiteral("QUESTION ") + QString::number(q) + LineBreak + test.QuestionText(q) + LineBreak;
        for (int a = 1; a <= OfferedAnswerCount(test, q); ++a)
            if (const QString answer = ChosenText(test, q, a); !answer.isEmpty())
                text += QStringLiteral("[ ] ") + answer + LineBreak;
        text += LineBreak;
    }
    return text;
}

} // namespace

std::vector<ListedTest> ListTests(TestDocument& test) {
    std::vector<ListedTest> tests;
    const QStringList files = ListFiles(QStringLiteral("*.vlm"));
    tests.reserve(static_cast<size_t>(files.size()));
    for (const QString& file : files) {
        if (const Result read = ReadTestFile(test, file); !read) {
            tests.push_back({file, file + QStringLiteral(": ") + read.Message()});
            continue;
        }
        LoadTitle(test);
        tests.push_back({file, test.TestTitle});
    }
    // Once is enough: nothing but the title is taken from a file, and each file sets it anew.
    ClearTest(test);
    return tests;
}

QString TextOfPart(const TestDocument& test, TestPart part) {
    switch (part) {
    case TestPart::Introduction:
        return test.TestIntroduction;
    case TestPart::Instructions:
        return test.TestInstructions;
    case TestPart::Questions:
        break;
    }
    return PrintableQuestions(test);
}

QString CaptionOfPart(const TestDocument& test, TestPart part) {
    switch (part) {
    case TestPart::Introduction:
        return test.TestTitle + QStringLiteral(" - Introduction");
    case TestPart::Instructions:
        return test.TestTitle + QStringLiteral(" - Instructions");
    case TestPart::Questions:
        break;
    }
    return test.TestTitle + QStringLiteral(" - Questions");
}

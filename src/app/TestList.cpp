#include "app/TestList.h"

#include "base/LineBreak.h"
#include "platform/Directories.h"
#include "testdoc/TestParser.h"

#include <QCollator>

#include <algorithm>

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

QString TitleOf(TestDocument& test, const QString& file) {
    if (const Result read = ReadTestFile(test, file); !read)
        return file + QStringLiteral(": ") + read.Message();
    try {
        LoadTitle(test);
    } catch (const Failure& failure) {
        return file + QStringLiteral(": ") + failure.Message();
    }
    return test.TestTitle;
}

void SortByTitle(std::vector<ListedTest>& tests) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::ranges::stable_sort(tests, [&](const ListedTest& left, const ListedTest& right) {
        return collator.compare(left.Title, right.Title) < 0;
    });
}

} // namespace

std::vector<ListedTest> ListTests(TestDocument& test) {
    std::vector<ListedTest> tests;
    const QStringList files = ListFiles(QStringLiteral("*.vlm"));
    tests.reserve(static_cast<size_t>(files.size()));
    for (const QString& file : files)
        tests.push_back({file, TitleOf(test, file)});
    SortByTitle(tests);
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

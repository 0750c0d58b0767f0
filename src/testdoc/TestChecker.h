#pragma once

#include "testdoc/TestDocument.h"

#include <functional>
#include <vector>

enum class Severity { Error, Warning };

/// The element that a finding is about. Index and SubIndex count from 1; 0 where there is none.
struct TestPlace {
    enum Kind {
        Whole,
        Title,
        Introduction,
        Instructions,
        CompletionMessage,
        Subscale,       ///< Index: sub-scale
        SubscaleRange,  ///< Index: sub-scale, SubIndex: range
        TotalRange,     ///< SubIndex: range
        TemplateAnswer, ///< SubIndex: answer
        Question,       ///< Index: question
        Answer,         ///< Index: question, SubIndex: answer
        ReportDirectory,
        ExcelDirectory,
        ExcelFileName,
        AutosaveFileName,
    };
    Kind What = Whole;
    int Index = 0;
    int SubIndex = 0;

    bool operator==(const TestPlace&) const = default;
};

/// Something that keeps a test from being taken (an error), or that its author would want to know (a warning).
struct Finding {
    Severity Level = Severity::Warning;
    TestPlace Place;
    /// The place in words; "" for the whole test.
    QString Where;
    QString Text;
    /// Line and column in the file, from 1; 0 when the finding has no place there.
    int Line = 0;
    int Column = 0;
    /// Whether it was guessed from one text alone, and gives way to what reading that place back shows.
    bool Provisional = false;
};

/// What one scale can reach when every question is answered, and when some are left out (they count 0).
struct ScaleReach {
    /// 0 for the total.
    int Subscale = 0;
    QString Name;
    qint64 Lowest = 0;
    qint64 Highest = 0;
    qint64 LowestWithGaps = 0;
    qint64 HighestWithGaps = 0;
};

/// All that was found out about one test file.
struct CheckedTest {
    std::vector<Finding> Findings;
    /// The sub-scales in their order, then the total; empty when the file can't be read.
    std::vector<ScaleReach> Scales;
    bool HasErrors() const;
};

/// What is to be said about the test as it is in memory, wherever it came from.
std::vector<Finding> CheckDocument(const TestDocument& test);

/// What is to be said about the way in which the test is written in its file, whose text is given with its line ends.
std::vector<Finding> CheckFileText(const TestDocument& test, const QString& fileText);

/// Gives the findings that have none yet their line and column in the file's text.
void LocateFindings(std::vector<Finding>& findings, const QString& fileText);

std::vector<ScaleReach> ReachableScores(const TestDocument& test);

/// Opens the file and checks document and text; the findings come in the order of the file. Never throws.
CheckedTest CheckTestFile(const QString& path);

Finding MakeFinding(Severity level, const TestPlace& place, const TestDocument& test, const QString& text);

/// Every text of the test with its place, in the order of the file. An answer of the template comes once.
void ForEachText(const TestDocument& test, const std::function<void(const TestPlace&, const QString&)>& visit);

/// "question 3", "range 2 of the sub-scale 'Energy'", ...; "" for the whole test.
QString PlaceText(const TestPlace& place, const TestDocument& test);

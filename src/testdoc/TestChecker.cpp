#include "testdoc/TestChecker.h"

#include "base/Text.h"
#include "base/WholeNumber.h"
#include "platform/TextFile.h"
#include "testdoc/ScoreReach.h"
#include "testdoc/TestParser.h"

#include <algorithm>

namespace {

/// A range that overlaps more of the others is told once.
constexpr size_t MostOverlapsTold = 3;

/// What becomes of a text in a generated page.
enum class PageUse { Markup, Attribute, Script };

QString Span(qint64 low, qint64 high) {
    return low == high ? QString::number(low) : QStringLiteral("%1 to %2").arg(low).arg(high);
}

QString ScaleName(const TestDocument& test, int s) {
    return s == 0 ? QStringLiteral("the total") : QStringLiteral("the sub-scale ") + Quoted(test.SubscaleName(s));
}

PageUse PageUseOf(TestPlace::Kind kind) {
    switch (kind) {
    case TestPlace::Title:
        return PageUse::Attribute;
    case TestPlace::Subscale:
    case TestPlace::SubscaleRange:
    case TestPlace::TotalRange:
    case TestPlace::Question:
        return PageUse::Script;
    default:
        return PageUse::Markup;
    }
}

bool IsPath(TestPlace::Kind kind) {
    return kind == TestPlace::ReportDirectory || kind == TestPlace::ExcelDirectory ||
           kind == TestPlace::ExcelFileName || kind == TestPlace::AutosaveFileName;
}

class DocumentChecker {
  public:
    explicit DocumentChecker(const TestDocument& test) : test_(test), scores_(ScoresOfScales(test)) {}

    std::vector<Finding> Run() {
        CheckWhole();
        CheckTexts();
        for (int s = 1; s <= test_.SubscaleCount; ++s)
            CheckSubscale(s);
        CheckScale(0);
        for (int q = 1; q <= test_.QuestionCount; ++q)
            CheckQuestion(q);
        return std::move(findings_);
    }

  private:
    struct Range {
        TestPlace Place;
        qint64 Low, High;
    };

    void Warn(const TestPlace& place, const QString& text) {
        findings_.push_back(MakeFinding(Severity::Warning, place, test_, text));
    }
    void CheckWhole();
    void WarnProvisionally(const TestPlace& place, const QString& text) {
        Warn(place, text);
        findings_.back().Provisional = true;
    }
    void CheckTexts();
    void CheckText(const TestPlace& place, const QString& text, PageUse use);
    void CheckBrackets(const TestPlace& place, const QString& text);
    void CheckTextInPage(const TestPlace& place, const QString& text, PageUse use);
    void CheckSubscale(int s);
    void CheckScale(int s);
    std::vector<Range> UsableRanges(int s);
    void CheckRange(const Range& range, const ScaleScores& scores);
    void CheckOverlaps(const std::vector<Range>& ranges);
    void CheckGaps(int s, std::vector<Range> ranges, const ScaleScores& scores);
    void CheckQuestion(int q);
    void CheckAnswers(int q);

    const TestDocument& test_;
    /// The total's, then those of the sub-scales.
    std::vector<ScaleScores> scores_;
    std::vector<Finding> findings_;
};

void DocumentChecker::CheckWhole() {
    if (test_.QuestionCount == 0)
        findings_.push_back(
            MakeFinding(Severity::Error, {}, test_,
                        QStringLiteral("The test '") + test_.TestTitle + QStringLiteral("' has no questions.")));
    const ScaleScores& total = scores_.front();
    if (total.WithGaps.Highest() > 32767 || total.WithGaps.Lowest() < -32768)
        Warn({},
             QStringLiteral("the total score can leave -32768 to 32767; such a report is refused with \"Overflow\""));
    if (test_.TemplateAnswerCount > MaxAnswers)
        Warn({TestPlace::TemplateAnswer, 0, MaxTemplateAnswers},
             QStringLiteral("a question takes at most %1 answers from the template").arg(MaxAnswers));
    if (test_.TestOption(PromptClientName))
        return;
    for (const Option option : {AutosaveReportAsClient, AutosaveReportDirectoryAsClient, AutosaveExcelDirectoryAsClient,
                                AutosaveExcelReportAsClient})
        if (test_.TestOption(option))
            Warn({}, test_.OptionTag(option) +
                         QStringLiteral(" is set, but the test doesn't ask for the client's name ") +
                         test_.OptionTag(PromptClientName));
}

void DocumentChecker::CheckTexts() {
    ForEachText(test_, [this](const TestPlace& place, const QString& text) {
        if (!IsPath(place.What))
            CheckText(place, text, PageUseOf(place.What));
    });
}

void DocumentChecker::CheckText(const TestPlace& place, const QString& text, PageUse use) {
    if (text.contains(u'[') || text.contains(u']'))
        CheckBrackets(place, text);
    CheckTextInPage(place, text, use);
}

void DocumentChecker::CheckBrackets(const TestPlace& place, const QString& text) {
    const QString upper = AsciiUpper(text);
    bool tagFound = false;
    const auto lookFor = [&](const QString& tag) {
        if (!upper.contains(tag))
            return;
        tagFound = true;
        WarnProvisionally(place, QStringLiteral("the text contains ") + tag +
                                     QStringLiteral(", which switches that option on"));
    };
    for (int i = 1; i <= OptionCount; ++i)
        lookFor(test_.OptionTag(i));
    lookFor(ReportOnlyWhenDoneTag);
    lookFor(NavigationButtonsTag);
    if (!tagFound)
        WarnProvisionally(place,
                          QStringLiteral("the text contains a square bracket, which the reader may take for a tag"));
}

void DocumentChecker::CheckTextInPage(const TestPlace& place, const QString& text, PageUse use) {
    const QString consequence = QStringLiteral(", which breaks a page whose template takes texts as they are");
    for (qsizetype at = text.indexOf(u'<'); at >= 0; at = text.indexOf(u'<', at + 1)) {
        const QChar next = at + 1 < text.size() ? text[at + 1] : QChar(u' ');
        if (next.isLetter() || next == u'/' || next == u'!' || next == u'?') {
            Warn(place, QStringLiteral("the text contains ") + Quoted(text.mid(at, 12)) + consequence +
                            QStringLiteral(" unless it is meant as markup"));
            break;
        }
    }
    if (use == PageUse::Attribute && text.contains(u'"'))
        Warn(place, QStringLiteral("the text contains a double quote") + consequence +
                        QStringLiteral(" when its template puts the title between quotes"));
    if (use != PageUse::Script)
        return;
    if (text.contains(u'\\'))
        Warn(place, QStringLiteral("the text contains a backslash") + consequence);
    if (text.contains(u'\n') || text.contains(u'\r'))
        WarnProvisionally(place, QStringLiteral("the text contains a line break") + consequence);
}

void DocumentChecker::CheckSubscale(int s) {
    const TestPlace place{TestPlace::Subscale, s, 0};
    if (test_.SubscaleName(s).trimmed().isEmpty())
        Warn(place, QStringLiteral("the sub-scale has no name"));
    for (int earlier = 1; earlier < s; ++earlier)
        if (test_.SubscaleName(earlier) == test_.SubscaleName(s))
            Warn(place, QStringLiteral("sub-scale %1 has the same name").arg(earlier));

    bool hasQuestions = false;
    for (int q = 1; q <= test_.QuestionCount; ++q)
        hasQuestions = hasQuestions || test_.QuestionSubscale(q) == s;
    if (!hasQuestions)
        Warn(place, QStringLiteral("no question belongs to the sub-scale"));
    CheckScale(s);
}

void DocumentChecker::CheckScale(int s) {
    const ScaleScores& scores = scores_[static_cast<size_t>(s)];
    const std::vector<Range> ranges = UsableRanges(s);
    for (const Range& range : ranges)
        CheckRange(range, scores);
    CheckOverlaps(ranges);
    CheckGaps(s, ranges, scores);
}

/// The ranges of a scale whose bounds are numbers in their order; the others are told.
std::vector<DocumentChecker::Range> DocumentChecker::UsableRanges(int s) {
    std::vector<Range> ranges;
    const int count = s == 0 ? test_.TotalRangeCount : test_.SubscaleRangeCount(s);
    for (int r = 1; r <= count; ++r) {
        const TestPlace place{s == 0 ? TestPlace::TotalRange : TestPlace::SubscaleRange, s, r};
        const auto low = s == 0 ? test_.TotalRangeLow(r) : test_.SubscaleRangeLow(s, r).TryNumber();
        const auto high = s == 0 ? test_.TotalRangeHigh(r) : test_.SubscaleRangeHigh(s, r).TryNumber();
        if (!low || !high)
            WarnProvisionally(place, QStringLiteral("a bound is no whole number from -32768 to 32767"));
        else if (*low > *high)
            Warn(place, QStringLiteral("the low bound %1 is above the high bound %2, so that no score is in the range")
                            .arg(*low)
                            .arg(*high));
        else
            ranges.push_back({place, *low, *high});
    }
    return ranges;
}

void DocumentChecker::CheckRange(const Range& range, const ScaleScores& scores) {
    if (scores.Complete.Reaches(range.Low, range.High))
        return;
    const QString reach =
        QStringLiteral("; the scores run from %1 to %2").arg(scores.Complete.Lowest()).arg(scores.Complete.Highest());
    if (scores.WithGaps.Reaches(range.Low, range.High))
        Warn(range.Place, QStringLiteral("a score reaches the range %1 only when questions are left unanswered")
                                  .arg(Span(range.Low, range.High)) +
                              reach);
    else
        Warn(range.Place, QStringLiteral("no score can reach the range ") + Span(range.Low, range.High) + reach);
}

void DocumentChecker::CheckOverlaps(const std::vector<Range>& ranges) {
    for (size_t later = 1; later < ranges.size(); ++later) {
        std::vector<const Range*> overlapped;
        for (size_t earlier = 0; earlier < later; ++earlier)
            if (std::max(ranges[earlier].Low, ranges[later].Low) <= std::min(ranges[earlier].High, ranges[later].High))
                overlapped.push_back(&ranges[earlier]);
        // Where a range is copied again and again, every one overlaps all of the others.
        const size_t told = overlapped.size() > MostOverlapsTold ? 1 : overlapped.size();
        for (size_t i = 0; i < told; ++i) {
            const Range& earlier = *overlapped[i];
            QString text =
                QStringLiteral("the range overlaps range %1: the score %2 brings both texts")
                    .arg(earlier.Place.SubIndex)
                    .arg(Span(std::max(earlier.Low, ranges[later].Low), std::min(earlier.High, ranges[later].High)));
            if (told < overlapped.size())
                text += QStringLiteral("; it overlaps %1 more ranges").arg(overlapped.size() - told);
            Warn(ranges[later].Place, text);
        }
    }
}

void DocumentChecker::CheckGaps(int s, std::vector<Range> ranges, const ScaleScores& scores) {
    if (ranges.empty())
        return;
    std::sort(ranges.begin(), ranges.end(), [](const Range& a, const Range& b) { return a.Low < b.Low; });
    const auto tell = [&](const TestPlace& place, qint64 low, qint64 high) {
        const QString unreached =
            scores.WithGaps.Reaches(low, high) ? QString() : QStringLiteral(" (no score is there just now)");
        Warn(place, QStringLiteral("there is a gap: no range of ") + ScaleName(test_, s) +
                        QStringLiteral(" covers the score ") + Span(low, high) + unreached);
    };
    if (scores.Complete.Reaches(scores.Complete.Lowest(), ranges.front().Low - 1))
        tell(ranges.front().Place, scores.Complete.Lowest(), ranges.front().Low - 1);
    qint64 covered = ranges.front().High;
    for (const Range& range : ranges) {
        if (range.Low > covered + 1)
            tell(range.Place, covered + 1, range.Low - 1);
        covered = std::max(covered, range.High);
    }
    if (scores.Complete.Reaches(covered + 1, scores.Complete.Highest()))
        tell(ranges.back().Place, covered + 1, scores.Complete.Highest());
}

void DocumentChecker::CheckQuestion(int q) {
    const TestPlace place{TestPlace::Question, q, 0};
    if (test_.QuestionText(q).trimmed().isEmpty())
        Warn(place, QStringLiteral("the question has no text"));
    const int s = test_.QuestionSubscale(q);
    if (s < 0 || s > test_.SubscaleCount)
        Warn(place, QStringLiteral("the question belongs to the sub-scale %1, which doesn't exist (there are %2); it "
                                   "counts in the total only")
                        .arg(s)
                        .arg(test_.SubscaleCount));
    const int type = test_.QuestionType(q);
    if (type < TypeUnset || type > LongAnswer)
        Warn(place,
             QStringLiteral("the question has the type %1, which doesn't exist, and can't be answered").arg(type));
    if (IsMultichoice(test_, q))
        CheckAnswers(q);
}

void DocumentChecker::CheckAnswers(int q) {
    const int count = OfferedAnswerCount(test_, q);
    bool offered = false;
    for (int a = 1; a <= count; ++a)
        offered = offered || !ChosenText(test_, q, a).isEmpty();
    if (!offered)
        return Warn(
            {TestPlace::Question, q, 0},
            QStringLiteral("the multichoice question has no answers to choose from, so that nobody gets past it"));
    for (int a = 1; a <= count; ++a) {
        const TestPlace place{TestPlace::Answer, q, a};
        const Value value = ChosenValue(test_, q, a);
        if (ChosenText(test_, q, a).isEmpty())
            Warn(place, QStringLiteral("the answer has no text, so that no button shows it"));
        else if (!value.TryNumber())
            WarnProvisionally(place, Quoted(value.Text()) +
                                         QStringLiteral(" is no whole number from -32768 to 32767 as a value"));
    }
}

QString Ordinal(const char* what, int number) { return QLatin1String(what) + QString::number(number); }

} // namespace

bool CheckedTest::HasErrors() const {
    return std::any_of(Findings.begin(), Findings.end(),
                       [](const Finding& finding) { return finding.Level == Severity::Error; });
}

std::vector<Finding> CheckDocument(const TestDocument& test) { return DocumentChecker(test).Run(); }

std::vector<ScaleReach> ReachableScores(const TestDocument& test) {
    const std::vector<ScaleScores> scores = ScoresOfScales(test);
    std::vector<ScaleReach> scales;
    const auto add = [&](int s, const QString& name) {
        const ScaleScores& scale = scores[static_cast<size_t>(s)];
        scales.push_back({s, name, scale.Complete.Lowest(), scale.Complete.Highest(), scale.WithGaps.Lowest(),
                          scale.WithGaps.Highest()});
    };
    for (int s = 1; s <= test.SubscaleCount; ++s)
        add(s, test.SubscaleName(s));
    add(0, QString());
    return scales;
}

void ForEachText(const TestDocument& test, const std::function<void(const TestPlace&, const QString&)>& visit) {
    visit({TestPlace::Title, 0, 0}, test.TestTitle);
    visit({TestPlace::Introduction, 0, 0}, test.TestIntroduction);
    visit({TestPlace::Instructions, 0, 0}, test.TestInstructions);
    visit({TestPlace::CompletionMessage, 0, 0}, test.TestCompletionMessage);
    for (int s = 1; s <= test.SubscaleCount; ++s) {
        visit({TestPlace::Subscale, s, 0}, test.SubscaleName(s));
        for (int r = 1; r <= test.SubscaleRangeCount(s); ++r)
            visit({TestPlace::SubscaleRange, s, r}, test.SubscaleRangeText(s, r));
    }
    for (int r = 1; r <= test.TotalRangeCount; ++r)
        visit({TestPlace::TotalRange, 0, r}, test.TotalRangeText(r));
    for (int i = 1; i <= test.TemplateAnswerCount; ++i)
        visit({TestPlace::TemplateAnswer, 0, i}, test.TemplateAnswerText(i));
    for (int q = 1; q <= test.QuestionCount; ++q) {
        visit({TestPlace::Question, q, 0}, test.QuestionText(q));
        for (int a = 1; a <= OwnAnswerCount(test, q); ++a)
            visit({TestPlace::Answer, q, a}, test.AnswerText(q, a));
    }
    visit({TestPlace::ReportDirectory, 0, 0}, test.ReportDirectory);
    visit({TestPlace::ExcelDirectory, 0, 0}, test.ExcelDirectory);
    visit({TestPlace::ExcelFileName, 0, 0}, test.ExcelFileName);
    visit({TestPlace::AutosaveFileName, 0, 0}, test.AutosaveFileName);
}

CheckedTest CheckTestFile(const QString& path) {
    CheckedTest checked;
    const auto error = [&](const QString& text) {
        checked.Findings.push_back({Severity::Error, {}, {}, text, 0, 0, false});
        return checked;
    };
    TestDocument test;
    TextOfFile file;
    try {
        if (const Result opened = OpenTest(test, AbsolutePath(path)); !opened)
            return error(opened.Message());
        if (const Result read = ReadTextFile(path, MaxTestFileBytes, file); !read)
            return error(CantReadTestFile(path, read.Message()));
    } catch (const Failure& failure) {
        return error(failure.Message());
    }
    checked.Findings = CheckDocument(test);
    LocateFindings(checked.Findings, file.Text);
    for (const Finding& finding : CheckFileText(test, file.Text))
        checked.Findings.push_back(finding);
    std::stable_sort(checked.Findings.begin(), checked.Findings.end(), [](const Finding& a, const Finding& b) {
        return std::pair(a.Line, a.Column) < std::pair(b.Line, b.Column);
    });
    checked.Scales = ReachableScores(test);
    return checked;
}

Finding MakeFinding(Severity level, const TestPlace& place, const TestDocument& test, const QString& text) {
    return {level, place, PlaceText(place, test), text, 0, 0, false};
}

QString PlaceText(const TestPlace& place, const TestDocument& test) {
    const QString inner = place.Index > 0 && place.Index <= test.SubscaleCount
                              ? QStringLiteral(" of the sub-scale ") + Quoted(test.SubscaleName(place.Index))
                              : QString();
    switch (place.What) {
    case TestPlace::Whole:
        return {};
    case TestPlace::Title:
        return QStringLiteral("title");
    case TestPlace::Introduction:
        return QStringLiteral("introduction");
    case TestPlace::Instructions:
        return QStringLiteral("instructions");
    case TestPlace::CompletionMessage:
        return QStringLiteral("completion message");
    case TestPlace::Subscale:
        return Ordinal("sub-scale ", place.Index) + u' ' + Quoted(test.SubscaleName(place.Index));
    case TestPlace::SubscaleRange:
        return Ordinal("range ", place.SubIndex) + inner;
    case TestPlace::TotalRange:
        return Ordinal("range ", place.SubIndex) + QStringLiteral(" of the total");
    case TestPlace::TemplateAnswer:
        return Ordinal("template answer ", place.SubIndex);
    case TestPlace::Question:
        return Ordinal("question ", place.Index);
    case TestPlace::Answer:
        return Ordinal("question ", place.Index) + Ordinal(", answer ", place.SubIndex);
    case TestPlace::ReportDirectory:
        return QStringLiteral("directory for reports");
    case TestPlace::ExcelDirectory:
        return QStringLiteral("directory for workbooks");
    case TestPlace::ExcelFileName:
        return QStringLiteral("workbook's file name");
    case TestPlace::AutosaveFileName:
        return QStringLiteral("report's file name");
    }
    return {};
}

#include "testdoc/RoundTrip.h"

#include "testdoc/ReadBack.h"
#include "testdoc/TestParser.h"
#include "testdoc/TestWriter.h"

#include <algorithm>
#include <optional>

namespace {

/// Each one costs a round trip. Whoever writes more marks into a test learns of the others when these are gone.
constexpr int MostMarksTried = 100;

std::optional<Finding> FirstError(const std::vector<Finding>& findings) {
    const auto error = std::find_if(findings.begin(), findings.end(),
                                    [](const Finding& finding) { return finding.Level == Severity::Error; });
    return error == findings.end() ? std::nullopt : std::optional(*error);
}

/// A reader's message ends with the name of the file, which is none here.
QString WhyNotRead(QString message) {
    constexpr qsizetype longest = 160;
    const QString ending = QStringLiteral(" in the file: ");
    if (message.endsWith(ending))
        message.chop(ending.size());
    if (message.endsWith(QStringLiteral("]tag")))
        message.insert(message.size() - 3, u' ');
    if (message.size() > longest)
        message = message.left(longest) + QStringLiteral("...");
    return QStringLiteral("a file with this can't be opened again: ") + message;
}

std::vector<Finding> Differences(const TestDocument& test) {
    const auto error = [&](const QString& text) {
        return std::vector<Finding>{MakeFinding(Severity::Error, {}, test, text)};
    };
    const WrittenTest written = WriteTest(test);
    if (!written.StopsBecause.isEmpty())
        return error(QStringLiteral("the test can't be saved whole: ") + written.StopsBecause);
    TestDocument read;
    read.TestFileText = TextWhenRead(written.Text);
    read.TestFileLength = static_cast<int>(read.TestFileText.size());
    try {
        LoadTest(read);
    } catch (const Failure& failure) {
        return error(WhyNotRead(failure.Message()));
    }
    return DifferencesReadBack(test, read);
}

QString& TextAt(TestDocument& test, const TestPlace& place) {
    switch (place.What) {
    case TestPlace::Whole:
    case TestPlace::Title:
        break;
    case TestPlace::Introduction:
        return test.TestIntroduction;
    case TestPlace::Instructions:
        return test.TestInstructions;
    case TestPlace::CompletionMessage:
        return test.TestCompletionMessage;
    case TestPlace::Subscale:
        return test.SubscaleName(place.Index);
    case TestPlace::SubscaleRange:
        return test.SubscaleRangeText(place.Index, place.SubIndex);
    case TestPlace::TotalRange:
        return test.TotalRangeText(place.SubIndex);
    case TestPlace::TemplateAnswer:
        return test.TemplateAnswerText(place.SubIndex);
    case TestPlace::Question:
        return test.QuestionText(place.Index);
    case TestPlace::Answer:
        return test.AnswerText(place.Index, place.SubIndex);
    case TestPlace::ReportDirectory:
        return test.ReportDirectory;
    case TestPlace::ExcelDirectory:
        return test.ExcelDirectory;
    case TestPlace::ExcelFileName:
        return test.ExcelFileName;
    case TestPlace::AutosaveFileName:
        return test.AutosaveFileName;
    }
    return test.TestTitle;
}

bool BeginsMark(QChar c) { return c == u'[' || c == u'<'; }

/// The text with nothing left in it that could be an element or a mark, but what begins at that position.
QString WithOneMark(const QString& text, qsizetype kept) {
    QString plain = text;
    for (qsizetype i = 0; i < plain.size(); ++i)
        if (i != kept && BeginsMark(plain[i]))
            plain[i] = u'(';
    return plain;
}

/// What begins there, as a person finds it in the text: "[report title]", "<P>", or the bracket alone.
QString MarkAt(const QString& text, qsizetype position) {
    constexpr qsizetype longest = 48;
    const QChar end = text[position] == u'[' ? u']' : u'>';
    const QString mark = text.mid(position, longest).section(end, 0, 0);
    return mark.size() < text.size() - position && mark.size() < longest ? mark + end : QString(text[position]);
}

/// Looks for the texts to blame: with each mark of the test in turn as its only one, is it still read back the same?
class Culprits {
  public:
    explicit Culprits(const TestDocument& test) : original_(test), plain_(test) {
        ForEachText(original_, [&](const TestPlace& place, const QString& text) {
            if (std::any_of(text.begin(), text.end(), BeginsMark)) {
                TextAt(plain_, place) = WithOneMark(text, -1);
                suspects_.push_back(place);
            }
        });
    }

    std::vector<Finding> Find() {
        std::vector<Finding> found;
        for (const TestPlace& place : suspects_) {
            const QString plain = TextAt(plain_, place);
            if (const std::optional<Finding> finding = FirstAt(place))
                found.push_back(*finding);
            TextAt(plain_, place) = plain;
        }
        return found;
    }

    /// What is wrong with the test without any of its marks.
    std::vector<Finding> WithoutThem() const { return Differences(plain_); }

  private:
    /// The first mark of the text that changes the test.
    std::optional<Finding> FirstAt(const TestPlace& place) {
        const QString text = TextAt(original_, place);
        for (qsizetype i = 0; i < text.size() && tried_ < MostMarksTried; ++i) {
            if (!BeginsMark(text[i]))
                continue;
            ++tried_;
            TextAt(plain_, place) = WithOneMark(text, i);
            const std::optional<Finding> alone = FirstError(Differences(plain_));
            if (!alone)
                continue;
            // Told is what the whole text brings about, in which another mark may undo this one.
            TextAt(plain_, place) = text;
            const Finding error = FirstError(Differences(plain_)).value_or(*alone);
            const QString where =
                error.Place == place || error.Where.isEmpty() ? QString() : error.Where + QStringLiteral(": ");
            return MakeFinding(Severity::Error, place, original_,
                               QStringLiteral("the text contains ") + MarkAt(text, i) +
                                   QStringLiteral(", which a reader takes for a part of the file: ") + where +
                                   error.Text);
        }
        return std::nullopt;
    }

    TestDocument original_;
    TestDocument plain_;
    std::vector<TestPlace> suspects_;
    int tried_ = 0;
};

} // namespace

std::vector<Finding> CheckRoundTrip(const TestDocument& test) {
    std::vector<Finding> findings = Differences(test);
    if (!FirstError(findings))
        return findings;
    Culprits culprits(test);
    std::vector<Finding> found = culprits.Find();
    if (found.empty())
        return findings;
    // The other findings are what these marks do to the rest of the test.
    for (const Finding& finding : culprits.WithoutThem())
        found.push_back(finding);
    return found;
}

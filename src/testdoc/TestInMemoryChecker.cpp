#include "testdoc/TestInMemoryChecker.h"

#include "base/Text.h"
#include "testdoc/RoundTrip.h"
#include "testdoc/TestWriter.h"

#include <algorithm>
#include <tuple>

namespace {

/// From here on a test is told that it is nearly full.
constexpr int NearlyFull = 30000;

/// The character that keeps the file from being read as a text; nothing when there is none.
std::optional<QChar> ControlCharacter(const QString& text) {
    const auto found = std::find_if(text.begin(), text.end(),
                                    [](QChar c) { return c < u' ' && (c < u'\t' || c > u'\r') && c != u'\x1A'; });
    return found == text.end() ? std::nullopt : std::optional(*found);
}

bool HasHalfACharacter(const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i)
        if (text[i].isSurrogate()) {
            if (!text[i].isHighSurrogate() || i + 1 == text.size() || !text[i + 1].isLowSurrogate())
                return true;
            ++i;
        }
    return false;
}

class SavingChecker {
  public:
    explicit SavingChecker(const TestDocument& test) : test_(test), probe_(test) {}

    /// What becomes of the test in its file.
    std::vector<Finding> Saving() {
        CheckCharacters();
        CheckNumbers();
        CheckQuestions();
        length_ = LengthWhenRead(WriteTest(test_).Text);
        CheckLength();
        // A longer one can't be opened at all, and what else there is comes to light as soon as it is short enough.
        if (length_ <= MaxTestFileLength)
            for (Finding& finding : CheckRoundTrip(probe_))
                findings_.push_back(std::move(finding));
        Sort();
        return findings_;
    }

    std::vector<Finding> All() {
        Saving();
        AddWhatTheDocumentTells();
        Sort();
        return std::move(findings_);
    }
    int LengthWhenSaved() const { return length_; }

  private:
    void Tell(Severity level, const TestPlace& place, const QString& text) {
        findings_.push_back(MakeFinding(level, place, test_, text));
    }
    void CheckCharacters();
    void CheckNumbers();
    void CheckNumber(const TestPlace& place, const char* what, const Value& number, Value& probe);
    void CheckQuestions();
    void CheckLength();
    void AddWhatTheDocumentTells();
    void Sort();

    const TestDocument& test_;
    /// The test without the flaws that would end writing or reading it early, so that the others come to light too.
    TestDocument probe_;
    int length_ = 0;
    std::vector<Finding> findings_;
};

void SavingChecker::CheckCharacters() {
    ForEachText(test_, [this](const TestPlace& place, const QString& text) {
        if (const auto control = ControlCharacter(text))
            Tell(Severity::Error, place,
                 QStringLiteral("the text holds the control character 0x%1, and a file with it can't be opened again")
                     .arg(QString::number(control->unicode(), 16).toUpper().rightJustified(2, u'0')));
        if (HasHalfACharacter(text))
            Tell(Severity::Error, place,
                 QStringLiteral("the text holds half of a character, which no file can keep: the test can't be saved"));
    });
}

void SavingChecker::CheckNumber(const TestPlace& place, const char* what, const Value& number, Value& probe) {
    if (number.TryNumber())
        return;
    probe = 0;
    const QString typed = number.Text();
    Tell(Severity::Error, place,
         (typed.isEmpty() ? QStringLiteral("the %1 is empty").arg(QLatin1String(what))
                          : QStringLiteral("the %1 %2 is no whole number from -32768 to 32767")
                                .arg(QLatin1String(what), Quoted(typed))) +
             QStringLiteral(", and a file with it can't be opened again"));
}

void SavingChecker::CheckNumbers() {
    for (int s = 1; s <= test_.SubscaleCount; ++s)
        for (int r = 1; r <= test_.SubscaleRangeCount(s); ++r) {
            const TestPlace place{TestPlace::SubscaleRange, s, r};
            CheckNumber(place, "low bound", test_.SubscaleRangeLow(s, r), probe_.SubscaleRangeLow(s, r));
            CheckNumber(place, "high bound", test_.SubscaleRangeHigh(s, r), probe_.SubscaleRangeHigh(s, r));
        }
    for (int q = 1; q <= test_.QuestionCount; ++q)
        for (int a = 1; a <= OwnAnswerCount(test_, q); ++a)
            CheckNumber({TestPlace::Answer, q, a}, "value", test_.AnswerValue(q, a), probe_.AnswerValue(q, a));
}

void SavingChecker::CheckQuestions() {
    for (int q = 1; q <= test_.QuestionCount; ++q) {
        if (test_.QuestionType(q) != Multichoice)
            continue;
        const TestPlace place{TestPlace::Question, q, 0};
        if (q > MaxQuestionsWithAnswers) {
            probe_.QuestionType(q) = TypeUnset;
            Tell(Severity::Error, place,
                 QStringLiteral("only questions 1 to %1 can be of the type multichoice").arg(MaxQuestionsWithAnswers));
        } else if (OwnAnswerCount(test_, q) == 0 && test_.TemplateAnswerCount > 0) {
            Tell(Severity::Warning, place,
                 QStringLiteral("the multichoice question has no answers of its own, and becomes a template question "
                                "when the file is read"));
        }
    }
}

void SavingChecker::CheckLength() {
    if (length_ > MaxTestFileLength)
        Tell(Severity::Error, {},
             QStringLiteral("the test is %1 characters too long to be opened again").arg(length_ - MaxTestFileLength));
    else if (length_ >= NearlyFull)
        Tell(Severity::Warning, {},
             QStringLiteral("the file holds %1 characters; one with more than %2 can't be read")
                 .arg(length_)
                 .arg(MaxTestFileLength));
    if (test_.TestTitle.isEmpty())
        Tell(Severity::Warning, {TestPlace::Title, 0, 0},
             QStringLiteral("the test has no title and is listed as 'Untitled'"));
}

void SavingChecker::AddWhatTheDocumentTells() {
    const size_t own = findings_.size();
    TestDocument read = test_;
    if (read.TestTitle.isEmpty())
        read.TestTitle = QStringLiteral("Untitled");
    for (Finding& finding : CheckDocument(read)) {
        const auto end = findings_.begin() + static_cast<std::ptrdiff_t>(own);
        const bool known = finding.Provisional && std::any_of(findings_.begin(), end, [&](const Finding& exact) {
                               return exact.Place == finding.Place;
                           });
        if (!known)
            findings_.push_back(std::move(finding));
    }
}

/// Brings the findings into the order of the file.
void SavingChecker::Sort() {
    const auto key = [](const Finding& finding) {
        const TestPlace& place = finding.Place;
        const int kind = place.What == TestPlace::SubscaleRange ? TestPlace::Subscale
                         : place.What == TestPlace::Answer      ? TestPlace::Question
                                                                : place.What;
        const int index = place.What == TestPlace::TotalRange ? 0 : place.Index;
        return std::tuple(kind, index, place.SubIndex);
    };
    std::stable_sort(findings_.begin(), findings_.end(),
                     [&](const Finding& a, const Finding& b) { return key(a) < key(b); });
}

} // namespace

std::vector<Finding> CheckForSaving(const TestDocument& test, int* lengthWhenRead) {
    SavingChecker checker(test);
    std::vector<Finding> findings = checker.All();
    if (lengthWhenRead)
        *lengthWhenRead = checker.LengthWhenSaved();
    return findings;
}

QStringList WhatForbidsSaving(const TestDocument& test) {
    QStringList reasons;
    for (const Finding& finding : SavingChecker(test).Saving())
        if (finding.Level == Severity::Error)
            reasons.append(finding.Where.isEmpty() ? finding.Text
                                                   : finding.Where + QStringLiteral(": ") + finding.Text);
    return reasons;
}

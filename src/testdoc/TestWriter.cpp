#include "testdoc/TestWriter.h"

#include "base/LineBreak.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"
#include "testdoc/TestInMemoryChecker.h"
#include "testdoc/TestParser.h"

namespace {

QString InBrackets(QLatin1StringView name) { return u'[' + QString(name) + u']'; }
QString Closing(QLatin1StringView name) { return QStringLiteral("[/") + QString(name) + u']'; }

/// Writes a document element by element, in the order that the format gives.
class Writer {
  public:
    explicit Writer(const TestDocument& test) : test_(test) {}

    WrittenTest Write() {
        Element(QLatin1StringView("TITLE"), test_.TestTitle, true);
        Element(QLatin1StringView("INTRODUCTION"), Marked(test_.TestIntroduction), true);
        Element(QLatin1StringView("INSTRUCTIONS"), Marked(test_.TestInstructions), true);
        Element(QLatin1StringView("COMPLETION MESSAGE"), Marked(test_.TestCompletionMessage), true);
        Subscales();
        TotalRanges();
        Template();
        for (int q = 1; q <= test_.QuestionCount; ++q)
            if (!Question(q))
                return {text_, QStringLiteral("question %1 is a multichoice question, and only questions 1 to %2 can "
                                              "have answers of their own; what stands behind it isn't in the file")
                                   .arg(q)
                                   .arg(MaxQuestionsWithAnswers)};
        Options();
        Element(QLatin1StringView("REPORT DIR"), test_.ReportDirectory, false);
        Element(QLatin1StringView("EXCEL DIR"), test_.ExcelDirectory, false);
        Element(QLatin1StringView("EXCEL FILE NAME"), test_.ExcelFileName, false);
        Element(QLatin1StringView("AUTOSAVE FILENAME"), test_.AutosaveFileName, false);
        return {text_, {}};
    }

  private:
    /// Piece by piece, as joining them first would cost more than all the rest.
    template <typename... Pieces> void Line(const Pieces&... pieces) {
        (text_.append(pieces), ...);
        text_.append(LineBreak);
    }

    /// Nothing for an empty content.
    void Element(QLatin1StringView name, const QString& content, bool emptyLineFollows) {
        if (content.isEmpty())
            return;
        Line(InBrackets(name), content, Closing(name));
        if (emptyLineFollows)
            Line();
    }

    static QString Marked(QString text) { return text.replace(LineBreak, QStringLiteral("<P>")); }

    void Range(const QString& low, const QString& high, const QString& text) {
        Line(QStringLiteral("[SIG]"), low, QStringLiteral(" to "), high, QStringLiteral(" ="), text,
             QStringLiteral("[/SIG]"));
    }

    void Answer(const QString& text, const QString& value) {
        Line(QStringLiteral("[A]"), text, QStringLiteral("[v="), value, QStringLiteral("][/A]"));
    }

    void Subscales();
    void TotalRanges();
    void Template();
    bool Question(int q);
    void Options();

    const TestDocument& test_;
    QString text_;
};

void Writer::Subscales() {
    if (test_.SubscaleCount <= 0)
        return;
    Line(QStringLiteral("[SUBSCALES]"));
    for (int s = 1; s <= test_.SubscaleCount; ++s) {
        Line(QStringLiteral("[S]"), test_.SubscaleName(s));
        for (int r = 1; r <= test_.SubscaleRangeCount(s); ++r)
            Range(test_.SubscaleRangeLow(s, r).Text(), test_.SubscaleRangeHigh(s, r).Text(),
                  test_.SubscaleRangeText(s, r));
        Line(QStringLiteral("[/S]"));
    }
    Line(QStringLiteral("[/SUBSCALES]"));
    Line();
}

void Writer::TotalRanges() {
    if (test_.TotalRangeCount <= 0)
        return;
    Line(QStringLiteral("[TOTAL]"));
    for (int r = 1; r <= test_.TotalRangeCount; ++r)
        Range(QString::number(test_.TotalRangeLow(r)), QString::number(test_.TotalRangeHigh(r)),
              test_.TotalRangeText(r));
    Line(QStringLiteral("[/TOTAL]"));
    Line();
}

void Writer::Template() {
    if (test_.TemplateAnswerCount <= 0)
        return;
    Line(QStringLiteral("[TEMPLATE]"));
    for (int i = 1; i <= test_.TemplateAnswerCount; ++i)
        Answer(test_.TemplateAnswerText(i), QString::number(test_.TemplateAnswerValue(i)));
    Line(QStringLiteral("[/TEMPLATE]"));
    Line();
}

/// False when the question's answers have no place.
bool Writer::Question(int q) {
    Line(QStringLiteral("[Q]"), test_.QuestionText(q));
    const int type = test_.QuestionType(q);
    if (type == Multichoice) {
        if (q > MaxQuestionsWithAnswers)
            return false;
        for (int a = 1; a <= test_.AnswerCount(q); ++a)
            Answer(test_.AnswerText(q, a), test_.AnswerValue(q, a).Text());
    } else if (type > Multichoice) {
        Line(QStringLiteral("[QT]%1[/QT]").arg(type));
    }
    if (test_.QuestionSubscale(q) > 0)
        Line(QStringLiteral("[SS=%1]").arg(test_.QuestionSubscale(q)));
    Line(QStringLiteral("[/Q]"));
    return true;
}

void Writer::Options() {
    if (test_.ReportOnlyWhenDone)
        Line(ReportOnlyWhenDoneTag);
    if (test_.NavigationButtons)
        Line(NavigationButtonsTag);
    for (int i = 1; i <= OptionCount; ++i)
        if (test_.TestOption(i))
            Line(test_.OptionTag(i));
}

SaveOutcome CannotBeSaved(const QString& path, const QString& reason, const QString& kept) {
    return {false, false,
            TestCannotBeSaved + QStringLiteral(": ") + path + QStringLiteral(": ") + reason + QStringLiteral(". ") +
                kept};
}

/// The first reasons, in one sentence.
QString Listed(const QStringList& reasons) {
    constexpr qsizetype most = 3;
    const QString more = reasons.size() > most ? QStringLiteral("; and %1 more").arg(reasons.size() - most) : QString();
    return reasons.mid(0, most).join(QStringLiteral("; ")) + more;
}

/// Why the file can't be opened as a test; empty when it can.
QString WhyNotOpened(const QString& path) {
    try {
        TestDocument again;
        return OpenTest(again, path).Message();
    } catch (const Failure& failure) {
        return failure.Message();
    }
}

} // namespace

WrittenTest WriteTest(const TestDocument& test) { return Writer(test).Write(); }

int LengthWhenRead(const QString& written) {
    qsizetype length = written.size() - written.count(u'\r') - written.count(u'\n');
    // A mark may stand across a line end, so only a text that has both needs to be looked at without them.
    if (written.contains(u'<')) {
        QString text = written;
        text.remove(u'\r').remove(u'\n');
        length -= text.count(QStringLiteral("<P>"), Qt::CaseInsensitive);
    }
    return static_cast<int>(length);
}

SaveOutcome SaveTestFile(TestDocument& test) {
    const QString path = test.TestFileName;
    const QStringList reasons = WhatForbidsSaving(test);
    const WrittenTest written = WriteTest(test);
    const std::optional<QByteArray> bytes = EncodeTestText(written.Text);
    if (!reasons.isEmpty() || !bytes)
        return CannotBeSaved(path, Listed(reasons), QStringLiteral("Nothing was written."));
    test.TestFileText.clear();
    const WriteOutcome outcome = WriteFileInManner(path, *bytes, {Audience::Everybody});
    if (!outcome.Written)
        return CannotBeSaved(path, outcome.Reason, outcome.Kept);

    const QString why = WhyNotOpened(path);
    if (why.isEmpty())
        return {true, true, {}};
    return {true, false,
            QStringLiteral("The test was saved as '") + path +
                QStringLiteral("', but it can't be opened again as it is. ") + why};
}

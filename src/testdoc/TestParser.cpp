#include "testdoc/TestParser.h"

#include "base/LineBreak.h"
#include "base/SectionFinder.h"
#include "base/Text.h"
#include "base/WholeNumber.h"
#include "platform/TextFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QSet>

namespace {

constexpr QChar Separator =
#ifdef Q_OS_WIN
    u'\\';
#else
    u'/';
#endif

[[noreturn]] void ReportFileError(const TestDocument& test, const QString& message) {
    throw ParseError(message + QStringLiteral(" in the file: ") + test.TestFileName);
}

[[noreturn]] void MoreThan(int bound, const char* things) {
    throw Failure(QStringLiteral("More than %1 ").arg(bound) + QLatin1String(things));
}

QString BaseName(const QString& path) {
#ifdef Q_OS_WIN
    QString name = QString(path).replace(u'/', Separator).section(u'.', 0, 0);
#else
    QString name = path.section(u'.', 0, 0);
#endif
    return name.mid(name.lastIndexOf(Separator) + 1);
}

/// Reads one test's text from its first element to its last.
class Loader {
  public:
    explicit Loader(TestDocument& test)
        : test_(test), upper_(AsciiUpper(test.TestFileText)), whole_(test.TestFileText, upper_) {}

    void LoadTitle() {
        test_.TestTitle = Section(u"title");
        if (test_.TestTitle.isEmpty())
            test_.TestTitle = QStringLiteral("Untitled");
    }

    void LoadTexts() {
        LoadTitle();
        test_.TestIntroduction = Section(u"introduction");
        test_.TestCompletionMessage = Section(u"COMPLETION MESSAGE");
        test_.TestInstructions = Section(u"instructions");
    }

    void LoadSubscales();
    void LoadTemplate();
    void LoadTotalRanges();
    void LoadQuestions();
    void LoadOptions();

    void RememberPosition() { test_.LastTagPosition = finder_.LastTagPosition(); }

  private:
    struct Range {
        int Low, High;
        QString Text;
    };
    struct Answer {
        QString Text;
        int Value;
    };

    QString Section(QStringView tag) { return finder_.FindSection(tag, whole_).Text().toString(); }
    void LoadSubscale(const TaggedText& element);
    void LoadQuestion(int q, const TaggedText& element);
    int LoadAnswers(int q, const TaggedText& element);
    static Range ReadRange(const TaggedText& element, const QString& messageWithoutEquals);
    Answer ReadAnswer(const TaggedText& element, const QString& messageWithoutValue);

    TestDocument& test_;
    QString upper_;
    TaggedText whole_;
    SectionFinder finder_;
};

Loader::Range Loader::ReadRange(const TaggedText& element, const QString& messageWithoutEquals) {
    const int equals = element.Find(u"=");
    if (equals == 0)
        throw Failure(messageWithoutEquals);
    const int to = element.Find(u"TO");
    if (to == 0 || to > equals)
        throw Failure(QStringLiteral("I can't find the word 'to' between the bounds of the range ") +
                      Quoted(element.Text()));
    return {ToWholeNumber(element.PieceBefore(to).Text()), ToWholeNumber(element.Piece(to + 2, equals - to - 2).Text()),
            element.PieceFrom(equals + 1).Text().toString()};
}

Loader::Answer Loader::ReadAnswer(const TaggedText& element, const QString& messageWithoutValue) {
    test_.LongestAnswerLength = qMax(test_.LongestAnswerLength, element.Length());
    const int marker = element.Find(u"[V=");
    if (marker == 0)
        throw Failure(messageWithoutValue);
    const int value = marker + 3;
    const int end = element.Find(u"]", value);
    if (end == 0)
        throw Failure(QStringLiteral("I can't find the ']' after the value of the answer ") + Quoted(element.Text()));
    return {element.PieceBefore(marker).Text().toString(), ToWholeNumber(element.Piece(value, end - value).Text())};
}

void Loader::LoadSubscales() {
    const TaggedText section = finder_.FindSection(u"subscales", whole_);
    int position = 1;
    for (;;) {
        const TaggedText element = finder_.FindSection(u"s", section, position);
        if (element.Length() == 0)
            return;
        if (test_.SubscaleCount == MaxSubscales)
            MoreThan(MaxSubscales, "sub-scales");
        ++test_.SubscaleCount;
        LoadSubscale(element);
        position += element.Length() + 7;
    }
}

void Loader::LoadSubscale(const TaggedText& element) {
    const int s = test_.SubscaleCount;
    const int bracket = element.Find(u"[");
    if (bracket == 0) {
        test_.SubscaleName(s) = element.Text().toString();
        return;
    }
    test_.SubscaleName(s) = element.PieceBefore(bracket).Text().toString();

    int position = 1;
    for (;;) {
        const TaggedText content = finder_.FindSection(u"sig", element, position);
        if (content.Length() == 0)
            return;
        position = finder_.LastTagPosition() + content.Length() + 4;
        if (test_.SubscaleRangeCount(s) == MaxRanges)
            MoreThan(MaxRanges, "ranges");
        const int r = ++test_.SubscaleRangeCount(s);
        test_.SubscaleRangesPresent = true;
        const Range range = ReadRange(content, QStringLiteral("I can't find a range in subscale significance values"));
        test_.SubscaleRangeLow(s, r) = range.Low;
        test_.SubscaleRangeHigh(s, r) = range.High;
        test_.SubscaleRangeText(s, r) = range.Text;
    }
}

void Loader::LoadTemplate() {
    const TaggedText section = finder_.FindSection(u"template", whole_);
    if (section.Length() == 0)
        return;
    int position = 1;
    for (;;) {
        const TaggedText element = finder_.FindSection(u"a", section, position);
        if (element.Length() == 0)
            break;
        if (test_.TemplateAnswerCount == MaxTemplateAnswers)
            MoreThan(MaxTemplateAnswers, "template answers");
        const int n = ++test_.TemplateAnswerCount;
        const Answer answer = ReadAnswer(element, QStringLiteral("I can't find a template value"));
        test_.TemplateAnswerText(n) = answer.Text;
        test_.TemplateAnswerValue(n) = answer.Value;
        position += element.Length() + 7;
    }
    test_.MaxAnswerCount = test_.TemplateAnswerCount;
}

void Loader::LoadTotalRanges() {
    const TaggedText section = finder_.FindSection(u"total", whole_);
    if (section.Length() == 0)
        return;
    test_.TotalRangeCount = 0;
    int position = 1;
    for (;;) {
        const TaggedText content = finder_.FindSection(u"sig", section, position);
        if (content.Length() == 0)
            return;
        if (test_.TotalRangeCount == MaxRanges)
            MoreThan(MaxRanges, "ranges");
        const int r = ++test_.TotalRangeCount;
        const Range range = ReadRange(content, QStringLiteral("I can't find a range in total significance values"));
        test_.TotalRangeLow(r) = range.Low;
        test_.TotalRangeHigh(r) = range.High;
        test_.TotalRangeText(r) = range.Text;
        position += content.Length() + 11;
    }
}

void Loader::LoadQuestions() {
    test_.QuestionCount = 0;
    for (int found = whole_.Find(u"[Q]"); found != 0; found = whole_.Find(u"[Q]", found + 3)) {
        if (test_.QuestionCount == MaxQuestions)
            MoreThan(MaxQuestions, "questions");
        ++test_.QuestionCount;
    }

    int position = 1;
    for (int q = 1; q <= test_.QuestionCount; ++q) {
        const TaggedText element = finder_.FindSection(u"q", whole_, position);
        const int contentStart = finder_.LastTagPosition();
        LoadQuestion(q, element);
        position = contentStart + element.Length() + 3;
    }
}

void Loader::LoadQuestion(int q, const TaggedText& element) {
    const int bracket = element.Find(u"[");
    test_.QuestionText(q) = (bracket == 0 ? element : element.PieceBefore(bracket)).Text().toString();

    const TaggedText type = finder_.FindSection(u"QT", element);
    if (type.Length() != 0)
        test_.QuestionType(q) = ToWholeNumber(type.Text());
    if (test_.QuestionType(q) == LongAnswer)
        test_.HasLongAnswerQuestions = true;

    const int answers = LoadAnswers(q, element);

    if (const int marker = element.Find(u"[SS="); marker != 0) {
        const int number = marker + 4;
        const int end = element.Find(u"]", number);
        if (end == 0)
            throw Failure(QStringLiteral("I can't find the ']' after the sub-scale of the question ") +
                          Quoted(element.Text()));
        test_.QuestionSubscale(q) = ToWholeNumber(element.Piece(number, end - number).Text());
    }
    if (answers == 0 && test_.TemplateAnswerCount > MaxAnswers)
        MoreThan(MaxAnswers, "answers");

    const int kind = test_.QuestionType(q);
    if (kind < ShortAnswer)
        test_.HasMultichoice = true;
    else if (kind == ShortAnswer)
        test_.HasShortAnswer = true;
    else if (kind == LongAnswer)
        test_.HasLongAnswer = true;
}

int Loader::LoadAnswers(int q, const TaggedText& element) {
    int a = 0;
    int position = 1;
    for (;;) {
        const TaggedText content = finder_.FindSection(u"a", element, position);
        if (content.Length() == 0)
            return a;
        position = finder_.LastTagPosition() + content.Length() + 4;
        if (q > MaxQuestionsWithAnswers)
            MoreThan(MaxQuestionsWithAnswers, "questions with answers of their own");
        if (a == MaxAnswers)
            MoreThan(MaxAnswers, "answers");
        ++a;
        test_.AnswerCount(q) = a;
        const Answer answer = ReadAnswer(content, QStringLiteral("I can't find a value assigned to question ") +
                                                      element.Text().toString());
        test_.AnswerText(q, a) = answer.Text;
        test_.AnswerValue(q, a) = answer.Value;
        test_.MaxAnswerCount = qMax(test_.MaxAnswerCount, a);
        test_.QuestionType(q) = Multichoice;
    }
}

/// Every "[" with what follows it up to the next "]", as far as it is of the length of an option's tag. One pass finds
/// all the options, where a search for each of them would go through the text again and again.
QSet<QStringView> BracketedWords(QStringView text) {
    constexpr qsizetype shortest = 14;
    constexpr qsizetype longest = 48;
    QSet<QStringView> words;
    for (qsizetype at = text.indexOf(u'['); at >= 0; at = text.indexOf(u'[', at + 1)) {
        const QStringView rest = text.mid(at, longest);
        const qsizetype length = rest.indexOf(u']') + 1;
        if (length >= shortest)
            words.insert(rest.first(length));
    }
    return words;
}

void Loader::LoadOptions() {
    const auto& tags = OptionTags();
    for (int i = 1; i <= OptionCount; ++i)
        test_.OptionTag(i) = tags[static_cast<size_t>(i - 1)];
    const QSet<QStringView> words = BracketedWords(upper_);
    test_.ReportOnlyWhenDone = words.contains(ReportOnlyWhenDoneTag);
    test_.NavigationButtons = words.contains(NavigationButtonsTag);
    for (int i = 1; i <= OptionCount; ++i)
        test_.TestOption(i) = words.contains(test_.OptionTag(i));
    test_.ReportDirectory = Section(u"REPORT DIR");
    test_.ExcelFileName = Section(u"EXCEL FILE NAME");
    test_.ExcelDirectory = Section(u"EXCEL DIR");
    test_.AutosaveFileName = Section(u"AUTOSAVE FILENAME");
}

template <typename Steps> void NamingTheFile(TestDocument& test, const Steps& steps) {
    try {
        steps();
    } catch (const Failure& failure) {
        ReportFileError(test, failure.Message());
    }
}

} // namespace

void ClearTest(TestDocument& test) {
    test.HasMultichoice = test.HasShortAnswer = test.HasLongAnswer = test.HasLongAnswerQuestions = false;
    test.ReportDirectory.clear();
    test.ExcelFileName.clear();

    test.TestFileName.clear();
    test.TestFileText.clear();
    test.TestFileHash.clear();
    test.TestTitle.clear();
    test.TestCompletionMessage.clear();
    test.TestInstructions.clear();
    test.TestIntroduction.clear();
    test.TestFileLength = 0;

    test.TotalRangeCount = 0;
    test.TotalRangeLow.Fill(0);
    test.TotalRangeHigh.Fill(0);
    test.TotalRangeText.Fill({});

    test.SubscaleRangeCount.Fill(0);
    for (int s = 1; s <= MaxSubscales; ++s) {
        test.SubscaleRangeText.Row(s).Fill({});
        test.SubscaleRangeLow.Row(s).Fill({});
        test.SubscaleRangeHigh.Row(s).Fill({});
    }

    test.ReportOnlyWhenDone = test.NavigationButtons = false;
    test.TestOption.Fill(false);
    test.SubscaleRangesPresent = false;
    test.SubscaleCount = 0;

    test.TemplateAnswerText.Fill({});
    test.TemplateAnswerValue.Fill(0);
    test.TemplateAnswerCount = test.LongestAnswerLength = test.MaxAnswerCount = test.QuestionCount = 0;
}

QString TextWhenRead(QString fileText) {
    // Old systems ended a text file with this character.
    if (fileText.endsWith(u'\x1A'))
        fileText.chop(1);
    fileText.remove(u'\r').remove(u'\n');
    return fileText.replace(QStringLiteral("<P>"), LineBreak).replace(QStringLiteral("<p>"), LineBreak);
}

Result ReadTestFile(TestDocument& test, const QString& path) {
    test.TestFileName = path;

    TextOfFile file;
    // No test is longer than this in bytes: each character takes at most three, and a line end hides behind "<P>".
    if (const Result read = ReadTextFile(path, MaxTestFileBytes, file); !read)
        return read;

    const QString text = TextWhenRead(file.Text);
    if (text.size() > MaxTestFileLength)
        return Result::Failed(QStringLiteral("it holds %1 characters, and a test has at most %2")
                                  .arg(QString::number(text.size()), QString::number(MaxTestFileLength)));
    test.TestFileText = text;
    test.TestFileLength = static_cast<int>(text.size());
    test.TestFileHash = QString::fromLatin1(QCryptographicHash::hash(file.Bytes, QCryptographicHash::Sha256).toHex());
    return Result::Done();
}

void LoadTest(TestDocument& test) {
    if (test.TestFileName.contains(u'.'))
        test.TestBaseName = BaseName(test.TestFileName);
    Loader loader(test);
    NamingTheFile(test, [&] {
        loader.LoadTexts();
        loader.LoadSubscales();
        loader.LoadTemplate();
        loader.LoadTotalRanges();
        loader.LoadQuestions();
        loader.LoadOptions();
    });
    loader.RememberPosition();
}

void LoadTitle(TestDocument& test) {
    Loader loader(test);
    NamingTheFile(test, [&] { loader.LoadTitle(); });
    loader.RememberPosition();
}

void LoadTitleAndTexts(TestDocument& test) {
    Loader loader(test);
    NamingTheFile(test, [&] { loader.LoadTexts(); });
    loader.RememberPosition();
}

QString CantReadTestFile(const QString& path, const QString& reason) {
    return QStringLiteral("Can't read the test file '") + path + QStringLiteral("': ") + reason;
}

Result OpenTest(TestDocument& test, const QString& path) {
    test = TestDocument();
    ClearTest(test);
    if (const Result read = ReadTestFile(test, path); !read)
        return Result::Failed(CantReadTestFile(path, read.Message()));
    LoadTest(test);
    return Result::Done();
}

QString AbsolutePath(const QString& path) {
    return QDir::toNativeSeparators(QDir::isAbsolutePath(path) ? path
                                                               : QDir::cleanPath(QDir::currentPath() + u'/' + path));
}

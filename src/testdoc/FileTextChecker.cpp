#include "base/Text.h"
#include "testdoc/FileLayout.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr int NearlyFull = 30000;

QStringList TopLevelNames() {
    return {QStringLiteral("TITLE"),
            QStringLiteral("INTRODUCTION"),
            QStringLiteral("INSTRUCTIONS"),
            QStringLiteral("COMPLETION MESSAGE"),
            QStringLiteral("SUBSCALES"),
            QStringLiteral("TOTAL"),
            QStringLiteral("TEMPLATE"),
            QStringLiteral("REPORT DIR"),
            QStringLiteral("EXCEL DIR"),
            QStringLiteral("EXCEL FILE NAME"),
            QStringLiteral("AUTOSAVE FILENAME")};
}

class FileTextChecker {
  public:
    FileTextChecker(const TestDocument& test, const QString& fileText) : test_(test), layout_(fileText) {}

    std::vector<Finding> Run() {
        CheckLength();
        CheckTopLevel();
        CheckList(QStringLiteral("SUBSCALES"), QStringLiteral("S"), test_.SubscaleCount, "sub-scales");
        CheckList(QStringLiteral("TOTAL"), QStringLiteral("SIG"), test_.TotalRangeCount, "total ranges");
        CheckList(QStringLiteral("TEMPLATE"), QStringLiteral("A"), test_.TemplateAnswerCount, "template answers");
        CheckSubscales();
        CheckQuestions();
        CheckLineEnds();
        return std::move(findings_);
    }

  private:
    void Warn(const TestPlace& place, int position, const QString& text) {
        Finding finding = MakeFinding(Severity::Warning, place, test_, text);
        finding.Line = layout_.LineOf(position);
        finding.Column = layout_.ColumnOf(position);
        findings_.push_back(finding);
    }
    bool Stands(const QString& upperWord, int position) const {
        return QStringView(layout_.Upper()).mid(position).startsWith(upperWord);
    }
    QString OptionTagAt(int position) const;

    void CheckLength();
    void CheckTopLevel();
    void CheckStrayText(const TestPlace& place, const FileSpan& in, std::vector<FileSpan> covered);
    void CheckStrayPiece(const TestPlace& place, FileSpan piece);
    void CheckList(const QString& section, const QString& name, int readCount, const char* things);
    void CheckSubscales();
    void CheckQuestions();
    void CheckQuestion(int q, const FileElement& question);
    void CheckQuestionMarks(int q, const FileElement& question, const std::vector<FileElement>& answers);
    void CheckLineEnds();
    void CheckLineEnd(const TestPlace& place, const FileSpan& content, bool isParagraphs);
    FileSpan TextSpan(const FileSpan& content) const;

    const TestDocument& test_;
    FileLayout layout_;
    std::vector<Finding> findings_;
};

QString FileTextChecker::OptionTagAt(int position) const {
    for (const QString& tag : OptionTags())
        if (Stands(tag, position))
            return tag;
    for (const QString& tag : {ReportOnlyWhenDoneTag, NavigationButtonsTag})
        if (Stands(tag, position))
            return tag;
    return {};
}

void FileTextChecker::CheckLength() {
    if (test_.TestFileLength >= NearlyFull)
        findings_.push_back(
            MakeFinding(Severity::Warning, {}, test_,
                        QStringLiteral("the file holds %1 characters; one with more than %2 can't be read")
                            .arg(test_.TestFileLength)
                            .arg(MaxTestFileLength)));
    if (!layout_.Find(QStringLiteral("TITLE"), layout_.All()).Whole.Exists)
        findings_.push_back(MakeFinding(Severity::Warning, {}, test_,
                                        QStringLiteral("the test has no title and is listed as 'Untitled'")));
}

void FileTextChecker::CheckTopLevel() {
    std::vector<FileSpan> covered;
    for (const QString& name : TopLevelNames())
        if (const FileElement element = layout_.Find(name, layout_.All()); element.Whole.Exists)
            covered.push_back(element.Whole);
    for (const FileElement& question : layout_.FindAll(QStringLiteral("Q"), layout_.All()))
        covered.push_back(question.Whole);
    for (auto at = layout_.Text().indexOf(u'['); at >= 0; at = layout_.Text().indexOf(u'[', at + 1)) {
        const auto position = static_cast<int>(at);
        if (const auto length = static_cast<int>(OptionTagAt(position).size()); length > 0)
            covered.push_back({position, position + length, true});
    }
    CheckStrayText({}, layout_.All(), covered);
}

/// Tells what stands in the span but in none of the covered ones.
void FileTextChecker::CheckStrayText(const TestPlace& place, const FileSpan& in, std::vector<FileSpan> covered) {
    std::sort(covered.begin(), covered.end(), [](const FileSpan& a, const FileSpan& b) { return a.Begin < b.Begin; });
    covered.push_back({in.End, in.End, true});
    int position = in.Begin;
    for (const FileSpan& span : covered) {
        if (span.Begin > position)
            CheckStrayPiece(place, layout_.Trimmed({position, span.Begin, true}));
        position = std::max(position, span.End);
    }
}

void FileTextChecker::CheckStrayPiece(const TestPlace& place, FileSpan piece) {
    for (const QString& name : TopLevelNames()) {
        if (place.What != TestPlace::Whole || !Stands(u'[' + name + u']', piece.Begin))
            continue;
        const FileElement again = layout_.Find(name, piece);
        if (!again.Whole.Exists)
            continue;
        Warn(place, piece.Begin,
             QStringLiteral("the element [") + name +
                 QStringLiteral("] stands here again; only the first one is read"));
        return CheckStrayPiece(place, layout_.Trimmed({again.Whole.End, piece.End, true}));
    }
    if (piece.Begin < piece.End)
        Warn(place, piece.Begin,
             QStringLiteral("the text ") +
                 Quoted(QStringView(layout_.Text()).mid(piece.Begin, std::min(piece.End - piece.Begin, 60))) +
                 QStringLiteral(" stands outside of all elements and is not read"));
}

void FileTextChecker::CheckList(const QString& section, const QString& name, int readCount, const char* things) {
    const FileElement list = layout_.Find(section, layout_.All());
    if (!list.Whole.Exists)
        return;
    const std::vector<FileElement> elements = layout_.FindAll(name, list.Content);
    std::vector<FileSpan> covered;
    for (const FileElement& element : elements)
        covered.push_back(element.Whole);
    CheckStrayText({}, list.Content, covered);
    if (static_cast<size_t>(readCount) != elements.size())
        Warn(
            {}, list.Whole.Begin,
            QStringLiteral("%1 %2 stand in the file, and %3 are read: an empty one ends the list, and text between two "
                           "of them makes one count twice")
                .arg(elements.size())
                .arg(QLatin1String(things))
                .arg(readCount));
}

void FileTextChecker::CheckSubscales() {
    const FileElement section = layout_.Find(QStringLiteral("SUBSCALES"), layout_.All());
    int s = 0;
    for (const FileElement& subscale : layout_.FindAll(QStringLiteral("S"), section.Content)) {
        const TestPlace place{TestPlace::Subscale, ++s, 0};
        std::vector<FileSpan> covered{TextSpan(subscale.Content)};
        for (const FileElement& range : layout_.FindAll(QStringLiteral("SIG"), subscale.Content))
            covered.push_back(range.Whole);
        if (s <= test_.SubscaleCount)
            CheckStrayText(place, subscale.Content, covered);
    }
}

/// The text before the first bracket.
FileSpan FileTextChecker::TextSpan(const FileSpan& content) const {
    const auto bracket = static_cast<int>(layout_.Text().indexOf(u'[', content.Begin));
    return {content.Begin, bracket < 0 || bracket > content.End ? content.End : bracket, true};
}

void FileTextChecker::CheckQuestions() {
    int q = 0;
    for (const FileElement& question : layout_.FindAll(QStringLiteral("Q"), layout_.All()))
        if (++q <= test_.QuestionCount)
            CheckQuestion(q, question);
}

void FileTextChecker::CheckQuestion(int q, const FileElement& question) {
    const TestPlace place{TestPlace::Question, q, 0};
    const FileSpan text = TextSpan(question.Content);
    const bool known = text.End == question.Content.End || Stands(QStringLiteral("[A]"), text.End) ||
                       Stands(QStringLiteral("[QT]"), text.End) || Stands(QStringLiteral("[SS="), text.End);
    if (!known) {
        const QString tag = OptionTagAt(text.End);
        Warn(place, text.End,
             tag.isEmpty() ? QStringLiteral("the question's text ends here, at a square bracket")
                           : QStringLiteral("the text contains ") + tag +
                                 QStringLiteral(", which switches that option on and ends the question's text"));
    }

    const std::vector<FileElement> answers = layout_.FindAll(QStringLiteral("A"), question.Content);
    CheckQuestionMarks(q, question, answers);
    std::vector<FileSpan> covered{text};
    for (const FileElement& answer : answers)
        covered.push_back(answer.Whole);
    for (const FileElement& type : layout_.FindAll(QStringLiteral("QT"), question.Content))
        covered.push_back(type.Whole);
    const QString mark = QStringLiteral("[SS=");
    for (auto at = layout_.Upper().indexOf(mark, question.Content.Begin); at >= 0 && at < question.Content.End;
         at = layout_.Upper().indexOf(mark, at + 1))
        covered.push_back({static_cast<int>(at), static_cast<int>(layout_.Text().indexOf(u']', at)) + 1, true});
    if (known)
        CheckStrayText(place, question.Content, covered);
}

void FileTextChecker::CheckQuestionMarks(int q, const FileElement& question, const std::vector<FileElement>& answers) {
    const TestPlace place{TestPlace::Question, q, 0};
    const QStringView content =
        QStringView(layout_.Upper()).mid(question.Content.Begin, question.Content.End - question.Content.Begin);
    const FileElement type = layout_.Find(QStringLiteral("QT"), question.Content);
    if (type.Whole.Exists) {
        const QString number = layout_.Text().mid(type.Content.Begin, type.Content.End - type.Content.Begin).trimmed();
        if (!answers.empty())
            Warn(place, type.Whole.Begin,
                 QStringLiteral("the question has answers and the type ") + Quoted(number) +
                     QStringLiteral("; it is read as multichoice"));
        else if (number != QStringLiteral("2") && number != QStringLiteral("3"))
            Warn(place, type.Whole.Begin,
                 QStringLiteral("the type is ") + Quoted(number) +
                     QStringLiteral(", and not 2 (short answer) or 3 (long answer)"));
    }
    if (content.count(QStringLiteral("[SS=")) > 1)
        Warn(place, question.Whole.Begin,
             QStringLiteral("the question names several sub-scales; only the first counts"));
    const int readCount = OwnAnswerCount(test_, q);
    if (static_cast<size_t>(readCount) != answers.size())
        Warn(place, question.Whole.Begin,
             QStringLiteral("%1 answers stand in the file, and %2 are read").arg(answers.size()).arg(readCount));
    int a = 0;
    for (const FileElement& answer : answers) {
        ++a;
        const QStringView inside =
            QStringView(layout_.Upper()).mid(answer.Content.Begin, answer.Content.End - answer.Content.Begin);
        const qsizetype end = inside.indexOf(u']', qMax<qsizetype>(inside.indexOf(QStringLiteral("[V=")), 0));
        if (end >= 0 && !inside.mid(end + 1).trimmed().isEmpty())
            Warn({TestPlace::Answer, q, a}, answer.Whole.Begin,
                 QStringLiteral("what stands behind the answer's value is not read"));
    }
}

void FileTextChecker::CheckLineEnds() {
    for (const TestPlace::Kind kind :
         {TestPlace::Title, TestPlace::Introduction, TestPlace::Instructions, TestPlace::CompletionMessage}) {
        const FileElement element = layout_.ElementOf({kind, 0, 0});
        if (element.Whole.Exists)
            CheckLineEnd({kind, 0, 0}, element.Content, kind != TestPlace::Title);
    }
    const FileElement subscales = layout_.Find(QStringLiteral("SUBSCALES"), layout_.All());
    int s = 0;
    for (const FileElement& subscale : layout_.FindAll(QStringLiteral("S"), subscales.Content)) {
        CheckLineEnd({TestPlace::Subscale, ++s, 0}, TextSpan(subscale.Content), false);
        int r = 0;
        for (const FileElement& range : layout_.FindAll(QStringLiteral("SIG"), subscale.Content))
            CheckLineEnd({TestPlace::SubscaleRange, s, ++r}, range.Content, false);
    }
    int r = 0;
    const FileElement total = layout_.Find(QStringLiteral("TOTAL"), layout_.All());
    for (const FileElement& range : layout_.FindAll(QStringLiteral("SIG"), total.Content))
        CheckLineEnd({TestPlace::TotalRange, 0, ++r}, range.Content, false);
    int q = 0;
    for (const FileElement& question : layout_.FindAll(QStringLiteral("Q"), layout_.All())) {
        CheckLineEnd({TestPlace::Question, ++q, 0}, TextSpan(question.Content), false);
        int a = 0;
        for (const FileElement& answer : layout_.FindAll(QStringLiteral("A"), question.Content))
            CheckLineEnd({TestPlace::Answer, q, ++a}, TextSpan(answer.Content), false);
    }
}

void FileTextChecker::CheckLineEnd(const TestPlace& place, const FileSpan& content, bool isParagraphs) {
    if (!layout_.LosesLineEnd(content))
        return;
    Warn(place, content.Begin,
         QStringLiteral(
             "a line break inside the text is lost when the file is read, and the words around it are joined") +
             (isParagraphs ? QStringLiteral("; <P> stands for a line break") : QString()));
}

} // namespace

std::vector<Finding> CheckFileText(const TestDocument& test, const QString& fileText) {
    return FileTextChecker(test, fileText).Run();
}

void LocateFindings(std::vector<Finding>& findings, const QString& fileText) {
    const FileLayout layout(fileText);
    for (Finding& finding : findings) {
        if (finding.Line != 0)
            continue;
        const FileElement element = layout.ElementOf(finding.Place);
        if (!element.Whole.Exists)
            continue;
        finding.Line = layout.LineOf(element.Whole.Begin);
        finding.Column = layout.ColumnOf(element.Whole.Begin);
    }
}

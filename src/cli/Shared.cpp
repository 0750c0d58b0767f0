#include "cli/Shared.h"

#include "base/Text.h"
#include "taker/Administration.h"
#include "testdoc/EarlierTest.h"

#include <QFileInfo>

std::vector<OptionSpec> ReportOptions() {
    return {
        {QStringLiteral("--administrator"), QStringLiteral("NAME"), QStringLiteral("who administered the test")},
        {QStringLiteral("--now"), QStringLiteral("TIME"),
         QStringLiteral("date and time of the report, as 2026-11-21T14:05:09")},
        {QStringLiteral("--prefix"), QStringLiteral("TEXT"), QStringLiteral("text before a question's number")},
        {QStringLiteral("--suffix"), QStringLiteral("TEXT"), QStringLiteral("text behind a question's number")},
        {QStringLiteral("--break-after-number"), {}, QStringLiteral("a new line after a question's number")},
        {QStringLiteral("--no-break-after-number"), {}, QStringLiteral("no new line after a question's number")},
    };
}

ReportContext ReportContextFrom(const CommandLine& line, const Console& console) {
    const auto either = [&](const QString& option, const QString& setting) {
        return line.Has(option) ? line.Value(option) : setting;
    };
    const QString breakOption = QStringLiteral("--break-after-number");
    const QString noBreakOption = QStringLiteral("--no-break-after-number");
    if (line.Has(breakOption) && line.Has(noBreakOption))
        throw UsageError(Quoted(breakOption) + QStringLiteral(" and ") + Quoted(noBreakOption) +
                         QStringLiteral(" exclude each other"));

    ReportContext context;
    const Settings& settings = console.UserSettings;
    context.AdministratorName = either(QStringLiteral("--administrator"), settings.AdministratorName);
    context.QuestionPrefix = either(QStringLiteral("--prefix"), settings.QuestionPrefix);
    context.QuestionSuffix = either(QStringLiteral("--suffix"), settings.QuestionSuffix);
    context.BreakAfterQuestionNumber =
        line.Has(breakOption) || (settings.BreakAfterQuestionNumber && !line.Has(noBreakOption));
    context.Now = console.Time.Now();
    const QString nowOption = QStringLiteral("--now");
    if (line.Has(nowOption)) {
        const QString now = line.Value(nowOption);
        const QDate date = QDate::fromString(now.left(10), QStringLiteral("yyyy-MM-dd"));
        const QTime time = QTime::fromString(now.mid(10), QStringLiteral("'T'HH:mm:ss"));
        // Only the two parts are used; in UTC no hour is left out by summer time.
        context.Now = date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
        if (!context.Now.isValid())
            throw UsageError(Quoted(line.Value(nowOption)) +
                             QStringLiteral(" is no date and time such as 2026-11-21T14:05:09"));
    }
    return context;
}

void OpenTestFor(const QString& path, TestDocument& test) { OpenTestNamingEarlier(test, AbsolutePath(path)); }

void RequireQuestions(const TestDocument& test) {
    if (const Result result = CanBegin(test); !result)
        throw Failure(result.Message());
}

void OpenResponses(QFile& file) {
    const QString sentence =
        QStringLiteral("Can't read the responses file '") + file.fileName() + QStringLiteral("': ");
    if (QFileInfo(file.fileName()).isDir())
        throw Failure(sentence + QStringLiteral("it is a directory"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw Failure(sentence + file.errorString());
}

PromptAnswer SayingPrompts::Ask(const Prompt& prompt) {
    ++count_;
    Say(console_, prompt.Text);
    return prompt.Buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::Cancel;
}

int SayingPrompts::Choose(const ChoicePrompt& prompt) {
    ++count_;
    Say(console_, prompt.Text);
    return prompt.Escape;
}

Progress::Progress(Console& console, qint64 total)
    : console_(console),
      total_(total),
      shown_(console.ErrIsTerminal),
      begin_(std::chrono::steady_clock::now()),
      last_(begin_) {}

Progress::~Progress() {
    if (drawn_)
        console_.Err.write("\r\x1b[K");
}

void Progress::Draw(qint64 bytes, qint64 rows) {
    const auto now = std::chrono::steady_clock::now();
    if (now - last_ < std::chrono::milliseconds(100))
        return;
    last_ = now;
    drawn_ = true;
    constexpr int width = 30;
    const double seconds = std::chrono::duration<double>(now - begin_).count();
    const double part = total_ > 0 ? qMin(1.0, static_cast<double>(bytes) / static_cast<double>(total_)) : 0.0;
    QByteArray text = "\r[" + QByteArray(static_cast<int>(part * width), '#').leftJustified(width, '.') + "] " +
                      QByteArray::number(rows) + " rows, " +
                      QByteArray::number(static_cast<qint64>(static_cast<double>(rows) / seconds)) + " rows/s";
    if (part > 0)
        text += ", " + QByteArray::number(static_cast<qint64>(seconds * (1 - part) / part) + 1) + " s left";
    console_.Err.write(text + "\x1b[K");
}

#include "base/LineBreak.h"
#include "base/Text.h"
#include "base/WholeNumber.h"
#include "cli/Output.h"
#include "cli/Shared.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"
#include "taker/Administration.h"
#include "taker/Scoring.h"

#include <optional>

namespace {

const QString ClientOption = QStringLiteral("--client");
const QString ReportOption = QStringLiteral("--report");

/// One administration in the terminal. The talk with the client goes to standard error, so that standard output holds
/// nothing but the report.
class Interview {
  public:
    Interview(Session& session, Console& console, const ReportContext& context)
        : session_(session), console_(console), context_(context), administration_(session) {}

    void Run();

  private:
    void Tell(const QString& text);
    void TellPage();
    std::optional<QString> ReadLine();
    /// False when the interview is over.
    bool TakeLine(const QString& line);
    bool TakeCommandWord(const QString& word);
    void TakeAnswer(const QString& line);
    void Step(bool offered, void (Administration::*step)());
    void TellReport();
    /// Whether a report can be made at the end; what the client can do about it is told when not.
    bool CanEnd();

    Session& session_;
    Console& console_;
    const ReportContext& context_;
    Administration administration_;
};

void Interview::Tell(const QString& text) { Say(console_, QString(text).replace(LineBreak, QStringLiteral("\n"))); }

void Interview::TellPage() {
    const bool completed = administration_.Page() == TestPage::Completed;
    Tell(u'\n' + administration_.FrameCaption() + u'\n' +
         (completed ? administration_.CompletionText(QStringLiteral(
                          "Type :report to read the report, or :back to view and change your answers. An empty line "
                          "ends the test."))
                    : administration_.PageText()));
    if (const QString reason = administration_.CannotAnswer(); !reason.isEmpty())
        Tell(reason + QStringLiteral(" An empty line goes on; the question counts as not answered."));
    if (administration_.ShowsMultichoice()) {
        for (int a = 1; a <= MaxAnswers; ++a)
            if (administration_.AnswerOffered(a))
                Tell(QStringLiteral("%1. ").arg(a, 4) +
                     ChosenText(session_.Test, administration_.CurrentQuestion(), a));
    } else if (administration_.ShowsShortAnswer() || administration_.ShowsLongAnswer()) {
        const QString& earlier = session_.Responses.ResponseText(administration_.CurrentQuestion());
        if (!earlier.isEmpty())
            Tell(QStringLiteral("Your answer so far: ") + earlier);
    }
    const int chosen =
        administration_.ShowsMultichoice() ? session_.Responses.ResponseChoice(administration_.CurrentQuestion()) : 0;
    if (chosen != 0)
        Tell(QStringLiteral("Your choice so far: %1").arg(chosen));
}

std::optional<QString> Interview::ReadLine() {
    if (console_.ErrIsTerminal)
        console_.Err.write("> ");
    const QByteArray bytes = console_.In.readLine();
    if (bytes.isEmpty())
        return std::nullopt;
    QString line = DecodeText(bytes).Text;
    line.remove(QChar(u'\0'));
    while (line.endsWith(u'\n') || line.endsWith(u'\r'))
        line.chop(1);
    return line;
}

void Interview::Run() {
    if (administration_.Page() == TestPage::Instructions) {
        TellPage();
        administration_.Begin();
    }
    TellPage();
    while (const std::optional<QString> line = ReadLine())
        if (!TakeLine(*line))
            return;
}

bool Interview::TakeLine(const QString& line) {
    if (line.startsWith(u':') && !line.startsWith(QStringLiteral("::")))
        return TakeCommandWord(line.trimmed());
    if (administration_.Page() == TestPage::Completed) {
        if (line.isEmpty())
            return !CanEnd();
        Tell(QStringLiteral("The test is completed. An empty line ends it; :back goes back."));
        return true;
    }
    TakeAnswer(line.startsWith(u':') ? line.mid(1) : line);
    return true;
}

bool Interview::TakeCommandWord(const QString& word) {
    if (word == QStringLiteral(":quit"))
        return !CanEnd();
    if (word == QStringLiteral(":back"))
        Step(administration_.BackVisible(), &Administration::Back);
    else if (word == QStringLiteral(":forward"))
        Step(administration_.ForwardVisible(), &Administration::Forward);
    else if (word != QStringLiteral(":report"))
        Tell(Quoted(word) + QStringLiteral(" is no command. There are :back, :forward, :report and :quit; a text that "
                                           "begins with a colon begins with two."));
    else if (administration_.ReportVisible())
        TellReport();
    else
        Tell(QStringLiteral("A report can't be made now."));
    return true;
}

void Interview::Step(bool offered, void (Administration::*step)()) {
    if (!offered)
        return Tell(QStringLiteral("You can't go there now."));
    (administration_.*step)();
    TellPage();
}

void Interview::TellReport() {
    try {
        Tell(BuildReport(session_.Test, session_.Responses, context_));
    } catch (const OverflowError& overflow) {
        Tell(overflow.Message());
    }
}

bool Interview::CanEnd() {
    try {
        ComputeScores(session_.Test, session_.Responses);
        return true;
    } catch (const Failure& failure) {
        Tell(failure.Message() +
             QStringLiteral(": no report can be made of these answers. :back changes one; the end of the input gives "
                            "them up."));
        return false;
    }
}

void Interview::TakeAnswer(const QString& line) {
    if (administration_.ShowsMultichoice()) {
        const std::optional<int> a = TryAnswerNumber(line);
        if (!a || !administration_.Choose(*a))
            return Tell(Quoted(line) + QStringLiteral(" is not the number of an answer."));
    } else if (administration_.ShowsShortAnswer() || administration_.ShowsLongAnswer()) {
        administration_.AcceptText(line);
    } else if (!line.isEmpty() || !administration_.Continue()) {
        return Tell(administration_.CannotAnswer() + QStringLiteral(" An empty line goes on."));
    }
    TellPage();
}

void Deliver(const QString& report, const CommandLine& line, Console& console) {
    Result filed = Result::Done();
    if (line.Has(ReportOption)) {
        filed = WriteFile(line.Value(ReportOption), EncodeForLocale(report));
        if (filed)
            return;
    }
    // What can't be filed is shown, so that the client's answers aren't lost.
    Output output(console.Out);
    output.Write(report.toUtf8());
    output.Finish();
    if (!filed)
        throw Failure(filed.Message());
}

int Run(const CommandLine& line, Console& console) {
    ReportContext context = ReportContextFrom(line, console);
    if (line.Has(ReportOption) && line.Value(ReportOption).isEmpty())
        throw UsageError(QStringLiteral("'--report' needs a path"));
    Session session;
    OpenTestFor(line.Files[0], session.Test);
    RequireQuestions(session.Test);
    session.UserSettings = console.UserSettings;
    session.ClientName = context.ClientName = line.Value(ClientOption);
    session.AdministratorName = context.AdministratorName;

    Interview(session, console, context).Run();
    if (!line.Has(QStringLiteral("--now")))
        context.Now = console.Time.Now();
    Deliver(BuildReport(session.Test, session.Responses, context), line, console);
    return Done;
}

std::vector<OptionSpec> Options() {
    std::vector<OptionSpec> options{
        {ClientOption, QStringLiteral("NAME"), QStringLiteral("the client's name")},
        {ReportOption, QStringLiteral("PATH"), QStringLiteral("write the report to PATH, not to standard output")}};
    for (const OptionSpec& option : ReportOptions())
        options.push_back(option);
    return options;
}

} // namespace

const Command& TakeCommand() {
    static const Command command{
        QStringLiteral("take"),
        QStringLiteral("FILE"),
        QStringLiteral("Administers the test in the terminal and prints the report.\n\n"
                       "A line of input answers a question: the number of an answer, or a text. Commands are :back,\n"
                       ":forward, :report and :quit; '::' begins a text with a colon. An empty line passes over a\n"
                       "question that can't be answered. What the client sees is on standard error, the report on\n"
                       "standard output. The end of the input quits, and the report is still made. Nothing is filed\n"
                       "automatically."),
        Options(),
        1,
        1,
        Run};
    return command;
}

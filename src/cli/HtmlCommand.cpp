#include "base/LineBreak.h"
#include "base/Text.h"
#include "cli/Output.h"
#include "cli/Shared.h"
#include "export/HtmlGenerator.h"
#include "export/HtmlPage.h"

namespace {

const QString TemplateOption = QStringLiteral("--template");
const QString EmailOption = QStringLiteral("--email");
const QString NextPageOption = QStringLiteral("--next-page");
const QString LanguageOption = QStringLiteral("--language");
const QString OutputOption = QStringLiteral("--output");
const QString HostOption = QStringLiteral("--insert-into");
const QString BeforeOption = QStringLiteral("--before");
const QString AfterOption = QStringLiteral("--after");
const QString FragmentOption = QStringLiteral("--fragment");

QString ExcludeEachOther(const QString& one, const QString& other) {
    return Quoted(one) + QStringLiteral(" and ") + Quoted(other) + QStringLiteral(" exclude each other");
}

/// Throws UsageError for options that don't go together.
void RequireSense(const CommandLine& line) {
    const bool pointed = line.Has(BeforeOption) || line.Has(AfterOption);
    if (line.Has(HostOption) && line.Has(FragmentOption))
        throw UsageError(ExcludeEachOther(HostOption, FragmentOption));
    if (line.Has(BeforeOption) && line.Has(AfterOption))
        throw UsageError(ExcludeEachOther(BeforeOption, AfterOption));
    if (line.Has(HostOption) != pointed)
        throw UsageError(QStringLiteral("'--insert-into' and one of '--before' and '--after' need each other"));
    if (pointed && line.Value(BeforeOption).isEmpty() && line.Value(AfterOption).isEmpty())
        throw UsageError(QStringLiteral("Please enter some text to use as an insertion point"));
    if (line.Has(LanguageOption) && !IsLanguageTag(line.Value(LanguageOption)))
        throw UsageError(Quoted(line.Value(LanguageOption)) +
                         QStringLiteral(" is no language; '--language de' is one"));
    for (const QString& option : {HostOption, OutputOption})
        if (line.Has(option) && line.Value(option).isEmpty())
            throw UsageError(Quoted(option) + QStringLiteral(" needs a file"));
}

/// The session's page. Throws Failure when it can't be made; standard error then has the messages.
void Generate(Session& session, Console& console) {
    SayingPrompts prompts(console);
    if (const Result generated = GenerateHtml(session, prompts, console.ProgramFolder); !generated)
        throw Failure(QStringLiteral("The reason: ") + generated.Message());
    if (session.GeneratedHtml.trimmed().isEmpty())
        throw Failure(TemplateMakesNoPage(session.HtmlTemplatePath));
}

int Run(const CommandLine& line, Console& console) {
    RequireSense(line);
    const auto either = [&](const QString& option, const QString& setting) {
        return line.Has(option) ? line.Value(option) : setting;
    };
    Session session;
    session.UserSettings = console.UserSettings;
    TakeHtmlSettings(session);
    session.HtmlTemplatePath = either(TemplateOption, session.HtmlTemplatePath);
    session.HtmlEmailAddress = either(EmailOption, session.HtmlEmailAddress);
    session.HtmlNextPage = either(NextPageOption, session.HtmlNextPage);
    session.HtmlLanguage = either(LanguageOption, session.HtmlLanguage);
    OpenTestFor(line.Files[0], session.Test);

    HostPage host;
    if (line.Has(HostOption))
        if (const Result read = ReadHostPage(line.Value(HostOption), host); !read)
            throw Failure(read.Message());
    Generate(session, console);

    QString page = session.GeneratedHtml;
    if (line.Has(HostOption)) {
        const bool after = line.Has(AfterOption);
        const auto inserted = InsertInto(host.Text, page, {line.Value(after ? AfterOption : BeforeOption), after});
        if (!inserted)
            throw Failure(QStringLiteral("Text For Insertion Not Found"));
        page = *inserted;
    } else if (!line.Has(FragmentOption)) {
        page = NewPage(session.Test.TestTitle, page, PageLanguage(session.HtmlLanguage));
    }
    if (!line.Has(FragmentOption))
        page += LineBreak;
    if (line.Has(OutputOption)) {
        if (const Result written = WritePage(line.Value(OutputOption), page, host.Encoding); !written)
            throw Failure(written.Message());
        return Done;
    }
    Output output(console.Out);
    output.Write(page.toUtf8());
    output.Finish();
    return Done;
}

} // namespace

const Command& HtmlCommand() {
    static const Command command{
        QStringLiteral("html"),
        QStringLiteral("FILE"),
        QStringLiteral("Prints the test as a web page."),
        {{TemplateOption, QStringLiteral("T"), QStringLiteral("the template to fill in")},
         {EmailOption, QStringLiteral("A"), QStringLiteral("where the page sends its results")},
         {NextPageOption, QStringLiteral("U"), QStringLiteral("where the page leads afterwards")},
         {LanguageOption, QStringLiteral("L"), QStringLiteral("the language that the page declares, such as de")},
         {OutputOption, QStringLiteral("OUT"), QStringLiteral("write the page to OUT")},
         {HostOption, QStringLiteral("HOST"), QStringLiteral("insert it into the page HOST, which stays as it is")},
         {BeforeOption, QStringLiteral("TEXT"), QStringLiteral("before the first TEXT of HOST")},
         {AfterOption, QStringLiteral("TEXT"), QStringLiteral("after the first TEXT of HOST")},
         {FragmentOption, {}, QStringLiteral("only what the template makes, without a page around it")}},
        1,
        1,
        Run};
    return command;
}

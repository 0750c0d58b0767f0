#include "export/HtmlGenerator.h"

#include "base/LineBreak.h"
#include "base/SectionFinder.h"
#include "export/HtmlPage.h"
#include "export/HtmlTemplate.h"
#include "settings/TemplateFile.h"

namespace {

/// Question q as a part of the page.
void AppendQuestion(QString& body, const TestDocument& test, const TemplateParts& parts, const QString& closingPart,
                    int q) {
    const QString paragraph = LineBreak + LineBreak;
    switch (test.QuestionType(q)) {
    case TypeUnset:
    case Multichoice: {
        body += ExpandQuestionPart(test, parts.Question, q, 0) + LineBreak;
        for (int a = 1; a <= OfferedAnswerCount(test, q); ++a)
            body += ExpandQuestionPart(test, parts.Answer, q, a) + LineBreak;
        body += closingPart + paragraph;
        break;
    }
    case ShortAnswer:
        body += ExpandQuestionPart(test, parts.ShortAnswer, q, 0) + paragraph;
        break;
    case LongAnswer:
        body += ExpandQuestionPart(test, parts.LongAnswer, q, 0) + paragraph;
        break;
    default:
        break;
    }
}

QString PageOf(Session& session, const QString& programFolder) {
    QString text;
    if (const Result read = ReadTemplateFile(session.HtmlTemplatePath, programFolder, text); !read)
        throw TemplateError(read.Message());
    FillTemplate(text, session.Test,
                 {session.HtmlEmailAddress, session.HtmlNextPage, PageLanguage(session.HtmlLanguage)});

    const TemplateParts parts = CutTemplate(text, session.ClosingPart);
    QString body;
    for (int q = 1; q <= session.Test.QuestionCount; ++q) {
        AppendQuestion(body, session.Test, parts, session.ClosingPart, q);
        RequirePageLength(body.size());
    }
    return parts.Header + body + parts.Footer;
}

} // namespace

Result GenerateHtml(Session& session, Prompts& prompts, const QString& programFolder) {
    session.GeneratedHtml.clear();
    QString reason;
    try {
        session.GeneratedHtml = PageOf(session, programFolder);
        return Result::Done();
    } catch (const SectionError& error) {
        reason = error.Message();
        prompts.Inform(reason + QStringLiteral(" in the file: ") + session.HtmlTemplatePath);
    } catch (const Failure& failure) {
        reason = failure.Message();
    } catch (const std::exception& exception) {
        reason = QString::fromLocal8Bit(exception.what());
    }
    prompts.Inform(QStringLiteral("Error loading HTML template file: ") + session.HtmlTemplatePath);
    return Result::Failed(reason);
}

QString TemplateMakesNoPage(const QString& templatePath) {
    return QStringLiteral("The template '") + templatePath +
           QStringLiteral("' makes no page: it has none of the sections that a page consists of");
}

#pragma once

#include "base/Failure.h"
#include "testdoc/TestDocument.h"

#include <QString>

/// A template and a test that make no page: a value that contains its own tag, or a page that would grow past every
/// measure. The message says why.
class TemplateError : public Failure {
  public:
    using Failure::Failure;
};

/// Throws TemplateError for a text that is longer than any page of a test; what makes one is a template that would fill
/// the memory.
void RequirePageLength(qsizetype length);

/// What a page is filled with besides the test.
struct PageValues {
    QString Email;
    QString NextPage;
    /// The page's language as a tag of BCP 47.
    QString Language;
};

/// The bound of a range as it is once the test is saved and read: the page has the same before.
QString BoundText(const Value& bound);

/// Puts the value in the place of every occurrence of the tag (exact case), and again as long as there are any.
/// Throws TemplateError when the value contains the tag, which would never end, or when the text grows too long.
void FillTag(QString& text, const QString& tag, const QString& value);

/// A backslash before every single quote, and nothing else: for texts between single quotes in a script.
QString QuoteForScript(QString text);

/// Fills the tags that work in the whole template, and repeats the blocks of the analysis for each range.
/// Throws SectionError for a block without its closing tag, TemplateError, BoundError.
void FillTemplate(QString& text, const TestDocument& test, const PageValues& values);

/// The parts of a filled template.
struct TemplateParts {
    QString Header;
    QString Footer;
    QString Question;
    QString Answer;
    QString ShortAnswer;
    QString LongAnswer;
};

/// Cuts a filled template into its parts; one that it doesn't have is empty. The closing part, what stands behind the
/// answers of a multichoice question, is changed only when that section has a "[/A]". Throws SectionError for a section
/// without its closing tag.
TemplateParts CutTemplate(const QString& text, QString& closingPart);

/// A copy of part filled with question q (1..500) and its answer a (0..10); answer 0 is empty. Throws TemplateError,
/// BoundError.
QString ExpandQuestionPart(const TestDocument& test, QString part, int q, int a);

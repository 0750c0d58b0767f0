#pragma once

#include "platform/Prompts.h"
#include "taker/Session.h"

/// Turns the session's test into the text of an HTML page, by its template and its other values for the export, and
/// leaves the text in GeneratedHtml. A failure of any kind is shown with the template's path and leaves GeneratedHtml
/// empty. A relative path of the template is found as FindTemplateFile says.
/// Returns why it failed; that has been shown, and a caller may go on with what GeneratedHtml holds.
Result GenerateHtml(Session& session, Prompts& prompts, const QString& programFolder);

/// What is said of a template that was filled in and gave nothing.
QString TemplateMakesNoPage(const QString& templatePath);

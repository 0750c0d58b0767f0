#pragma once

#include "export/HtmlTemplate.h"
#include "testdoc/TestDocument.h"

#include <QString>

/// The test and the values of its page as JSON, for a script to read: docs/template-language.md describes its members.
/// It is ASCII, and none of its characters can end or begin an element, an attribute, a script or a template's tag,
/// whatever the texts hold.
QString PageData(const TestDocument& test, const PageValues& values);

#pragma once

#include "platform/Prompts.h"
#include "testdoc/TestDocument.h"

#include <QStringList>

#include <functional>

/// What decides whether a test acts beyond its own results.
struct TrustContext {
    /// Where results belong; the current directory when it is empty.
    QString WorkingDirectory;
    /// The program that shows reports.
    QString Editor;
    /// Whether an administration of this test made the file; empty where nobody knows.
    std::function<bool(const QString& path)> Made = {};
};

/// What the test would do by itself that a person may not expect of it: write outside the working directory, append to
/// a file that it didn't make, start a program. Each goes with "It would", with full paths; empty for a test that does
/// no such thing. Looks at the disk, and changes nothing.
QStringList ActsBeyondItsResults(const TestDocument& test, const TrustContext& context);

/// The question whether a test may do that, and its answers by their index.
enum TrustAnswer { AllowForThisTest = 0, OnlyThisTime = 1, NotAllowed = 2 };
ChoicePrompt TrustQuestion(const TestDocument& test, const QStringList& acts, const QString& workingDirectory);

/// Changes the test in memory so that its results stay in the working directory itself, in files that are new or its
/// own, and no program is started. What was to be filed by itself still is.
void ConfineResults(TestDocument& test, const TrustContext& context);

/// The last part of a name that a test gives, without anything that leads to another folder, up to its first ".".
QString PlainName(const QString& name);

#pragma once

#include "cli/Command.h"
#include "platform/Prompts.h"
#include "taker/Report.h"

#include <QFile>

#include <chrono>

/// The options of the commands that make reports.
std::vector<OptionSpec> ReportOptions();

/// What a report needs besides the test and the answers, from the settings and the options that override them. The
/// client's name stays empty. Throws UsageError for a --now that is no date and time.
ReportContext ReportContextFrom(const CommandLine& line, const Console& console);

/// Opens the test at a path of the command line into test. Throws Failure when it can't be read.
void OpenTestFor(const QString& path, TestDocument& test);

/// Throws Failure for a test without questions.
void RequireQuestions(const TestDocument& test);

/// The test as "show" prints it.
QByteArray JsonOf(const TestDocument& test);

/// Opens a file of responses. Throws Failure.
void OpenResponses(QFile& file);

/// Tells on standard error what the program would show in a message box; there is nobody to answer.
class SayingPrompts : public Prompts {
  public:
    explicit SayingPrompts(Console& console) : console_(console) {}
    PromptAnswer Ask(const Prompt& prompt) override;
    int Choose(const ChoicePrompt& prompt) override;
    /// How many boxes there were.
    int Count() const { return count_; }

  private:
    Console& console_;
    int count_ = 0;
};

/// A bar with rate and time left on standard error, while that is a terminal.
class Progress {
  public:
    /// The total is in bytes, 0 when it isn't known.
    Progress(Console& console, qint64 total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(qint64 bytes, qint64 rows) {
        if (shown_ && rows % 1024 == 0)
            Draw(bytes, rows);
    }

  private:
    void Draw(qint64 bytes, qint64 rows);

    Console& console_;
    qint64 total_;
    bool shown_;
    bool drawn_ = false;
    std::chrono::steady_clock::time_point begin_;
    std::chrono::steady_clock::time_point last_;
};

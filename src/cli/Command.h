#pragma once

#include "base/Failure.h"
#include "cli/Console.h"

#include <QHash>
#include <QStringList>

#include <vector>

/// The command line is wrong; the usage is shown with the message.
class UsageError : public Failure {
  public:
    using Failure::Failure;
};

struct OptionSpec {
    /// With its two dashes.
    QString Name;
    /// What its value is called in the usage; empty for an option without a value.
    QString ValueName;
    QString Help;
};

/// The arguments of one command, taken apart.
struct CommandLine {
    QStringList Files;
    /// The option's value, "" for one without; of a repeated option the last one counts.
    QHash<QString, QString> Options;
    bool HelpWanted = false;
    bool VersionWanted = false;

    bool Has(const QString& name) const { return Options.contains(name); }
    QString Value(const QString& name) const { return Options.value(name); }
};

struct Command {
    QString Name;
    /// What stands behind the name in the usage, options aside.
    QString Arguments;
    QString Summary;
    std::vector<OptionSpec> Options;
    /// Number of files that it takes; at most -1 for any number.
    int LeastFiles = 1;
    int MostFiles = 1;
    /// Does the work and returns the exit status. Throws UsageError, or another Failure for exit status 1.
    int (*Run)(const CommandLine& line, Console& console) = nullptr;
};

/// Takes the arguments behind the command's name apart: options may stand before or behind the files, as
/// "--name value" or "--name=value", and "--" ends them. Throws UsageError.
CommandLine ParseCommandLine(const Command& command, const QStringList& arguments);

const Command& ShowCommand();
const Command& SaveCommand();
const Command& CheckCommand();
const Command& TakeCommand();
const Command& ReportCommand();
const Command& ScoreCommand();
const Command& HtmlCommand();

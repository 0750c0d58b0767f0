#include "cli/Tool.h"

#include "base/Text.h"
#include "cli/Command.h"
#include "cli/Output.h"

#include <array>

namespace {

std::array<const Command*, 7> Commands() {
    return {&ShowCommand(),   &SaveCommand(),  &CheckCommand(), &TakeCommand(),
            &ReportCommand(), &ScoreCommand(), &HtmlCommand()};
}

QString UsageLine(const Command& command) {
    QString line = QStringLiteral("vellumo-cli ") + command.Name + u' ' + command.Arguments;
    for (const OptionSpec& option : command.Options)
        line += QStringLiteral(" [") + option.Name +
                (option.ValueName.isEmpty() ? QString() : u' ' + option.ValueName) + u']';
    return line;
}

QString Usage(const Command& command) {
    QString text = QStringLiteral("Usage: ") + UsageLine(command) + QStringLiteral("\n\n") + command.Summary + u'\n';
    if (!command.Options.empty())
        text += QStringLiteral("\nOptions:\n");
    for (const OptionSpec& option : command.Options) {
        const QString name = option.Name + (option.ValueName.isEmpty() ? QString() : u' ' + option.ValueName);
        text += QStringLiteral("  ") + name.leftJustified(26) + QStringLiteral("  ") + option.Help + u'\n';
    }
    return text;
}

QString Usage() {
    QString text = QStringLiteral("Usage: vellumo-cli COMMAND [ARGUMENTS]\n\n"
                                  "Reads, checks, administers, scores and reports Vellumo tests without a window.\n\n"
                                  "Commands:\n");
    for (const Command* command : Commands())
        text += QStringLiteral("  ") + command->Name.leftJustified(8) + command->Summary.section(u'\n', 0, 0) + u'\n';
    return text + QStringLiteral("\n'vellumo-cli COMMAND --help' tells more about a command; '--version' tells the "
                                 "version.\n"
                                 "Exit status: 0 done, 1 an input can't be used or a result can't be written, "
                                 "2 the command line is wrong.\n");
}

int Print(Console& console, const QString& text) {
    Output output(console.Out);
    output.Write(text.toUtf8());
    output.Finish();
    return Done;
}

QString Version() { return QStringLiteral("vellumo-cli " VELLUMO_VERSION "\n"); }

int RunCommand(const Command& command, const QStringList& arguments, Console& console) {
    try {
        const CommandLine line = ParseCommandLine(command, arguments);
        if (line.HelpWanted)
            return Print(console, Usage(command));
        if (line.VersionWanted)
            return Print(console, Version());
        return command.Run(line, console);
    } catch (const UsageError& error) {
        Say(console, error.Message() + QStringLiteral("\n\n") + Usage(command).trimmed());
        return WrongUsage;
    }
}

int RunNamed(const QStringList& arguments, Console& console) {
    if (arguments.isEmpty()) {
        Say(console, QStringLiteral("A command is missing\n\n") + Usage().trimmed());
        return WrongUsage;
    }
    const QString& name = arguments.first();
    if (name == QStringLiteral("--help"))
        return Print(console, Usage());
    if (name == QStringLiteral("--version"))
        return Print(console, Version());
    for (const Command* command : Commands())
        if (command->Name == name)
            return RunCommand(*command, arguments.mid(1), console);
    Say(console, QStringLiteral("Unknown command ") + Quoted(name) + QStringLiteral("\n\n") + Usage().trimmed());
    return WrongUsage;
}

} // namespace

int RunTool(const QStringList& arguments, Console& console) {
    try {
        return RunNamed(arguments, console);
    } catch (const Failure& failure) {
        Say(console, failure.Message());
    } catch (const std::exception& exception) {
        Say(console, QStringLiteral("This can't be done: ") + QString::fromLocal8Bit(exception.what()));
    }
    return Unusable;
}

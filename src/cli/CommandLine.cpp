#include "cli/Command.h"

#include "base/Text.h"

namespace {

const OptionSpec* FindOption(const Command& command, const QString& name) {
    for (const OptionSpec& option : command.Options)
        if (option.Name == name)
            return &option;
    return nullptr;
}

/// Takes the option at arguments[i]; i is then at the last argument that it used.
void TakeOption(const Command& command, const QStringList& arguments, qsizetype& i, CommandLine& line) {
    const QString argument = arguments[i];
    const qsizetype equals = argument.indexOf(u'=');
    const QString name = argument.left(equals);
    const OptionSpec* option = FindOption(command, name);
    if (option == nullptr)
        throw UsageError(QStringLiteral("Unknown option ") + Quoted(name));
    if (option->ValueName.isEmpty()) {
        if (equals >= 0)
            throw UsageError(QStringLiteral("The option ") + Quoted(name) + QStringLiteral(" takes no value"));
        line.Options.insert(name, QString());
        return;
    }
    if (equals < 0 && i + 1 == arguments.size())
        throw UsageError(QStringLiteral("The option ") + Quoted(name) + QStringLiteral(" needs a value"));
    line.Options.insert(name, equals >= 0 ? argument.mid(equals + 1) : arguments[++i]);
}

} // namespace

CommandLine ParseCommandLine(const Command& command, const QStringList& arguments) {
    CommandLine line;
    bool optionsEnded = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (optionsEnded || !argument.startsWith(u'-') || argument == QStringLiteral("-"))
            line.Files.append(argument);
        else if (argument == QStringLiteral("--"))
            optionsEnded = true;
        else if (argument == QStringLiteral("--help"))
            line.HelpWanted = true;
        else if (argument == QStringLiteral("--version"))
            line.VersionWanted = true;
        else
            TakeOption(command, arguments, i, line);
    }
    if (line.HelpWanted || line.VersionWanted)
        return line;
    if (line.Files.size() < command.LeastFiles)
        throw UsageError(QStringLiteral("A file is missing"));
    if (command.MostFiles >= 0 && line.Files.size() > command.MostFiles)
        throw UsageError(QStringLiteral("Too many files: ") + Quoted(line.Files[command.MostFiles]));
    return line;
}

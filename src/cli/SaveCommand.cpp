#include "cli/Command.h"
#include "testdoc/TestParser.h"
#include "testdoc/TestWriter.h"

namespace {

int Run(const CommandLine& line, Console& console) {
    TestDocument test;
    if (const Result opened = OpenTest(test, AbsolutePath(line.Files[0])); !opened)
        throw Failure(opened.Message());
    test.TestFileName = AbsolutePath(line.Files[1]);
    const SaveOutcome saved = SaveTestFile(test);
    if (!saved.Written)
        throw Failure(saved.Message);
    if (!saved.Message.isEmpty())
        Say(console, saved.Message);
    return Done;
}

} // namespace

const Command& SaveCommand() {
    static const Command command{QStringLiteral("save"),
                                 QStringLiteral("FILE OUT"),
                                 QStringLiteral("Writes the test to OUT as the editor saves it."),
                                 {},
                                 2,
                                 2,
                                 Run};
    return command;
}

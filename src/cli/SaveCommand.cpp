#include "cli/Command.h"
#include "testdoc/EarlierTest.h"
#include "testdoc/TestWriter.h"

namespace {

int Run(const CommandLine& line, Console& console) {
    TestDocument test;
    OpenTestNamingEarlier(test, AbsolutePath(line.Files[0]));
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

#include "cli/Command.h"
#include "testdoc/EarlierTest.h"
#include "testdoc/LostBySaving.h"
#include "testdoc/TestWriter.h"

#include <QFileInfo>

namespace {

int Run(const CommandLine& line, Console& console) {
    TestDocument test;
    const QString from = AbsolutePath(line.Files[0]);
    const QString to = AbsolutePath(line.Files[1]);
    OpenTestNamingEarlier(test, from);
    const QStringList lost = LostBySaving(test, from);
    const QString notAll = from + QStringLiteral(" holds something that isn't read: ") + FirstLost(lost);
    if (!lost.isEmpty() && QFileInfo(from) == QFileInfo(to))
        throw Failure(notAll + QStringLiteral(". Nothing was written, as that would be lost; give another file for the "
                                              "test."));
    test.TestFileName = to;
    const SaveOutcome saved = SaveTestFile(test);
    if (!saved.Written)
        throw Failure(saved.Message);
    if (!lost.isEmpty())
        Say(console, notAll + QStringLiteral(". That is not in ") + to + u'.');
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

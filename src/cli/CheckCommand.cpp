#include "base/Text.h"
#include "cli/Command.h"
#include "cli/Output.h"
#include "taker/TestTrust.h"
#include "testdoc/TestChecker.h"
#include "testdoc/TestParser.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// A finding takes one line whatever text it quotes.
QString OneLine(QString text) {
    for (const QString& lineEnd : {QStringLiteral("\r\n"), QStringLiteral("\n"), QStringLiteral("\r")})
        text.replace(lineEnd, QStringLiteral(" "));
    return text;
}

QString FindingLine(const Finding& finding) {
    QString line = finding.Level == Severity::Error ? QStringLiteral("error: ") : QStringLiteral("warning: ");
    const QString position =
        finding.Line == 0 ? QString() : QStringLiteral("line %1, column %2").arg(finding.Line).arg(finding.Column);
    if (!finding.Where.isEmpty() && !position.isEmpty())
        line += finding.Where + QStringLiteral(" (") + position + QStringLiteral("): ");
    else if (!finding.Where.isEmpty() || !position.isEmpty())
        line += finding.Where + position + QStringLiteral(": ");
    return OneLine(line + finding.Text);
}

QString ScaleLine(const ScaleReach& scale) {
    QString line = scale.Subscale == 0 ? QStringLiteral("total") : QStringLiteral("scale ") + Quoted(scale.Name);
    line += QStringLiteral(": lowest %1, highest %2").arg(scale.Lowest).arg(scale.Highest);
    if (scale.LowestWithGaps != scale.Lowest || scale.HighestWithGaps != scale.Highest)
        line += QStringLiteral(" (%1 to %2 with questions left unanswered)")
                    .arg(scale.LowestWithGaps)
                    .arg(scale.HighestWithGaps);
    return OneLine(line);
}

/// The file itself, or the tests of a directory.
QStringList TestsAt(const QString& path) {
    if (!QFileInfo(path).isDir())
        return {path};
    const QDir directory(path);
    QStringList paths;
    for (const QString& name : directory.entryList({QStringLiteral("*.vlm")}, QDir::Files | QDir::Hidden, QDir::Name))
        paths.append(QDir::toNativeSeparators(directory.filePath(name)));
    return paths;
}

/// What makes the program ask before it begins the test, from a working directory such as this user's.
QStringList QuestionsBefore(const QString& path, const Settings& settings) {
    TestDocument test;
    try {
        if (!OpenTest(test, path))
            return {};
    } catch (const Failure&) {
        return {};
    }
    return ActsBeyondItsResults(test, {settings.DefaultDirectory, settings.DefaultEditor});
}

/// Returns whether the test is free of errors.
bool Check(const QString& path, Output& output, const Settings& settings) {
    const CheckedTest checked = CheckTestFile(path);
    const QString prefix = path + QStringLiteral(": ");
    for (const Finding& finding : checked.Findings)
        output.Write((prefix + FindingLine(finding) + u'\n').toUtf8());
    for (const QString& act : QuestionsBefore(path, settings))
        output.Write(
            (prefix + OneLine(QStringLiteral("warning: Vellumo asks whether the test may ") + act) + u'\n').toUtf8());
    for (const ScaleReach& scale : checked.Scales)
        output.Write((prefix + ScaleLine(scale) + u'\n').toUtf8());
    return !checked.HasErrors();
}

int Run(const CommandLine& line, Console& console) {
    Output output(console.Out);
    bool good = true;
    for (const QString& path : line.Files) {
        const QStringList tests = TestsAt(path);
        if (tests.isEmpty())
            output.Write((path + QStringLiteral(": error: the directory holds no tests (*.vlm)\n")).toUtf8());
        good = good && !tests.isEmpty();
        for (const QString& test : tests)
            good = Check(test, output, console.UserSettings) && good;
    }
    output.Finish();
    return good ? Done : Unusable;
}

} // namespace

const Command& CheckCommand() {
    static const Command command{
        QStringLiteral("check"),
        QStringLiteral("FILE..."),
        QStringLiteral("Checks tests, and tells the lowest and highest score that each scale can reach.\n\n"
                       "A directory checks all of its tests. Errors keep a test from being read or taken. A warning\n"
                       "also says what Vellumo asks about before it begins the test."),
        {},
        1,
        -1,
        Run};
    return command;
}

#include "testdoc/LostBySaving.h"

#include "platform/TextFile.h"
#include "testdoc/TestChecker.h"
#include "testdoc/TestParser.h"
#include "testdoc/TestWriter.h"

#include <algorithm>

QStringList LostBySaving(const TestDocument& test, const QString& path) {
    TestDocument read;
    TextOfFile file;
    try {
        if (!OpenTest(read, path) || !ReadTextFile(path, MaxTestFileBytes, file))
            return {};
    } catch (const Failure&) {
        return {};
    }
    // What the new file would hold in the same way isn't lost by saving it.
    const std::vector<Finding> stays = CheckFileText(test, WriteTest(test).Text);
    QStringList lost;
    for (const Finding& finding : CheckFileText(read, file.Text)) {
        const bool staysToo = std::any_of(stays.begin(), stays.end(), [&](const Finding& other) {
            return other.Place == finding.Place && other.Text == finding.Text;
        });
        // A finding without a line is about the whole test, not about something in its text.
        if (finding.Line > 0 && !staysToo)
            lost.append((finding.Where.isEmpty() ? QString() : finding.Where + QStringLiteral(", ")) +
                        QStringLiteral("line %1: ").arg(finding.Line) + finding.Text);
    }
    return lost;
}

QString FirstLost(const QStringList& lost) {
    constexpr qsizetype most = 5;
    return lost.mid(0, most).join(QStringLiteral("; ")) +
           (lost.size() > most ? QStringLiteral("; and %1 more").arg(lost.size() - most) : QString());
}

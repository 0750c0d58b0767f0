#include "testdoc/EarlierTest.h"

#include "platform/EarlierCopy.h"
#include "platform/InPlace.h"

#include <QFileInfo>

namespace {

/// Why the file is no test that somebody saved; empty when it is one. An empty file can be opened, as that of a new
/// test can, but it isn't what was saved when an earlier version is beside it.
QString WhyNoTest(const QString& path) {
    if (QFileInfo(path).size() == 0)
        return CantReadTestFile(path, QStringLiteral("it is empty"));
    try {
        TestDocument test;
        return OpenTest(test, path).Message();
    } catch (const Failure& failure) {
        return failure.Message();
    }
}

bool IsTest(const QString& path) { return WhyNoTest(path).isEmpty(); }

} // namespace

Result OpenTestOrEarlier(TestDocument& test, const QString& path, Prompts& prompts) {
    AwaitWriter(path);
    if (QFileInfo(path).isFile() && !EarlierCopyOf(path, IsTest).isEmpty())
        if (const QString why = WhyNoTest(path); !why.isEmpty())
            OfferEarlierCopy(path, why, IsTest, prompts);
    return OpenTest(test, path);
}

void OpenTestNamingEarlier(TestDocument& test, const QString& path) {
    AwaitWriter(path);
    const QString hint = QFileInfo(path).isFile() ? EarlierCopyHint(path, IsTest) : QString();
    if (const QString why = hint.isEmpty() ? QString() : WhyNoTest(path); !why.isEmpty())
        throw Failure(why + hint);
    if (const Result opened = OpenTest(test, path); !opened)
        throw Failure(opened.Message());
}

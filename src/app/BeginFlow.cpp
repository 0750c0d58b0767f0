#include "app/BeginFlow.h"

#include "taker/Administration.h"
#include "taker/TestTrust.h"
#include "testdoc/EarlierTest.h"
#include "testdoc/TestParser.h"

namespace {

/// The reader names the file as it was given, which for a listed test is the file name alone.
QString WithFullPath(QString message, const QString& path) {
    if (message.endsWith(path))
        message.replace(message.size() - path.size(), path.size(), AbsolutePath(path));
    return message;
}

} // namespace

bool BeginFlow::Begin(const QString& path) {
    if (!LoadTestWithQuestions(path))
        return false;
    AskForTrust();
    const TestDocument& test = session_.Test;
    const bool wantsNames = test.TestOption(PromptClientName) || test.TestOption(PromptTesterName);
    if (wantsNames && !navigator_.AskNames(QStringLiteral("Commencing '") + test.TestTitle + QStringLiteral("'")))
        return false;
    return navigator_.BeginLoadedTest();
}

bool BeginFlow::Load(const QString& path) {
    try {
        const Result opened = OpenTestOrEarlier(session_.Test, path, prompts_);
        if (!opened)
            prompts_.Inform(opened.Message());
        return opened.Ok();
    } catch (const Failure& failure) {
        prompts_.Ask({WithFullPath(failure.Message(), path), {}, PromptButtons::Ok, PromptIcon::Critical});
        return false;
    }
}

bool BeginFlow::LoadTestWithQuestions(const QString& path) {
    if (!Load(path))
        return false;
    // Before the names are asked for: nobody should fill in a window for nothing.
    const Result begins = CanBegin(session_.Test);
    if (!begins)
        prompts_.Inform(begins.Message());
    return begins.Ok();
}

// Now, while the person who gives the test is at the keyboard, and never in front of the client.
void BeginFlow::AskForTrust() {
    TestDocument& test = session_.Test;
    const QString hash = test.TestFileHash;
    if (trusted_.IsAllowed(hash))
        return;
    const TrustContext context{session_.UserSettings.DefaultDirectory, session_.UserSettings.DefaultEditor,
                               [this, hash](const QString& path) { return trusted_.Made(hash, path); }};
    const QStringList acts = ActsBeyondItsResults(test, context);
    if (acts.isEmpty())
        return;
    const int answer = prompts_.Choose(TrustQuestion(test, acts, context.WorkingDirectory));
    if (answer == NotAllowed)
        ConfineResults(test, context);
    if (answer != AllowForThisTest)
        return;
    if (const Result kept = trusted_.Allow(hash); !kept)
        prompts_.Inform(kept.Message());
}

#include "app/BeginFlow.h"

#include "taker/Administration.h"
#include "testdoc/EarlierTest.h"

bool BeginFlow::Begin(const QString& path) {
    if (!LoadTestWithQuestions(path))
        return false;
    const TestDocument& test = session_.Test;
    const bool wantsNames = test.TestOption(PromptClientName) || test.TestOption(PromptTesterName);
    if (wantsNames && !navigator_.AskNames(QStringLiteral("Commencing '") + test.TestTitle + QStringLiteral("'")))
        return false;
    return navigator_.BeginLoadedTest();
}

bool BeginFlow::BeginWithoutNames(const QString& path) {
    return LoadTestWithQuestions(path) && navigator_.BeginLoadedTest();
}

bool BeginFlow::Load(const QString& path) {
    try {
        const Result opened = OpenTestOrEarlier(session_.Test, path, prompts_);
        if (!opened)
            prompts_.Inform(opened.Message());
        return opened.Ok();
    } catch (const Failure& failure) {
        EndOn(failure);
        return false;
    }
}

void BeginFlow::EndOn(const Failure& failure) {
    prompts_.Ask({failure.Message(), {}, PromptButtons::Ok, PromptIcon::Critical});
    ended_ = true;
    navigator_.EndProgram();
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

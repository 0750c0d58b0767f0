// Making the web page of a test with the template that comes with the program.

#include "export/HtmlGenerator.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

namespace {

class NoPrompts : public Prompts {
  public:
    PromptAnswer Ask(const Prompt& prompt) override {
        std::fprintf(stderr, "%s\n", qPrintable(prompt.Text));
        std::exit(1);
    }
    int Choose(const ChoicePrompt& prompt) override { return prompt.Escape; }
};

/// So many questions of five answers from the answer template, in five sub-scales.
void FillTest(TestDocument& test, int questions) {
    test.TestTitle = QStringLiteral("Bench");
    test.SubscaleCount = 5;
    for (int s = 1; s <= test.SubscaleCount; ++s)
        test.SubscaleName(s) = QStringLiteral("Scale %1").arg(s);
    test.TemplateAnswerCount = 5;
    for (int i = 1; i <= test.TemplateAnswerCount; ++i) {
        test.TemplateAnswerText(i) = QStringLiteral("Answer number %1").arg(i);
        test.TemplateAnswerValue(i) = i;
    }
    test.QuestionCount = questions;
    for (int q = 1; q <= questions; ++q) {
        test.QuestionText(q) = QStringLiteral("Statement number %1 about an ordinary day").arg(q);
        test.QuestionSubscale(q) = q % 5 + 1;
    }
}

void GeneratePage(benchmark::State& state) {
    Session session;
    FillTest(session.Test, static_cast<int>(state.range(0)));
    session.HtmlTemplatePath = QStringLiteral(VELLUMO_SOURCE_DIR "/templates/HTML Template.vlx");
    NoPrompts prompts;
    for (auto _ : state)
        if (const Result made = GenerateHtml(session, prompts, {}); !made)
            state.SkipWithError(qPrintable(made.Message()));
    state.counters["characters"] = static_cast<double>(session.GeneratedHtml.size());
}
BENCHMARK(GeneratePage)->Arg(50)->Arg(500)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

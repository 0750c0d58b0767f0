// Saving a test, and checking it in a pause of typing. The files are made anew in a temporary folder.

#include "FullestTest.h"

#include "testdoc/TestInMemoryChecker.h"
#include "testdoc/TestWriter.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

/// A test that is exactly as long as one may be.
TestDocument LongestTest() {
    TestDocument test = FullestTest(10);
    test.SubscaleCount = 0;
    for (int q = 101; q <= MaxQuestions; ++q)
        test.QuestionType(q) = TypeUnset;
    for (int q = 1; q <= MaxQuestions; ++q)
        test.QuestionSubscale(q) = 0;
    const int missing = MaxTestFileLength - LengthWhenRead(WriteTest(test).Text) -
                        static_cast<int>(sizeof "[INTRODUCTION][/INTRODUCTION]" - 1);
    if (missing <= 0)
        std::abort();
    test.TestIntroduction = QString(missing, u'x');
    return test;
}

void SaveTheLongestTest(benchmark::State& state) {
    const QTemporaryDir folder;
    TestDocument test = LongestTest();
    test.TestFileName = folder.filePath(QStringLiteral("Bench.vlm"));
    for (auto _ : state)
        if (!SaveTestFile(test).OpensAgain)
            std::abort();
}
BENCHMARK(SaveTheLongestTest)->Unit(benchmark::kMillisecond)->UseRealTime();

void WriteTheText(benchmark::State& state) {
    const TestDocument test = state.range(0) == 0 ? LongestTest() : FullestTest(10);
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteTest(test).Text);
}
BENCHMARK(WriteTheText)->ArgName("fullest")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void CheckInAPauseOfTyping(benchmark::State& state) {
    const TestDocument test = FullestTest(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(CheckForSaving(test));
    state.counters["findings"] = static_cast<double>(CheckForSaving(test).size());
}
BENCHMARK(CheckInAPauseOfTyping)->ArgName("largest value")->Arg(10)->Arg(100)->Arg(130)->Unit(benchmark::kMillisecond);

/// The same with everything read back, which is done while the test isn't too long for it.
void CheckTheLongestTest(benchmark::State& state) {
    const TestDocument test = LongestTest();
    for (auto _ : state)
        benchmark::DoNotOptimize(CheckForSaving(test));
}
BENCHMARK(CheckTheLongestTest)->Unit(benchmark::kMillisecond);

/// Every range overlaps every other of its scale, as when many are copied and none is changed yet.
void CheckManyFindings(benchmark::State& state) {
    TestDocument test = FullestTest(10);
    for (int s = 1; s <= MaxSubscales; ++s)
        for (int r = 1; r <= MaxRanges; ++r)
            test.SubscaleRangeLow(s, r) = test.SubscaleRangeHigh(s, r) = 1;
    for (auto _ : state)
        benchmark::DoNotOptimize(CheckForSaving(test));
    state.counters["findings"] = static_cast<double>(CheckForSaving(test).size());
}
BENCHMARK(CheckManyFindings)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

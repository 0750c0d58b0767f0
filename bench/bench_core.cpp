// Reading and loading tests, and listing a directory of them. The files are made anew in a temporary folder.

#include "app/TestList.h"
#include "testdoc/TestParser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

void Put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        std::abort();
}

/// A test of that many questions and characters, every third question with answers of its own.
QByteArray TestText(int questions, int length) {
    QByteArray text = "[TITLE]Bench[/TITLE][TOTAL][SIG]0 to 500 =Some[/SIG][/TOTAL][TEMPLATE][A]No[v=0][/A][A]Yes[v=1]"
                      "[/A][/TEMPLATE]";
    for (int q = 1; q <= questions; ++q)
        text += "[Q]How about " + QByteArray::number(q) + (q % 6 == 0 && q <= 200 ? "[A]a[v=1][/A]" : "") + "[/Q]";
    const qsizetype introduction = length - text.size() - qsizetype(sizeof "[INTRODUCTION][/INTRODUCTION]" - 1);
    if (introduction < 0)
        std::abort();
    return "[INTRODUCTION]" + QByteArray(introduction, 'x') + "[/INTRODUCTION]" + text;
}

void ReadAndLoad(benchmark::State& state) {
    const auto questions = static_cast<int>(state.range(0));
    const auto length = static_cast<int>(state.range(1));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Bench.vlm"));
    Put(path, TestText(questions, length));
    TestDocument test;
    for (auto _ : state) {
        if (!ReadTestFile(test, path))
            std::abort();
        LoadTest(test);
        benchmark::DoNotOptimize(test.QuestionCount);
        state.PauseTiming();
        ClearTest(test);
        state.ResumeTiming();
    }
    if (test.TestFileLength > length)
        std::abort();
}
BENCHMARK(ReadAndLoad)->Args({50, 3277})->Args({500, 32767})->Unit(benchmark::kMicrosecond);

void ListOfATestFolder(benchmark::State& state) {
    const QTemporaryDir folder;
    const QByteArray text = TestText(60, 6000);
    for (int i = 0; i < state.range(0); ++i)
        Put(folder.filePath(QStringLiteral("Test %1.vlm").arg(i)), text);
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    TestDocument test;
    for (auto _ : state)
        if (ListTests(test).size() != static_cast<size_t>(state.range(0)))
            std::abort();
    QDir::setCurrent(before);
}
BENCHMARK(ListOfATestFolder)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

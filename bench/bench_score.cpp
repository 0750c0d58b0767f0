// Time and memory of "vellumo-cli score" as a process of its own. The program stands beside this one, or where the
// environment variable VELLUMO_CLI says.

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int Questions = 100;

QString Program() {
    const QString named = qEnvironmentVariable("VELLUMO_CLI");
    return named.isEmpty() ? QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path() +
                                 QStringLiteral("/vellumo-cli")
                           : named;
}

void Put(const QString& path, const std::function<QByteArray(int)>& piece, int count) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    for (int i = 0; i < count; ++i)
        if (const QByteArray bytes = piece(i); file.write(bytes) != bytes.size())
            std::abort();
}

QByteArray TestPiece(int i) {
    if (i == 0)
        return "[TITLE]Bench[/TITLE][SUBSCALES][S]One[/S][S]Two[/S][S]Three[/S][S]Four[/S][/"
               "SUBSCALES][TEMPLATE][A]No[v=0]"
               "[/A][A]Little[v=1][/A][A]Some[v=2][/A][A]Much[v=3][/A][A]All[v=4][/A][/TEMPLATE]";
    return "[Q]Question " + QByteArray::number(i) + "[SS=" + QByteArray::number(i % 4 + 1) + "][/Q]";
}

QByteArray Row(int i) {
    QByteArray row = i == 0 ? QByteArray("client") : "Client " + QByteArray::number(i);
    unsigned state = static_cast<unsigned>(i) * 2654435761u + 1u;
    for (int q = 1; q <= Questions; ++q) {
        state = state * 1664525u + 1013904223u;
        row += ',' + QByteArray::number(i == 0 ? q : static_cast<int>((state >> 16) % 6));
    }
    return row + '\n';
}

/// Runs the program with its output thrown away and waits. Returns its use of the machine.
rusage RunScore(const QByteArray& program, const QByteArray& test, const QByteArray& responses) {
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execl(program.constData(), program.constData(), "score", test.constData(), responses.constData(), nullptr);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0)
        std::abort();
    return usage;
}

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

void Score(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString test = folder.filePath(QStringLiteral("Bench.vlm"));
    const QString responses = folder.filePath(QStringLiteral("Bench.csv"));
    Put(test, TestPiece, Questions + 1);
    Put(responses, Row, static_cast<int>(state.range(0)) + 1);
    const QByteArray program = QFile::encodeName(Program());

    long peakKilobytes = 0;
    double processorSeconds = 0;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        const rusage usage = RunScore(program, QFile::encodeName(test), QFile::encodeName(responses));
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
        processorSeconds += Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
        peakKilobytes = std::max(peakKilobytes, usage.ru_maxrss);
    }
    state.counters["peak_MB"] = static_cast<double>(peakKilobytes) / 1024;
    state.counters["cpu_ms"] = 1000 * processorSeconds / static_cast<double>(state.iterations());
    state.counters["rows/s"] =
        benchmark::Counter(static_cast<double>(state.range(0) * state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(Score)->Arg(10000)->Arg(100000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

// Time and memory of appending rows of results to workbooks, from opening to the saved file. Each append runs in a
// process of its own, so that the memory is that of one append.

#include "export/workbook/BuiltInSpreadsheet.h"
#include "export/workbook/NewWorkbook.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int Columns = 20;

/// Begins the workbook when it isn't there and appends so many rows in one go: a name, a date, numbers and two texts.
void Append(const QString& path, int rows) {
    BuiltInSpreadsheet spreadsheet({});
    const bool isNew = !QFile::exists(path);
    if (isNew)
        spreadsheet.AddWorkbook();
    else
        spreadsheet.OpenWorkbook(path);
    int row = 3;
    while (!std::holds_alternative<std::monostate>(spreadsheet.Cells(row, 1)))
        ++row;
    for (const int end = row + rows; row < end; ++row) {
        spreadsheet.SetCells(row, 1, QStringLiteral("Client %1").arg(row));
        spreadsheet.SetCells(row, 2, QDate(2026, 11, 21));
        for (int column = 3; column < Columns - 1; ++column)
            spreadsheet.SetCells(row, column, static_cast<double>((row * 7 + column * 13) % 5));
        spreadsheet.SetCells(row, Columns - 1, QStringLiteral("A short answer of %1").arg(row * 31 % 1000));
        spreadsheet.SetCells(row, Columns, QStringLiteral("Somewhat more than that, as people write %1").arg(row));
    }
    isNew ? spreadsheet.SaveActiveWorkbookAs(path) : spreadsheet.SaveActiveWorkbook();
}

/// The same in a process of its own; what it used of the machine.
rusage AppendApart(const QString& path, int rows) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            Append(path, rows);
        } catch (const Failure&) {
            _exit(1);
        }
        _exit(0);
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

/// Appends so many rows to a copy of the workbook, if there is one.
void MeasureAppending(benchmark::State& state, const QString& before, int rows) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("r.exl"));
    long peakKilobytes = 0;
    double processorSeconds = 0;
    for (auto _ : state) {
        QFile::remove(path);
        if (QFile::exists(before) && !QFile::copy(before, path))
            std::abort();
        const auto begin = std::chrono::steady_clock::now();
        const rusage usage = AppendApart(path, rows);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
        processorSeconds += Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
        peakKilobytes = std::max(peakKilobytes, usage.ru_maxrss);
    }
    state.counters["peak_MB"] = static_cast<double>(peakKilobytes) / 1024;
    state.counters["cpu_ms"] = 1000 * processorSeconds / static_cast<double>(state.iterations());
    state.counters["file_MB"] = static_cast<double>(QFile(path).size()) / (1 << 20);
}

/// Appends to a workbook that has so many rows already; none begins one.
void AppendRows(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString before = folder.filePath(QStringLiteral("before.exl"));
    if (state.range(0) > 0)
        AppendApart(before, static_cast<int>(state.range(0)));
    MeasureAppending(state, before, static_cast<int>(state.range(1)));
}
BENCHMARK(AppendRows)
    ->ArgNames({"there", "more"})
    ->Args({0, 1})
    ->Args({100, 1})
    ->Args({10'000, 1})
    ->Args({50'000, 1})
    ->Args({0, 10'000})
    ->Args({500'000, 100'000})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// Appends one row to a sheet with so many formulas that may depend on anything.
void AppendBesideFormulas(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString before = folder.filePath(QStringLiteral("before.exl"));
    QByteArray rows = "<worksheet><sheetData>";
    for (int row = 1; row <= state.range(0); ++row) {
        const QByteArray number = QByteArray::number(row);
        rows += "<row r=\"" + number + "\"><c r=\"AA" + number + "\"><f>INDIRECT(\"B" + number +
                "\")</f><v>1</v></c></row>";
    }
    ZipPackage package(NewWorkbookBytes());
    package.Put(QStringLiteral("xl/worksheets/sheet1.xml"), rows + "</sheetData></worksheet>");
    QFile file(before);
    if (!file.open(QIODevice::WriteOnly) || file.write(package.Pack()) < 0)
        std::abort();
    file.close();
    MeasureAppending(state, before, 1);
}
BENCHMARK(AppendBesideFormulas)->Arg(100'000)->Arg(200'000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

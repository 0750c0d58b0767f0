#include "cli/Responses.h"
#include "cli/WorkbookRows.h"
#include "platform/Directories.h"
#include "taker/AutoReport.h"
#include "taker/TestTrust.h"

#include <charconv>

namespace {

const QString ReportsOption = QStringLiteral("--reports");
const QString WorkbookOption = QStringLiteral("--workbook");

void WriteField(Spool& spool, std::string_view field) {
    if (field.find_first_of(",\"\r\n") == std::string_view::npos)
        return spool.Write(field);
    spool.Write("\"");
    for (size_t i = 0; i < field.size(); ++i)
        spool.Write(field[i] == '"' ? std::string_view("\"\"") : field.substr(i, 1));
    spool.Write("\"");
}

void WriteHeader(Spool& spool, const TestDocument& test) {
    spool.Write("client,total");
    for (int s = 1; s <= test.SubscaleCount; ++s) {
        spool.Write(",");
        WriteField(spool, test.SubscaleName(s).toStdString());
    }
    spool.Write("\n");
}

void WriteNumber(Spool& spool, qint64 number) {
    char text[24] = {','};
    const auto end = std::to_chars(text + 1, text + sizeof text, number).ptr;
    spool.Write({text, static_cast<size_t>(end - text)});
}

void WriteRow(Spool& spool, const ResponsesReader& reader) {
    WriteField(spool, reader.Client());
    WriteNumber(spool, reader.RowScores().TotalScore);
    const std::vector<qint64>& subscales = reader.RowScores().SubscaleScore;
    for (size_t s = 1; s < subscales.size(); ++s)
        WriteNumber(spool, subscales[s]);
    spool.Write("\n");
}

void Rewind(QFile& file) {
    if (!file.seek(0))
        throw Failure(QStringLiteral("Can't read the responses file '") + file.fileName() +
                      QStringLiteral("' again: ") + file.errorString());
}

void RequireTwoReadings(const QFile& file, const QString& what) {
    if (file.isSequential())
        throw Failure(QStringLiteral("Can't write ") + what + QStringLiteral(": the responses file '") +
                      file.fileName() + QStringLiteral("' can't be read twice"));
}

/// Files the reports of all rows, each as an automatic report would be. Returns whether all could be written.
bool WriteReports(QFile& file, TestDocument& test, const ReportContext& context, Console& console) {
    bool allWritten = true;
    SayingPrompts prompts(console);
    TakenNumbers taken;
    Rewind(file);
    ReadResponses(file, test, ResponsesReader::Texts::Kept, console, [&](const ResponsesReader& reader) {
        const int saidBefore = prompts.Count();
        const auto nextPath = [&] {
            return ReportPathFor(test, QString::fromStdString(reader.Client()), prompts, &taken);
        };
        QString path = nextPath();
        const QString report = ReportOfRow(reader, test, context);
        const Result written = test.TestOption(AppendToReportFile) ? WriteReportFile(path, report, true)
                                                                   : WriteNewReportFile(path, report, nextPath);
        const QString row = QStringLiteral("row %1: ").arg(reader.Row());
        if (!written)
            Say(console, row + written.Message());
        else if (prompts.Count() != saidBefore)
            Say(console, row + QStringLiteral("the report was written to '") + path + QStringLiteral("' instead"));
        allWritten = allWritten && written && prompts.Count() == saidBefore;
    });
    return allWritten;
}

/// Makes the directory of the reports before anything is written.
void PrepareReports(const QString& directory, QFile& file, TestDocument& test) {
    RequireTwoReadings(file, QStringLiteral("reports"));
    if (!DirectoryExists(directory))
        MakeDirectory(directory);
    if (!DirectoryExists(directory))
        throw Failure(QStringLiteral("Can't make directory: ") + directory);
    test.ReportDirectory = directory;
    // The command line alone says where the reports go.
    test.AutosaveFileName = PlainName(test.AutosaveFileName);
}

/// Puts all rows into the workbook, which is left without being saved.
void FillWorkbook(WorkbookRows& workbook, QFile& file, const TestDocument& test, Console& console) {
    RequireTwoReadings(file, QStringLiteral("a workbook"));
    Rewind(file);
    ReadResponses(file, test, ResponsesReader::Texts::Kept, console,
                  [&](const ResponsesReader& reader) { workbook.Append(reader); });
}

int Run(const CommandLine& line, Console& console) {
    const ReportContext context = ReportContextFrom(line, console);
    const QString directory = line.Value(ReportsOption);
    if (line.Has(ReportsOption) && directory.isEmpty())
        throw UsageError(QStringLiteral("'--reports' needs a directory"));
    const QString workbookPath = line.Value(WorkbookOption);
    if (line.Has(WorkbookOption) && workbookPath.isEmpty())
        throw UsageError(QStringLiteral("'--workbook' needs a file"));
    TestDocument test;
    OpenTestFor(line.Files[0], test);

    QFile file(line.Files[1]);
    OpenResponses(file);
    Spool spool;
    WriteHeader(spool, test);
    ReadResponses(file, test, ResponsesReader::Texts::Dropped, console,
                  [&](const ResponsesReader& reader) { WriteRow(spool, reader); });

    std::optional<WorkbookRows> workbook;
    if (!workbookPath.isEmpty()) {
        workbook.emplace(workbookPath, test, context);
        FillWorkbook(*workbook, file, test, console);
    }
    if (!directory.isEmpty())
        PrepareReports(directory, file, test);
    // From here on things are written.
    if (workbook) {
        workbook->Save();
        for (const QString& note : workbook->Notes())
            Say(console, note);
    }
    const bool allWritten = directory.isEmpty() || WriteReports(file, test, context, console);
    Output output(console.Out);
    spool.CopyTo(output);
    output.Finish();
    return allWritten ? Done : Unusable;
}

std::vector<OptionSpec> Options() {
    std::vector<OptionSpec> options{
        {ReportsOption, QStringLiteral("DIR"), QStringLiteral("also write each row's report, into DIR")},
        {WorkbookOption, QStringLiteral("BOOK"), QStringLiteral("also append each row to the workbook BOOK")}};
    for (const OptionSpec& option : ReportOptions())
        options.push_back(option);
    return options;
}

} // namespace

const Command& ScoreCommand() {
    static const Command command{QStringLiteral("score"),
                                 QStringLiteral("FILE RESPONSES.csv"),
                                 QStringLiteral("Scores every row of a responses file and prints the scores as CSV."),
                                 Options(),
                                 2,
                                 2,
                                 Run};
    return command;
}

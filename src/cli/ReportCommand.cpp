#include "base/Text.h"
#include "cli/Responses.h"

namespace {

const QString RowOption = QStringLiteral("--row");

/// The number behind --row, 0 for all rows.
qint64 WantedRow(const CommandLine& line) {
    if (!line.Has(RowOption))
        return 0;
    bool isNumber = false;
    const qint64 row = line.Value(RowOption).toLongLong(&isNumber);
    if (!isNumber || row < 1)
        throw UsageError(Quoted(line.Value(RowOption)) + QStringLiteral(" is not the number of a row, from 1 on"));
    return row;
}

int Run(const CommandLine& line, Console& console) {
    const qint64 wanted = WantedRow(line);
    const ReportContext context = ReportContextFrom(line, console);
    TestDocument test;
    OpenTestFor(line.Files[0], test);

    QFile file(line.Files[1]);
    OpenResponses(file);
    Spool spool;
    const qint64 rows =
        ReadResponses(file, test, ResponsesReader::Texts::Kept, console, [&](const ResponsesReader& reader) {
            if (wanted == 0 || wanted == reader.Row())
                spool.Write(ReportOfRow(reader, test, context).toUtf8().toStdString());
        });
    if (wanted > rows)
        throw Failure(file.fileName() + QStringLiteral(": there is no row %1; the file has %2").arg(wanted).arg(rows));

    Output output(console.Out);
    spool.CopyTo(output);
    output.Finish();
    return Done;
}

std::vector<OptionSpec> Options() {
    std::vector<OptionSpec> options{
        {RowOption, QStringLiteral("K"), QStringLiteral("the report of row K alone, from 1")}};
    for (const OptionSpec& option : ReportOptions())
        options.push_back(option);
    return options;
}

} // namespace

const Command& ReportCommand() {
    static const Command command{QStringLiteral("report"),
                                 QStringLiteral("FILE RESPONSES.csv"),
                                 QStringLiteral("Prints the report texts of all rows of a responses file."),
                                 Options(),
                                 2,
                                 2,
                                 Run};
    return command;
}

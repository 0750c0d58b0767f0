#include "cli/Responses.h"

qint64 ReadResponses(QFile& file, const TestDocument& test, ResponsesReader::Texts texts, Console& console,
                     const std::function<void(const ResponsesReader&)>& each) {
    const QString& path = file.fileName();
    ResponsesReader reader(test, file, texts,
                           [&](const QString& complaint) { Say(console, path + QStringLiteral(": ") + complaint); });
    if (!reader.ReadHeader() && !reader.Failed())
        throw Failure(path + QStringLiteral(": the file has no header; nothing was written"));
    {
        Progress progress(console, file.isSequential() ? 0 : file.size());
        while (reader.NextRow()) {
            if (reader.Good())
                each(reader);
            progress.Show(reader.BytesRead(), reader.Row());
        }
    }
    if (reader.Failed())
        throw Failure(QStringLiteral("Can't read the responses file '") + path + QStringLiteral("': ") +
                      file.errorString());
    if (!reader.Good())
        throw Failure(path + QStringLiteral(": %1; nothing was written")
                                 .arg(reader.Complaints() == 1 ? QStringLiteral("1 error")
                                                               : QStringLiteral("%1 errors").arg(reader.Complaints())));
    return reader.Row();
}

QString ReportOfRow(const ResponsesReader& reader, const TestDocument& test, const ReportContext& context) {
    ReportContext ofRow = context;
    ofRow.ClientName = QString::fromStdString(reader.Client());
    if (!reader.Administrator().empty())
        ofRow.AdministratorName = QString::fromStdString(reader.Administrator());
    return BuildReport(test, reader.Responses(), ofRow);
}

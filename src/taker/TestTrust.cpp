#include "taker/TestTrust.h"

#include "base/Text.h"
#include "platform/FileNames.h"
#include "taker/SpreadsheetExporter.h"
#include "testdoc/TestParser.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace {

const QString ReportExtension = QStringLiteral(".txt");
/// A folder may hold very many files; the question has to stay readable.
constexpr qsizetype MostFilesNamed = 4;

QString BeforeDot(const QString& name) { return name.section(u'.', 0, 0); }

bool FilesReport(const TestDocument& test) {
    return test.TestOption(AutosaveReportAsClient) || test.TestOption(AutosaveReportDirectoryAsClient) ||
           test.TestOption(AppendToReportFile);
}

bool FilesWorkbookRow(const TestDocument& test) {
    static constexpr Option columns[] = {AutosaveExcelDirectoryAsClient,
                                         AutosaveExcelReportAsClient,
                                         IncludeMultichoiceAnswersInExcel,
                                         IncludeShortAnswersInExcel,
                                         IncludeLongAnswersInExcel,
                                         IncludeClientNameInExcel,
                                         IncludeDateInExcel,
                                         IncludeSubscalesInExcel,
                                         IncludeTotalScoreInExcel};
    return !test.ExcelFileName.isEmpty() ||
           std::ranges::any_of(columns, [&](Option option) { return test.TestOption(option); });
}

/// The file that results go to, the client's name aside.
struct Target {
    /// Absolute, with the extension.
    QString Path;
    QString Extension;
    bool InClientFolder = false;
    bool WithClientName = false;

    QString Folder() const { return QFileInfo(Path).path(); }
    QString Base() const { return QFileInfo(Path).fileName().chopped(Extension.size()); }
};

QString Resolved(const QString& path, const QString& workingDirectory) {
    const QDir start(workingDirectory.isEmpty() ? QDir::currentPath() : workingDirectory);
    return QDir::cleanPath(start.absoluteFilePath(QDir::fromNativeSeparators(path)));
}

QString Joined(const QString& folder, const QString& name) {
    return folder.isEmpty() || EndsInSeparator(folder) ? folder + name : folder + DirectorySeparator + name;
}

/// What a test names for one kind of results, and what is used without it.
struct Named {
    QString Folder;
    QString FolderWithout;
    QString Name;
    QString Extension;
    bool InClientFolder;
    bool WithClientName;
};

/// The files that it may come to: where a folder may turn out not to be one, its results go where they would go
/// without it.
std::vector<Target> TargetsOf(const Named& named, const QString& workingDirectory) {
    const auto at = [&](const QString& folder, bool inClientFolder) {
        return Target{Resolved(Joined(folder, named.Name + named.Extension), workingDirectory), named.Extension,
                      inClientFolder, named.WithClientName};
    };
    const QString folder = named.Folder.isEmpty() ? named.FolderWithout : named.Folder;
    std::vector<Target> targets{at(folder, named.InClientFolder)};
    if (named.InClientFolder || !QFileInfo(Resolved(folder, workingDirectory)).isDir())
        targets.push_back(at(named.FolderWithout, false));
    return targets;
}

std::vector<Target> ReportTargets(const TestDocument& test, const QString& workingDirectory) {
    QString name = BeforeDot(test.AutosaveFileName);
    if (name.isEmpty())
        name = test.TestBaseName.isEmpty() ? QFileInfo(test.TestFileName).completeBaseName() : test.TestBaseName;
    return TargetsOf({test.ReportDirectory,
                      {},
                      name,
                      ReportExtension,
                      test.TestOption(AutosaveReportDirectoryAsClient),
                      test.TestOption(AutosaveReportAsClient)},
                     workingDirectory);
}

std::vector<Target> WorkbookTargets(const TestDocument& test, const QString& workingDirectory) {
    const QString name = BeforeDot(test.ExcelFileName);
    return TargetsOf({test.ExcelDirectory, Resolved({}, workingDirectory), name.isEmpty() ? DefaultWorkbookName : name,
                      WorkbookExtension, test.TestOption(AutosaveExcelDirectoryAsClient),
                      test.TestOption(AutosaveExcelReportAsClient)},
                     workingDirectory);
}

/// The path with the links in it followed, as far as it exists; empty for one that leads through a link to nowhere.
QString Canonical(const QString& path) {
    const QFileInfo file(path);
    if (file.exists())
        return file.canonicalFilePath();
    if (file.isSymLink())
        return {};
    const QString above = file.path();
    const QString base = above == path ? above : Canonical(above);
    return base.isEmpty() ? base : Joined(base, file.fileName());
}

bool IsWithin(const QString& path, const QString& workingDirectory) {
#ifdef Q_OS_WIN
    constexpr Qt::CaseSensitivity asFileNames = Qt::CaseInsensitive;
    // A second colon leads to another stream or drive.
    if (path.count(u':') > 1)
        return false;
#else
    constexpr Qt::CaseSensitivity asFileNames = Qt::CaseSensitive;
#endif
    const QString inner = QDir::fromNativeSeparators(Canonical(path));
    const QString outer = QDir::fromNativeSeparators(Canonical(Resolved(QString(), workingDirectory)));
    return !inner.isEmpty() && (inner.compare(outer, asFileNames) == 0 ||
                                inner.startsWith(outer.endsWith(u'/') ? outer : outer + u'/', asFileNames));
}

/// A text from the test, for the question: it can't put lines of its own into it, write backwards, or push the rest out
/// of view.
QString Shown(QString text) {
    for (QChar& c : text)
        if (c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
            c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph)
            c = u' ';
    return Quoted(text);
}

QString ShownPath(const QString& path) { return Shown(QDir::toNativeSeparators(path)); }

void AddOutside(QStringList& acts, const QString& what, const std::vector<Target>& targets,
                const QString& workingDirectory) {
    for (const Target& target : targets) {
        const QString folder = target.Folder();
        if (!IsWithin(target.Path, workingDirectory))
            acts.append(what + QStringLiteral(" into the folder ") + ShownPath(folder) +
                        (target.InClientFolder ? QStringLiteral(", in a folder for each client") : QString()) +
                        (QFileInfo(folder).isDir() ? QString() : QStringLiteral("; the folder would be made")));
    }
}

QStringList ExistingFilesOf(const Target& target, bool alsoWithoutClientName) {
    QStringList folders{target.Folder()};
    if (target.InClientFolder)
        for (const QFileInfo& folder : QDir(target.Folder()).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
            folders.append(folder.filePath());
    const QString base = target.Base();
    const auto mayBeIt = [&](const QString& name) {
        const bool withoutName = !target.WithClientName || alsoWithoutClientName;
        return (withoutName && name == base + target.Extension) ||
               (target.WithClientName && name.startsWith(base + u' ') && name.endsWith(target.Extension));
    };
    QStringList files;
    for (const QString& folder : folders)
        for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name))
            if (mayBeIt(name))
                files.append(QDir(folder).filePath(name));
    return files;
}

/// The files that are there already and that results may be appended to.
QStringList ExistingFiles(const std::vector<Target>& targets, bool alsoWithoutClientName) {
    QStringList files;
    for (const Target& target : targets)
        files += ExistingFilesOf(target, alsoWithoutClientName);
    files.removeDuplicates();
    return files;
}

bool IsOwn(const QString& file, const TrustContext& context) { return context.Made && context.Made(file); }

void AddAppending(QStringList& acts, const QString& what, const QStringList& files, const TrustContext& context) {
    const QString unless =
        context.Made ? QStringLiteral(", which it did not make") : QStringLiteral(", unless it made that itself");
    qsizetype foreign = 0;
    for (const QString& file : files)
        if (!IsOwn(file, context) && ++foreign <= MostFilesNamed)
            acts.append(what + QStringLiteral(" to the file ") + ShownPath(file) + unless);
    if (foreign > MostFilesNamed)
        acts.append(what + QStringLiteral(" to %1 more such files").arg(foreign - MostFilesNamed));
}

} // namespace

QStringList ActsBeyondItsResults(const TestDocument& test, const TrustContext& context) {
    const std::vector<Target> report = ReportTargets(test, context.WorkingDirectory);
    const std::vector<Target> workbook = WorkbookTargets(test, context.WorkingDirectory);
    QStringList acts;
    AddOutside(acts, QStringLiteral("write reports"), report, context.WorkingDirectory);
    AddOutside(acts, QStringLiteral("write a workbook"), workbook, context.WorkingDirectory);
    if (test.TestOption(AppendToReportFile))
        AddAppending(acts, QStringLiteral("append reports"), ExistingFiles(report, false), context);
    if (FilesWorkbookRow(test))
        AddAppending(acts, QStringLiteral("append rows"), ExistingFiles(workbook, true), context);
    if (test.TestOption(OpenReportWhenCompleted))
        acts.append(QStringLiteral("start the program '") + context.Editor + QStringLiteral("' on each report"));
    if (test.TestOption(OpenExcelReportWhenCompleted))
        acts.append(QStringLiteral("start the spreadsheet program on its workbook"));
    acts.removeDuplicates();
    return acts;
}

ChoicePrompt TrustQuestion(const TestDocument& test, const QStringList& acts, const QString& workingDirectory) {
    QString text = QStringLiteral("The test ") + Shown(test.TestTitle) + QStringLiteral(" (") +
                   ShownPath(AbsolutePath(test.TestFileName)) +
                   QStringLiteral(") does more than put its results into the working directory. It would:\n\n");
    for (const QString& act : acts)
        text += QStringLiteral("\u2022 ") + act + u'\n';
    text += QStringLiteral("\nAllow this only if you know who wrote the test. With \"No\" the test can be taken all "
                           "the same; its results stay in ") +
            ShownPath(workingDirectory) + u'.';
    return {text,
            {{QStringLiteral("&Allow for this test")},
             {QStringLiteral("&Only this time")},
             {QStringLiteral("&No"), ChoiceRole::Reject}},
            NotAllowed,
            NotAllowed};
}

QString PlainName(const QString& name) {
    const QString base = BeforeDot(QDir::fromNativeSeparators(name));
    return base.isEmpty() ? base : FileNameOf(base.mid(base.lastIndexOf(u'/') + 1));
}

void ConfineResults(TestDocument& test, const TrustContext& context) {
    const bool filesReport = FilesReport(test);
    const bool filesRow = FilesWorkbookRow(test);
    test.ReportDirectory.clear();
    test.ExcelDirectory.clear();
    test.AutosaveFileName = PlainName(test.AutosaveFileName);
    test.ExcelFileName = PlainName(test.ExcelFileName);
    for (const Option option :
         {AutosaveReportDirectoryAsClient, AppendToReportFile, OpenReportWhenCompleted, AutosaveExcelDirectoryAsClient,
          AutosaveExcelReportAsClient, OpenExcelReportWhenCompleted})
        test.TestOption(option) = false;
    // Of the options that have a report filed by itself, this one only adds the client's name.
    test.TestOption(AutosaveReportAsClient) = filesReport;
    if (!filesRow)
        return;
    const QString name = test.ExcelFileName.isEmpty() ? DefaultWorkbookName : test.ExcelFileName;
    test.ExcelFileName = name;
    for (int k = 1;; ++k) {
        const QString path = WorkbookTargets(test, context.WorkingDirectory).front().Path;
        if ((!QFileInfo::exists(path) && !QFileInfo(path).isSymLink()) || IsOwn(path, context))
            return;
        test.ExcelFileName = name + QStringLiteral("(%1)").arg(k);
    }
}

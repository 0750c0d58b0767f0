#include "export/EarlierWorkbook.h"
#include "export/workbook/BuiltInSpreadsheet.h"
#include "export/workbook/PackageOf.h"
#include "support/Files.h"
#include "support/OrdinaryUser.h"
#include "support/RecordingLauncher.h"
#include "support/ScriptedPrompts.h"
#include "support/SmallDisk.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace {

BuiltInSpreadsheetParts Impatient() { return {nullptr, {}, {}, 60}; }

/// What an action of a spreadsheet throws, as "number: description"; empty when it goes well.
QString Refusal(const std::function<void()>& action) {
    try {
        action();
        return {};
    } catch (const SpreadsheetError& failure) {
        return QStringLiteral("%1: ").arg(failure.Number()) + failure.Message();
    }
}

/// Appends a row with the text to the workbook, or begins it, as an export does.
QString Append(BuiltInSpreadsheet& spreadsheet, const QString& path, const QString& text) {
    return Refusal([&] {
        bool isNew = false;
        try {
            spreadsheet.OpenWorkbook(path);
        } catch (const SpreadsheetError& failure) {
            if (failure.Number() == WorkbookOpenElsewhere)
                throw;
            isNew = true;
            spreadsheet.AddWorkbook();
        }
        int row = 3;
        while (!std::holds_alternative<std::monostate>(spreadsheet.Cells(row, 1)))
            ++row;
        spreadsheet.SetCells(row, 1, text);
        isNew ? spreadsheet.SaveActiveWorkbookAs(path) : spreadsheet.SaveActiveWorkbook();
        spreadsheet.Quit();
    });
}

QString Append(const QString& path, const QString& text) {
    BuiltInSpreadsheet spreadsheet(Impatient());
    return Append(spreadsheet, path, text);
}

/// The texts below each other from row 3 on.
QString Texts(const QString& path) {
    Workbook workbook(BytesOf(path));
    QStringList texts;
    for (int row = 3;; ++row) {
        const CellValue value = workbook.Cell(row, 1);
        if (!std::holds_alternative<QString>(value))
            return texts.join(u' ');
        texts.append(std::get<QString>(value));
    }
}

/// Another process that does something with a file and then stays until this goes.
class AnotherProcess {
  public:
    explicit AnotherProcess(const std::function<void()>& action) {
        int ready[2] = {};
        if (pipe(ready) != 0)
            return;
        child_ = fork();
        if (child_ == 0) {
            action();
            const char done = 1;
            if (write(ready[1], &done, 1) != 1)
                _exit(1);
            for (;;)
                pause();
        }
        char done = 0;
        [[maybe_unused]] const auto count = read(ready[0], &done, 1);
        close(ready[0]);
        close(ready[1]);
    }
    ~AnotherProcess() {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
    }

  private:
    pid_t child_ = -1;
};

/// Puts a number of four bytes into the package's list, where the sheet's unpacked size stands.
QByteArray WithSheetSize(QByteArray package, quint32 size) {
    const qsizetype list = package.indexOf("PK\1\2");
    const qsizetype entry = package.lastIndexOf("PK\1\2", package.lastIndexOf(SheetName.toUtf8()));
    for (int i = 0; i < 4 && list >= 0; ++i)
        package[entry + 24 + i] = static_cast<char>(size >> (8 * i));
    return package;
}

} // namespace

class tst_builtinspreadsheet : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }
    void Save_NewAndAgain_RowsAndNothingElse();
    void Save_Unreadable_RefusedAndUntouched_data();
    void Save_Unreadable_RefusedAndUntouched();
    void Save_DamagedAnywhere_RefusedOrRead();
    void Save_LargeSheet_LittleMemory();
    void Save_FolderMissing_Reason();
    void Save_NoPermission_Untouched_data();
    void Save_NoPermission_Untouched();
    void Save_DiskFull_EarlierVersionKept();
    void Save_ChangedMeanwhile_Refused();
    void Save_OpenedMeanwhile_Refused();
    void Save_Link_Followed();
    void Save_NothingSet_FileUntouched();
    void Open_OpenElsewhere_462_data();
    void Open_OpenElsewhere_462();
    void Open_AnotherCopy_WaitsThenNamesIt();
    void Open_AnotherCopySaves_BothRows();
    void Open_CopyThatDied_Goes();
    void Open_CutOffBesideEarlierVersion_NamedAndOffered();
    void Append_ManyProcesses_AllRows();
    void SetVisible_Saved_Shown();

  private:
    QString Path(const char* name = "r.exl") const { return folder_->filePath(QLatin1String(name)); }
    QString Names() const {
        return QDir(folder_->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).join(u' ');
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_builtinspreadsheet::Save_NewAndAgain_RowsAndNothingElse() {
    QCOMPARE(Append(Path(), QStringLiteral("one")), QString());
    QCOMPARE(QFile::permissions(Path()) & (QFileDevice::ReadOther | QFileDevice::ReadGroup), 0);
    QCOMPARE(Append(Path(), QStringLiteral("two")), QString());
    QCOMPARE(Texts(Path()), QStringLiteral("one two"));
    QCOMPARE(Names(), QStringLiteral("r.exl"));
}

void tst_builtinspreadsheet::Save_Unreadable_RefusedAndUntouched_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const QByteArray sound = WorkbookWith("<sheetData/>");
    QTest::newRow("empty") << QByteArray() << "it is empty";
    QTest::newRow("text") << QByteArray("Dear diary") << "it is no workbook, or a damaged one (Not a zip archive)";
    QTest::newRow("cut") << sound.chopped(30) << "it is no workbook, or a damaged one (Not a zip archive)";
    QTest::newRow("older format") << QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and so on")
                                  << "it is protected with a password, or it is in the older format of .xls files";
    QTest::newRow("bomb") << WithSheetSize(sound, 4'000'000'000)
                          << "its part 'xl/worksheets/sheet1.xml' is 4,000,000,000 bytes long, and at most 2,147,483,648 "
                             "can be read";
    QTest::newRow("bomb that lies") << WithSheetSize(WorkbookWith("<sheetData/>" + QByteArray(1 << 20, ' ')), 99)
                                    << "its part 'xl/worksheets/sheet1.xml' is damaged (";
}

void tst_builtinspreadsheet::Save_Unreadable_RefusedAndUntouched() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    PutBytes(Path(), bytes);
    const QString refusal = Append(Path(), QStringLiteral("x"));
    const QString expected = QStringLiteral("1004: The file '") + Path() +
                             QStringLiteral("' can't be read as a workbook and was not changed: ") + reason;
    QVERIFY2(refusal.startsWith(expected), qPrintable(refusal));
    QCOMPARE(BytesOf(Path()), bytes);
    QCOMPARE(Names(), QStringLiteral("r.exl"));

    QDir(folder_->path()).mkdir(QStringLiteral("d.exl"));
    QVERIFY(Append(Path("d.exl"), QStringLiteral("x")).endsWith(QStringLiteral("it is a directory")));
}

void tst_builtinspreadsheet::Save_DamagedAnywhere_RefusedOrRead() {
    const QByteArray sound = WorkbookWith("<sheetData><row><c><v>1</v></c></row></sheetData>");
    for (qsizetype i = 0; i < sound.size(); i += 7) {
        QByteArray damaged = sound;
        damaged[i] = static_cast<char>(damaged[i] ^ 0x41);
        PutBytes(Path(), damaged);
        if (const QString refusal = Append(Path(), QStringLiteral("x")); !refusal.isEmpty())
            QCOMPARE(BytesOf(Path()), damaged);
        else
            QVERIFY(BytesOf(Path()) != damaged);
    }
    QCOMPARE(Names(), QStringLiteral("r.exl"));
}

// The tool that adds a row to a sheet of 100 MB holds a small part of it at any time.
void tst_builtinspreadsheet::Save_LargeSheet_LittleMemory() {
    class Rows : public ByteSource {
      public:
        qint64 Read(char* to, qint64 most) override {
            if (given_ == ready_.size()) {
                given_ = 0;
                ready_ = row_ > MostRows ? QByteArray()
                                         : "<row r='" + QByteArray::number(row_) + "'><c r='A" + QByteArray::number(row_) +
                                               "'><v>1</v></c><!--" + QByteArray(1000, '-').replace("--", "- ") + "--></row>";
                if (row_ == 0)
                    ready_ = "<worksheet><sheetData>";
                else if (row_ == MostRows)
                    ready_ += "</sheetData></worksheet>";
                ++row_;
            }
            const qint64 count = qMin<qint64>(most, ready_.size() - given_);
            std::memcpy(to, ready_.constData() + given_, static_cast<size_t>(count));
            given_ += count;
            return count;
        }

      private:
        static constexpr int MostRows = 100'000;
        int row_ = 0;
        QByteArray ready_;
        qint64 given_ = 0;
    };
    ZipPackage package(NewWorkbookBytes());
    package.Put(SheetName, [] { return std::make_unique<Rows>(); }, 200 << 20);
    PutBytes(Path(), package.Pack());
    PutBytes(Path("t.vlm"), "[TITLE]T[/TITLE][Q]One[A]a[v=1][/A][/Q][INCLUDE CLIENT NAME IN EXCEL FILE]");
    PutBytes(Path("r.csv"), "client\nAnn\n");
    QProcess process;
    process.start(qEnvironmentVariable("VELLUMO_CLI"), {QStringLiteral("score"), Path("t.vlm"), Path("r.csv"),
                                                        QStringLiteral("--workbook"), Path()});
    QVERIFY(process.waitForFinished(300'000));
    QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
#ifndef __SANITIZE_ADDRESS__
    QVERIFY2(usage.ru_maxrss < 80 << 10, qPrintable(QString::number(usage.ru_maxrss)));
#endif
}

void tst_builtinspreadsheet::Save_FolderMissing_Reason() {
    const QString folder = Path("gone");
    QCOMPARE(Append(folder + QStringLiteral("/r.exl"), QStringLiteral("x")),
             QStringLiteral("1004: There is no folder '%1'").arg(folder));
}

void tst_builtinspreadsheet::Save_NoPermission_Untouched_data() {
    QTest::addColumn<bool>("folder");
    QTest::addColumn<QString>("reason");
    QTest::newRow("file") << false << "Permission denied";
    QTest::newRow("folder") << true << "Nothing can be written in the folder";
}

void tst_builtinspreadsheet::Save_NoPermission_Untouched() {
    QFETCH(bool, folder);
    QFETCH(QString, reason);
    QCOMPARE(Append(Path(), QStringLiteral("one")), QString());
    const QByteArray before = BytesOf(Path());
    chmod(qPrintable(Path()), 0444);
    chmod(qPrintable(folder_->path()), folder ? 0555 : 0777);
    {
        const OrdinaryUser user;
        if (!user.IsReal())
            QSKIP("Permissions bind nobody here");
        const QString refusal = Append(Path(), QStringLiteral("two"));
        QVERIFY2(refusal.contains(reason), qPrintable(refusal));
    }
    chmod(qPrintable(folder_->path()), 0700);
    QCOMPARE(BytesOf(Path()), before);
    QCOMPARE(Names(), QStringLiteral("r.exl"));
}

void tst_builtinspreadsheet::Save_DiskFull_EarlierVersionKept() {
    QCOMPARE(Append(Path(), QStringLiteral("one")), QString());
    const QByteArray before = BytesOf(Path());
    {
        const SmallDisk disk(1000);
        const QString refusal = Append(Path(), QStringLiteral("two"));
        QVERIFY2(refusal.startsWith(QStringLiteral("1004: Can't write the file")), qPrintable(refusal));
        const QString ofNew = Append(Path("new.exl"), QStringLiteral("two"));
        QVERIFY2(ofNew.contains(QStringLiteral("There was no earlier version.")), qPrintable(ofNew));
    }
    QCOMPARE(BytesOf(Path()), before);
    QCOMPARE(Names(), QStringLiteral("r.exl"));
    QCOMPARE(Append(Path(), QStringLiteral("two")), QString());
    QCOMPARE(Texts(Path()), QStringLiteral("one two"));
}

void tst_builtinspreadsheet::Save_ChangedMeanwhile_Refused() {
    QCOMPARE(Append(Path(), QStringLiteral("one")), QString());
    BuiltInSpreadsheet spreadsheet(Impatient());
    spreadsheet.OpenWorkbook(Path());
    spreadsheet.SetCells(4, 1, QStringLiteral("two"));
    const QByteArray other = BytesOf(Path()) + "!";
    PutBytes(Path(), other);
    QVERIFY(
        Refusal([&] { spreadsheet.SaveActiveWorkbook(); }).contains(QStringLiteral("by another program meanwhile")));
    QCOMPARE(BytesOf(Path()), other);
}

void tst_builtinspreadsheet::Save_OpenedMeanwhile_Refused() {
    QCOMPARE(Append(Path(), QStringLiteral("one")), QString());
    BuiltInSpreadsheet spreadsheet(Impatient());
    spreadsheet.OpenWorkbook(Path());
    spreadsheet.SetCells(4, 1, QStringLiteral("two"));
    PutBytes(Path(".~lock.r.exl#"), ",ann,,;");
    QVERIFY(Refusal([&] { spreadsheet.SaveActiveWorkbook(); }).startsWith(QStringLiteral("462: ")));
    QCOMPARE(Texts(Path()), QStringLiteral("one"));
}

void tst_builtinspreadsheet::Save_Link_Followed() {
    QDir(folder_->path()).mkdir(QStringLiteral("far"));
    QCOMPARE(Append(Path("far/r.exl"), QStringLiteral("one")), QString());
    QVERIFY(QFile::link(Path("far/r.exl"), Path("link.exl")));
    QCOMPARE(Append(Path("link.exl"), QStringLiteral("two")), QString());
    QVERIFY(QFileInfo(Path("link.exl")).isSymLink());
    QCOMPARE(Texts(Path("far/r.exl")), QStringLiteral("one two"));

    // Both ways to the workbook are one for the lock, and for that of another program.
    BuiltInSpreadsheet first(Impatient());
    first.OpenWorkbook(Path("link.exl"));
    QVERIFY(Append(Path("far/r.exl"), QStringLiteral("three")).startsWith(QStringLiteral("463: ")));
    first.Quit();
    PutBytes(Path("far/.~lock.r.exl#"), ",ann,,;");
    QVERIFY(Append(Path("link.exl"), QStringLiteral("three")).startsWith(QStringLiteral("462: ")));
}

void tst_builtinspreadsheet::Save_NothingSet_FileUntouched() {
    QCOMPARE(Append(Path(), QStringLiteral("one")), QString());
    const QDateTime before = QFileInfo(Path()).lastModified();
    BuiltInSpreadsheet spreadsheet(Impatient());
    spreadsheet.OpenWorkbook(Path());
    spreadsheet.SaveActiveWorkbook();
    QCOMPARE(QFileInfo(Path()).lastModified(), before);
}

void tst_builtinspreadsheet::Open_OpenElsewhere_462_data() {
    QTest::addColumn<QString>("way");
    QTest::newRow("LibreOffice's file") << ".~lock.r.exl#";
    QTest::newRow("Excel's file") << "~$r.exl";
    QTest::newRow("lock on the file") << "flock";
    QTest::newRow("lock on a part of it") << "fcntl";
}

void tst_builtinspreadsheet::Open_OpenElsewhere_462() {
    QFETCH(QString, way);
    QCOMPARE(Append(Path(), QStringLiteral("one")), QString());
    const QByteArray path = Path().toUtf8();
    {
        const AnotherProcess other([&] {
            const int file = open(path.constData(), O_RDWR);
            struct flock part {};
            part.l_type = F_WRLCK;
            part.l_start = 10;
            part.l_len = 1;
            if (way == QStringLiteral("flock"))
                flock(file, LOCK_EX);
            else if (way == QStringLiteral("fcntl"))
                fcntl(file, F_SETLK, &part);
            else
                PutBytes(folder_->filePath(way), ",ann,,;");
        });
        QCOMPARE(Append(Path(), QStringLiteral("two")),
                 QStringLiteral("462: The file '%1' is open elsewhere").arg(Path()));
    }
    QFile::remove(folder_->filePath(way));
    QCOMPARE(Append(Path(), QStringLiteral("two")), QString());
    QCOMPARE(Texts(Path()), QStringLiteral("one two"));
}

void tst_builtinspreadsheet::Open_AnotherCopy_WaitsThenNamesIt() {
    BuiltInSpreadsheet first(Impatient());
    QVERIFY(Refusal([&] { first.OpenWorkbook(Path()); }).contains(QStringLiteral("There is no file")));
    int calls = 0;
    BuiltInSpreadsheet second({nullptr, {}, [&] { ++calls; }, 300});
    QElapsedTimer time;
    time.start();
    QVERIFY(Append(second, Path(), QStringLiteral("x"))
                .startsWith(QStringLiteral("463: The file '%1' can't be changed now: another Vellumo is writing it "
                                           "(process %2 on ")
                                .arg(Path(), QString::number(QCoreApplication::applicationPid()))));
    QVERIFY(time.elapsed() >= 300 && time.elapsed() < 2000);
    QVERIFY(calls >= 5);
    QCOMPARE(BuiltInSpreadsheetParts().PatienceMilliseconds, 10'000);
}

void tst_builtinspreadsheet::Open_AnotherCopySaves_BothRows() {
    // Both find no workbook at first.
    BuiltInSpreadsheet first(Impatient());
    QVERIFY(!Refusal([&] { first.OpenWorkbook(Path()); }).isEmpty());
    first.AddWorkbook();
    first.SetCells(3, 1, QStringLiteral("one"));
    BuiltInSpreadsheet second({nullptr, {}, [&] {
                                   if (!QFile::exists(Path()))
                                       first.SaveActiveWorkbookAs(Path());
                               }});
    QCOMPARE(Append(second, Path(), QStringLiteral("two")), QString());
    QCOMPARE(Texts(Path()), QStringLiteral("one two"));
}

void tst_builtinspreadsheet::Open_CopyThatDied_Goes() {
    QCOMPARE(Append(Path(), QStringLiteral("one")), QString());
    {
        const AnotherProcess other([&] {
            // Nothing ends it in good order, so its lock stays.
            auto* lock = new WorkbookLock(Path());
            lock->Take(0, {});
        });
        QVERIFY(Append(Path(), QStringLiteral("two")).startsWith(QStringLiteral("463: ")));
    }
    QVERIFY(Names().contains(QStringLiteral(".r.exl.vellumo-lock")));
    // Nor does one lock that is empty, or holds anything.
    for (const char* text : {"two", "three", "four"}) {
        QCOMPARE(Append(Path(), QLatin1String(text)), QString());
        QCOMPARE(Names(), QStringLiteral("r.exl"));
        PutBytes(Path(".r.exl.vellumo-lock"), *text == 't' ? QByteArray() : QByteArray("\0garbled\n1", 10));
    }
}

void tst_builtinspreadsheet::Open_CutOffBesideEarlierVersion_NamedAndOffered() {
    QCOMPARE(Append(Path(), QStringLiteral("one")), QString());
    const QByteArray whole = BytesOf(Path());
    PutBytes(Path("r.exl.earlier"), whole);
    for (const qsizetype length : {whole.size() / 2, qsizetype(0)}) {
        PutBytes(Path(), whole.first(length));
        QVERIFY(Append(Path(), QStringLiteral("two"))
                    .contains(QStringLiteral("An earlier version of it is in '%1'").arg(Path("r.exl.earlier"))));
    }
    ScriptedPrompts prompts;
    prompts.Expect(QStringLiteral("is empty or cut off.\n\nAn earlier"), PromptAnswer::Yes).InPart();
    OfferEarlierWorkbook(Path(), prompts);
    QCOMPARE(Append(Path(), QStringLiteral("two")), QString());
    QCOMPARE(Texts(Path()), QStringLiteral("one two"));
    OfferEarlierWorkbook(Path(), prompts);
}

void tst_builtinspreadsheet::Append_ManyProcesses_AllRows() {
    PutBytes(Path("t.vlm"), "[TITLE]T[/TITLE][Q]One[A]a[v=1][/A][/Q][INCLUDE CLIENT NAME IN EXCEL FILE]");
    constexpr int count = 6;
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < count; ++i) {
        const QString responses = folder_->filePath(QStringLiteral("%1.csv").arg(i));
        PutBytes(responses, "client,1\nc" + QByteArray::number(i) + ",1\nd" + QByteArray::number(i) + ",1\n");
        auto process = std::make_unique<QProcess>();
        process->start(qEnvironmentVariable("VELLUMO_CLI"),
                       {QStringLiteral("score"), Path("t.vlm"), responses, QStringLiteral("--workbook"), Path()});
        processes.push_back(std::move(process));
    }
    for (const auto& process : processes) {
        QVERIFY(process->waitForFinished(30'000));
        QVERIFY2(process->exitCode() == 0, process->readAllStandardError().constData());
    }
    QStringList texts = Texts(Path()).split(u' ');
    QCOMPARE(texts.takeFirst(), QStringLiteral("Client"));
    QCOMPARE(texts.size(), 2 * count);
    for (int i = 0; i < count; ++i) {
        const qsizetype at = texts.indexOf(QStringLiteral("c%1").arg(i));
        QVERIFY(at >= 0);
        QCOMPARE(texts.value(at + 1), QStringLiteral("d%1").arg(i));
    }
}

void tst_builtinspreadsheet::SetVisible_Saved_Shown() {
    RecordingLauncher launcher;
    BuiltInSpreadsheet spreadsheet({&launcher, QStringLiteral("calc"), {}, 60});
    spreadsheet.SetVisible(true);
    QVERIFY(launcher.Starts.isEmpty());
    QDir::setCurrent(folder_->path());
    QCOMPARE(Append(spreadsheet, QStringLiteral("r.exl"), QStringLiteral("one")), QString());
    spreadsheet.SetVisible(true);
    spreadsheet.SetUserControl(true);
    QCOMPARE(launcher.Starts.size(), 1);
    QCOMPARE(launcher.Starts[0].Program, QStringLiteral("calc"));
    QCOMPARE(QFileInfo(launcher.Starts[0].Path).canonicalFilePath(), QFileInfo(Path()).canonicalFilePath());
    QVERIFY(QFileInfo(launcher.Starts[0].Path).isAbsolute());
    launcher.FailWith = QStringLiteral("no such program");
    QCOMPARE(Refusal([&] { spreadsheet.SetVisible(true); }), QStringLiteral("1004: no such program"));
    QDir::setCurrent(QDir::rootPath());
}

QTEST_GUILESS_MAIN(tst_builtinspreadsheet)
#include "tst_builtinspreadsheet.moc"

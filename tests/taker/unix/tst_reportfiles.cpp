#include "support/Files.h"
#include "support/SmallDisk.h"
#include "taker/AutoReport.h"

#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QByteArray Earlier = QByteArray("Earlier report, Zo\xC3\xAB\r\n").repeated(40);

QString ReportOf(int program, int number) { return u"<%1 %2>"_s.arg(program).arg(number) + QString(200, u'x'); }

/// Runs action in a process of its own, which a write past so many bytes of a file ends at once, in its middle.
pid_t InAnotherProcess(const std::function<bool()>& action, qsizetype endsPast = 0) {
    const pid_t child = fork();
    if (child == 0) {
        if (endsPast > 0) {
            const rlimit small{static_cast<rlim_t>(endsPast), static_cast<rlim_t>(endsPast)};
            std::signal(SIGXFSZ, SIG_DFL);
            setrlimit(RLIMIT_FSIZE, &small);
        }
        _exit(action() ? 0 : 1);
    }
    return child;
}

int StatusOf(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

} // namespace

/// What other programs and sudden ends do to the files of reports.
class tst_reportfiles : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir::setCurrent(folder_->path()));
    }
    void cleanup() { QDir::setCurrent(QDir::rootPath()); }
    void Append_ProgramEndedInTheMiddle_CompletedAndSaid_data();
    void Append_ProgramEndedInTheMiddle_CompletedAndSaid();
    void Append_ManyPrograms_NothingLost();
    void New_ManyPrograms_AFileEach();

  private:
    QStringList Names() const { return QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_reportfiles::Append_ProgramEndedInTheMiddle_CompletedAndSaid_data() {
    QTest::addColumn<int>("taken");
    QTest::addColumn<QByteArray>("stays");
    const QByteArray cutOff = "[The report above was cut off: Vellumo ended while writing it.]\r\n";
    const auto row = [](const char* name, int taken, const QByteArray& stays) {
        QTest::newRow(name) << taken << stays;
    };
    row("nothing", 0, {});
    row("in a line", 3, "Mor\r\n" + cutOff);
    row("in a letter", 10, "More by B\r\n" + cutOff);
    row("in a line break", 12, "More by B\xC3\xB6\r\n" + cutOff);
    row("after a line", 13, "More by B\xC3\xB6\r\n" + cutOff);
    row("without a note", -1, "\r\n[The text above doesn't end with a line break: it may have been cut off.]\r\n");
}

void tst_reportfiles::Append_ProgramEndedInTheMiddle_CompletedAndSaid() {
    QFETCH(int, taken);
    QFETCH(QByteArray, stays);
    const QString path = u"r.txt"_s;
    PutBytes(path, taken < 0 ? Earlier.chopped(2) : Earlier);
    if (taken >= 0) {
        const auto child = InAnotherProcess([&] { return WriteReportFile(path, u"More by B\u00F6\r\nX"_s, true).Ok(); },
                                            Earlier.size() + taken);
        QVERIFY(WIFSIGNALED(StatusOf(child)));
        QCOMPARE(BytesOf(path).size(), Earlier.size() + taken);
    }
    QVERIFY(WriteReportFile(path, u"Next"_s, true));
    QVERIFY(WriteReportFile(path, u"Next but one"_s, true));
    QCOMPARE(BytesOf(path), (taken < 0 ? Earlier.chopped(2) : Earlier) + stays + "Next\r\nNext but one\r\n");
    QCOMPARE(Names(), QStringList{path});
}

void tst_reportfiles::Append_ManyPrograms_NothingLost() {
    constexpr int programs = 8;
    constexpr int reports = 25;
    std::vector<pid_t> children;
    for (int i = 0; i < programs; ++i)
        children.push_back(InAnotherProcess([i] {
            // One of them finds the disk full now and then, and one doesn't know of locks.
            bool all = true;
            for (int k = 0; k < reports; ++k) {
                const QString report = ReportOf(i, k);
                if (i == 0) {
                    QFile file(u"r.txt"_s);
                    all = all && file.open(QIODevice::Append) && file.write((report + u"\r\n"_s).toUtf8()) > 0;
                } else if (i == 1) {
                    const SmallDisk disk(QFileInfo(u"r.txt"_s).size() + 100);
                    all = !WriteReportFile(u"r.txt"_s, report, true).Ok() && all;
                } else {
                    all = WriteReportFile(u"r.txt"_s, report, true).Ok() && all;
                }
            }
            return all;
        }));
    for (const pid_t child : children)
        QCOMPARE(StatusOf(child), 0);
    const QByteArray all = BytesOf(u"r.txt"_s);
    for (int i = 0; i < programs; ++i)
        for (int k = 0; k < reports && i != 1; ++k)
            QCOMPARE(all.count(ReportOf(i, k).toUtf8()), 1);
}

void tst_reportfiles::New_ManyPrograms_AFileEach() {
    std::vector<pid_t> children;
    for (int i = 0; i < 6; ++i)
        children.push_back(InAnotherProcess([i] {
            bool all = true;
            for (int k = 0; k < 10; ++k) {
                int number = 0;
                QString path = u"r.txt"_s;
                all = all && WriteNewReportFile(path, u"%1 %2"_s.arg(i).arg(k), [&] {
                                 return u"r(%1).txt"_s.arg(++number);
                             }).Ok();
            }
            return all;
        }));
    for (const pid_t child : children)
        QCOMPARE(StatusOf(child), 0);
    QSet<QByteArray> contents;
    for (const QString& name : Names())
        contents.insert(BytesOf(name));
    QCOMPARE(contents.size(), 60);
    QCOMPARE(Names().size(), 60);
}

QTEST_GUILESS_MAIN(tst_reportfiles)
#include "tst_reportfiles.moc"

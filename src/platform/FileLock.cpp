#include "platform/FileLock.h"

#include "platform/InPlace.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <QThread>

namespace {

constexpr int LookEveryMilliseconds = 20;
constexpr qsizetype LongestName = 255;
const QByteArray ProcessHead = "process ";
const QByteArray NoteHead = "note: ";

} // namespace

QString HiddenNameBeside(const QString& path, const QString& ending) {
    const QFileInfo info(path);
    QString name = u'.' + info.fileName() + ending;
    if (QFile::encodeName(name).size() > LongestName)
        name = u'.' +
               QString::fromLatin1(
                   QCryptographicHash::hash(info.fileName().toUtf8(), QCryptographicHash::Sha1).toHex().first(16)) +
               ending;
    return info.absolutePath() + u'/' + name;
}

QString TargetOf(const QString& path) {
    QFileInfo info(path);
    if (info.exists())
        return info.canonicalFilePath();
    // A link to nothing yet, perhaps by way of others.
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks && info.isSymLink(); ++i)
        info.setFile(info.symLinkTarget());
    const QString folder = QFileInfo(info.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? info.absoluteFilePath() : folder + u'/' + info.fileName();
}

FileLock::FileLock(const QString& path)
    : target_(TargetOf(path)), file_(HiddenNameBeside(target_, QStringLiteral(".vellumo-lock"))) {}

FileLock::FileLock(const QString& path, const QString& lockPath) : target_(TargetOf(path)), file_(lockPath) {}

FileLock::~FileLock() {
    if (taken_)
        file_.LetGo(!note_.isEmpty());
}

FileLock::Outcome FileLock::Take(int patience, const std::function<void()>& whileWaiting) {
    QElapsedTimer waited;
    waited.start();
    Outcome outcome = file_.Take();
    while (outcome == Outcome::Busy && !waited.hasExpired(patience)) {
        if (whileWaiting)
            whileWaiting();
        QThread::msleep(LookEveryMilliseconds);
        outcome = file_.Take();
    }
    if (outcome != Outcome::Taken)
        return outcome;
    taken_ = true;
    for (const QByteArray& line : file_.Content().split('\n'))
        if (line.startsWith(NoteHead))
            note_ = line.mid(NoteHead.size()).trimmed();
    if (IsWrittenOver(note_) && PutBackEarlier(target_, note_))
        note_.clear();
    Describe();
    return outcome;
}

bool FileLock::IsThere() const { return QFileInfo::exists(file_.Path()); }

bool FileLock::IsFor(const QString& path) const { return taken_ && TargetOf(path) == target_; }

void FileLock::Describe() {
    QByteArray content = ProcessHead + QByteArray::number(QCoreApplication::applicationPid()) + " on " +
                         QSysInfo::machineHostName().toUtf8() + "\n";
    if (!note_.isEmpty())
        content += NoteHead + note_ + "\n";
    file_.SetContent(content);
}

void FileLock::SetNote(const QByteArray& note) {
    note_ = note;
    if (taken_)
        Describe();
}

QString FileLock::Holder() const {
    const QString sentence = QStringLiteral("another Vellumo is writing it");
    const QByteArray process = file_.Content().split('\n').first();
    if (!process.startsWith(ProcessHead))
        return sentence;
    const QDateTime since = QFileInfo(file_.Path()).lastModified();
    return sentence + QStringLiteral(" (%1, since %2)")
                          .arg(QString::fromUtf8(process), since.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
}

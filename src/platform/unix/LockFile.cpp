#include "platform/LockFile.h"

#include "platform/DiskFile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int Common = O_CLOEXEC | O_NOFOLLOW;
constexpr qint64 LongestContent = 4096;

/// Opens the file, or makes it; everybody who may write in the folder may take a lock that was left in it.
int OpenOrMake(const char* name) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        // In this order: a file of somebody else's in a folder for all can be opened, but not by a call that may make
        // it.
        int file = open(name, O_RDWR | Common);
        if (file < 0 && errno == EACCES)
            file = open(name, O_RDONLY | Common);
        if (file >= 0 || errno != ENOENT)
            return file;
        file = open(name, O_RDWR | O_CREAT | O_EXCL | Common, 0666);
        if (file >= 0)
            fchmod(file, 0666);
        if (file >= 0 || errno != EEXIST)
            return file;
    }
    return -1;
}

bool IsAt(int file, const char* name) {
    struct stat mine {};
    struct stat there {};
    return fstat(file, &mine) == 0 && lstat(name, &there) == 0 && mine.st_dev == there.st_dev &&
           mine.st_ino == there.st_ino;
}

} // namespace

LockFile::~LockFile() { LetGo(false); }

LockFile::Outcome LockFile::Take() {
    const QByteArray name = QFile::encodeName(path_);
    for (;;) {
        const int file = OpenOrMake(name.constData());
        if (file < 0) {
            reason_ = LastSystemReason();
            return Outcome::Impossible;
        }
        int locked = 0;
        do
            locked = flock(file, LOCK_EX | LOCK_NB);
        while (locked != 0 && errno == EINTR);
        if (locked != 0 && errno == EWOULDBLOCK) {
            close(file);
            return Outcome::Busy;
        }
        // Its last holder may have removed it between the opening and the locking, and then others don't see this lock.
        if (IsAt(file, name.constData())) {
            handle_ = file;
            return Outcome::Taken;
        }
        close(file);
    }
}

void LockFile::LetGo(bool fileStays) {
    if (handle_ < 0)
        return;
    // Removed only by the one who holds it, before letting go: so nobody removes the file of another holder.
    if (!fileStays)
        unlink(QFile::encodeName(path_).constData());
    close(static_cast<int>(handle_));
    handle_ = -1;
}

QByteArray LockFile::Content() const {
    QFile file(path_);
    return file.open(QIODevice::ReadOnly) ? file.read(LongestContent) : QByteArray();
}

void LockFile::SetContent(const QByteArray& content) {
    const int file = static_cast<int>(handle_);
    // Blanks to a fixed length, so that one write replaces all of it and a kill leaves the old or the new.
    const QByteArray padded = content.leftJustified(512, ' ');
    if (file < 0 || pwrite(file, padded.constData(), static_cast<size_t>(padded.size()), 0) != padded.size())
        return;
    // What an older lock file has after this holds no note, so nothing depends on the cut.
    [[maybe_unused]] const int cut = ftruncate(file, padded.size());
}

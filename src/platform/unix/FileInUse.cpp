#include "platform/FileInUse.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

bool IsLockedByAnotherProgram(const QString& path) {
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return false;
    // There are two kinds of locks, and neither sees the other.
    struct flock record {};
    record.l_type = F_WRLCK;
    record.l_whence = SEEK_SET;
    bool locked = fcntl(file, F_GETLK, &record) == 0 && record.l_type != F_UNLCK;
    if (!locked && flock(file, LOCK_EX | LOCK_NB) != 0)
        locked = errno == EWOULDBLOCK;
    close(file);
    return locked;
}

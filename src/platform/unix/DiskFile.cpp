#include "platform/DiskFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

const char* const AccessList = "system.posix_acl_access";

int FlagsOf(DiskFile::Way way) {
    switch (way) {
    case DiskFile::Way::New:
        return O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW;
    case DiskFile::Way::AtEnd:
        return O_RDWR | O_APPEND;
    case DiskFile::Way::InPlace:
        return O_RDWR;
    case DiskFile::Way::Straight:
        return O_WRONLY | O_APPEND;
    case DiskFile::Way::StraightToNew:
        return O_WRONLY | O_APPEND | O_CREAT;
    }
    return O_RDONLY;
}

/// The bits of one kind of user, as three.
mode_t GroupBits(mode_t mode) { return (mode >> 3) & 7; }
mode_t OtherBits(mode_t mode) { return mode & 7; }
mode_t OwnerBits(mode_t mode) { return (mode >> 6) & 7; }

bool HasAll(mode_t bits, mode_t wanted) { return (bits & wanted) == wanted; }

/// Copies the list of who else may do what, where the file system has such lists.
bool CopyAccessList(const QByteArray& from, int to) {
    const ssize_t size = getxattr(from.constData(), AccessList, nullptr, 0);
    if (size <= 0) {
        fremovexattr(to, AccessList); // one that the folder gave it
        return true;
    }
    QByteArray list(size, '\0');
    return getxattr(from.constData(), AccessList, list.data(), size) == size &&
           fsetxattr(to, AccessList, list.constData(), size, 0) == 0;
}

void FlushFolderOf(const QString& path) {
    const int folder =
        open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    // The new name counts already; a folder that can't be flushed makes it no less so.
    fsync(folder);
    close(folder);
}

/// A system without the call that renames only to a free name: the name is taken first, by an empty file.
int RenameToNameTakenFirst(const QByteArray& from, const QByteArray& to) {
    const int claimed = open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (claimed < 0)
        return -1;
    close(claimed);
    if (rename(from.constData(), to.constData()) == 0)
        return 0;
    const int reason = errno;
    unlink(to.constData());
    errno = reason;
    return -1;
}

} // namespace

QString LastSystemReason() {
    switch (errno) {
    case ENOSPC:
        return QStringLiteral("the disk is full");
    case EDQUOT:
        return QStringLiteral("the disk is full as far as this user may fill it");
    default:
        return qt_error_string(errno);
    }
}

DiskFile::DiskFile(const QString& path, Way way, Audience readers) : path_(path), appends_(way == Way::AtEnd) {
    const mode_t mode = readers == Audience::OwnerOnly ? 0600 : 0644;
    const QByteArray name = QFile::encodeName(path);
    do
        handle_ = open(name.constData(), FlagsOf(way) | O_CLOEXEC, mode);
    while (handle_ < 0 && errno == EINTR);
    if (handle_ < 0)
        Failed();
}

DiskFile::~DiskFile() { Close(); }

bool DiskFile::Failed() {
    if (reason_.isEmpty())
        reason_ = LastSystemReason();
    return false;
}

bool DiskFile::Write(const QByteArray& content) {
    const int file = static_cast<int>(handle_);
    for (qint64 done = 0; done < content.size();) {
        const ssize_t taken = write(file, content.constData() + done, static_cast<size_t>(content.size() - done));
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken <= 0)
            return Failed();
        to_ = lseek(file, 0, SEEK_CUR);
        if (done == 0)
            from_ = to_ - taken;
        done += taken;
    }
    return true;
}

bool DiskFile::Flush() {
    int flushed = 0;
    do
        flushed = fsync(static_cast<int>(handle_));
    while (flushed != 0 && errno == EINTR);
    return flushed == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS || Failed();
}

bool DiskFile::CutTo(qint64 size) { return ftruncate(static_cast<int>(handle_), size) == 0 || Failed(); }

bool DiskFile::Close() {
    if (!IsOpen())
        return true;
    const int closed = close(static_cast<int>(handle_));
    handle_ = -1;
    return closed == 0 || errno == EINTR || Failed();
}

qint64 DiskFile::Size() const {
    struct stat status {};
    return fstat(static_cast<int>(handle_), &status) == 0 ? status.st_size : -1;
}

QByteArray DiskFile::Read(qint64 position, qint64 length) const {
    QByteArray content(length, Qt::Uninitialized);
    qint64 done = 0;
    while (done < length) {
        const ssize_t taken = pread(static_cast<int>(handle_), content.data() + done,
                                    static_cast<size_t>(length - done), position + done);
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken <= 0)
            break;
        done += taken;
    }
    content.truncate(done);
    return content;
}

bool DiskFile::IsAt(const QString& path) const {
    struct stat mine {};
    struct stat there {};
    return fstat(static_cast<int>(handle_), &mine) == 0 && stat(QFile::encodeName(path).constData(), &there) == 0 &&
           mine.st_dev == there.st_dev && mine.st_ino == there.st_ino;
}

bool DiskFile::TakeAccessOf(const QString& path) {
    const int file = static_cast<int>(handle_);
    const QByteArray name = QFile::encodeName(path);
    struct stat theirs {};
    struct stat mine {};
    if (stat(name.constData(), &theirs) != 0 || fstat(file, &mine) != 0)
        return false;
    // Only an administrator can give a file away, but its owner can give it to a group of theirs.
    bool owner = mine.st_uid == theirs.st_uid;
    bool group = mine.st_gid == theirs.st_gid;
    if (!owner || !group) {
        const bool both = fchown(file, theirs.st_uid, theirs.st_gid) == 0;
        owner = owner || both;
        group = group || both || fchown(file, static_cast<uid_t>(-1), theirs.st_gid) == 0;
    }
    const mode_t mode = theirs.st_mode & 07777;
    const mode_t needed = OwnerBits(mode) & 6;
    const bool ownerKeepsAccess =
        owner || HasAll(OtherBits(mode), needed) || (group && HasAll(GroupBits(mode), needed));
    const bool groupKeepsAccess = group || GroupBits(mode) == OtherBits(mode);
    return ownerKeepsAccess && groupKeepsAccess && CopyAccessList(name, file) && fchmod(file, mode) == 0;
}

Moved MoveFileTo(const QString& from, const QString& to, bool mayReplace, QString& reason) {
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    int moved = 0;
    if (mayReplace) {
        moved = rename(source.constData(), target.constData());
    } else {
        moved = renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE);
        if (moved != 0 && (errno == EINVAL || errno == ENOSYS))
            moved = RenameToNameTakenFirst(source, target);
    }
    if (moved == 0) {
        FlushFolderOf(to);
        return Moved::Done;
    }
    const int why = errno;
    reason = LastSystemReason();
    if (!mayReplace && why == EEXIST)
        return Moved::NameTaken;
    const bool notAllowed = why == EPERM || why == EACCES || why == EBUSY || why == EXDEV;
    return mayReplace && notAllowed ? Moved::NotAllowed : Moved::Failed;
}

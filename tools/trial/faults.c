/*
 * Loaded into a program by tools/trial/trial (LD_PRELOAD): numbers each operation that changes a file below one folder,
 * from 1, and kills the program or fails the operation at a given number. Its settings come from the environment:
 *
 *   TRIAL_FOLDER  the folder, as a real path that ends without a slash; operations elsewhere are not counted
 *   TRIAL_AT      the operation that something happens to; 0, or none, only counts
 *   TRIAL_ACTION  before  the program is killed, and the operation does not happen
 *                 after   the operation happens, half of it when it writes, and the program is killed
 *                 full    this operation and all later ones that need room fail: the disk is full
 *                 quota   the same for what the user may fill of it
 *                 part    this operation writes half, and all later ones that need room fail: the disk is full
 *                 fail    this operation alone fails, with an input/output error
 *                 deny    this operation alone fails: permission denied
 *   TRIAL_LOG     a file outside of the folder that gets a line for each operation
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

enum action { NOTHING, BEFORE, AFTER, FULL, QUOTA, PART, FAIL, DENY };
enum kind { MAKES, WRITES, OTHER };

#define MOST_FILES 4096
static char ours[MOST_FILES];
static const char *folder;
static size_t folderLength;
static long at;
static long count;
static enum action action;
static int logFile = -1;
static int isFull;

__attribute__((constructor)) static void begin(void) {
    const char *name = getenv("TRIAL_ACTION");
    const char *number = getenv("TRIAL_AT");
    const char *log = getenv("TRIAL_LOG");
    folder = getenv("TRIAL_FOLDER");
    folderLength = folder ? strlen(folder) : 0;
    at = number ? atol(number) : 0;
    if (name)
        action = !strcmp(name, "before") ? BEFORE
                 : !strcmp(name, "after") ? AFTER
                 : !strcmp(name, "full")  ? FULL
                 : !strcmp(name, "quota") ? QUOTA
                 : !strcmp(name, "part")  ? PART
                 : !strcmp(name, "fail")  ? FAIL
                 : !strcmp(name, "deny")  ? DENY
                                          : NOTHING;
    if (log)
        logFile = (int)syscall(SYS_openat, AT_FDCWD, log, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
}

static int isOurs(int directory, const char *path) {
    char here[PATH_MAX];
    if (!folder || !path)
        return 0;
    if (path[0] == '/')
        return !strncmp(path, folder, folderLength) && (path[folderLength] == '/' || !path[folderLength]);
    if (directory != AT_FDCWD)
        return directory >= 0 && directory < MOST_FILES && ours[directory];
    return getcwd(here, sizeof here) && !strncmp(here, folder, folderLength);
}

static int isOurFile(int file) { return file >= 0 && file < MOST_FILES && ours[file]; }

static void note(const char *what, const char *path) {
    char line[PATH_MAX + 64];
    if (logFile < 0)
        return;
    int length = snprintf(line, sizeof line, "%ld %s %s\n", count, what, path ? path : "");
    if (length > 0)
        syscall(SYS_write, logFile, line, (size_t)length);
}

static void die(void) {
    syscall(SYS_kill, getpid(), SIGKILL);
    for (;;)
        pause();
}

/* Counts one operation. The result is 0 when it is to happen as usual, 1 when it is to happen (half) before the program
 * is killed, 2 when half of it is to happen, and -1, with errno set, when it is to fail. */
static int meet(enum kind kind, const char *what, const char *path) {
    ++count;
    note(what, path);
    if (isFull && kind != OTHER) {
        errno = action == QUOTA ? EDQUOT : ENOSPC;
        return -1;
    }
    if (count != at)
        return 0;
    switch (action) {
    case BEFORE:
        die();
        return 0;
    case AFTER:
        return 1;
    case FULL:
    case QUOTA:
        isFull = 1;
        if (kind == OTHER)
            return 0;
        errno = action == QUOTA ? EDQUOT : ENOSPC;
        return -1;
    case PART:
        isFull = 1;
        return kind == WRITES ? 2 : 0;
    case FAIL:
        errno = EIO;
        return -1;
    case DENY:
        errno = EACCES;
        return -1;
    case NOTHING:
        break;
    }
    return 0;
}

#define REAL(type, name, ...)                                                                                          \
    static type (*real)(__VA_ARGS__);                                                                                  \
    if (!real)                                                                                                         \
    real = (type(*)(__VA_ARGS__))dlsym(RTLD_NEXT, name)

/* An operation that returns 0 or -1. */
#define DO(mine, kind, what, path, call)                                                                               \
    int met = (mine) ? meet(kind, what, path) : 0;                                                                     \
    if (met < 0)                                                                                                       \
        return -1;                                                                                                     \
    int outcome = call;                                                                                                \
    if (met == 1)                                                                                                      \
        die();                                                                                                         \
    return outcome

/* Opening. Only what may change a file counts. */

static int opened(int directory, const char *path, int flags, unsigned mode) {
    int mine = isOurs(directory, path);
    int changes = mine && (flags & (O_CREAT | O_TRUNC | O_WRONLY | O_RDWR)) && !(flags & O_DIRECTORY);
    int met = changes ? meet(flags & O_CREAT ? MAKES : OTHER, flags & O_CREAT ? "create" : "open", path) : 0;
    if (met < 0)
        return -1;
    int file = (int)syscall(SYS_openat, directory, path, flags, mode);
    if (file >= 0 && file < MOST_FILES)
        ours[file] = (char)mine;
    if (met == 1)
        die();
    return file;
}

#define MODE                                                                                                           \
    unsigned mode = 0;                                                                                                 \
    if (flags & (O_CREAT | O_TMPFILE)) {                                                                               \
        va_list rest;                                                                                                  \
        va_start(rest, flags);                                                                                         \
        mode = va_arg(rest, unsigned);                                                                                 \
        va_end(rest);                                                                                                  \
    }

int open(const char *path, int flags, ...) {
    MODE
    return opened(AT_FDCWD, path, flags, mode);
}
int open64(const char *path, int flags, ...) {
    MODE
    return opened(AT_FDCWD, path, flags | O_LARGEFILE, mode);
}
int openat(int directory, const char *path, int flags, ...) {
    MODE
    return opened(directory, path, flags, mode);
}
int openat64(int directory, const char *path, int flags, ...) {
    MODE
    return opened(directory, path, flags | O_LARGEFILE, mode);
}

int close(int file) {
    if (file >= 0 && file < MOST_FILES)
        ours[file] = 0;
    return (int)syscall(SYS_close, file);
}

/* Writing. */

static ssize_t written(int file, const void *bytes, size_t size, off_t place) {
    int met = isOurFile(file) ? meet(WRITES, "write", NULL) : 0;
    if (met < 0)
        return -1;
    if (met > 0)
        size = (size + 1) / 2;
    ssize_t outcome = place < 0 ? syscall(SYS_write, file, bytes, size) : syscall(SYS_pwrite64, file, bytes, size, place);
    if (met == 1)
        die();
    return outcome;
}

ssize_t write(int file, const void *bytes, size_t size) { return written(file, bytes, size, -1); }
ssize_t pwrite(int file, const void *bytes, size_t size, off_t place) { return written(file, bytes, size, place); }
ssize_t pwrite64(int file, const void *bytes, size_t size, off64_t place) { return written(file, bytes, size, place); }

ssize_t writev(int file, const struct iovec *pieces, int number) {
    int met = isOurFile(file) ? meet(WRITES, "writev", NULL) : 0;
    if (met < 0)
        return -1;
    ssize_t outcome = syscall(SYS_writev, file, pieces, met > 0 ? (number + 1) / 2 : number);
    if (met == 1)
        die();
    return outcome;
}

size_t fwrite(const void *bytes, size_t size, size_t number, FILE *stream) {
    REAL(size_t, "fwrite", const void *, size_t, size_t, FILE *);
    int met = isOurFile(fileno(stream)) ? meet(WRITES, "fwrite", NULL) : 0;
    if (met < 0)
        return 0;
    size_t outcome = real(bytes, size, met > 0 ? (number + 1) / 2 : number, stream);
    if (met == 1) {
        fflush(stream);
        die();
    }
    return outcome;
}

/* Length, durability, permissions. */

int ftruncate(int file, off_t length) { DO(isOurFile(file), OTHER, "ftruncate", NULL, (int)syscall(SYS_ftruncate, file, length)); }
int ftruncate64(int file, off64_t length) { DO(isOurFile(file), OTHER, "ftruncate", NULL, (int)syscall(SYS_ftruncate, file, length)); }
int truncate(const char *path, off_t length) { DO(isOurs(AT_FDCWD, path), OTHER, "truncate", path, (int)syscall(SYS_truncate, path, length)); }
int truncate64(const char *path, off64_t length) { DO(isOurs(AT_FDCWD, path), OTHER, "truncate", path, (int)syscall(SYS_truncate, path, length)); }
int fsync(int file) { DO(isOurFile(file), WRITES, "fsync", NULL, (int)syscall(SYS_fsync, file)); }
int fdatasync(int file) { DO(isOurFile(file), WRITES, "fdatasync", NULL, (int)syscall(SYS_fdatasync, file)); }
int fchmod(int file, mode_t mode) { DO(isOurFile(file), OTHER, "fchmod", NULL, (int)syscall(SYS_fchmod, file, mode)); }
int chmod(const char *path, mode_t mode) { DO(isOurs(AT_FDCWD, path), OTHER, "chmod", path, (int)syscall(SYS_fchmodat, AT_FDCWD, path, mode)); }
int fchown(int file, uid_t user, gid_t group) { DO(isOurFile(file), OTHER, "fchown", NULL, (int)syscall(SYS_fchown, file, user, group)); }
int chown(const char *path, uid_t user, gid_t group) { DO(isOurs(AT_FDCWD, path), OTHER, "chown", path, (int)syscall(SYS_fchownat, AT_FDCWD, path, user, group, 0)); }

/* Names. */

static int renamed(int from, const char *old, int to, const char *name, unsigned flags) {
    DO(isOurs(from, old) || isOurs(to, name), MAKES, "rename", name, (int)syscall(SYS_renameat2, from, old, to, name, flags));
}
int rename(const char *old, const char *name) { return renamed(AT_FDCWD, old, AT_FDCWD, name, 0); }
int renameat(int from, const char *old, int to, const char *name) { return renamed(from, old, to, name, 0); }
int renameat2(int from, const char *old, int to, const char *name, unsigned flags) { return renamed(from, old, to, name, flags); }
int linkat(int from, const char *old, int to, const char *name, int flags) { DO(isOurs(to, name), MAKES, "link", name, (int)syscall(SYS_linkat, from, old, to, name, flags)); }
int link(const char *old, const char *name) { return linkat(AT_FDCWD, old, AT_FDCWD, name, 0); }
int unlinkat(int directory, const char *path, int flags) { DO(isOurs(directory, path), OTHER, "unlink", path, (int)syscall(SYS_unlinkat, directory, path, flags)); }
int unlink(const char *path) { return unlinkat(AT_FDCWD, path, 0); }
int rmdir(const char *path) { return unlinkat(AT_FDCWD, path, AT_REMOVEDIR); }
int remove(const char *path) {
    int outcome = unlink(path);
    return outcome < 0 && errno == EISDIR ? rmdir(path) : outcome;
}
int mkdirat(int directory, const char *path, mode_t mode) { DO(isOurs(directory, path), MAKES, "mkdir", path, (int)syscall(SYS_mkdirat, directory, path, mode)); }
int mkdir(const char *path, mode_t mode) { return mkdirat(AT_FDCWD, path, mode); }

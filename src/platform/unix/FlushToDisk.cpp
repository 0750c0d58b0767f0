#include "platform/FlushToDisk.h"

#include <cerrno>
#include <unistd.h>

bool FlushToDisk(QFile& file) {
    if (!file.flush())
        return false;
    return fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

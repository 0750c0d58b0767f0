#include "platform/FlushToDisk.h"

#include <windows.h>

#include <io.h>

bool FlushToDisk(QFile& file) {
    if (!file.flush())
        return false;
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
    if (FlushFileBuffers(handle))
        return true;
    // Consoles, pipes and the null device have no disk behind them.
    const DWORD reason = GetLastError();
    return reason == ERROR_INVALID_FUNCTION || reason == ERROR_INVALID_HANDLE || GetFileType(handle) != FILE_TYPE_DISK;
}

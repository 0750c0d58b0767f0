#include "platform/LockFile.h"

#include "platform/DiskFile.h"
#include "platform/windows/NativeFile.h"

namespace {

constexpr DWORD LongestContent = 4096;

} // namespace

LockFile::~LockFile() { LetGo(false); }

LockFile::Outcome LockFile::Take() {
    // Others may read it, but whoever wants to write it, too, is refused until this program closes it or ends.
    const HANDLE file = CreateFileW(NativeName(path_).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_READ,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        handle_ = NumberOf(file);
        return Outcome::Taken;
    }
    const DWORD reason = GetLastError();
    reason_ = LastSystemReason();
    // A file that its holder has just removed is refused until the last who reads it has closed it.
    const bool goes = reason == ERROR_ACCESS_DENIED && QFileInfo::exists(path_);
    return reason == ERROR_SHARING_VIOLATION || reason == ERROR_DELETE_PENDING || goes ? Outcome::Busy
                                                                                       : Outcome::Impossible;
}

void LockFile::LetGo(bool fileStays) {
    if (handle_ == -1)
        return;
    if (!fileStays) {
        FILE_DISPOSITION_INFO remove{};
        remove.DeleteFile = TRUE;
        SetFileInformationByHandle(HandleOf(handle_), FileDispositionInfo, &remove, sizeof remove);
    }
    CloseHandle(HandleOf(handle_));
    handle_ = -1;
}

QByteArray LockFile::Content() const {
    const HANDLE file = handle_ != -1 ? HandleOf(handle_)
                                      : CreateFileW(NativeName(path_).c_str(), GENERIC_READ,
                                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    QByteArray content(LongestContent, Qt::Uninitialized);
    DWORD taken = 0;
    SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    if (!::ReadFile(file, content.data(), LongestContent, &taken, nullptr))
        taken = 0;
    if (handle_ == -1)
        CloseHandle(file);
    content.truncate(static_cast<qsizetype>(taken));
    return content;
}

void LockFile::SetContent(const QByteArray& content) {
    if (handle_ == -1)
        return;
    // Blanks to a fixed length, so that one write replaces all of it and an end in the middle leaves the old or the
    // new.
    const QByteArray padded = content.leftJustified(512, ' ');
    DWORD taken = 0;
    SetFilePointer(HandleOf(handle_), 0, nullptr, FILE_BEGIN);
    if (::WriteFile(HandleOf(handle_), padded.constData(), static_cast<DWORD>(padded.size()), &taken, nullptr))
        SetEndOfFile(HandleOf(handle_));
}

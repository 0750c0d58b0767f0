#include "platform/DiskFile.h"

#include "platform/windows/NativeFile.h"

namespace {

bool IsHeldNow(DWORD reason) {
    return reason == ERROR_SHARING_VIOLATION || reason == ERROR_LOCK_VIOLATION || reason == ERROR_USER_MAPPED_FILE;
}

/// What looks through new files, such as a virus scanner, lets go of them after a moment.
constexpr int Attempts = 20;
constexpr DWORD PauseMilliseconds = 50;

HANDLE Opened(const QString& path, DiskFile::Way way) {
    using Way = DiskFile::Way;
    const DWORD manner = way == Way::New ? CREATE_NEW : way == Way::StraightToNew ? CREATE_ALWAYS : OPEN_EXISTING;
    const bool straight = way == Way::Straight || way == Way::StraightToNew;
    const DWORD access = straight ? GENERIC_WRITE : GENERIC_READ | GENERIC_WRITE;
    // Nobody else writes meanwhile.
    const DWORD shared = straight ? FILE_SHARE_READ | FILE_SHARE_WRITE : FILE_SHARE_READ;
    const std::wstring name = NativeName(path);
    HANDLE file = INVALID_HANDLE_VALUE;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        file = CreateFileW(name.c_str(), access, shared, nullptr, manner, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE || !IsHeldNow(GetLastError()))
            break;
        if (attempt + 1 < Attempts)
            Sleep(PauseMilliseconds);
    }
    return file;
}

} // namespace

QString LastSystemReason() {
    const DWORD code = GetLastError();
    if (code == ERROR_DISK_FULL || code == ERROR_HANDLE_DISK_FULL)
        return QStringLiteral("the disk is full");
    constexpr DWORD quotaExceeded = 1295; // ERROR_DISK_QUOTA_EXCEEDED, which MinGW's headers don't have
    if (code == quotaExceeded)
        return QStringLiteral("the disk is full as far as this user may fill it");
    const QString reason = qt_error_string(static_cast<int>(code));
    return reason.endsWith(u'.') ? reason.chopped(1) : reason;
}

DiskFile::DiskFile(const QString& path, Way way, Audience) : path_(path), appends_(way == Way::AtEnd) {
    const HANDLE file = Opened(path, way);
    held_ = file == INVALID_HANDLE_VALUE && IsHeldNow(GetLastError());
    if (file == INVALID_HANDLE_VALUE)
        Failed();
    else
        handle_ = NumberOf(file);
}

DiskFile::~DiskFile() { Close(); }

bool DiskFile::Failed() {
    if (reason_.isEmpty())
        reason_ = LastSystemReason();
    return false;
}

bool DiskFile::Write(const QByteArray& content) {
    const HANDLE file = HandleOf(handle_);
    LARGE_INTEGER at{};
    if (appends_) {
        // As it is open, nobody else writes, so the end stays where it is.
        at.QuadPart = Size();
        if (!SetFilePointerEx(file, at, nullptr, FILE_BEGIN))
            return Failed();
    } else {
        SetFilePointerEx(file, {}, &at, FILE_CURRENT);
    }
    from_ = to_ = at.QuadPart;
    for (qint64 done = 0; done < content.size();) {
        constexpr qint64 atMost = 1 << 24;
        DWORD taken = 0;
        const auto wanted = static_cast<DWORD>(qMin(content.size() - done, atMost));
        if (!::WriteFile(file, content.constData() + done, wanted, &taken, nullptr))
            return Failed();
        if (taken == 0) {
            SetLastError(ERROR_DISK_FULL);
            return Failed();
        }
        done += taken;
        to_ += taken;
    }
    return true;
}

bool DiskFile::Flush() {
    const HANDLE file = HandleOf(handle_);
    if (FlushFileBuffers(file))
        return true;
    // Consoles, pipes and the null device have no disk behind them.
    const DWORD reason = GetLastError();
    return reason == ERROR_INVALID_FUNCTION || reason == ERROR_INVALID_HANDLE || GetFileType(file) != FILE_TYPE_DISK ||
           Failed();
}

bool DiskFile::CutTo(qint64 size) {
    LARGE_INTEGER end{};
    end.QuadPart = size;
    const HANDLE file = HandleOf(handle_);
    return (SetFilePointerEx(file, end, nullptr, FILE_BEGIN) && SetEndOfFile(file)) || Failed();
}

bool DiskFile::Close() {
    if (!IsOpen())
        return true;
    const bool closed = CloseHandle(HandleOf(handle_));
    handle_ = -1;
    return closed || Failed();
}

qint64 DiskFile::Size() const {
    LARGE_INTEGER size{};
    return GetFileSizeEx(HandleOf(handle_), &size) ? size.QuadPart : -1;
}

QByteArray DiskFile::Read(qint64 position, qint64 length) const {
    QByteArray content(length, Qt::Uninitialized);
    LARGE_INTEGER at{};
    at.QuadPart = position;
    const HANDLE file = HandleOf(handle_);
    qint64 done = 0;
    if (SetFilePointerEx(file, at, nullptr, FILE_BEGIN))
        while (done < length) {
            constexpr qint64 atMost = 1 << 24;
            DWORD taken = 0;
            const auto wanted = static_cast<DWORD>(qMin(length - done, atMost));
            if (!::ReadFile(file, content.data() + done, wanted, &taken, nullptr) || taken == 0)
                break;
            done += taken;
        }
    content.truncate(done);
    return content;
}

// It can't be replaced or removed while it is open here.
bool DiskFile::IsAt(const QString&) const { return true; }

bool DiskFile::TakeAccessOf(const QString& path) {
    const std::wstring name = NativeName(path);
    DWORD needed = 0;
    GetFileSecurityW(name.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
    if (needed == 0) // a file system without such lists
        return true;
    QByteArray list(static_cast<qsizetype>(needed), '\0');
    return GetFileSecurityW(name.c_str(), DACL_SECURITY_INFORMATION, list.data(), needed, &needed) &&
           SetFileSecurityW(NativeName(path_).c_str(), DACL_SECURITY_INFORMATION, list.data());
}

// Not the system's own replacing: that renames twice, and between the two there is no file of that name.
Moved MoveFileTo(const QString& from, const QString& to, bool mayReplace, QString& reason) {
    const std::wstring source = NativeName(from);
    const std::wstring target = NativeName(to);
    const DWORD manner = MOVEFILE_WRITE_THROUGH | (mayReplace ? MOVEFILE_REPLACE_EXISTING : 0);
    DWORD why = 0;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        if (MoveFileExW(source.c_str(), target.c_str(), manner))
            return Moved::Done;
        why = GetLastError();
        reason = LastSystemReason();
        // A file that is open elsewhere, or that is just being removed, can't be replaced for that long.
        if (!IsHeldNow(why) && why != ERROR_ACCESS_DENIED)
            break;
        if (attempt + 1 < Attempts)
            Sleep(PauseMilliseconds);
    }
    if (!mayReplace && (why == ERROR_ALREADY_EXISTS || why == ERROR_FILE_EXISTS))
        return Moved::NameTaken;
    return mayReplace && why == ERROR_ACCESS_DENIED ? Moved::NotAllowed : Moved::Failed;
}

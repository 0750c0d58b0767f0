#pragma once

#include <QDir>
#include <QFileInfo>

#include <string>

#include <windows.h>

/// A handle as the number that a class without Windows' headers keeps.
inline HANDLE HandleOf(qint64 handle) { return reinterpret_cast<HANDLE>(static_cast<intptr_t>(handle)); }
inline qint64 NumberOf(HANDLE handle) { return static_cast<qint64>(reinterpret_cast<intptr_t>(handle)); }

/// The path in the form that may be longer than the names of old programs.
inline std::wstring NativeName(const QString& path) {
    const QString name = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    if (name.startsWith(QStringLiteral("\\\\?\\")) || name.startsWith(QStringLiteral("\\\\.\\")))
        return name.toStdWString();
    if (name.startsWith(QStringLiteral("\\\\")))
        return (QStringLiteral("\\\\?\\UNC") + name.mid(1)).toStdWString();
    return (QStringLiteral("\\\\?\\") + name).toStdWString();
}

#include "settings/DefaultFolders.h"

#include "platform/Directories.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

DefaultFolders ChooseDefaultFolders(const KnownFolders& known) {
    if (QFileInfo(known.ProgramFolder).isWritable())
        return {known.ProgramFolder, known.ProgramFolder};
    return {known.ProgramFolder, QDir::toNativeSeparators(QDir(known.Documents).filePath(QStringLiteral("Vellumo")))};
}

Result CheckWorkingDirectory(const QString& path) {
    const QFileInfo folder(path);
    const QString sentence = QStringLiteral("The working directory '") + path + QStringLiteral("' can't be used: ");
    if (path.trimmed().isEmpty())
        return Result::Failed(QStringLiteral("The working directory is empty: name a folder that exists"));
    if (!folder.exists())
        return Result::Failed(sentence + QStringLiteral("it doesn't exist"));
    if (!folder.isDir())
        return Result::Failed(sentence + QStringLiteral("it is not a folder"));
    if (!folder.isReadable() || !folder.isExecutable())
        return Result::Failed(sentence + QStringLiteral("it can't be opened"));
    return Result::Done();
}

void PrepareWorkingDirectory(const DefaultFolders& folders, const KnownFolders& known) {
    if (folders.WorkingDirectory == folders.ProgramFolder)
        return;
    MakeDirectory(folders.WorkingDirectory);
    if (known.Samples.isEmpty())
        return;
    const QDir samples(known.Samples);
    const QDir target(folders.WorkingDirectory);
    for (const QString& name : samples.entryList({QStringLiteral("*.vlm")}, QDir::Files)) {
        // An installed sample may be read-only; the copy is the user's own. QFile::copy never replaces a file.
        if (QFile::copy(samples.filePath(name), target.filePath(name)))
            QFile::setPermissions(target.filePath(name), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                             QFileDevice::ReadGroup | QFileDevice::ReadOther);
    }
}

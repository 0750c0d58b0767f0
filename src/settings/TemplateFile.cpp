#include "settings/TemplateFile.h"

#include "base/Text.h"
#include "platform/TextFile.h"

#include <QDir>
#include <QFileInfo>

QString FindTemplateFile(const QString& path, const QString& programFolder) {
    if (path.isEmpty() || programFolder.isEmpty() || QFileInfo(path).isAbsolute() || QFileInfo::exists(path))
        return path;
    for (const QString& folder : {QString(), QStringLiteral("../share/vellumo/templates")}) {
        const QString candidate = QDir(QDir(programFolder).filePath(folder)).filePath(path);
        if (QFileInfo(candidate).isFile())
            return candidate;
    }
    return path;
}

Result ReadTemplateFile(const QString& path, const QString& programFolder, QString& text) {
    TextOfFile file;
    if (const Result read = ReadTextFile(FindTemplateFile(path, programFolder), MaxTemplateBytes, file); !read)
        return read;
    text = WithLineBreaks(file.Text);
    return Result::Done();
}

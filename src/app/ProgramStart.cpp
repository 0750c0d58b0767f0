#include "app/ProgramStart.h"

#include "testdoc/TestParser.h"

#include <QFileInfo>

QString PathOfCommandLine(const QString& commandLine) {
    if (commandLine.isEmpty())
        return {};
    const QString path = AbsolutePath(commandLine);
    const bool wrapped = commandLine.size() > 2 && commandLine.count(u'"') == 2 && commandLine.startsWith(u'"') &&
                         commandLine.endsWith(u'"');
    if (wrapped && !QFileInfo::exists(path))
        return AbsolutePath(commandLine.mid(1, commandLine.size() - 2));
    return path;
}

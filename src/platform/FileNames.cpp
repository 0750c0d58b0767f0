#include "platform/FileNames.h"

#include <QDir>

const QChar DirectorySeparator = QDir::separator();

bool EndsInSeparator(const QString& path) {
    return path.endsWith(DirectorySeparator) || (DirectorySeparator == u'\\' && path.endsWith(u'/'));
}

QString FileNameOf(const QString& personName) {
    constexpr QStringView forbidden = u"/\\:*?\"<>|";
    QString name = personName;
    for (QChar& c : name)
        if (forbidden.contains(c) || c.category() == QChar::Other_Control)
            c = u'_';
    for (qsizetype i = name.size(); i > 0 && (name[i - 1] == u'.' || name[i - 1] == u' '); --i)
        name[i - 1] = u'_';
    return name;
}

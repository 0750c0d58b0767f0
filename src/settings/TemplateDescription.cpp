#include "settings/TemplateDescription.h"

#include "base/LineBreak.h"
#include "base/SectionFinder.h"
#include "platform/TextFile.h"

#include <QStringList>

namespace {

QString WithLineBreaks(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (text.endsWith(u'\n'))
        text.chop(1);
    return text.replace(u'\n', LineBreak) + LineBreak;
}

} // namespace

QString ReadTemplateDescription(const QString& path) {
    if (path.isEmpty())
        return {};
    TextOfFile file;
    if (const Result read = ReadTextFile(path, MaxTestFileBytes, file); !read)
        return {};
    try {
        return FindSection(u"DESCRIPTION", WithLineBreaks(file.Text));
    } catch (const SectionError&) {
        return {};
    }
}

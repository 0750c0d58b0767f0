#include "settings/TemplateDescription.h"

#include "base/SectionFinder.h"
#include "settings/TemplateFile.h"

QString ReadTemplateDescription(const QString& path, const QString& programFolder) {
    QString text;
    if (path.isEmpty() || !ReadTemplateFile(path, programFolder, text))
        return {};
    try {
        return FindSection(u"DESCRIPTION", text);
    } catch (const SectionError&) {
        return {};
    }
}

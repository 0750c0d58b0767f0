#include "platform/FileNames.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

const QChar DirectorySeparator = QDir::separator();

bool EndsInSeparator(const QString& path) {
    return path.endsWith(DirectorySeparator) || (DirectorySeparator == u'\\' && path.endsWith(u'/'));
}

namespace {

/// In UTF-8. File systems take 255, and a report's name has the test's before it and a number after it.
constexpr qsizetype LongestNameBytes = 160;

QString WithoutForbidden(QString name) {
    constexpr QStringView forbidden = u"/\\:*?\"<>|";
    for (QChar& c : name)
        if (forbidden.contains(c) || c.category() == QChar::Other_Control)
            c = u'_';
    for (qsizetype i = name.size(); i > 0 && (name[i - 1] == u'.' || name[i - 1] == u' '); --i)
        name[i - 1] = u'_';
    return name;
}

bool IsDeviceSomewhere(const QString& name) {
    static const QRegularExpression device(
        QStringLiteral("^(CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|(COM|LPT)[0-9\u00B9\u00B2\u00B3]) *(\\.|$)"),
        QRegularExpression::CaseInsensitiveOption);
    return device.match(name).hasMatch();
}

/// A name that looks as if it had digits already must not meet the one that got them.
bool HasDigits(const QString& name) {
    static const QRegularExpression digits(QStringLiteral("~[0-9a-f]{6}$"));
    return digits.match(name).hasMatch();
}

QString CutToFit(QString name) {
    while (name.toUtf8().size() > LongestNameBytes)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    return name;
}

QString DigitsOf(const QString& personName) {
    return u'~' + QString::fromLatin1(
                      QCryptographicHash::hash(personName.toUtf8(), QCryptographicHash::Sha256).toHex().first(6));
}

/// There is something of that name, but its letters are capital or small in other places.
bool IsOfAnotherName(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists() || info.isSymLink())
        return false;
    const QString real = QFileInfo(info.canonicalFilePath()).fileName();
    return real != info.fileName() && real.compare(info.fileName(), Qt::CaseInsensitive) == 0;
}

} // namespace

QString FileNameOf(const QString& personName) {
    QString name = WithoutForbidden(personName);
    const bool device = IsDeviceSomewhere(name);
    if (device) // with a dot it would still be one
        name.replace(u'.', u'_');
    const QString fitting = CutToFit(name);
    const bool same = fitting == personName && !device && !HasDigits(personName);
    return same ? fitting : fitting + DigitsOf(personName);
}

QString PathForPerson(const QString& folder, const QString& before, const QString& personName, const QString& after) {
    const QString name = folder + before + FileNameOf(personName);
    return IsOfAnotherName(name + after) && !name.endsWith(DigitsOf(personName)) ? name + DigitsOf(personName) + after
                                                                                 : name + after;
}

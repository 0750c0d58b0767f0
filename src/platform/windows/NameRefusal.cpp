#include "platform/NameRefusal.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

// The rules of "Naming Files, Paths, and Namespaces" in the documentation of the Windows API.
QString NameRefusal(const QString& path) {
    static const QRegularExpression forbidden(QStringLiteral("[<>:\"|?*\\x00-\\x1F]"));
    // An ending or blanks behind it don't make another name of it.
    static const QRegularExpression device(
        QStringLiteral("^(CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|(COM|LPT)[0-9\u00B9\u00B2\u00B3]) *(\\..*)?$"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QString name = QFileInfo(QDir::fromNativeSeparators(path)).fileName();
    if (const auto match = forbidden.match(name); match.hasMatch()) {
        const QChar character = match.captured().front();
        return character < u' ' ? QStringLiteral("a file's name can't hold control characters")
                                : QStringLiteral("a file's name can't hold the character ") + character;
    }
    if (const auto match = device.match(name); match.hasMatch())
        return QStringLiteral("'") + match.captured(1) + QStringLiteral("' is the name of a device");
    return {};
}

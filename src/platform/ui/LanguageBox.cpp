#include "platform/ui/LanguageBox.h"

#include <QLocale>
#include <QMap>
#include <QWheelEvent>

namespace {

QString NameOf(const QLocale& locale) {
    const QString name = QLocale::languageToString(locale.language());
    const QString own = locale.nativeLanguageName();
    return own.isEmpty() || own.compare(name, Qt::CaseInsensitive) == 0 ? name : name + QStringLiteral(" – ") + own;
}

} // namespace

LanguageBox::LanguageBox(const QString& language, QWidget* parent) : QComboBox(parent) {
    QMap<QString, QString> tags;
    for (int i = QLocale::C + 1; i <= QLocale::LastLanguage; ++i)
        // A language that the system's library knows nothing of gives a locale of another one.
        if (const QLocale locale(static_cast<QLocale::Language>(i)); locale.language() == i)
            tags.insert(NameOf(locale), locale.bcp47Name());
    addItem(QStringLiteral("The system's: ") + NameOf(QLocale(QLocale::system().bcp47Name())), QString());
    for (auto entry = tags.cbegin(); entry != tags.cend(); ++entry)
        addItem(entry.key(), entry.value());
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(16);
    setFocusPolicy(Qt::StrongFocus);
    SetLanguage(language);
}

void LanguageBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

void LanguageBox::SetLanguage(const QString& language) {
    if (findData(language) < 0)
        addItem(language, language);
    setCurrentIndex(findData(language));
}

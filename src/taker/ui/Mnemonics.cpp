#include "taker/ui/Mnemonics.h"

#include <QAction>

namespace {

QString LetterOf(const QString& caption) {
    const QKeySequence key = QKeySequence::mnemonic(caption);
    return key.isEmpty() ? QString() : key.toString();
}

QString CaptionFor(const MarkedButton& button, const QStringList& taken) {
    for (const QString& caption : button.Captions)
        if (!taken.contains(LetterOf(caption)))
            return caption;
    return QString(button.Captions.first()).remove(u'&');
}

} // namespace

void GiveCaptions(const QMenuBar& menus, const QList<MarkedButton>& buttons) {
    QStringList taken;
    for (const QAction* menu : menus.actions())
        if (menu->isVisible())
            taken += LetterOf(menu->text());
    taken.removeAll(QString());
    for (const MarkedButton& button : buttons) {
        if (!button.Button->isVisibleTo(button.Button->window()))
            continue;
        button.Button->setText(CaptionFor(button, taken));
        if (const QString letter = LetterOf(button.Button->text()); !letter.isEmpty())
            taken += letter;
    }
}

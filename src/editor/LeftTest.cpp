#include "editor/LeftTest.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace {

QString ShortTime(const QDateTime& time) { return QLocale().toString(time, QLocale::ShortFormat); }

} // namespace

Prompt LeftTestQuestion(const RecoveredTest& left, LeftTestOffer when) {
    const TestDocument& test = left.Test;
    const QString title = test.TestTitle.isEmpty() ? QStringLiteral("Untitled") : test.TestTitle;
    const bool hasFile = QDir::isAbsolutePath(test.TestFileName);
    const QString file = hasFile ? QStringLiteral("the file '") + test.TestFileName + u'\''
                                 : QStringLiteral("a test that has no file yet");
    const QDateTime saved = QFileInfo(test.TestFileName).lastModified();
    const QByteArray now = FileDigest(test.TestFileName);
    const bool changed = left.FileThen ? !now.isEmpty() && now != *left.FileThen : saved > left.KeptAt;
    // Whoever goes on with the older one would undo what was saved since.
    const QString newer =
        hasFile && changed
            ? QStringLiteral(" The file was changed meanwhile, on ") + ShortTime(saved) +
                  QStringLiteral(": what was written to it then is not among them, and saving them would replace it.")
            : QString();
    const QString choices =
        when == LeftTestOffer::AtStart
            ? QStringLiteral("Do you want to go on with them in the editor? 'No' gives them up, 'Cancel' asks again "
                             "at the next start.")
            : QStringLiteral("Do you want to go on with them? 'No' gives them up and ") +
                  (hasFile ? QStringLiteral("opens the file as it was saved") : QStringLiteral("begins a new test")) +
                  QStringLiteral(", 'Cancel' keeps them and opens nothing.");
    return {QStringLiteral("The test '") + title + QStringLiteral("' (") + file +
                QStringLiteral(") has changes that were not saved when ") +
                (left.InThisRun ? QStringLiteral("you left it") : QStringLiteral("Vellumo ended")) +
                QStringLiteral(". They were kept on ") + ShortTime(left.KeptAt) + u'.' + newer +
                QStringLiteral("\n\n") + choices,
            QStringLiteral("Unsaved Test"), PromptButtons::YesNoCancel, PromptIcon::Question};
}

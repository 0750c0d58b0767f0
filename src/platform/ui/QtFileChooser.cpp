#include "platform/ui/QtFileChooser.h"

#include "platform/ui/WindowInFront.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

// The system's own dialogs may move the current directory.
class KeepCurrentDirectory {
  public:
    KeepCurrentDirectory() : path_(QDir::currentPath()) {}
    ~KeepCurrentDirectory() { QDir::setCurrent(path_); }
    KeepCurrentDirectory(const KeepCurrentDirectory&) = delete;
    KeepCurrentDirectory& operator=(const KeepCurrentDirectory&) = delete;

  private:
    QString path_;
};

QString Answer(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst());
}

void Prepare(QFileDialog& dialog, const FileQuestion& question) {
    if (!question.Title.isEmpty())
        dialog.setWindowTitle(question.Title);
    const QStringList filters = NameFiltersOf(question.Filter);
    if (!filters.isEmpty())
        dialog.setNameFilters(filters);
    const QFileInfo start(QDir::fromNativeSeparators(question.FileName));
    if (question.FileName.isEmpty() || !start.absoluteDir().exists()) {
        dialog.setDirectory(QDir::currentPath());
    } else if (start.isDir()) {
        dialog.setDirectory(start.absoluteFilePath());
    } else {
        dialog.setDirectory(start.absolutePath());
        dialog.selectFile(start.fileName());
    }
}

} // namespace

QStringList NameFiltersOf(const QString& filter) {
    static const QRegularExpression patternsAtEnd(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& pattern : parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts))
            patterns.append(pattern.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : pattern.trimmed());
        const QString label = QString(parts[i]).remove(patternsAtEnd).trimmed();
        if (!patterns.isEmpty())
            filters.append(QStringLiteral("%1 (%2)").arg(label, patterns.join(QLatin1Char(' '))));
    }
    return filters;
}

QString QtFileChooser::OpenFile(const FileQuestion& question) {
    const KeepCurrentDirectory keep;
    QFileDialog dialog(WindowInFront());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    Prepare(dialog, question);
    return Answer(dialog);
}

QString QtFileChooser::SaveFile(const FileQuestion& question) {
    const KeepCurrentDirectory keep;
    QFileDialog dialog(WindowInFront());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !question.AsksBeforeReplacing);
    if (question.DefaultExtension.startsWith(QLatin1Char('.')))
        dialog.setDefaultSuffix(question.DefaultExtension.mid(1));
    Prepare(dialog, question);
    return Answer(dialog);
}

QString QtFileChooser::ChooseFolder(const QString& title, const QString& start) {
    const KeepCurrentDirectory keep;
    QFileDialog dialog(WindowInFront());
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    Prepare(dialog, {title, {}, start, {}});
    return Answer(dialog);
}

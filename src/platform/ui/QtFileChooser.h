#pragma once

#include "platform/FileChooser.h"

#include <QStringList>

/// The file dialogs of the desktop. The current directory is the same after a dialog as before it.
class QtFileChooser : public FileChooser {
  public:
    QString OpenFile(const FileQuestion& question) override;
    QString SaveFile(const FileQuestion& question) override;
    QString ChooseFolder(const QString& title, const QString& start) override;
};

/// The filters of "label|pattern|label|pattern" as QFileDialog takes them: "Text Files (*.txt)", "All Files (*)".
/// A label without a pattern is left out.
QStringList NameFiltersOf(const QString& filter);

#pragma once

#include <QString>

struct FileQuestion {
    /// Empty for the usual title.
    QString Title;
    /// As "label|pattern|label|pattern".
    QString Filter;
    /// Name or path to begin with.
    QString FileName;
    /// With its dot, appended by saving to a name without extension; empty for none.
    QString DefaultExtension;
    /// Whether saving asks before an existing file would be replaced; false for a caller that asks itself.
    bool AsksBeforeReplacing = true;
};

/// File dialogs. The empty text is "cancelled".
class FileChooser {
  public:
    virtual ~FileChooser() = default;

    virtual QString OpenFile(const FileQuestion& question) = 0;
    virtual QString SaveFile(const FileQuestion& question) = 0;
    virtual QString ChooseFolder(const QString& title, const QString& start) = 0;
};

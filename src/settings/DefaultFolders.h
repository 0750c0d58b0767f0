#pragma once

#include "base/Failure.h"
#include "settings/Settings.h"

/// What the folders of a first run are worked out from.
struct KnownFolders {
    /// The folder that holds the program.
    QString ProgramFolder;
    /// The user's documents.
    QString Documents;
    /// The samples that came with the program; "" for none.
    QString Samples;
};

/// The default folders: the working directory is the program's folder when the user can write there, and otherwise
/// "Vellumo" in the documents.
DefaultFolders ChooseDefaultFolders(const KnownFolders& known);

/// Whether tests can be listed from the folder and results written from there. The message names it, without a full
/// stop at its end.
Result CheckWorkingDirectory(const QString& path);

/// Makes the working directory when it is missing, and copies the tests among the samples into it, replacing nothing.
/// For a first run; nothing happens when the working directory is the program's folder.
void PrepareWorkingDirectory(const DefaultFolders& folders, const KnownFolders& known);

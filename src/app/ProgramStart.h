#pragma once

#include "settings/DefaultFolders.h"
#include "taker/Session.h"

#include <QString>

/// What happens only once in a run, and what is remembered of it, however often the start screen comes back.
struct ProgramStart {
    /// The test to begin at once; empty for none.
    QString CommandLinePath;
    KnownFolders Known;
    bool SettingsLoaded = false;
    /// A test was begun from the command line.
    bool StartedFromCommandLine = false;
    /// The absolute path of the test that was selected last.
    QString SelectedTest = {};
};

/// Loads the settings, unless that was done before in this run, so that settings that were applied but not saved hold
/// for the whole run. The first time on a machine the working directory is made and filled.
void LoadSettingsOnce(ProgramStart& start, Session& session, SettingsStore& store, const DefaultFolders& folders);

/// Sees to it that there is a working directory. Without the one of the settings, the default one takes its place for
/// this run, made if need be; the stored setting stays. Fails with a message for the person when that was so.
Result EnsureWorkingDirectory(Settings& settings, const DefaultFolders& folders);

/// The test file that a command line names, as an absolute path: the whole line as it stands, blanks and quotes
/// included. Only when there is no such file and the line is wrapped in one pair of double quotes are these dropped.
/// A relative path counts from the current directory. Empty for an empty line.
QString PathOfCommandLine(const QString& commandLine);

#pragma once

#include "platform/SettingsStore.h"

#include <QList>
#include <QPair>
#include <QString>

/// The user-wide settings, in memory while the program runs.
struct Settings {
    QString QuestionPrefix;
    QString QuestionSuffix;
    QString DefaultEditor;
    QString DefaultDirectory;
    bool NamePersist = true;
    QString AdministratorName;
    bool BreakAfterQuestionNumber = false;
    QString HtmlTemplatePath;
    QString DefaultBrowser;
    QString DefaultEmail;
    QString DefaultNextPage;
    QString HtmlDirectory;
    QString TempHtmlDirectory;
    /// The language that web pages declare, as a tag of BCP 47 ("de", "pt-BR"); "" for the system's.
    QString HtmlLanguage;
};

/// The address of the program's own web page.
inline constexpr const char* HomePageAddress = "https://www.example.com/vellumo";

/// What the defaults of a first run depend on.
struct DefaultFolders {
    /// The folder that holds the program.
    QString ProgramFolder;
    /// The working directory: the program's folder, or a folder of the user's where that can't be written.
    QString WorkingDirectory;
};

/// Sets the fields to their defaults, AdministratorName left alone. Writes nothing.
void RestoreDefaultSettings(Settings& settings, const DefaultFolders& folders);

/// Fills the fields from the store. On a first run (no working directory was ever stored) applies the defaults and
/// writes them. A boolean that holds a text that is none keeps its default. Returns whether this was a first run.
bool LoadSettings(Settings& settings, SettingsStore& store, const DefaultFolders& folders);

/// As LoadSettings without ever writing: the fields as they would be, for a program that must not change the store.
void PeekSettings(Settings& settings, const SettingsStore& store, const DefaultFolders& folders);

/// Writes all fields to the store.
void SaveSettings(const Settings& settings, SettingsStore& store);

/// Writes the pairs in their order; a failure ends the writing silently at that pair.
void SaveSettingPairs(const QList<QPair<QString, QString>>& pairs, SettingsStore& store);

/// The keys that other windows write one by one, and the words for a boolean.
inline const QString NamePersistKey = QStringLiteral("NamePersist");
inline const QString AdministratorNameKey = QStringLiteral("AdministratorName");
inline const QString HtmlDirectoryKey = QStringLiteral("dirhtml");
inline const QString TempHtmlDirectoryKey = QStringLiteral("dirtemphtml");
QString SettingText(bool value);

#include "settings/Settings.h"

#include <cmath>
#include <optional>

namespace {

enum class Folder { None, Program, Working };

/// One setting: its key, its field, and its default. The order is that in which they are written.
struct SettingRow {
    const char* Key;
    QString Settings::*TextField;
    bool Settings::*FlagField;
    const char* DefaultText;
    bool DefaultFlag;
    Folder DefaultFolder;
};

constexpr SettingRow TextRow(const char* key, QString Settings::*field, const char* defaultText) {
    return {key, field, nullptr, defaultText, false, Folder::None};
}
constexpr SettingRow FlagRow(const char* key, bool Settings::*field, bool defaultFlag) {
    return {key, nullptr, field, nullptr, defaultFlag, Folder::None};
}
constexpr SettingRow FolderRow(const char* key, QString Settings::*field, Folder folder) {
    return {key, field, nullptr, nullptr, false, folder};
}

#ifdef Q_OS_WIN
constexpr const char* EditorProgram = "notepad.exe";
constexpr const char* BrowserProgram = "explorer.exe";
#else
constexpr const char* EditorProgram = "xdg-open";
constexpr const char* BrowserProgram = "xdg-open";
#endif

// A text without a default is left alone by "Restore Defaults".
constexpr SettingRow Rows[] = {
    TextRow("globaloptionQuestionPrefix", &Settings::QuestionPrefix, "Q."),
    TextRow("globaloptionQuestionSuffix", &Settings::QuestionSuffix, " "),
    TextRow("defaulteditor", &Settings::DefaultEditor, EditorProgram),
    FolderRow("defaultdirectory", &Settings::DefaultDirectory, Folder::Working),
    FlagRow("NamePersist", &Settings::NamePersist, true),
    TextRow("AdministratorName", &Settings::AdministratorName, nullptr),
    FlagRow("CarriageReturn", &Settings::BreakAfterQuestionNumber, false),
    TextRow("defaultHTMLTemplate", &Settings::HtmlTemplatePath, "HTML Template.vlx"),
    TextRow("defaultBrowser", &Settings::DefaultBrowser, BrowserProgram),
    TextRow("defaultEmail", &Settings::DefaultEmail, "someone@example.com"),
    TextRow("defaultNextPage", &Settings::DefaultNextPage, HomePageAddress),
    FolderRow("dirhtml", &Settings::HtmlDirectory, Folder::Program),
    FolderRow("dirtemphtml", &Settings::TempHtmlDirectory, Folder::Program),
    TextRow("htmlLanguage", &Settings::HtmlLanguage, ""),
};

constexpr const char* DefaultDirectoryKey = "defaultdirectory";

QString TextOf(const Settings& settings, const SettingRow& row) {
    return row.FlagField ? SettingText(settings.*row.FlagField) : settings.*row.TextField;
}

std::optional<bool> FlagOf(const QString& text) {
    if (text.compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0)
        return true;
    if (text.compare(QStringLiteral("False"), Qt::CaseInsensitive) == 0)
        return false;
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number != 0) : std::nullopt;
}

void ReadRow(Settings& settings, const SettingsStore& store, const SettingRow& row) {
    const QString text = store.Read(QString::fromLatin1(row.Key), QString());
    if (row.FlagField)
        settings.*row.FlagField = FlagOf(text).value_or(row.DefaultFlag);
    else
        settings.*row.TextField = text;
}

void Restore(Settings& settings, const DefaultFolders& folders, const SettingRow& row) {
    if (row.FlagField)
        settings.*row.FlagField = row.DefaultFlag;
    else if (row.DefaultFolder == Folder::Working)
        settings.*row.TextField = folders.WorkingDirectory;
    else if (row.DefaultFolder == Folder::Program)
        settings.*row.TextField = folders.ProgramFolder;
    else if (row.DefaultText)
        settings.*row.TextField = QString::fromLatin1(row.DefaultText);
}

} // namespace

void RestoreDefaultSettings(Settings& settings, const DefaultFolders& folders) {
    for (const SettingRow& row : Rows)
        Restore(settings, folders, row);
}

void PeekSettings(Settings& settings, const SettingsStore& store, const DefaultFolders& folders) {
    if (store.Read(QString::fromLatin1(DefaultDirectoryKey), QString()).isEmpty()) {
        RestoreDefaultSettings(settings, folders);
        return;
    }
    for (const SettingRow& row : Rows)
        ReadRow(settings, store, row);
}

bool LoadSettings(Settings& settings, SettingsStore& store, const DefaultFolders& folders) {
    PeekSettings(settings, store, folders);
    const bool firstRun = store.Read(QString::fromLatin1(DefaultDirectoryKey), QString()).isEmpty();
    if (firstRun)
        SaveSettings(settings, store);
    return firstRun;
}

void SaveSettings(const Settings& settings, SettingsStore& store) {
    QList<QPair<QString, QString>> pairs;
    for (const SettingRow& row : Rows)
        pairs.append({QString::fromLatin1(row.Key), TextOf(settings, row)});
    SaveSettingPairs(pairs, store);
}

void SaveSettingPairs(const QList<QPair<QString, QString>>& pairs, SettingsStore& store) {
    for (const auto& [key, text] : pairs)
        if (!store.Write(key, text))
            return;
}

QString SettingText(bool value) { return value ? QStringLiteral("True") : QStringLiteral("False"); }

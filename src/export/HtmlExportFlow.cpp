#include "export/HtmlExportFlow.h"

#include "base/LineBreak.h"
#include "base/SectionFinder.h"
#include "export/HtmlGenerator.h"
#include "platform/Directories.h"
#include "settings/TemplateFile.h"

#include <QDir>
#include <QFileInfo>

namespace {

const QString NoDescription = QStringLiteral("Description can't be found or file not valid");

bool IsExistingFile(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

} // namespace

QString HtmlExportFlow::Description() {
    const Session& session = parts_.Run;
    QString text;
    if (session.HtmlTemplatePath.isEmpty() || !ReadTemplateFile(session.HtmlTemplatePath, parts_.ProgramFolder, text))
        return NoDescription;
    try {
        return FindSection(u"DESCRIPTION", text);
    } catch (const SectionError& error) {
        parts_.Boxes.Inform(error.Message() + QStringLiteral(" in the file: ") + session.Test.TestFileName);
        return NoDescription;
    }
}

bool HtmlExportFlow::Export(const HtmlExportForm& form) {
    if (form.TargetPath.isEmpty()) {
        parts_.Boxes.Inform(QStringLiteral("Please Select an Html file for save"));
        return false;
    }
    const Mode mode = ChooseMode(form);
    if (mode == Mode::Stop)
        return false;

    // It has told its failure itself, and the export goes on with what there is.
    static_cast<void>(GenerateHtml(parts_.Run, parts_.Boxes, parts_.ProgramFolder));
    HostPage page;
    if (mode == Mode::NewPage)
        page.Text = NewPage(parts_.Run.Test.TestTitle, parts_.Run.GeneratedHtml);
    else if (!Insert(form, mode == Mode::IntoHost ? form.HostPath : form.TargetPath, page))
        return false;

    if (const Result written = WritePage(form.TargetPath, page.Text + LineBreak, page.Encoding); !written) {
        parts_.Boxes.Inform(written.Message());
        return false;
    }
    const QString& browser = parts_.Run.UserSettings.DefaultBrowser;
    if (const Result shown = parts_.Programs.Open(browser, form.TargetPath, WindowState::Minimized); !shown)
        parts_.Boxes.Inform(shown.Message());
    return true;
}

PromptAnswer HtmlExportFlow::AskExisting(const QString& text) {
    return parts_.Boxes.Ask(
        {text, QStringLiteral("File Already Exists"), PromptButtons::YesNoCancel, PromptIcon::None});
}

HtmlExportFlow::Mode HtmlExportFlow::ChooseMode(const HtmlExportForm& form) {
    const QString& target = form.TargetPath;
    const bool hasHost = !form.HostPath.isEmpty();
    if (!IsExistingFile(target))
        return hasHost ? Mode::IntoHost : Mode::NewPage;
    if (hasHost) {
        // No blank behind "replace": that is how the question reads.
        const auto answer = AskExisting(QStringLiteral("Would you like to replace'") + target + QStringLiteral("' ?"));
        return answer == PromptAnswer::Yes ? Mode::IntoHost : Mode::Stop;
    }
    const auto insert =
        AskExisting(QStringLiteral("Would you like to insert html into '") + target + QStringLiteral("' ?"));
    if (insert != PromptAnswer::No)
        return insert == PromptAnswer::Yes ? Mode::IntoTarget : Mode::Stop;
    const auto replace =
        AskExisting(QStringLiteral("Would you like to replace '") + target + QStringLiteral("' as a new file ?"));
    return replace == PromptAnswer::Yes ? Mode::NewPage : Mode::Stop;
}

/// The page at hostPath with the generated one inserted. False after a message when that can't be.
bool HtmlExportFlow::Insert(const HtmlExportForm& form, const QString& hostPath, HostPage& page) {
    if (form.Point.Text.isEmpty()) {
        parts_.Boxes.Inform(QStringLiteral("Please enter some text to use as an insertion point"));
        return false;
    }
    if (const Result read = ReadHostPage(hostPath, page); !read) {
        parts_.Boxes.Inform(read.Message());
        return false;
    }
    const auto inserted = InsertInto(page.Text, parts_.Run.GeneratedHtml, form.Point);
    if (!inserted) {
        parts_.Boxes.Inform(QStringLiteral("Text For Insertion Not Found"));
        return false;
    }
    page.Text = *inserted;
    return true;
}

void HtmlExportFlow::GoToFolderOf(HtmlFile file) const {
    const Settings& settings = parts_.Run.UserSettings;
    const QString& folder = file == HtmlFile::Target ? settings.HtmlDirectory : settings.TempHtmlDirectory;
    if (!folder.isEmpty())
        ChangeDirectory(folder);
}

void HtmlExportFlow::RememberFolderOf(HtmlFile file, const QString& path) {
    Settings& settings = parts_.Run.UserSettings;
    const bool target = file == HtmlFile::Target;
    QString& folder = target ? settings.HtmlDirectory : settings.TempHtmlDirectory;
    folder = QDir::toNativeSeparators(QFileInfo(path).absolutePath());
    SaveSettingPairs({{target ? HtmlDirectoryKey : TempHtmlDirectoryKey, folder}}, parts_.Store);
}

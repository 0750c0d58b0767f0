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
        parts_.Boxes.Inform(error.Message() + QStringLiteral(" in the file: ") + session.HtmlTemplatePath);
        return NoDescription;
    }
}

QString HtmlExportFlow::TargetOf(const QString& typed) {
    const QFileInfo info(typed);
    if (info.fileName().isEmpty() || !info.suffix().isEmpty() || info.exists())
        return typed;
    return typed + (typed.endsWith(u'.') ? QStringLiteral("html") : QStringLiteral(".html"));
}

bool HtmlExportFlow::Export(const HtmlExportForm& form) {
    if (form.TargetPath.isEmpty()) {
        parts_.Boxes.Inform(QStringLiteral("Please Select an Html file for save"));
        return false;
    }
    const Mode mode = ChooseMode(form);
    if (mode == Mode::Stop)
        return false;

    // Without a test in it, a page is no reason to give up one that is there.
    if (!Generate() && IsExistingFile(form.TargetPath)) {
        parts_.Boxes.Inform(QStringLiteral("Nothing was written; the page '") + form.TargetPath +
                            QStringLiteral("' is as it was."));
        return false;
    }
    HostPage page;
    if (mode == Mode::NewPage)
        page.Text = NewPage(parts_.Run.Test.TestTitle, parts_.Run.GeneratedHtml, PageLanguage(parts_.Run.HtmlLanguage));
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

/// False after a message when there is nothing to put into a page.
bool HtmlExportFlow::Generate() {
    if (!GenerateHtml(parts_.Run, parts_.Boxes, parts_.ProgramFolder))
        return false;
    const bool made = !parts_.Run.GeneratedHtml.trimmed().isEmpty();
    if (!made)
        parts_.Boxes.Inform(TemplateMakesNoPage(parts_.Run.HtmlTemplatePath));
    return made;
}

PromptAnswer HtmlExportFlow::Ask(const QString& text, PromptAnswer byDefault) {
    return parts_.Boxes.Ask(
        {text, QStringLiteral("File Already Exists"), PromptButtons::YesNoCancel, PromptIcon::None, byDefault});
}

HtmlExportFlow::Mode HtmlExportFlow::ChooseMode(const HtmlExportForm& form) {
    if (IsExistingFile(form.TargetPath))
        return AskExisting(form);
    return form.HostPath.isEmpty() ? Mode::NewPage : Mode::IntoHost;
}

/// What becomes of a target that is there already. Enter replaces what Vellumo made, and leaves alone what it didn't.
HtmlExportFlow::Mode HtmlExportFlow::AskExisting(const HtmlExportForm& form) {
    const QString& target = form.TargetPath;
    HostPage page;
    const PageOrigin origin = ReadHostPage(target, page) ? OriginOf(page.Text) : PageOrigin::Elsewhere;
    const auto yesIf = [](bool condition) { return condition ? PromptAnswer::Yes : PromptAnswer::No; };
    if (!form.HostPath.isEmpty()) {
        // No blank after "replace": that is how the question reads.
        const auto answer = Ask(QStringLiteral("Would you like to replace'") + target + QStringLiteral("' ?"),
                                yesIf(origin != PageOrigin::Elsewhere));
        return answer == PromptAnswer::Yes ? Mode::IntoHost : Mode::Stop;
    }
    const bool ours = origin == PageOrigin::Vellumo;
    const auto ask = [&](Mode mode) {
        return mode == Mode::NewPage
                   ? Ask(QStringLiteral("Would you like to replace '") + target + QStringLiteral("' as a new file ?"),
                         yesIf(ours))
                   : Ask(QStringLiteral("Would you like to insert html into '") + target + QStringLiteral("' ?"),
                         PromptAnswer::No);
    };
    for (const Mode mode : {ours ? Mode::NewPage : Mode::IntoTarget, ours ? Mode::IntoTarget : Mode::NewPage})
        if (const PromptAnswer answer = ask(mode); answer != PromptAnswer::No)
            return answer == PromptAnswer::Yes ? mode : Mode::Stop;
    return Mode::Stop;
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
    folder = QDir::toNativeSeparators(path.isEmpty() ? QDir::currentPath() : QFileInfo(path).absolutePath());
    SaveSettingPairs({{target ? HtmlDirectoryKey : TempHtmlDirectoryKey, folder}}, parts_.Store);
}

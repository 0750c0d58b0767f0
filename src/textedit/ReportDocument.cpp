#include "textedit/ReportDocument.h"

#include "base/LineBreak.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"

#include <QFileInfo>

namespace {

const QString TextFileFilter = QStringLiteral("Text Files (*.txt)|*.txt| All Files (*.*)|*.*");

} // namespace

QString WithLineBreaks(const QString& text) {
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return lines.replace(QStringLiteral("\n"), LineBreak);
}

ReportDocument::ReportDocument(ReportView& view, Prompts& prompts, FileChooser& dlgEdit)
    : view_(view), prompts_(prompts), dlgEdit_(dlgEdit) {}

void ReportDocument::TextChanged() {
    changed_ = true;
    saved_ = false;
    unwritten_ = true;
    SetCaption(caption_);
}

void ReportDocument::Fill(const QString& text, const QString& caption) {
    fileName_.clear();
    view_.SetReportText(text);
    SetCaption(caption);
}

bool ReportDocument::New() {
    if (changed_ && !MayReplaceText())
        return false;
    view_.SetReportText({});
    fileName_.clear();
    unwritten_ = false;
    SetCaption(NewReportCaption);
    return true;
}

bool ReportDocument::Open() {
    if (changed_ && !saved_ && !MayReplaceText())
        return false;
    const QString path = dlgEdit_.OpenFile({{}, TextFileFilter, {}, {}});
    if (path.isEmpty())
        return false;
    TextOfFile file;
    if (const Result read = ReadTextFile(path, MaxReportFileBytes, file); !read) {
        ShowFailure(QStringLiteral("Can't read the file '%1': %2").arg(path, read.Message()));
        return false;
    }
    view_.SetReportText(file.Text);
    fileName_ = path;
    unwritten_ = false;
    SetCaption(QFileInfo(path).fileName());
    return true;
}

bool ReportDocument::Save() { return fileName_.isEmpty() ? SaveAs() : Write(fileName_); }

bool ReportDocument::SaveAs() {
    const QString path = dlgEdit_.SaveFile({{}, TextFileFilter, fileName_, QStringLiteral(".txt")});
    if (path.isEmpty() || !Write(path))
        return false;
    fileName_ = path;
    saved_ = true;
    changed_ = false;
    SetCaption(QFileInfo(path).fileName());
    return true;
}

bool ReportDocument::MayClose() { return !changed_ || MayReplaceText(); }

bool ReportDocument::MayReplaceText() {
    switch (prompts_.Ask({QStringLiteral("Do you Want to Save Changes?"), QStringLiteral("Confirm"),
                          PromptButtons::YesNoCancel, PromptIcon::Question})) {
    case PromptAnswer::Yes:
        return Save();
    case PromptAnswer::No:
        return true;
    default:
        return false;
    }
}

bool ReportDocument::Write(const QString& path) {
    const QByteArray content = EncodeForLocale(WithLineBreaks(view_.ReportText()) + LineBreak);
    if (const Result written = WriteFile(path, content); !written) {
        ShowFailure(written.Message() + QStringLiteral("\n\nThe text is still in this window."));
        return false;
    }
    unwritten_ = false;
    SetCaption(caption_);
    return true;
}

void ReportDocument::SetCaption(const QString& caption) {
    caption_ = caption;
    view_.ShowCaption(caption_, unwritten_);
}

void ReportDocument::ShowFailure(const QString& message) {
    prompts_.Ask({message, {}, PromptButtons::Ok, PromptIcon::Critical});
}

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

bool ReportDocument::Unsaved() const { return reportInNoFile_ || view_.ReportText() != keptText_; }

void ReportDocument::TakeAsKept(bool reportInNoFile) {
    keptText_ = view_.ReportText();
    reportInNoFile_ = reportInNoFile;
}

void ReportDocument::TextChanged() { SetCaption(caption_); }

void ReportDocument::Fill(const QString& text, const QString& caption, TextKind kind) {
    fileName_.clear();
    view_.SetReportText(text);
    TakeAsKept(kind == TextKind::Report);
    SetCaption(caption);
}

bool ReportDocument::New() {
    if (!MayClose())
        return false;
    Fill({}, NewReportCaption, TextKind::Reading);
    return true;
}

bool ReportDocument::Open() {
    if (!MayClose())
        return false;
    const QString path = dlgEdit_.OpenFile({{}, TextFileFilter, {}, {}});
    if (path.isEmpty())
        return false;
    TextOfFile file;
    if (const Result read = ReadTextFile(path, MaxReportFileBytes, file); !read) {
        ShowFailure(QStringLiteral("Can't read the file '%1': %2").arg(path, read.Message()));
        return false;
    }
    Fill(file.Text, QFileInfo(path).fileName(), TextKind::Reading);
    fileName_ = path;
    return true;
}

bool ReportDocument::Save() { return fileName_.isEmpty() ? SaveAs() : Write(fileName_); }

bool ReportDocument::SaveAs() {
    const QString path = dlgEdit_.SaveFile({{}, TextFileFilter, fileName_, QStringLiteral(".txt")});
    if (path.isEmpty() || !Write(path))
        return false;
    fileName_ = path;
    SetCaption(QFileInfo(path).fileName());
    return true;
}

bool ReportDocument::MayClose() {
    if (!Unsaved())
        return true;
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
    TakeAsKept();
    SetCaption(caption_);
    return true;
}

void ReportDocument::SetCaption(const QString& caption) {
    caption_ = caption;
    view_.ShowCaption(caption_, Unsaved());
}

void ReportDocument::ShowFailure(const QString& message) {
    prompts_.Ask({message, {}, PromptButtons::Ok, PromptIcon::Critical});
}

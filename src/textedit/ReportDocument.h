#pragma once

#include "platform/FileChooser.h"
#include "platform/Navigator.h"
#include "platform/Prompts.h"

#include <QString>

/// A text file past this many bytes isn't opened. Reports are a few kilobytes; one line of this length is the most that
/// a text box shows within seconds.
inline constexpr qint64 MaxReportFileBytes = 4 << 20;

inline const QString NewReportCaption = QStringLiteral("New - Document");

/// What a report document needs of the window that shows it.
class ReportView {
  public:
    virtual ~ReportView() = default;

    /// The whole text. Line ends may be of any kind.
    virtual QString ReportText() const = 0;
    /// Replaces the whole text and tells the document of the change as of any other.
    virtual void SetReportText(const QString& text) = 0;
    /// unsaved: something would be lost with the text as it is now.
    virtual void ShowCaption(const QString& caption, bool unsaved) = 0;
};

/// The life of the text in one editor window: which file it belongs to, whether it has changed, and the ways to save it
/// and to leave it. A question comes before a text goes that would be lost, and only then.
class ReportDocument {
  public:
    ReportDocument(ReportView& view, Prompts& prompts, FileChooser& dlgEdit);

    /// Every change of the text box comes here, those made by this class included.
    void TextChanged();
    /// Puts in a text that is in no file yet.
    void Fill(const QString& text, const QString& caption, TextKind kind);

    /// These do nothing when the person cancels or a file fails; a failure is shown. Each says whether it was done.
    bool New();
    bool Open();
    bool Save();
    bool SaveAs();
    /// Whether the text may go: it is saved, needn't be, or isn't wanted.
    bool MayClose();

    /// The file the text was last read from or saved to; empty for a new document.
    const QString& FileName() const { return fileName_; }
    const QString& Caption() const { return caption_; }
    /// Whether the text is another than was last saved, opened or put in, or is a report that was never saved.
    bool Unsaved() const;

  private:
    /// From now on the text as it is counts as kept.
    void TakeAsKept(bool reportInNoFile = false);
    bool Write(const QString& path);
    void SetCaption(const QString& caption);
    void ShowFailure(const QString& message);

    ReportView& view_;
    Prompts& prompts_;
    FileChooser& dlgEdit_;
    QString fileName_;
    QString caption_ = NewReportCaption;
    QString keptText_;
    bool reportInNoFile_ = false;
};

/// The text with carriage return and line feed at each of its line ends, whichever they were.
QString WithLineBreaks(const QString& text);

#pragma once

#include "testdoc/TestChecker.h"

/// A piece of the file's text without its line ends; positions run from 0, the end is behind the last character.
struct FileSpan {
    int Begin = 0;
    int End = 0;
    bool Exists = false;
};

/// An element: its content and the whole of it with both tags.
struct FileElement {
    FileSpan Content;
    FileSpan Whole;
};

/// Where the elements stand in the text of a test file. It looks at the text as the reader does, with the line ends
/// taken out, and knows where each character stood.
class FileLayout {
  public:
    explicit FileLayout(const QString& fileText);

    /// The text without line ends, and in upper case.
    const QString& Text() const { return text_; }
    const QString& Upper() const { return upper_; }
    FileSpan All() const { return {0, static_cast<int>(text_.size()), true}; }

    /// The first element with that name (in upper case) in the span.
    FileElement Find(const QString& name, const FileSpan& in) const;
    /// All of them, one behind the other.
    std::vector<FileElement> FindAll(const QString& name, const FileSpan& in) const;
    /// The place's element; doesn't exist when the text has none.
    FileElement ElementOf(const TestPlace& place) const;

    /// Line and column, from 1, of the character at the position.
    int LineOf(int position) const;
    int ColumnOf(int position) const;
    /// Whether a line end was taken out inside the span, blanks at its ends aside.
    bool LosesLineEnd(const FileSpan& span) const;
    FileSpan Trimmed(FileSpan span) const;

  private:
    FileElement Nth(const QString& name, const FileSpan& in, int n) const;

    QString text_;
    QString upper_;
    /// For each character of text_ its position in the file's text.
    std::vector<int> offsets_;
    /// Position in the file's text at which each line begins.
    std::vector<int> lineStarts_;
};

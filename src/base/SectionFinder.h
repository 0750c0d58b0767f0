#pragma once

#include "base/Failure.h"

#include <QString>
#include <QStringView>

/// An opening tag without its closing tag. The message does not name a file.
class SectionError : public Failure {
  public:
    using Failure::Failure;
};

/// A piece of a bracket-tagged text with its upper-cased twin, made once, in which elements are found without regard
/// to the case of a to z. It refers to the strings that it was made of, which must outlive it. Positions run from 1.
class TaggedText {
  public:
    /// Both views must be of the same length.
    TaggedText(QStringView text, QStringView upper) : text_(text), upper_(upper) {}

    QStringView Text() const { return text_; }
    QStringView Upper() const { return upper_; }
    int Length() const { return static_cast<int>(text_.size()); }

    /// Position of the upper-case word at or after start, 0 when it isn't there.
    int Find(QStringView upperWord, int start = 1) const;

    /// length characters from position on; what lies outside the text is left out.
    TaggedText Piece(int position, int length) const;
    TaggedText PieceFrom(int position) const { return Piece(position, Length()); }
    /// What stands before position.
    TaggedText PieceBefore(int position) const { return Piece(1, position - 1); }

  private:
    QStringView text_;
    QStringView upper_;
};

/// Finds elements and remembers where the last one began.
class SectionFinder {
  public:
    /// The content of the first element "[" + tag + "]" ... "[/" + tag + "]" at or after start, in the case of the
    /// text, without regard to the case of the tags. Empty when there is no opening tag. Throws SectionError when the
    /// closing tag is missing.
    TaggedText FindSection(QStringView tag, const TaggedText& text, int start = 1);

    /// Position of the first character after the opening tag most recently found; 0 before the first.
    int LastTagPosition() const { return lastTagPosition_; }

  private:
    int lastTagPosition_ = 0;
};

/// The same for a text that is searched only once.
QString FindSection(QStringView tag, const QString& text, int start = 1);

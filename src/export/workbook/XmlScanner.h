#pragma once

#include "export/workbook/ByteSource.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>
#include <string>
#include <vector>

/// Walks through the tags and texts of an XML part in UTF-8 without building anything, so that parts of many megabytes
/// can be looked through, and changed in single places, at little cost. Of a part that is read from a source, only the
/// piece around the current tag is in memory. Throws WorkbookError where the XML is not well formed, and for document
/// types and other encodings, which no spreadsheet program writes.
class XmlScanner {
  public:
    enum class Kind { Start, End, Text, Finished };

    /// The bytes outlive the scanner, which begins at an offset that is not inside a tag.
    explicit XmlScanner(QByteArrayView xml, qsizetype from = 0);
    /// The source outlives the scanner.
    explicit XmlScanner(ByteSource& source);
    XmlScanner(const XmlScanner&) = delete;
    XmlScanner& operator=(const XmlScanner&) = delete;

    /// Goes on to the next tag or text, past comments and processing instructions. An empty-element tag is a Start that
    /// is SelfClosing(), without an End.
    Kind Next();

    /// Of a tag: its name without and with the namespace prefix, and whether it has no content.
    QByteArrayView LocalName() const;
    QByteArrayView Name() const { return name_; }
    bool SelfClosing() const { return selfClosing_; }
    /// The raw value of an attribute of the current start tag; a null view when there is none.
    QByteArrayView Attribute(QByteArrayView name) const;

    /// Of a text: its characters.
    QString Text() const;

    /// Where the current tag or text begins in the part, and the offset after it.
    qint64 Begin() const { return base_ + begin_; }
    qint64 End() const { return base_ + end_; }

    /// Where a part of the current tag, such as an attribute's value, begins.
    qint64 OffsetOf(QByteArrayView part) const { return base_ + (part.data() - xml_.data()); }

    /// Keeps what comes from the current tag on in memory, until the next call.
    void Hold() { hold_ = Begin(); }
    /// What was held, to the end of the current tag; valid until the scanner goes on.
    QByteArrayView Held() const { return xml_.sliced(hold_ - base_, End() - hold_); }
    void LetGo() { hold_ = -1; }

    /// From now on, all bytes of the part that the scanner leaves are added to "to".
    void CopyTo(QByteArray& to) { to_ = &to; }
    /// Copies what comes before an offset that isn't before the current tag, or leaves it out.
    void CopyUpTo(qint64 offset);
    void LeaveOutUpTo(qint64 offset) { copied_ = offset; }

    /// Goes past the end tag of the element whose start tag is the current one.
    void SkipElement();

  private:
    bool ReadNext(std::optional<Kind>& kind);
    bool ReadTag();
    bool ReadEndTag();
    bool FindAfter(QByteArrayView what, qsizetype from);
    bool ReadMore();
    bool At(QByteArrayView what) const;

    /// What is in memory, and where it begins in the part.
    QByteArrayView xml_;
    qint64 base_ = 0;
    qsizetype begin_ = 0;
    qsizetype end_ = 0;
    QByteArrayView name_;
    QByteArrayView attributes_;
    bool selfClosing_ = false;
    bool isCData_ = false;
    /// The names of the elements that are open, one after another, and where each begins.
    std::string openNames_;
    std::vector<size_t> open_;

    ByteSource* source_ = nullptr;
    QByteArray buffer_;
    qint64 hold_ = -1;
    QByteArray* to_ = nullptr;
    qint64 copied_ = 0;
};

/// The text that raw character data stands for. Line ends are given as line feeds.
QString XmlText(QByteArrayView raw);
/// The name of an element or attribute without its namespace prefix.
QByteArrayView WithoutPrefix(QByteArrayView name);

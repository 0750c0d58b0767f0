#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

/// Walks through the tags and texts of an XML part in UTF-8 without building anything, so that parts of many megabytes
/// can be looked through, and changed in single places, at little cost. Throws WorkbookError where the XML is not well
/// formed, and for document types and other encodings, which no spreadsheet program writes.
class XmlScanner {
  public:
    enum class Kind { Start, End, Text, Finished };

    /// The bytes outlive the scanner, which begins at an offset that is not inside a tag.
    explicit XmlScanner(QByteArrayView xml, qsizetype from = 0);

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

    /// Where the current tag or text begins, and the offset behind it.
    qsizetype Begin() const { return begin_; }
    qsizetype End() const { return end_; }

    /// Goes to behind the end tag of the element whose start tag is the current one.
    void SkipElement();

  private:
    void ReadTag();
    void ReadEndTag();
    qsizetype FindBehind(QByteArrayView what, qsizetype from) const;
    bool At(QByteArrayView what) const;

    QByteArrayView xml_;
    qsizetype begin_ = 0;
    qsizetype end_ = 0;
    QByteArrayView name_;
    QByteArrayView attributes_;
    bool selfClosing_ = false;
    bool isCData_ = false;
    std::vector<QByteArrayView> open_;
};

/// The text that raw character data stands for. Line ends are given as line feeds.
QString XmlText(QByteArrayView raw);
/// The name of an element or attribute without its namespace prefix.
QByteArrayView WithoutPrefix(QByteArrayView name);

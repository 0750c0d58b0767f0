#pragma once

#include "export/workbook/ByteSource.h"

#include <QIODevice>
#include <QString>

#include <map>
#include <memory>

struct AddedEntry;

/// A zip archive whose entries can be read, replaced and added. What is read or replaced passes through in pieces, so
/// that nothing has to be in memory unpacked. Entries that aren't replaced are carried over as they are, without being
/// unpacked. Failures throw WorkbookError.
class ZipPackage {
  public:
    /// An empty archive.
    ZipPackage();
    /// Opens the archive in these bytes, or in an open device of known size. Refuses what is no zip archive, and names
    /// of entries that are there twice or lead out of the archive.
    explicit ZipPackage(const QByteArray& bytes);
    explicit ZipPackage(std::unique_ptr<QIODevice> device);
    ~ZipPackage();
    ZipPackage(const ZipPackage&) = delete;
    ZipPackage& operator=(const ZipPackage&) = delete;

    bool Has(const QString& name) const;
    /// How many bytes an entry has when it is unpacked, as the archive says. Refuses one of more than maxBytes.
    qint64 SizeOf(const QString& name, qint64 maxBytes) const;
    /// The content of an entry as it was when the archive was opened, at once or in pieces. Refuses one of more than
    /// maxBytes, whatever it was packed to, and one whose content isn't as long as the archive says.
    QByteArray Read(const QString& name, qint64 maxBytes) const;
    std::unique_ptr<ByteSource> Open(const QString& name, qint64 maxBytes) const;

    /// Puts a content in the place of the entry, or adds it. It is asked for when the archive is packed; atMost is how
    /// long it may become.
    void Put(const QString& name, const QByteArray& content);
    void Put(const QString& name, OpenBytes content, qint64 atMost);

    /// The bytes of the archive with all changes.
    QByteArray Pack();

  private:
    struct Access;
    struct Archive;
    struct Addition {
        OpenBytes Content;
        qint64 AtMost = 0;
    };

    void Add(Archive& archive, const QString& name, AddedEntry& entry) const;

    std::unique_ptr<QIODevice> device_;
    std::unique_ptr<Access> access_;
    std::unique_ptr<Archive> archive_;
    std::map<QString, Addition> additions_;
};

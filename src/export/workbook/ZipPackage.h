#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// A zip archive in memory whose entries can be read, replaced and added. Entries that aren't replaced are carried over
/// as they are, without being unpacked. Failures throw WorkbookError.
class ZipPackage {
  public:
    /// An empty archive.
    ZipPackage();
    /// Opens the archive with these bytes. Refuses what is no zip archive, and names of entries that are there twice or
    /// lead out of the archive.
    explicit ZipPackage(const QByteArray& bytes);
    ~ZipPackage();
    ZipPackage(const ZipPackage&) = delete;
    ZipPackage& operator=(const ZipPackage&) = delete;

    bool Has(const QString& name) const;
    /// The content of an entry that isn't replaced. Refuses one of more than maxBytes, whatever it was packed to.
    QByteArray Read(const QString& name, qint64 maxBytes) const;
    /// Puts the pieces, joined, in the place of the entry, or adds it. The pieces' bytes outlive the package.
    void Put(const QString& name, const std::vector<QByteArrayView>& pieces);
    /// The bytes of the archive with all changes. The package can't be used any further.
    QByteArray Pack();

  private:
    struct Archive;
    std::unique_ptr<Archive> archive_;
};

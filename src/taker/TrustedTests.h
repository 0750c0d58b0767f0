#pragma once

#include "base/Failure.h"

#include <QString>
#include <QStringList>

/// Which tests may act by themselves, and which files each test's administrations made: a small file of the user's. A
/// test is known by the hash of its file, so that a changed one is another test. What can't be read counts as not
/// known; then the question comes once more.
class TrustedTests {
  public:
    /// Without a file what is noted lasts as long as this object. The samples' hashes never have to be asked about.
    explicit TrustedTests(QString file = {}, QStringList samples = {});

    bool IsAllowed(const QString& hash) const;
    /// Fails when it can't be kept beyond this run.
    Result Allow(const QString& hash);

    /// Whether an administration of that test made the file. A relative path counts from the current directory.
    bool Made(const QString& hash, const QString& path) const;
    void NoteMade(const QString& hash, const QString& path);

  private:
    Result Note(const QString& line);
    void Read();

    QString file_;
    QStringList samples_;
    /// One fact a line, the newest last.
    QStringList lines_;
};

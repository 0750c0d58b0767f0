#pragma once

#include "base/Failure.h"

#include <QByteArray>
#include <QIODevice>

#include <memory>
#include <string_view>

class QTemporaryFile;

/// Standard output. Nothing that can't be written is lost silently: Finish() throws.
class Output {
  public:
    explicit Output(QIODevice& device) : device_(device) {}
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Write(QByteArrayView bytes);
    /// Throws Failure when something couldn't be written.
    void Finish();

  private:
    void Send();

    QIODevice& device_;
    QByteArray pending_;
    bool failed_ = false;
};

/// Holds a result back until it is known to be good: a few megabytes in memory, more in a temporary file that no name
/// leads to. Throws Failure when that can't be written or read.
class Spool {
  public:
    Spool();
    ~Spool();
    Spool(const Spool&) = delete;
    Spool& operator=(const Spool&) = delete;

    void Write(std::string_view bytes) {
        memory_.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
        if (memory_.size() >= MostInMemory)
            Spill();
    }
    void CopyTo(Output& output);

  private:
    static constexpr qsizetype MostInMemory = 4 << 20;
    void Spill();

    QByteArray memory_;
    std::unique_ptr<QTemporaryFile> file_;
};

#pragma once

#include <QByteArray>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>

/// Bytes that are read once, from the first to the last. Failures throw WorkbookError.
class ByteSource {
  public:
    virtual ~ByteSource() = default;

    /// Gives at most so many of the next bytes, and how many they are; 0 at the end.
    virtual qint64 Read(char* to, qint64 most) = 0;
};

/// Begins to read some bytes from the first one.
using OpenBytes = std::function<std::unique_ptr<ByteSource>()>;

/// Bytes in memory.
class MemorySource : public ByteSource {
  public:
    explicit MemorySource(QByteArray bytes) : bytes_(std::move(bytes)) {}

    qint64 Read(char* to, qint64 most) override {
        const qint64 count = std::min<qint64>(most, bytes_.size() - at_);
        std::memcpy(to, bytes_.constData() + at_, static_cast<size_t>(count));
        at_ += count;
        return count;
    }

  private:
    QByteArray bytes_;
    qint64 at_ = 0;
};

#include "cli/Output.h"

#include "cli/Console.h"

#include <QTemporaryFile>

namespace {

constexpr qsizetype Block = 1 << 16;

[[noreturn]] void SpoolFailed(const QTemporaryFile& file) {
    throw Failure(QStringLiteral("Can't keep the result in a temporary file: ") + file.errorString());
}

} // namespace

void Say(Console& console, const QString& message) {
    // Nobody could be told if this failed.
    console.Err.write(message.toUtf8() + '\n');
}

void Output::Write(QByteArrayView bytes) {
    pending_.append(bytes.data(), bytes.size());
    if (pending_.size() >= Block)
        Send();
}

void Output::Send() {
    if (!failed_)
        failed_ = device_.write(pending_) != pending_.size();
    pending_.clear();
}

void Output::Finish() {
    Send();
    if (failed_)
        throw Failure(QStringLiteral("Can't write to standard output: ") + device_.errorString());
}

Spool::Spool() = default;
Spool::~Spool() = default;

void Spool::Spill() {
    if (!file_) {
        file_ = std::make_unique<QTemporaryFile>();
        if (!file_->open())
            SpoolFailed(*file_);
    }
    if (file_->write(memory_) != memory_.size())
        SpoolFailed(*file_);
    memory_.resize(0);
}

void Spool::CopyTo(Output& output) {
    if (file_) {
        if (!file_->flush() || !file_->seek(0))
            SpoolFailed(*file_);
        while (!file_->atEnd()) {
            const QByteArray block = file_->read(Block);
            if (block.isEmpty())
                SpoolFailed(*file_);
            output.Write(block);
        }
    }
    output.Write(memory_);
}

#pragma once

#include <QString>

#include <exception>
#include <optional>
#include <utility>

/// What ends an operation. Message() is fit to be shown as it stands.
class Failure : public std::exception {
  public:
    explicit Failure(QString message) : message_(std::move(message)), utf8_(message_.toUtf8()) {}

    const QString& Message() const { return message_; }
    const char* what() const noexcept override { return utf8_.constData(); }

  private:
    QString message_;
    QByteArray utf8_;
};

/// An index outside the fixed bounds of an array.
class BoundError : public Failure {
  public:
    BoundError(int index, int bound)
        : Failure(QStringLiteral("The index %1 is outside 1 to %2").arg(index).arg(bound)) {}
};

/// A text that is no whole number, or one outside 16 bits.
class NumberError : public Failure {
  public:
    using Failure::Failure;
};

/// A sum that does not fit 16 bits.
class OverflowError : public Failure {
  public:
    OverflowError() : Failure(QStringLiteral("Overflow")) {}
};

/// A test file whose content can't be understood. The message names the file.
class ParseError : public Failure {
  public:
    using Failure::Failure;
};

/// The outcome of something that the user can do something about: done, or a message that says what failed,
/// on which file, why, and what was kept.
class [[nodiscard]] Result {
  public:
    static Result Done() { return {}; }
    static Result Failed(QString message) {
        Result result;
        result.message_ = std::move(message);
        return result;
    }

    bool Ok() const { return !message_.has_value(); }
    explicit operator bool() const { return Ok(); }
    /// Why it failed; empty when it was done.
    QString Message() const { return message_.value_or(QString()); }

  private:
    std::optional<QString> message_;
};

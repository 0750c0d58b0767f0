#pragma once

#include <QString>

#include <optional>
#include <variant>

/// A field that holds a number, a text kept as it was typed, or nothing.
class Value {
  public:
    Value() = default;
    Value(int number) : held_(number) {}
    explicit Value(const QString& typed) : held_(typed) {}

    bool IsEmpty() const { return std::holds_alternative<std::monostate>(held_); }
    bool IsNumber() const { return std::holds_alternative<int>(held_); }

    /// The number to calculate with: nothing counts as 0, a typed text is converted by the whole-number rule.
    /// Throws NumberError for a text that is no number.
    int Number() const;

    /// The number when what is written for it would be read as one; nothing otherwise, also where nothing is held.
    std::optional<int> TryNumber() const;

    /// As it is written: a number in its shortest decimal form, a text as typed, "" for nothing.
    QString Text() const;

    bool operator==(const Value&) const = default;

  private:
    std::variant<std::monostate, int, QString> held_;
};

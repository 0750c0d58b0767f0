#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// What a call is told to do instead of its work.
struct Order {
    enum class Kind { Work, Fail, FailWithCode, Vanish };

    Kind What = Kind::Work;
    std::uint16_t Number = 0;
    std::wstring Description;
};

/// What the tests read of a server and tell it: "record.txt", to which every call is appended, and "orders.txt", which
/// is read anew at every call.
class Journal {
  public:
    /// who begins every line.
    Journal(std::wstring folder, std::wstring who) : folder_(std::move(folder)), who_(std::move(who)) {}

    /// Appends a line, at once.
    void Note(const std::wstring& line) const;
    /// The first order for the member; a member with "=" at its end is one that is written.
    Order OrderFor(const std::wstring& member) const;
    /// How many first calls of an instance are turned away.
    int BusyCalls() const;
    /// How many first calls of an instance answer a code instead, and which.
    std::pair<int, long> Answers() const;

  private:
    /// The lines of the orders whose first word it is, without that word.
    std::vector<std::wstring> Orders(const std::wstring& word) const;

    std::wstring folder_;
    std::wstring who_;
};

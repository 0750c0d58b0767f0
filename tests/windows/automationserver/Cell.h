#pragma once

#include "Variant.h"

#include <string>

/// What a cell holds, and what it makes of what it is given: a text is read as if it had been typed.
struct Cell {
    enum class Kind { Empty, Number, Text, Date, Boolean, Formula };

    Kind What = Kind::Empty;
    /// A number, a date's serial number, or 1 for TRUE.
    double Number = 0;
    /// A text, or a formula with its first sign.
    std::wstring Text;

    /// Throws MemberFailure for what no cell takes.
    static Cell Given(const Variant& value);
    /// A formula's value is an error: nothing is worked out.
    Variant Value() const;
    /// The record's text: the kind and the value.
    std::wstring Described() const;
};

/// The name of a kind in records and files.
std::wstring KindName(Cell::Kind kind);

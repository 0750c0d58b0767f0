#pragma once

#include "base/Failure.h"

#include <array>
#include <vector>

/// A fixed number of T, indexed with parentheses from 1 to N, as people speak of "question 1".
/// An index outside 1..N throws BoundError.
template <typename T, int N> class BoundedArray {
  public:
    BoundedArray() : items_(static_cast<size_t>(N)) {}

    T& operator()(int index) { return items_[Checked(index)]; }
    const T& operator()(int index) const { return items_[Checked(index)]; }

    static constexpr int Bound() { return N; }

    void Fill(const T& value) { items_.assign(N, value); }

    bool operator==(const BoundedArray&) const = default;

  private:
    static size_t Checked(int index) {
        if (index < 1 || index > N)
            throw BoundError(index, N);
        return static_cast<size_t>(index - 1);
    }

    std::vector<T> items_;
};

// std::vector<bool> hands out proxies, not references.
template <int N> class BoundedArray<bool, N> {
  public:
    bool& operator()(int index) { return items_[Checked(index)]; }
    bool operator()(int index) const { return items_[Checked(index)]; }

    static constexpr int Bound() { return N; }

    void Fill(bool value) { items_.fill(value); }

    bool operator==(const BoundedArray&) const = default;

  private:
    static size_t Checked(int index) {
        if (index < 1 || index > N)
            throw BoundError(index, N);
        return static_cast<size_t>(index - 1);
    }

    std::array<bool, N> items_{};
};

/// Rows 1..N of columns 1..M, indexed as grid(row, column). Throws BoundError outside.
template <typename T, int N, int M> class BoundedGrid {
  public:
    T& operator()(int row, int column) { return rows_(row)(column); }
    const T& operator()(int row, int column) const { return rows_(row)(column); }

    BoundedArray<T, M>& Row(int row) { return rows_(row); }
    const BoundedArray<T, M>& Row(int row) const { return rows_(row); }

    bool operator==(const BoundedGrid&) const = default;

  private:
    BoundedArray<BoundedArray<T, M>, N> rows_;
};

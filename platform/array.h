// Arrays with the classic bounds rules: lower bound 0, an upper bound set by ReDim, every access
// checked (error 9 outside the bounds) and indexes given as Singles rounded halves to even.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

#include "platform/numeric.h"
#include "platform/runtime_error.h"
#include "platform/werk.h"

namespace zw {

// The largest number of elements one array may hold. An interactive curve has tens of control
// points; four million elements (32 MiB of Doubles) is far beyond any curve a person edits, yet
// small enough that a damaged file or an absurd count fails with error 7 instead of exhausting
// memory.
constexpr std::int64_t kMaxArrayElements = std::int64_t{1} << 22;

template <typename T>
class Array {
    // std::vector<bool> hands out proxies, not references; keep flags in a wider type.
    static_assert(!std::is_same_v<T, bool>, "use Array<std::int16_t> for classic Booleans");

  public:
    // A fresh array is not dimensioned: it has no elements and every access raises error 9.
    Array() = default;
    explicit Array(double upperBound) { redim(upperBound); }

    // ReDim a(upper): indexes 0 .. upper, every element the default value.
    void redim(double upperBound) {
        const std::size_t n = checkedCount(upperBound);
        std::vector<T> fresh(n);
        items_.swap(fresh);
        dimensioned_ = true;
    }

    // ReDim Preserve a(upper): keeps the elements that still fit.
    void redimPreserve(double upperBound) {
        items_.resize(checkedCount(upperBound));
        dimensioned_ = true;
    }

    // Erase: back to the undimensioned state.
    void erase() {
        items_.clear();
        dimensioned_ = false;
    }

    bool dimensioned() const { return dimensioned_; }
    // UBound; raises error 9 for an array that was never dimensioned.
    std::int32_t upperBound() const {
        if (!dimensioned_) {
            raise(kErrSubscript);
        }
        return static_cast<std::int32_t>(items_.size()) - 1;
    }
    std::size_t size() const { return items_.size(); }
    // The elements as stored, for loops that check their indexes against size() themselves.
    const T* data() const { return items_.data(); }
    T* data() { return items_.data(); }

    T& operator()(double index) { return items_[checkedIndex(index)]; }
    const T& operator()(double index) const { return items_[checkedIndex(index)]; }

  private:
    static std::size_t checkedCount(double upperBound) {
        const std::int64_t upper = toLong(upperBound);
        if (upper < 0) {
            raise(kErrSubscript);
        }
        if (upper + 1 > kMaxArrayElements) {
            raise(kErrOutOfMemory);
        }
        werk(static_cast<std::uint64_t>(upper + 1) * kWerk);
        return static_cast<std::size_t>(upper + 1);
    }

    // Every access is work, so that a loop over any array of the model is metered. Elements
    // that own an object on the heap are made and freed as they are assigned: they weigh more.
    static constexpr std::uint64_t kWerk = std::is_trivially_copyable_v<T> ? 1 : 30;

    std::size_t checkedIndex(double index) const {
        werk(kWerk);
        const std::int32_t i = toIndex(index);
        if (i < 0 || static_cast<std::size_t>(i) >= items_.size()) {
            raise(kErrSubscript);
        }
        return static_cast<std::size_t>(i);
    }

    std::vector<T> items_;
    bool dimensioned_ = false;
};

}  // namespace zw

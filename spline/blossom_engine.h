// The blossom recursion with shared sub-lists.
//
// Blossoming by the affine property in the last argument is de Boor's algorithm written on
// coefficient vectors: a list of k-1 arguments splits into two lists whose knot runs are one
// longer, until every list is a run of consecutive knots and names one control point. Written as
// a plain recursion that is 2^(k-1) terminal lists, but the lists of one level are the windows
// of de Boor's triangle and most of them recur: the left child of one list is the right child of
// its neighbour. Every distinct list is evaluated once per call, its vector reused for each
// further occurrence; as a sub-list's vector depends on nothing but its entries (the segment
// number and the knots are fixed for the call), the reused vector is bit for bit the one the plain
// recursion would compute again, and the result is identical. Nothing survives the call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zw {

// The recursion of order k must fit the array limit: each of its k - 1 levels holds at least one
// list and its vector, 2k values. Raises error 9 for a negative order, 7 for one too large.
void checkRecursionSize(std::int32_t k);

// The terminal case, where the arguments are consecutive knots starting with `first`: they are
// the blossom of control point sigma - 1 + j when knot sigma + j is `first`. Returns that j, or k
// when no knot sigma .. sigma + k - 1 matches.
std::int32_t terminalSearch(const double* knots, std::size_t knotCount, double first, float sigma,
                            std::int32_t k);
// The terminal vector (k + 1 entries) with its 1.0 at entry j, which a negative segment number
// lowers by one. Without a match (j = k) the 1.0 lands in the spare entry, where it weighs no
// control point.
void terminalVector(std::int32_t j, float sigma, std::int32_t k, double* c);

class BlossomEngine {
  public:
    // `knots` holds `knotCount` values (the knots and the spare slot), of which the first `L`
    // are knots; k is the order, sigma the segment number. Orders whose recursion cannot fit the
    // array limit raise error 7, negative ones error 9. How far the knots run in order is found
    // by a scan of them, unless `geordend` holds it from an engine on the same knots; a negative
    // value there is replaced by what the scan finds.
    BlossomEngine(const double* knots, std::size_t knotCount, float L, std::int32_t k, float sigma,
                  std::int32_t* geordend = nullptr);
    BlossomEngine(const BlossomEngine&) = delete;
    BlossomEngine& operator=(const BlossomEngine&) = delete;

    // The coefficient vector (k + 1 entries) of the argument list `args` (at least
    // max(1, k - 1) entries). Valid until the next call.
    const double* evaluate(const double* args);

  private:
    // Nodes are numbered in order of creation; node i keeps its list (k - 1 values) and then its
    // vector (k + 1 values) at values_[i * stride_].
    std::int32_t evaluateList(const double* list, std::int32_t depth);
    std::int32_t lookup(const double* list, std::uint32_t hash) const;
    std::int32_t insert(const double* list, std::uint32_t hash);
    std::uint32_t hashOf(const double* list) const;
    double knot(std::int64_t i) const;
    double lastKnot();
    double* vectorOf(std::int32_t node) { return values_ + node * stride_ + keyLength_; }
    // The left and the right list of a level, k - 1 values each.
    double* listsAt(std::int32_t depth);
    void growValues();
    void growSlots();

    const double* knots_;
    std::size_t knotCount_;
    float L_;
    std::int32_t k_;
    float sigma_;
    std::size_t keyLength_;  // k - 1
    std::size_t stride_;     // (k - 1) + (k + 1)
    // The leading knots that are in order: the run search may bisect them.
    std::int32_t sortedPrefix_ = 0;
    bool haveLastKnot_ = false;
    double lastKnot_ = 0.0;

    // Storage: inline for the orders the editor offers, on the heap beyond them.
    static constexpr std::size_t kInlineValues = 1024;
    static constexpr std::size_t kInlineSlots = 128;
    static constexpr std::size_t kInlineLists = 256;
    double inlineValues_[kInlineValues];
    std::int32_t inlineSlots_[kInlineSlots];
    double inlineLists_[kInlineLists];
    std::vector<double> heapValues_;
    std::vector<std::int32_t> heapSlots_;
    std::vector<double> heapLists_;
    double* values_ = inlineValues_;
    std::size_t valueCapacity_ = kInlineValues;
    std::int32_t* slots_ = inlineSlots_;
    std::size_t slotCount_ = kInlineSlots;
    double* lists_ = inlineLists_;
    std::size_t listCapacity_ = kInlineLists;
    std::int32_t nodeCount_ = 0;
};

}  // namespace zw

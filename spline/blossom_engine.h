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

class BlossomEngine {
  public:
    // `knots` holds `knotCount` values (the knots and the spare slot), of which the first `L`
    // are knots; k is the order, sigma the segment number.
    BlossomEngine(const double* knots, std::size_t knotCount, float L, std::int32_t k,
                  float sigma);

    // The coefficient vector (k + 1 entries) of the argument list `args` (at least
    // max(1, k - 1) entries). Valid until the next call.
    const double* evaluate(const double* args);

  private:
    // Node indexes into nodes_; a node is its list (k - 1 entries) then its vector (k + 1).
    std::int32_t evaluateList(const double* list, std::int32_t depth);
    std::int32_t find(const double* list, std::uint64_t hash) const;
    std::int32_t insert(const double* list, std::uint64_t hash);
    std::uint64_t hashOf(const double* list) const;
    void grow();
    double knot(std::int64_t i) const;
    double* vectorOf(std::int32_t node) { return &nodes_[node * stride_ + keyLength_]; }
    double* listAt(std::int32_t depth, int which);

    const double* knots_;
    std::size_t knotCount_;
    float L_;
    std::int32_t k_;
    float sigma_;
    std::size_t keyLength_;  // k - 1
    std::size_t stride_;     // (k - 1) + (k + 1)

    std::vector<double> nodes_;
    std::int32_t nodeCount_ = 0;
    std::vector<std::int32_t> table_;  // open addressing, -1 = empty
    std::vector<std::uint64_t> hashes_;
    std::vector<double> lists_;  // two child lists per recursion depth
};

}  // namespace zw

// The blossom of a curve point, where every argument is the same parameter t.
//
// This is the list the drawing evaluates hundreds of times per redraw. When t lies strictly
// between two knots of a strictly increasing vector, every list the recursion meets is known in
// advance: at depth d it is the d knots from knot s on, followed by t repeated, and its run search
// finds exactly those d knots. The recursion is then de Boor's triangle indexed by (d, s), and
// this class walks it with the same arithmetic in the same order as the general recursion, only
// without searching for runs or comparing lists. Anything unforeseen (a knot equal to t, an
// unsorted vector) leaves the walk to the general recursion.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/runtime_error.h"

namespace zw {

// How many of the first L knots rise strictly from knot 0 on (knot i below knot i + 1); at most
// the knots there are.
std::int32_t increasingKnots(const double* knots, std::size_t knotCount, float L);

// What a loop that samples a curve knows of its knots, which it does not change: how many rise
// strictly (increasingKnots), the first knot above the last sample, where the next one is nearly
// always found as well, and how far the general recursion found them in order (BlossomEngine;
// negative until it first ran).
struct KnotOrder {
    std::int32_t increasing = 0;
    std::int32_t top = 0;
    std::int32_t geordend = -1;
};

class PointBlossom {
  public:
    // As BlossomEngine: the knots with their spare slot, the number of knots L, the order k and
    // the segment number sigma. A caller that knows the order of the knots lets the walk find t
    // among the rising ones at once instead of scanning up to it.
    PointBlossom(const double* knots, std::size_t knotCount, float L, std::int32_t k, float sigma,
                 KnotOrder* order = nullptr);
    PointBlossom(const PointBlossom&) = delete;
    PointBlossom& operator=(const PointBlossom&) = delete;

    // The k + 1 coefficients for the list `args` (k - 1 entries), or nullptr when the list or the
    // knots are not of the form this walk covers. Run-time errors are those of the recursion.
    const double* evaluate(const double* args);

  private:
    struct Deviation {};

    bool whole() const;
    const double* triangle();
    const double* node(std::int32_t depth, std::int32_t s);
    void terminal(std::int32_t s, double* c) const;
    double knot(std::int64_t i) const {
        if (i < 0 || static_cast<std::size_t>(i) >= knotCount_) {
            raise(kErrSubscript);
        }
        return knots_[i];
    }
    bool applies(const double* args);

    const double* knots_;
    std::size_t knotCount_;
    float L_;
    std::int32_t k_;
    float sigma_;
    KnotOrder* order_;
    double t_ = 0.0;
    std::int32_t top_ = 0;  // s of the root: the first knot above t
    double lastKnot_ = 0.0;

    static constexpr std::size_t kInlineValues = 1024;
    static constexpr std::size_t kInlineNodes = 96;
    double inlineValues_[kInlineValues];
    unsigned char inlineDone_[kInlineNodes];
    std::vector<double> heapValues_;
    std::vector<unsigned char> heapDone_;
    double* values_ = inlineValues_;
    unsigned char* done_ = inlineDone_;
};

}  // namespace zw

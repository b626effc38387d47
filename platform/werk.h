// The work of one user action, metered. Every loop whose length a file can choose (samples of a
// knot span, control points, blossoms, knots) charges what it does, in units of roughly one
// nanosecond of the optimised build, to the action that runs it. An action that would need more
// than `kWerkGrens` units ends with error 7, "Onvoldoende geheugen": the same answer the editor
// gives to an array beyond reason, because such work comes only from a curve beyond reason (a
// knot span of millions of units sampled at 0.05, a polygon of tens of thousands of points at
// order 8). A person's curve uses about a hundredth of it.
//
// Outside an action nothing is metered: the model's own tests, the benchmarks and the tools run
// their loops freely.
#pragma once

#include <cstdint>
#include <limits>

#include "platform/runtime_error.h"

namespace zw {

// At most about half a second of the optimised build (bench/werk_bench measures the longest
// actions), well inside the two seconds that an action may take.
constexpr std::uint64_t kWerkGrens = 1'000'000'000;

// What the costlier steps charge: a drawn line by its length and width and a disc by its radius
// in pixels (antialiased, as far as they reach into the surface), a record read from a file's
// cache or written to the file.
constexpr std::uint64_t kWerkLijn = 1000;
constexpr std::uint64_t kWerkPerPixel = 60;
constexpr std::uint64_t kWerkCirkel = 6000;
constexpr std::uint64_t kWerkPerPixelStraal = 800;
constexpr std::uint64_t kWerkLezen = 20;
constexpr std::uint64_t kWerkSchrijven = 1000;

namespace werk_detail {
inline std::uint64_t actieGrens = kWerkGrens;
inline std::uint64_t gedaan = 0;
inline std::uint64_t grens = std::numeric_limits<std::uint64_t>::max();
}  // namespace werk_detail

// Charges `eenheden` to the running action; beyond its bound, error 7.
inline void werk(std::uint64_t eenheden) {
    werk_detail::gedaan += eenheden;
    if (werk_detail::gedaan > werk_detail::grens) {
        werk_detail::gedaan = werk_detail::grens;  // stays exhausted, never wraps
        raise(kErrOutOfMemory);
    }
}

// The bound of every action from now on. The fuzz targets lower it, so that the inputs they
// explore end sooner; whatever still takes long then is work that nothing meters.
inline void zetWerkGrens(std::uint64_t grens) {
    werk_detail::actieGrens = grens;
}

// One user action's budget, from its start to its end. An action that runs inside another (a
// modal dialog's handler) has a budget of its own; the outer one resumes where it was.
class Werkbudget {
  public:
    explicit Werkbudget(std::uint64_t grens = werk_detail::actieGrens)
        : gedaan_(werk_detail::gedaan), grens_(werk_detail::grens) {
        werk_detail::gedaan = 0;
        werk_detail::grens = grens;
    }
    ~Werkbudget() {
        werk_detail::gedaan = gedaan_;
        werk_detail::grens = grens_;
    }
    Werkbudget(const Werkbudget&) = delete;
    Werkbudget& operator=(const Werkbudget&) = delete;

    static std::uint64_t gedaan() { return werk_detail::gedaan; }

  private:
    std::uint64_t gedaan_;
    std::uint64_t grens_;
};

}  // namespace zw

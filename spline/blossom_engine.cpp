#include "spline/blossom_engine.h"

#include <cmath>
#include <cstring>

#include "platform/array.h"
#include "platform/numeric.h"
#include "platform/runtime_error.h"
#include "knots/knoop_vector.h"

namespace zw {

namespace {

// For any knot vector the editor makes the recursion is k - 1 levels deep. A vector with equal or
// falling knots (only a damaged file holds one) can make it run on; it ends with the classic
// out-of-stack error long before the stack is in danger.
constexpr std::int32_t kMaxDepth = 4096;

constexpr std::uint64_t kHashMultiplier = 0x9E3779B97F4A7C15ULL;

}  // namespace

BlossomEngine::BlossomEngine(const double* knots, std::size_t knotCount, float L, std::int32_t k,
                             float sigma)
    : knots_(knots),
      knotCount_(knotCount),
      L_(L),
      k_(k),
      sigma_(sigma),
      keyLength_(k > 1 ? static_cast<std::size_t>(k - 1) : 0),
      stride_(keyLength_ + static_cast<std::size_t>(k < 0 ? 0 : k) + 1) {
    if (k < 0) {
        raise(kErrSubscript);
    }
    // Each of the k - 1 levels holds at least one list and its vector, 2k values: an order whose
    // recursion cannot fit the array limit is refused before anything is allocated.
    if (2.0 * k * k > static_cast<double>(kMaxArrayElements)) {
        raise(kErrOutOfMemory);
    }
    table_.assign(64, -1);
    hashes_.assign(64, 0);
    // De Boor's triangle has k (k + 1) / 2 lists; larger orders than the editor offers grow.
    const std::size_t expected = k <= 16 ? static_cast<std::size_t>(k) * (k + 1) / 2 + 1 : 137;
    nodes_.reserve(expected * stride_);
    lists_.reserve(2 * static_cast<std::size_t>(k) * keyLength_);
}

double BlossomEngine::knot(std::int64_t i) const {
    if (i < 0 || static_cast<std::size_t>(i) >= knotCount_) {
        raise(kErrSubscript);
    }
    return knots_[i];
}

const double* BlossomEngine::evaluate(const double* args) {
    return vectorOf(evaluateList(args, 0));
}

std::uint64_t BlossomEngine::hashOf(const double* list) const {
    std::uint64_t h = 0;
    for (std::size_t i = 0; i < keyLength_; ++i) {
        std::uint64_t bits;
        std::memcpy(&bits, &list[i], sizeof bits);
        h = (h ^ bits) * kHashMultiplier;
    }
    return h ^ (h >> 29);
}

// Lists are compared bit for bit, so that a reused vector is exactly the one the list would give.
std::int32_t BlossomEngine::find(const double* list, std::uint64_t hash) const {
    const std::size_t mask = table_.size() - 1;
    for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
        const std::int32_t node = table_[slot];
        if (node < 0) {
            return -1;
        }
        if (hashes_[slot] == hash &&
            std::memcmp(&nodes_[node * stride_], list, keyLength_ * sizeof(double)) == 0) {
            return node;
        }
    }
}

std::int32_t BlossomEngine::insert(const double* list, std::uint64_t hash) {
    if ((nodes_.size() + stride_) > static_cast<std::size_t>(kMaxArrayElements)) {
        raise(kErrOutOfMemory);
    }
    if (static_cast<std::size_t>(nodeCount_ + 1) * 2 > table_.size()) {
        grow();
    }
    const std::int32_t node = nodeCount_++;
    nodes_.insert(nodes_.end(), list, list + keyLength_);
    nodes_.resize(nodes_.size() + static_cast<std::size_t>(k_) + 1, 0.0);
    const std::size_t mask = table_.size() - 1;
    std::size_t slot = hash & mask;
    while (table_[slot] >= 0) {
        slot = (slot + 1) & mask;
    }
    table_[slot] = node;
    hashes_[slot] = hash;
    return node;
}

void BlossomEngine::grow() {
    std::vector<std::int32_t> oldTable(table_.size() * 2, -1);
    std::vector<std::uint64_t> oldHashes(hashes_.size() * 2, 0);
    oldTable.swap(table_);
    oldHashes.swap(hashes_);
    const std::size_t mask = table_.size() - 1;
    for (std::size_t i = 0; i < oldTable.size(); ++i) {
        if (oldTable[i] < 0) {
            continue;
        }
        std::size_t slot = oldHashes[i] & mask;
        while (table_[slot] >= 0) {
            slot = (slot + 1) & mask;
        }
        table_[slot] = oldTable[i];
        hashes_[slot] = oldHashes[i];
    }
}

double* BlossomEngine::listAt(std::int32_t depth, int which) {
    const std::size_t offset = (static_cast<std::size_t>(depth) * 2 + which) * keyLength_;
    if (offset + keyLength_ > lists_.size()) {
        lists_.resize(offset + 2 * keyLength_ + 8 * keyLength_);
    }
    return &lists_[offset];
}

std::int32_t BlossomEngine::evaluateList(const double* list, std::int32_t depth) {
    if (depth > kMaxDepth) {
        raise(kErrOutOfStack);
    }
    const std::uint64_t hash = hashOf(list);
    if (depth > 0) {
        const std::int32_t known = find(list, hash);
        if (known >= 0) {
            return known;
        }
    }
    const std::int32_t node = insert(list, hash);
    const std::int32_t k = k_;
    // A list of k - 1 arguments; with k = 1 the run search still reads the first entry.
    const std::size_t listSize = keyLength_ > 0 ? keyLength_ : 1;
    const double* args = depth == 0 ? list : &nodes_[node * stride_];

    float q = static_cast<float>(k - 1);
    const std::int32_t r = vergelijkRun(knots_, knotCount_, L_, args, listSize, q);
    const std::int32_t run = static_cast<std::int32_t>(q);

    // Past the end: the run reaches the last knot.
    const bool settled = run > 0 && args[run - 1] >= knot(toIndex(addSingle(L_, -1.0f)));
    // Before the start: the list starts at or below the first knot.
    if (settled || args[0] <= knot(0)) {
        return node;
    }
    if (run < k - 1) {
        // Affine in the last argument u, written between the knots B and A around the run.
        const double A = knot(r);
        const double B = knot(std::int64_t{r} - run - 1);
        const double u = args[k - 2];
        double* a1 = listAt(depth, 0);
        double* a2 = listAt(depth, 1);
        // B, then all arguments but the last.
        a1[0] = B;
        for (std::int32_t i = k - 2; i >= 1; --i) {
            a1[i] = args[i - 1];
        }
        // The run, A, then the remaining arguments but the last.
        for (std::int32_t i = 0; i < run; ++i) {
            a2[i] = args[i];
        }
        a2[run] = A;
        for (std::int32_t i = run + 1; i <= k - 2; ++i) {
            a2[i] = args[i - 1];
        }
        const std::int32_t c1 = evaluateList(listAt(depth, 0), depth + 1);
        const std::int32_t c2 = evaluateList(listAt(depth, 1), depth + 1);
        const double wa = divide(checkedDouble(A - u), checkedDouble(A - B));
        const double wb = divide(checkedDouble(u - B), checkedDouble(A - B));
        const double* v1 = vectorOf(c1);
        const double* v2 = vectorOf(c2);
        double* c = vectorOf(node);
        for (std::int32_t i = 0; i < k; ++i) {
            c[i] = checkedDouble(v2[i] * wb + v1[i] * wa);
        }
        return node;
    }
    // The arguments are consecutive knots: the blossom of control point sigma - 1 + j, whose
    // list starts at knot sigma + j.
    std::int32_t j = 0;
    while (j < k) {
        const float index = static_cast<float>(j) + sigma_;
        if (index > 0.0f && args[0] == knot(toIndex(index))) {
            break;
        }
        ++j;
    }
    if (sigma_ < 0.0f) {
        --j;
    }
    if (j < 0) {
        raise(kErrSubscript);
    }
    // With no match j is k: the 1.0 lands in the spare entry and weighs no control point.
    vectorOf(node)[j] = 1.0;
    return node;
}

}  // namespace zw

#include "spline/blossom_engine.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/array.h"
#include "platform/numeric.h"
#include "platform/runtime_error.h"
#include "platform/werk.h"
#include "knots/knoop_vector.h"

namespace zw {

namespace {

// For any knot vector the editor makes the recursion is k - 1 levels deep. A vector with equal or
// falling knots (only a damaged file holds one) can make it run on; it ends with the classic
// out-of-stack error long before the stack is in danger.
constexpr std::int32_t kMaxDepth = 4096;

}  // namespace

void checkRecursionSize(std::int32_t k) {
    if (k < 0) {
        raise(kErrSubscript);
    }
    if (2.0 * k * k > static_cast<double>(kMaxArrayElements)) {
        raise(kErrOutOfMemory);
    }
}

BlossomEngine::BlossomEngine(const double* knots, std::size_t knotCount, float L, std::int32_t k,
                             float sigma, std::int32_t* geordend)
    : knots_(knots),
      knotCount_(knotCount),
      L_(L),
      k_(k),
      sigma_(sigma),
      keyLength_(k > 1 ? static_cast<std::size_t>(k - 1) : 0),
      stride_(keyLength_ + static_cast<std::size_t>(k < 0 ? 0 : k) + 1) {
    checkRecursionSize(k);
    std::fill(slots_, slots_ + slotCount_, -1);
    if (geordend != nullptr && *geordend >= 0) {
        sortedPrefix_ = *geordend;
        return;
    }
    // The run search visits knots 0, 1, ... while the index is below L; where they are in order
    // it may bisect them.
    const double visited = L > 0.0f ? std::ceil(static_cast<double>(L)) : 0.0;
    const auto searchable =
        static_cast<std::int32_t>(std::min(visited, static_cast<double>(knotCount)));
    sortedPrefix_ = 1;
    while (sortedPrefix_ < searchable && knots_[sortedPrefix_ - 1] <= knots_[sortedPrefix_]) {
        ++sortedPrefix_;  // NaN ends the order as well
    }
    sortedPrefix_ = std::min(sortedPrefix_, searchable);
    werk(static_cast<std::uint64_t>(sortedPrefix_));
    if (geordend != nullptr) {
        *geordend = sortedPrefix_;
    }
}

double BlossomEngine::knot(std::int64_t i) const {
    if (i < 0 || static_cast<std::size_t>(i) >= knotCount_) {
        raise(kErrSubscript);
    }
    return knots_[i];
}

double BlossomEngine::lastKnot() {
    if (!haveLastKnot_) {
        lastKnot_ = knot(toIndex(addSingle(L_, -1.0f)));
        haveLastKnot_ = true;
    }
    return lastKnot_;
}

const double* BlossomEngine::evaluate(const double* args) {
    return vectorOf(evaluateList(args, 0));
}

// A product carries a difference only towards the high bits, and knots that are small whole
// numbers differ only in the high bits of their doubles: each step folds the high half back down,
// so that the low bits, which pick the slot, see every argument.
std::uint32_t BlossomEngine::hashOf(const double* list) const {
    std::uint64_t h = 0;
    for (std::size_t i = 0; i < keyLength_; ++i) {
        std::uint64_t bits;
        std::memcpy(&bits, &list[i], sizeof bits);
        h = (h ^ bits) * 0x9E3779B97F4A7C15ULL;
        h ^= h >> 32;
    }
    return static_cast<std::uint32_t>(h);
}

namespace {

// A plain loop rather than memcmp: the lookups are the evaluator's innermost loop, and under the
// fuzzer every memcmp is intercepted and traced.
bool sameBits(const double* a, const double* b, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) {
        std::uint64_t x, y;
        std::memcpy(&x, &a[i], sizeof x);
        std::memcpy(&y, &b[i], sizeof y);
        if (x != y) {
            return false;
        }
    }
    return true;
}

}  // namespace

// Lists are compared bit for bit, so that a reused vector is exactly the one the list would give.
// Each probe compares a whole list: a long chain of collisions is work like any other.
std::int32_t BlossomEngine::lookup(const double* list, std::uint32_t hash) const {
    const std::size_t mask = slotCount_ - 1;
    for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
        const std::int32_t node = slots_[slot];
        if (node < 0) {
            return -1;
        }
        werk(keyLength_ + 1);
        if (sameBits(values_ + node * stride_, list, keyLength_)) {
            return node;
        }
    }
}

// Every node is hashed, stored and combined once: its share of the work.
std::int32_t BlossomEngine::insert(const double* list, std::uint32_t hash) {
    werk(4 * stride_);
    if ((nodeCount_ + 1) * stride_ > valueCapacity_) {
        growValues();
    }
    if (static_cast<std::size_t>(nodeCount_ + 1) * 2 > slotCount_) {
        growSlots();
    }
    const std::int32_t node = nodeCount_++;
    double* at = values_ + node * stride_;
    std::copy(list, list + keyLength_, at);
    std::fill(at + keyLength_, at + stride_, 0.0);
    const std::size_t mask = slotCount_ - 1;
    std::size_t slot = hash & mask;
    while (slots_[slot] >= 0) {
        slot = (slot + 1) & mask;
    }
    slots_[slot] = node;
    return node;
}

// Room for at least one node more: a node of a very high order is larger than twice the inline
// storage.
void BlossomEngine::growValues() {
    const std::size_t capacity =
        std::max(valueCapacity_ * 2, (static_cast<std::size_t>(nodeCount_) + 1) * stride_);
    if (capacity > static_cast<std::size_t>(kMaxArrayElements)) {
        raise(kErrOutOfMemory);
    }
    std::vector<double> grown(capacity);
    std::copy(values_, values_ + nodeCount_ * stride_, grown.begin());
    heapValues_.swap(grown);
    values_ = heapValues_.data();
    valueCapacity_ = capacity;
}

void BlossomEngine::growSlots() {
    werk(static_cast<std::uint64_t>(nodeCount_) * (keyLength_ + 1));
    std::vector<std::int32_t> grown(slotCount_ * 2, -1);
    const std::size_t mask = grown.size() - 1;
    for (std::int32_t node = 0; node < nodeCount_; ++node) {
        std::size_t slot = hashOf(values_ + node * stride_) & mask;
        while (grown[slot] >= 0) {
            slot = (slot + 1) & mask;
        }
        grown[slot] = node;
    }
    heapSlots_.swap(grown);
    slots_ = heapSlots_.data();
    slotCount_ = heapSlots_.size();
}

// Both lists of a level sit side by side and are made room for together: growing the storage
// moves it, so a pointer to one list must never be held while room is made for the other.
double* BlossomEngine::listsAt(std::int32_t depth) {
    const std::size_t offset = static_cast<std::size_t>(depth) * 2 * keyLength_;
    const std::size_t end = offset + 2 * keyLength_;
    if (end > listCapacity_) {
        std::vector<double> grown(std::max(listCapacity_ * 2, end));
        std::copy(lists_, lists_ + listCapacity_, grown.begin());
        heapLists_.swap(grown);
        lists_ = heapLists_.data();
        listCapacity_ = heapLists_.size();
    }
    return lists_ + offset;
}

std::int32_t BlossomEngine::evaluateList(const double* list, std::int32_t depth) {
    if (depth > kMaxDepth) {
        raise(kErrOutOfStack);
    }
    const std::uint32_t hash = hashOf(list);
    if (depth > 0) {
        const std::int32_t known = lookup(list, hash);
        if (known >= 0) {
            return known;
        }
    }
    const std::int32_t node = insert(list, hash);
    const std::int32_t k = k_;
    const double* args = depth == 0 ? list : values_ + node * stride_;

    // A list of k - 1 arguments; with k = 1 the run search still reads the first entry.
    const std::size_t listSize = keyLength_ > 0 ? keyLength_ : 1;
    float q = static_cast<float>(k - 1);
    const std::int32_t r = vergelijkRun(knots_, knotCount_, L_, args, listSize, q, sortedPrefix_);
    const auto run = static_cast<std::int32_t>(q);
    // Past the end (the run reaches the last knot) or before the start: the zero vector.
    if ((run > 0 && args[run - 1] >= lastKnot()) || args[0] <= knot(0)) {
        return node;
    }
    if (run >= k - 1) {
        terminalVector(terminalSearch(knots_, knotCount_, args[0], sigma_, k), sigma_, k,
                       vectorOf(node));
        return node;
    }
    // Affine in the last argument u, written between the knots B and A around the run.
    const double A = knot(r);
    const double B = knot(std::int64_t{r} - run - 1);
    const double u = args[k - 2];
    double* a1 = listsAt(depth);
    double* a2 = a1 + keyLength_;
    // B, then all arguments but the last.
    a1[0] = B;
    std::copy(args, args + (k - 2), a1 + 1);
    // The run, A, then the remaining arguments but the last.
    std::copy(args, args + run, a2);
    a2[run] = A;
    std::copy(args + run, args + (k - 2), a2 + run + 1);

    // The deeper levels may move the lists and the nodes: nothing above is used past this point,
    // and the right list is looked up afresh once the left one is done.
    const std::int32_t c1 = evaluateList(a1, depth + 1);
    const std::int32_t c2 = evaluateList(listsAt(depth) + keyLength_, depth + 1);
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

std::int32_t terminalSearch(const double* knots, std::size_t knotCount, double first, float sigma,
                            std::int32_t k) {
    const bool whole = sigma == std::floor(sigma) && std::fabs(sigma) < 1e9f;
    std::int32_t j = 0;
    for (; j < k; ++j) {
        const float at = static_cast<float>(j) + sigma;
        if (!(whole ? std::int64_t{j} + static_cast<std::int64_t>(sigma) > 0 : at > 0.0f)) {
            continue;
        }
        const std::int64_t index =
            whole ? std::int64_t{j} + static_cast<std::int64_t>(sigma) : toIndex(at);
        if (index < 0 || static_cast<std::size_t>(index) >= knotCount) {
            raise(kErrSubscript);
        }
        if (first == knots[index]) {
            break;
        }
    }
    return j;
}

void terminalVector(std::int32_t j, float sigma, std::int32_t k, double* c) {
    if (sigma < 0.0f) {
        --j;
    }
    if (j < 0) {
        raise(kErrSubscript);
    }
    std::fill(c, c + k + 1, 0.0);
    c[j] = 1.0;
}

}  // namespace zw

#include "nav/poi/PoiSort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <utility>

namespace {

constexpr size_t kRadixFrom = 4096; // smaller arrays are sorted by comparison
constexpr int kDigitBits = 11;
constexpr uint32_t kBuckets = 1u << kDigitBits;
constexpr std::array<int, 3> kShifts = {32, 43, 54}; // three digits cover bits 32..63

// The double's bits as an unsigned number of the same order (negative numbers reversed).
uint64_t orderedBits(double value) {
    const uint64_t bits = std::bit_cast<uint64_t>(value);
    return bits >> 63 ? ~bits : bits | (uint64_t{1} << 63);
}

uint32_t leadingBits(const PoiEntry& entry) {
    return static_cast<uint32_t>(orderedBits(entry.m_dLon) >> 32);
}

bool byLongitude(const PoiEntry& a, const PoiEntry& b) {
    return a.m_dLon < b.m_dLon;
}

} // namespace

void SortByLongitude(std::vector<PoiEntry>& entries) {
    const size_t size = entries.size();
    if (size < kRadixFrom) {
        std::sort(entries.begin(), entries.end(), byLongitude);
        return;
    }
    std::array<std::array<uint32_t, kBuckets>, kShifts.size()> counts{};
    for (const PoiEntry& entry : entries) {
        const uint64_t bits = orderedBits(entry.m_dLon);
        for (size_t d = 0; d < kShifts.size(); ++d)
            ++counts[d][(bits >> kShifts[d]) & (kBuckets - 1)];
    }
    std::vector<PoiEntry> buffer(size);
    PoiEntry* from = entries.data();
    PoiEntry* to = buffer.data();
    for (size_t d = 0; d < kShifts.size(); ++d) {
        std::array<uint32_t, kBuckets>& count = counts[d];
        if (std::ranges::find(count, size) != count.end()) continue; // one bucket holds all: nothing moves
        uint32_t start = 0;
        for (uint32_t& c : count)
            start += std::exchange(c, start);
        for (size_t i = 0; i < size; ++i)
            to[count[(orderedBits(from[i].m_dLon) >> kShifts[d]) & (kBuckets - 1)]++] = from[i];
        std::swap(from, to);
    }
    if (from != entries.data()) entries.swap(buffer);

    for (auto run = entries.begin(); run != entries.end();) {
        const uint32_t key = leadingBits(*run);
        const auto end =
            std::find_if(run + 1, entries.end(), [key](const PoiEntry& e) { return leadingBits(e) != key; });
        if (end - run > 1) std::sort(run, end, byLongitude);
        run = end;
    }
}

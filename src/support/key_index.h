// Finds a key among keys held elsewhere: the index keeps only their positions (1-based
// ints), by open addressing with at most half the slots used, so a key costs 8 to 16
// bytes here instead of a map entry holding a copy of it. The caller passes keyOf, which
// gives the key at a position; keys must not change while indexed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace tabulon {

class KeyIndex {
public:
    // The position of key, 0 when it is not indexed.
    template <class KeyOf>
    int find(std::string_view key, const KeyOf& keyOf) const {
        if (slots_.empty()) return 0;
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t at = Hash(key) & mask;; at = (at + 1) & mask) {
            const std::int32_t position = slots_[at];
            if (position == 0 || keyOf(position) == key) return position;
        }
    }

    // Indexes position under keyOf(position), which must not be indexed yet.
    template <class KeyOf>
    void insert(int position, const KeyOf& keyOf) {
        reserve(used_ + 1, keyOf);
        Place(slots_, position, keyOf(position));
        ++used_;
    }

    // Room for count keys in all, so that indexing that many allocates once.
    template <class KeyOf>
    void reserve(std::size_t count, const KeyOf& keyOf) {
        std::size_t size = slots_.empty() ? 16 : slots_.size();
        while (size < 2 * count)
            size *= 2;
        if (size == slots_.size()) return;
        std::vector<std::int32_t> table(size, 0);
        for (const std::int32_t position : slots_) {
            if (position != 0) Place(table, position, keyOf(position));
        }
        slots_.swap(table);
    }

    void clear() {
        std::vector<std::int32_t>().swap(slots_);
        used_ = 0;
    }

private:
    static std::size_t Hash(std::string_view key) { return std::hash<std::string_view>{}(key); }
    static void Place(std::vector<std::int32_t>& table, int position, std::string_view key) {
        const std::size_t mask = table.size() - 1;
        std::size_t at = Hash(key) & mask;
        while (table[at] != 0)
            at = (at + 1) & mask;
        table[at] = position;
    }

    std::vector<std::int32_t> slots_;
    std::size_t used_ = 0;
};

}  // namespace tabulon

// A saved-over file is compared with the one loaded by hashing it as it is read: the
// hash of the pieces must be the hash of the whole, however the reads cut it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/file_stamp.h"

namespace tabulon {
namespace {

TEST(ContentHash, PiecesOfAnySizeHashAsTheWholeAndEveryByteCounts) {
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += static_cast<char>('a' + i % 26);
    for (const std::size_t piece : {1u, 3u, 7u, 8u, 9u, 31u, 32u, 33u, 64u, 999u}) {
        SCOPED_TRACE(piece);
        ContentHasher hasher;
        for (std::size_t at = 0; at < text.size(); at += piece)
            hasher.add(std::string_view(text).substr(at, piece));
        EXPECT_EQ(hasher.finish(), ContentHash(text));
    }
    // A byte changed anywhere (each of the words hashed side by side, and the tail),
    // and two words swapped, change the hash.
    for (const std::size_t at : {0u, 9u, 18u, 27u, 36u, 997u}) {
        std::string changed = text;
        changed[at] = 'A';
        EXPECT_NE(ContentHash(changed), ContentHash(text)) << at;
    }
    std::string swapped = text;
    std::swap_ranges(swapped.begin(), swapped.begin() + 8, swapped.begin() + 8);
    EXPECT_NE(ContentHash(swapped), ContentHash(text));
    EXPECT_NE(ContentHash(text + std::string(1, '\0')), ContentHash(text));
    EXPECT_NE(ContentHash(""), ContentHash(std::string(1, '\0')));
}

}  // namespace
}  // namespace tabulon

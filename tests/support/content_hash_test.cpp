// A saved-over file is compared with the one loaded by hashing it as it is read: the
// hash of the pieces must be the hash of the whole, however the reads cut it.
#include <gtest/gtest.h>

#include <string>

#include "support/file_stamp.h"

namespace tabulon {
namespace {

TEST(ContentHash, PiecesOfAnySizeHashAsTheWholeAndEveryByteCounts) {
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += static_cast<char>('a' + i % 26);
    for (const std::size_t piece : {1u, 3u, 7u, 8u, 9u, 64u, 999u}) {
        SCOPED_TRACE(piece);
        ContentHasher hasher;
        for (std::size_t at = 0; at < text.size(); at += piece)
            hasher.add(std::string_view(text).substr(at, piece));
        EXPECT_EQ(hasher.finish(), ContentHash(text));
    }
    std::string changed = text;
    changed[997] = 'A';
    EXPECT_NE(ContentHash(changed), ContentHash(text));
    EXPECT_NE(ContentHash(text + std::string(1, '\0')), ContentHash(text));
    EXPECT_NE(ContentHash(""), ContentHash(std::string(1, '\0')));
}

}  // namespace
}  // namespace tabulon

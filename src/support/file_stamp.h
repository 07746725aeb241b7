// What a file was when a document was read from it, so that a later save can tell
// whether the path still names that file, unchanged.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tabulon {

struct FileStamp {
    bool known = false;        // a file was read (false after reading text, not a file)
    bool throughLink = false;  // the path named it through a symbolic link
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;
    std::int64_t modifiedNs = 0;  // modification time, nanoseconds since the epoch
    std::uint64_t contentHash = 0;

    // Same file (device and inode), same size and modification time.
    bool SameFileAs(const struct stat& info) const;
};

// A 64-bit hash of bytes, to tell contents apart when size and time are equal (not a
// cryptographic hash: it only has to notice another program's change). Fed in pieces,
// so that a large file is hashed as it is read, without holding it. Consecutive words
// go to four lanes hashed side by side, whose multiplications do not wait on each
// other: a save hashes the old file and the new text, 50 MB each for a large document.
class ContentHasher {
public:
    void add(std::string_view bytes);
    std::uint64_t finish() const;

private:
    static constexpr std::size_t kLanes = 4;
    static constexpr std::size_t kBlock = kLanes * 8;

    void block(const char* bytes);

    std::uint64_t lanes_[kLanes] = {0x243F6A8885A308D3ULL, 0x13198A2E03707344ULL,
                                    0xA4093822299F31D0ULL, 0x082EFA98EC4E6C89ULL};
    std::uint64_t size_ = 0;
    char pending_[kBlock] = {};  // the bytes of a block not yet complete
};

std::uint64_t ContentHash(std::string_view bytes);

// The stamp of the file described by info, holding content.
FileStamp StampOf(const struct stat& info, std::string_view content, bool throughLink);
// The same, for content whose ContentHash is known.
FileStamp StampOf(const struct stat& info, std::uint64_t contentHash, bool throughLink);

}  // namespace tabulon

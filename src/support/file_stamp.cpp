#include "support/file_stamp.h"

#include <algorithm>
#include <cstring>

namespace tabulon {

namespace {

std::int64_t ModifiedNs(const struct stat& info) {
    return static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec;
}

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) {
    hash ^= word * 0x9E3779B97F4A7C15ULL;
    hash = (hash << 31) | (hash >> 33);
    return hash * 0xC2B2AE3D27D4EB4FULL;
}

}  // namespace

bool FileStamp::SameFileAs(const struct stat& info) const {
    return known && device == static_cast<std::uint64_t>(info.st_dev) &&
           inode == static_cast<std::uint64_t>(info.st_ino) &&
           size == static_cast<std::uint64_t>(info.st_size) && modifiedNs == ModifiedNs(info);
}

void ContentHasher::add(std::string_view bytes) {
    std::size_t have = size_ % 8;
    size_ += bytes.size();
    if (have != 0) {
        const std::size_t take = std::min(bytes.size(), 8 - have);
        std::memcpy(pending_ + have, bytes.data(), take);
        bytes.remove_prefix(take);
        if (have + take < 8) return;
        std::uint64_t word = 0;
        std::memcpy(&word, pending_, sizeof word);
        hash_ = Mix(hash_, word);
    }
    for (; bytes.size() >= 8; bytes.remove_prefix(8)) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data(), sizeof word);
        hash_ = Mix(hash_, word);
    }
    have = bytes.size();
    if (have != 0) std::memcpy(pending_, bytes.data(), have);
}

std::uint64_t ContentHasher::finish() const {
    std::uint64_t tail = 0;
    std::memcpy(&tail, pending_, size_ % 8);
    return Mix(Mix(hash_, tail), size_);
}

std::uint64_t ContentHash(std::string_view bytes) {
    ContentHasher hasher;
    hasher.add(bytes);
    return hasher.finish();
}

FileStamp StampOf(const struct stat& info, std::string_view content, bool throughLink) {
    FileStamp stamp;
    stamp.known = true;
    stamp.throughLink = throughLink;
    stamp.device = static_cast<std::uint64_t>(info.st_dev);
    stamp.inode = static_cast<std::uint64_t>(info.st_ino);
    stamp.size = static_cast<std::uint64_t>(info.st_size);
    stamp.modifiedNs = ModifiedNs(info);
    stamp.contentHash = ContentHash(content);
    return stamp;
}

}  // namespace tabulon

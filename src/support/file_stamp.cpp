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

void ContentHasher::block(const char* bytes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes + lane * 8, sizeof word);
        lanes_[lane] = Mix(lanes_[lane], word);
    }
}

void ContentHasher::add(std::string_view bytes) {
    const std::size_t have = size_ % kBlock;
    size_ += bytes.size();
    if (have != 0) {
        const std::size_t take = std::min(bytes.size(), kBlock - have);
        std::memcpy(pending_ + have, bytes.data(), take);
        bytes.remove_prefix(take);
        if (have + take < kBlock) return;
        block(pending_);
    }
    for (; bytes.size() >= kBlock; bytes.remove_prefix(kBlock))
        block(bytes.data());
    if (!bytes.empty()) std::memcpy(pending_, bytes.data(), bytes.size());
}

std::uint64_t ContentHasher::finish() const {
    std::uint64_t hash = 0x243F6A8885A308D3ULL;
    for (const std::uint64_t lane : lanes_)
        hash = Mix(hash, lane);
    const std::size_t have = size_ % kBlock;
    for (std::size_t at = 0; at < have; at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, pending_ + at, std::min<std::size_t>(8, have - at));
        hash = Mix(hash, word);
    }
    return Mix(hash, size_);
}

std::uint64_t ContentHash(std::string_view bytes) {
    ContentHasher hasher;
    hasher.add(bytes);
    return hasher.finish();
}

FileStamp StampOf(const struct stat& info, std::string_view content, bool throughLink) {
    return StampOf(info, ContentHash(content), throughLink);
}

FileStamp StampOf(const struct stat& info, std::uint64_t contentHash, bool throughLink) {
    FileStamp stamp;
    stamp.known = true;
    stamp.throughLink = throughLink;
    stamp.device = static_cast<std::uint64_t>(info.st_dev);
    stamp.inode = static_cast<std::uint64_t>(info.st_ino);
    stamp.size = static_cast<std::uint64_t>(info.st_size);
    stamp.modifiedNs = ModifiedNs(info);
    stamp.contentHash = contentHash;
    return stamp;
}

}  // namespace tabulon

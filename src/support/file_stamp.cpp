#include "support/file_stamp.h"

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

std::uint64_t ContentHash(std::string_view bytes) {
    std::uint64_t hash = 0x243F6A8885A308D3ULL ^ bytes.size();
    std::size_t at = 0;
    for (; at + 8 <= bytes.size(); at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof word);
        hash = Mix(hash, word);
    }
    std::uint64_t tail = 0;
    if (at < bytes.size()) std::memcpy(&tail, bytes.data() + at, bytes.size() - at);
    return Mix(hash, tail);
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

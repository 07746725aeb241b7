// The list of picture paths not found while the tree is built, as the message shows
// it: each path followed by "\r\n", in first-seen order, and a path that already
// occurs anywhere in the list (a substring test, so "b.png" after "ab.png" is not
// added) left out.
//
// Decision: a list of 100,000 paths must not cost a search of the whole list for each
// of them. A path asked about before is answered at once (it is in the list, or was
// found in it, and the list only grows; where it is is remembered, not the path). For a new path of
// at least 8 bytes, a filter of every 8-byte piece of the list answers "not in the list" as soon as
// one piece of the path is missing from it, which is what happens for paths that differ from the
// others anywhere (numbered files, other names); only a path every piece of which
// occurs in the list is searched for in it. Shorter new paths are searched directly.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tabulon {

class MissingPictures {
public:
    // Appends path and "\r\n" unless path occurs in the list already.
    void Add(std::string_view path);
    const std::string& text() const { return text_; }

private:
    static constexpr std::size_t kPiece = 8;

    // Where path occurs in the text; npos when it does not.
    std::size_t Find(std::string_view path) const;
    void AddPieces(std::size_t from);
    void Mark(std::uint64_t piece);
    bool Marked(std::uint64_t piece) const;

    // Where each path asked about occurs in the text, by the path's hash (a path
    // whose hash another path has is simply looked for again).
    struct Span {
        std::size_t offset = 0;
        std::size_t length = 0;
    };
    std::string text_;
    std::unordered_map<std::uint64_t, Span> asked_;
    std::vector<std::uint64_t> pieces_;  // the filter: two bits set per piece
    int shift_ = 64;                     // 64 - log2 of the number of bits
};

}  // namespace tabulon

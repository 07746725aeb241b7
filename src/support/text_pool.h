// Many short texts kept end to end in one buffer, each named by a four-byte reference:
// a tree of 100,000 nodes keeps its names and keys without a string object (and often
// a heap block) for each. Each text is stored behind its length (7 bits a byte).
//
// Texts are only added; the buffer is released as a whole. References stay valid as the
// buffer grows. The pool holds at most 4 GiB; beyond, add throws std::bad_alloc, as
// memory running out would.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tabulon {

// 0 names the empty text.
using TextRef = std::uint32_t;

class TextPool {
public:
    TextRef add(std::string_view text);
    std::string_view view(TextRef ref) const;
    // Room for texts of textBytes in all (their lengths included), so that adding them
    // allocates once.
    void reserve(std::size_t textBytes) { text_.reserve(textBytes + 1); }
    // The bytes a text takes in the pool.
    static std::size_t Footprint(std::string_view text);
    // Gives back the room the buffer holds beyond its texts (after a batch of adds).
    void trim() { text_.shrink_to_fit(); }
    // Drops every text and the buffer's memory.
    void clear() { std::string().swap(text_); }

private:
    std::string text_;
};

}  // namespace tabulon

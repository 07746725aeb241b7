#include "view/missing_pictures.h"

#include <cstring>
#include <functional>

namespace tabulon {

namespace {

std::uint64_t PieceAt(std::string_view text, std::size_t at) {
    std::uint64_t piece = 0;
    std::memcpy(&piece, text.data() + at, sizeof piece);
    return piece;
}

}  // namespace

void MissingPictures::Add(std::string_view path) {
    const std::uint64_t key = std::hash<std::string_view>()(path);
    const auto asked = asked_.find(key);
    if (asked != asked_.end() && asked->second.length == path.size() &&
        std::string_view(text_).substr(asked->second.offset, path.size()) == path) {
        return;
    }
    std::size_t at = Find(path);
    if (at == std::string_view::npos) at = text_.size();
    // A path asked about is somewhere in the text from now on: remember where.
    asked_.emplace(key, Span{at, path.size()});
    if (at < text_.size()) return;
    const std::size_t from = text_.size();
    text_.append(path);
    text_.append("\r\n");
    // Eight to thirty-two bits of filter per byte of text keep false hits rare;
    // growing it rebuilds it from the whole text, O(text) each time it doubles.
    if (pieces_.size() * 64 < text_.size() * 8) {
        std::size_t bits = 1024;
        shift_ = 54;
        while (bits < text_.size() * 16) {
            bits *= 2;
            --shift_;
        }
        pieces_.assign(bits / 64, 0);
        AddPieces(0);
    } else {
        AddPieces(from >= kPiece ? from - kPiece + 1 : 0);
    }
}

std::size_t MissingPictures::Find(std::string_view path) const {
    if (text_.empty()) return std::string_view::npos;
    if (path.size() >= kPiece && !pieces_.empty()) {
        for (std::size_t at = 0; at + kPiece <= path.size(); ++at) {
            if (!Marked(PieceAt(path, at))) return std::string_view::npos;
        }
    }
    return std::string_view(text_).find(path);
}

void MissingPictures::AddPieces(std::size_t from) {
    const std::string_view text(text_);
    for (std::size_t at = from; at + kPiece <= text.size(); ++at)
        Mark(PieceAt(text, at));
}

void MissingPictures::Mark(std::uint64_t piece) {
    const std::uint64_t first = (piece * 0x9E3779B97F4A7C15ULL) >> shift_;
    const std::uint64_t second = ((piece ^ (piece >> 29)) * 0xC2B2AE3D27D4EB4FULL) >> shift_;
    pieces_[first / 64] |= std::uint64_t{1} << (first % 64);
    pieces_[second / 64] |= std::uint64_t{1} << (second % 64);
}

bool MissingPictures::Marked(std::uint64_t piece) const {
    const std::uint64_t first = (piece * 0x9E3779B97F4A7C15ULL) >> shift_;
    const std::uint64_t second = ((piece ^ (piece >> 29)) * 0xC2B2AE3D27D4EB4FULL) >> shift_;
    return ((pieces_[first / 64] >> (first % 64)) & 1U) != 0 &&
           ((pieces_[second / 64] >> (second % 64)) & 1U) != 0;
}

}  // namespace tabulon

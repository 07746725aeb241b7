// Where the reliability drivers take their decisions from: the bytes of a fuzzer's
// input, or a seeded generator for the soak test. The same driver code then serves
// both, and a byte string replays a run exactly.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>

namespace tabulon::reliability {

class ChoiceSource {
public:
    virtual ~ChoiceSource() = default;
    // A number from 0 to n - 1; 0 when n is 0 or 1 (nothing is consumed then).
    virtual std::size_t Below(std::size_t n) = 0;
    // True once the source has nothing more to give; Below then answers 0.
    virtual bool exhausted() const = 0;
};

// Decisions read from bytes: one byte per choice among up to 256, two bytes beyond.
// Runs out with the bytes.
class ByteChoices : public ChoiceSource {
public:
    explicit ByteChoices(std::string_view bytes) : bytes_(bytes) {}
    std::size_t Below(std::size_t n) override;
    bool exhausted() const override { return bytes_.empty(); }

private:
    std::string_view bytes_;
};

// Decisions from a 64-bit Mersenne Twister with a fixed seed: the same seed gives the
// same choices on every platform (plain modulo, no library distribution). Never
// runs out.
class SeededChoices : public ChoiceSource {
public:
    explicit SeededChoices(std::uint64_t seed) : engine_(seed) {}
    std::size_t Below(std::size_t n) override;
    bool exhausted() const override { return false; }

private:
    std::mt19937_64 engine_;
};

}  // namespace tabulon::reliability

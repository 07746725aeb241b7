// LoadXML on arbitrary bytes, then every node selected and a few cells clicked.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "reliability/fuzz_drivers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    tabulon::reliability::AbortOnFinding(tabulon::reliability::RunLoadXmlInput(bytes));
    return 0;
}

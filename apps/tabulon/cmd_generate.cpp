// tabulon generate --keys K --cols C --rows R [--grids G] [--metric] [--custom-units N]
//                  [--depth D] [--seed S] [--invalid I] [--host-checked H] [-o FILE]
// writes a generated document (generator/document_generator.h) on stdout, or to FILE:
// K value keys, C value columns, R rows per layout, G layouts (default 2), N custom
// units (default 0), a tree D levels deep (default 3), about one cell in I invalid
// (default 0: none), about one cell in H checked by the host (default 0: none), from
// seed S (default 1). The same arguments always give the same bytes. Counts are whole
// decimal numbers: K, C, R and G at least 1, N, I and H at least 0, D from 1 to 200, S from 0 to
// 2^64 - 1. Anything else, a missing --keys, --cols or
// --rows, or an option given twice is a usage error (status 2). A FILE that cannot be
// written is a failure (status 1); it is written in place, not atomically.
#include <charconv>
#include <fstream>
#include <limits>
#include <optional>
#include <set>
#include <string>

#include "command.h"
#include "generator/document_generator.h"

namespace tabulon::cli {

namespace {

template <typename T>
T ReadCount(std::string_view option, std::string_view text, T lowest, T highest) {
    T value{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || stop != end || value < lowest || value > highest) {
        throw UsageError(std::string(option) + " needs a whole number from " +
                         std::to_string(lowest) + " to " + std::to_string(highest) + ", not \"" +
                         std::string(text) + "\"");
    }
    return value;
}

struct GenerateArguments {
    GeneratedDocumentShape shape;
    std::optional<std::string> output;
};

GenerateArguments ParseArguments(Arguments args) {
    constexpr int kMaxCount = std::numeric_limits<int>::max();
    GenerateArguments parsed;
    GeneratedDocumentShape& shape = parsed.shape;
    std::set<std::string_view> seen;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string_view option = args[i];
        if (!seen.insert(option).second) throw UsageError(std::string(option) + " is given twice");
        if (option == "--metric") {
            shape.metric = true;
            continue;
        }
        const bool known = option == "--keys" || option == "--cols" || option == "--rows" ||
                           option == "--grids" || option == "--custom-units" ||
                           option == "--depth" || option == "--seed" || option == "--invalid" ||
                           option == "--host-checked" || option == "-o";
        if (!known) throw UsageError("unexpected argument \"" + std::string(option) + "\"");
        if (i + 1 == args.size()) throw UsageError(std::string(option) + " needs a value");
        const std::string_view value = args[++i];
        if (option == "--keys") shape.keys = ReadCount(option, value, 1, kMaxCount);
        if (option == "--cols") shape.valueColumns = ReadCount(option, value, 1, kMaxCount);
        if (option == "--rows") shape.rows = ReadCount(option, value, 1, kMaxCount);
        if (option == "--grids") shape.gridHeaders = ReadCount(option, value, 1, kMaxCount);
        if (option == "--custom-units") shape.customUnits = ReadCount(option, value, 0, kMaxCount);
        if (option == "--depth") shape.depth = ReadCount(option, value, 1, kMaxGeneratedDepth);
        if (option == "--invalid") shape.invalidEvery = ReadCount(option, value, 0, kMaxCount);
        if (option == "--host-checked") {
            shape.hostCheckedEvery = ReadCount(option, value, 0, kMaxCount);
        }
        if (option == "--seed") {
            shape.seed = ReadCount<std::uint64_t>(option, value, 0,
                                                  std::numeric_limits<std::uint64_t>::max());
        }
        if (option == "-o") {
            if (value.empty()) throw UsageError("-o needs a file name");
            parsed.output = std::string(value);
        }
    }
    for (const std::string_view required : {"--keys", "--cols", "--rows"}) {
        if (!seen.contains(required)) throw UsageError(std::string(required) + " is missing");
    }
    return parsed;
}

}  // namespace

int RunGenerate(Arguments args, std::ostream& out, std::ostream& err) {
    const GenerateArguments parsed = ParseArguments(args);
    const std::string text = GenerateDocument(parsed.shape);
    if (!parsed.output) {
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
        return 0;
    }
    std::ofstream file(*parsed.output, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    if (!file) {
        err << "tabulon generate: cannot write \"" << *parsed.output << "\"\n";
        return 1;
    }
    return 0;
}

}  // namespace tabulon::cli

// tabulon dtd: the built-in document type definition, byte for byte (CR LF line ends).
#include "command.h"
#include "document/dtd.h"

namespace tabulon::cli {

int RunDtd(Arguments args, std::ostream& out, std::ostream& /*err*/) {
    if (!args.empty()) throw UsageError("takes no arguments");
    const std::string& dtd = BuiltInDtd();
    out.write(dtd.data(), static_cast<std::streamsize>(dtd.size()));
    return 0;
}

}  // namespace tabulon::cli

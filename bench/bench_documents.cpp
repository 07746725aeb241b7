#include "bench_documents.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>

#include "document/dtd.h"

namespace tabulon::bench {

namespace {

std::string& DocumentFolder() {
    static std::string folder;
    return folder;
}

// A temporary folder for the files when no folder was given, removed at exit.
const std::string& TemporaryFolder() {
    static const struct Folder {
        std::string path;
        Folder() {
            std::string pattern =
                (std::filesystem::temp_directory_path() / "tabulon_bench_XXXXXX").string();
            if (mkdtemp(pattern.data()) != nullptr) path = pattern;
        }
        ~Folder() {
            std::error_code ignored;
            if (!path.empty()) std::filesystem::remove_all(path, ignored);
        }
    } folder;
    return folder.path;
}

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

std::string FilePath(int megabytes, const char* suffix) {
    const std::string& folder = DocumentFolder().empty() ? TemporaryFolder() : DocumentFolder();
    return folder + "/generated_" + std::to_string(megabytes) + "mb" + suffix + ".xml";
}

}  // namespace

GeneratedDocumentShape SizedShape(GeneratedDocumentShape shape, int megabytes) {
    // The text grows linearly with the keys: measure the slope on two small documents.
    shape.keys = 20;
    const auto small = static_cast<double>(GenerateDocument(shape).size());
    shape.keys = 40;
    const auto larger = static_cast<double>(GenerateDocument(shape).size());
    const double perKey = (larger - small) / 20;
    const double fixed = small - 20 * perKey;
    shape.keys = std::max(1, static_cast<int>((megabytes * 1048576.0 - fixed) / perKey + 0.5));
    return shape;
}

GeneratedDocumentShape LoadShape(int megabytes) {
    GeneratedDocumentShape shape;
    shape.valueColumns = 10;
    shape.rows = 20;
    shape.gridHeaders = 4;
    shape.metric = true;
    shape.customUnits = 4;
    shape.depth = 4;
    shape.seed = 2024;
    return SizedShape(shape, megabytes);
}

const std::string& LoadDocumentOfSize(int megabytes) {
    static std::map<int, std::unique_ptr<const std::string>> documents;
    auto& slot = documents[megabytes];
    if (!slot) slot = std::make_unique<const std::string>(GenerateDocument(LoadShape(megabytes)));
    return *slot;
}

const std::string& DtdPrefixedDocumentOfSize(int megabytes) {
    static std::map<int, std::unique_ptr<const std::string>> documents;
    auto& slot = documents[megabytes];
    if (!slot)
        slot = std::make_unique<const std::string>(JoinWithDtd(LoadDocumentOfSize(megabytes)));
    return *slot;
}

const std::string& LoadFileOfSize(int megabytes) {
    static std::map<int, std::string> files;
    std::string& path = files[megabytes];
    if (path.empty()) {
        path = FilePath(megabytes, "");
        WriteFile(path, LoadDocumentOfSize(megabytes));
    }
    return path;
}

void TakeDocumentFolderArgument(int& argc, char** argv) {
    constexpr std::string_view kFlag = "--tabulon_documents=";
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (arg.starts_with(kFlag)) {
            DocumentFolder() = std::string(arg.substr(kFlag.size()));
        } else {
            argv[kept++] = argv[i];
        }
    }
    argc = kept;
    if (DocumentFolder().empty()) return;
    std::filesystem::create_directories(DocumentFolder());
    for (const int megabytes : kLoadSizesMb) {
        LoadFileOfSize(megabytes);
        WriteFile(FilePath(megabytes, "_dtd"), DtdPrefixedDocumentOfSize(megabytes));
    }
}

int KeysForTreeNodes(GeneratedDocumentShape shape, int treeNodes) {
    int low = 1;
    int high = std::max(treeNodes, 1);  // a tree never has fewer nodes than keys
    while (low < high) {
        shape.keys = low + (high - low) / 2;
        if (GeneratedTreeNodeCount(shape) >= treeNodes) {
            high = shape.keys;
        } else {
            low = shape.keys + 1;
        }
    }
    return low;
}

}  // namespace tabulon::bench

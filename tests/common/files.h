// Files for tests: whole-file reads, the shared test data, text edits of documents and
// a fresh folder that is removed with everything in it.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::testing {

// "" when the file cannot be read.
inline std::string ReadFileBytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

inline std::filesystem::path DataFile(const std::string& name) {
    return std::filesystem::path(TABULON_SOURCE_DIR) / "tests" / "data" / name;
}

// text with every occurrence of from replaced by to; a from that is not there fails
// the test, since the edit would then prove nothing.
inline std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    EXPECT_NE(text.find(from), std::string::npos) << from;
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tabulon-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) ADD_FAILURE() << "mkdtemp failed";
        path_ = pattern;
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    ~TempDir() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, ignored);
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    std::string write(const std::string& name, const std::string& content) const {
        std::ofstream(path_ / name, std::ios::binary) << content;
        return file(name);
    }
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            found.push_back(entry.path().filename().string());
        return found;
    }

private:
    std::filesystem::path path_;
};

}  // namespace tabulon::testing

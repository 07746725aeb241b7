// Runs the built `tabulon` executable and checks what it prints and how it exits.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "document/dtd.h"

namespace tabulon {
namespace {

struct RunResult {
    int status = -1;
    std::string out;
    std::string err;
};

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// args is appended to the command line as it is (the tests quote where needed).
RunResult RunTabulon(const std::string& args) {
    const auto dir = std::filesystem::path(::testing::TempDir());
    // CTest runs the cases of this file in parallel processes: name the files per process.
    const std::string stem = "tabulon_cli_" + std::to_string(::getpid());
    const auto out = dir / (stem + "_out.txt");
    const auto err = dir / (stem + "_err.txt");
    const std::string command = std::string("'") + TABULON_CLI + "' " + args + " >'" +
                                out.string() + "' 2>'" + err.string() + "'";
    const int raw = std::system(command.c_str());
    RunResult result;
    result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    result.out = ReadFile(out);
    result.err = ReadFile(err);
    return result;
}

int CountLines(const std::string& text) {
    int lines = 0;
    for (const char c : text)
        lines += c == '\n';
    return lines;
}

TEST(TabulonCli, DtdIsTheBuiltInDefinitionByteForByte) {
    const RunResult r = RunTabulon("dtd");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, BuiltInDtd());
    EXPECT_EQ(r.err, "");
}

TEST(TabulonCli, UnitsTsvHasAHeaderAndOneLinePerConversion) {
    const RunResult r = RunTabulon("units --tsv");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(CountLines(r.out), 64);
    std::istringstream lines(r.out);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "index\tname\tfactor\toffset\tenglish\tmetric");
    std::getline(lines, line);
    EXPECT_EQ(line, "1\tSQFT_TO_SQM\t0.09290304\t0\tsq ft\tsq m");
}

TEST(TabulonCli, ConvertPrintsTheValueAndTheTargetLabel) {
    struct Case {
        const char* args;
        const char* out;
    };
    const Case cases[] = {
        {"convert 10 FT_TO_M", "3.048 m\n"},
        {"convert 3.048 ft_to_m --to-english", "10 ft\n"},
        {"convert --to-english 100 F_TO_C", "212 F\n"},
        {"convert -40 F_TO_C", "-40 C\n"},
        {"convert 7 ''", "7\n"},
    };
    for (const Case& c : cases) {
        const RunResult r = RunTabulon(c.args);
        EXPECT_EQ(r.status, 0) << c.args << ": " << r.err;
        EXPECT_EQ(r.out, c.out) << c.args;
    }
}

TEST(TabulonCli, UsageErrorsExitWithTwoAndAUsageLine) {
    const char* bad[] = {
        "",
        "frobnicate",
        "units --csv",
        "dtd extra",
        "convert 10",
        "convert abc FT_TO_M",
        "convert 10m FT_TO_M",
        "convert 10 NO_SUCH_CONVERSION",
        "convert 10 FT_TO_M --to-metric",
        "convert 1e999 FT_TO_M",
    };
    for (const char* args : bad) {
        const RunResult r = RunTabulon(args);
        EXPECT_EQ(r.status, 2) << args;
        EXPECT_NE(r.err.find("usage: tabulon"), std::string::npos) << args;
        EXPECT_EQ(r.out, "") << args;
    }
}

TEST(TabulonCli, HelpListsTheSubcommands) {
    const RunResult r = RunTabulon("--help");
    EXPECT_EQ(r.status, 0);
    for (const char* name : {"convert", "dtd", "units"}) {
        EXPECT_NE(r.out.find(std::string("  ") + name), std::string::npos) << name;
    }
}

}  // namespace
}  // namespace tabulon

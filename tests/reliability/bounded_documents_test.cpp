// Documents made to cost time or memory out of proportion to their size (grids of
// thousands of headers, tags of 100,000 attributes, one picture under many spellings,
// thousands of missing pictures, files beyond any sensible size), and texts the XML
// rules refuse. Each is answered as the rules say, with what a user would see; the
// time and memory they take are measured by bench/probes.sh, not here.
#include <sys/resource.h>

#include "common/documents.h"
#include "reliability/hostile_harness.h"

namespace tabulon::testing {
namespace {

// A document of one node over a layout of the given headers and one value.
std::string Amplified(int columns, int rows, const std::string& rowType = "TextBox",
                      const std::string& unitSystem = "ENGLISH") {
    std::string headers, rowHeaders;
    for (int c = 0; c < columns; ++c)
        headers += R"(<ColumnHeader HName="C)" + std::to_string(c) + R"("/>)";
    for (int r = 0; r < rows; ++r)
        rowHeaders += Row(rowType, rowType == "UnitNum" ? R"(Unit="FT_TO_M" Format="0.0")" : "");
    return Doc(R"(<Pnode Name="N1" KeyValue="N1" GridHeaderKey="H" GridValueKey="K" Filter="0"/>)",
               Header("H", headers, rowHeaders), Column({{"7"}}), unitSystem);
}

// A document whose nodes carry the given attributes in their order.
std::string WithNodes(const std::vector<std::string>& nodeAttributes) {
    std::string tree;
    for (std::size_t i = 0; i < nodeAttributes.size(); ++i) {
        tree += R"(<Pnode Name="N" KeyValue="N)" + std::to_string(i) +
                R"(" GridHeaderKey="H" GridValueKey="K" Filter="0" )" + nodeAttributes[i] + "/>";
    }
    return Doc(tree,
               Header("H", R"(<ColumnHeader HName="A"/><ColumnHeader HName="B"/>)", Row("TextBox")),
               Column({{"7"}}));
}

using BoundedDocument = HostileHarness;

TEST_F(BoundedDocument, GridOfThousandsOfHeadersStoresOnlyWhatItsCellsHold) {
    for (const std::string system : {"ENGLISH", "METRIC"}) {
        SCOPED_TRACE(system);
        NewControl();
        ASSERT_TRUE(LoadText(Amplified(1000, 1000, "UnitNum", system)));
        const FlexGrid& grid = form().msgGridView;
        EXPECT_EQ(grid.rows(), 1001);
        EXPECT_EQ(grid.cols(), 1000);
        EXPECT_EQ(grid.textMatrix(0, 999), "C999");
        EXPECT_EQ(grid.textMatrix(1, 1), system == "METRIC" ? "2.1" : "7.0");
        EXPECT_EQ(grid.textMatrix(1000, 999), system == "METRIC" ? "0.0" : "");
        // Headers and the one value; a Metric grid also holds each converted cell.
        const std::size_t held = system == "METRIC" ? 1000u * 999u + 2000u : 2001u;
        EXPECT_LE(grid.storedCells(), held);
    }
}

TEST_F(BoundedDocument, GridBeyondAMillionCellsFailsBeforeItIsSized) {
    // The node's layout fails; the load itself does not.
    EXPECT_TRUE(LoadText(Amplified(2000, 600)));
    ExpectMessages({Critical("Unexpected Error - 1028")});
    EXPECT_EQ(form().msgGridView.rows(), 0);
    EXPECT_EQ(form().msgGridView.storedCells(), 0u);
    // No node shows that grid, so find has nothing in it to go to.
    EXPECT_TRUE(control().Find("C1").empty());
}

TEST_F(BoundedDocument, TagOfThousandsOfAttributesGetsTheParsersOwnFirstComplaint) {
    std::string undeclared;
    for (int i = 0; i < 100000; ++i)
        undeclared += " a" + std::to_string(i) + "=\"v\"";
    for (const bool fromFile : {false, true}) {
        ASSERT_FALSE(LoadEither(WithNodes({undeclared}), fromFile));
        const std::string message = OnlyCriticalMessage();
        EXPECT_EQ(message.substr(0, message.find("\r\n")),
                  "No declaration for attribute a0 of element Pnode");
        EXPECT_TRUE(message.ends_with("...")) << message.substr(0, 200);
        EXPECT_NE(message.find("\r\n<Pnode Name=\"N\" KeyValue=\"N0\""), std::string::npos);
    }
}

TEST_F(BoundedDocument, DocumentBeyondTheHostsLimitIsRefusedBeforeItIsRead) {
    EXPECT_EQ(control().MaxDocumentBytes(), std::uint64_t{1} << 30);
    // A sparse file of 2 GiB: reading it would take seconds and gigabytes.
    const std::filesystem::path huge = TempFile("huge.xml", "");
    std::filesystem::resize_file(huge, std::uintmax_t{2} << 30);
    EXPECT_FALSE(LoadPath(huge));
    ExpectMessages({Critical("The file " + huge.string() +
                             " is larger than the largest document accepted (1073741824 bytes)")});
    ClearRecords();

    const std::string text = Hostile("plain.xml");
    control().SetMaxDocumentBytes(text.size() - 1);
    EXPECT_FALSE(LoadText(text));
    ExpectMessages({Critical("Invalid XML")});
    control().SetMaxDocumentBytes(text.size());
    EXPECT_TRUE(LoadText(text));
}

TEST_F(BoundedDocument, RunningOutOfMemoryWhileLoadingIsAFailedLoad) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the address sanitizer reserves more address space than the limit allows";
#else
    const std::filesystem::path large = TempFile("large.xml", "");
    std::filesystem::resize_file(large, std::uintmax_t{768} << 20);
    ExpectChildPasses([&] {
        const rlimit limit{rlim_t{512} << 20, rlim_t{512} << 20};
        setrlimit(RLIMIT_AS, &limit);
        return !LoadPath(large) &&
               sink.messages() == std::vector{Critical("The file " + large.string() +
                                                       " is too large to load: not enough memory")};
    });
#endif
}

TEST_F(BoundedDocument, CharacterReferencesMustNameACharacterXmlAllows) {
    const std::string plain = Hostile("plain.xml");
    for (const std::string reference : {"&#0;", "&#4294967361;", "&#65"}) {
        SCOPED_TRACE(reference);
        const std::string text = Replaced(plain, "Plant North", "Plant" + reference + "North");
        EXPECT_FALSE(LoadText(text));
        EXPECT_EQ(OnlyCriticalMessage(), "Invalid XML");
        EXPECT_FALSE(LoadEither(text, true));
        EXPECT_EQ(OnlyCriticalMessage(),
                  "Invalid character reference \"" + reference + "\" at line 4, column 23");
    }
    // In a comment a reference is only text.
    EXPECT_TRUE(LoadText(Replaced(plain, "small valid", "&#0; small valid")));
    ASSERT_TRUE(LoadText(Replaced(plain, "Plant North", "Plant&#x1F600;")));
    EXPECT_EQ(form().treTreeView.node(1).text, "Plant\U0001F600");
}

}  // namespace
}  // namespace tabulon::testing

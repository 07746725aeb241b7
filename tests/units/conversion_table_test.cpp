#include "units/conversion_table.h"

#include <gtest/gtest.h>

#include <thread>

#include "unitinput/unit_catalogue.h"

namespace tabulon {
namespace {

class ConversionTableTest : public ::testing::Test {
protected:
    void SetUp() override { BuildConversionTable(); }
    void TearDown() override { ReleaseConversionTable(); }
};

TEST_F(ConversionTableTest, HoldsTheSixtyFourBuiltInNamesInCodeOrder) {
    const auto entries = ConversionEntries();
    ASSERT_EQ(entries.size(), 64u);
    EXPECT_EQ(entries[0].first, "");
    for (std::size_t i = 1; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].first, BuiltInConversions()[i - 1].name);
        EXPECT_EQ(entries[i].second, static_cast<std::int16_t>(i));
    }
}

TEST_F(ConversionTableTest, LooksUpNamesWithoutRegardToCase) {
    EXPECT_EQ(ConversionIndex(""), 0);
    EXPECT_EQ(ConversionIndex("Sqft_To_Sqm"), 1);
    EXPECT_EQ(ConversionIndex("hpton_to_kwkw"), 63);
}

TEST_F(ConversionTableTest, NearMissFailsAndCreatesNoEntry) {
    for (const char* name : {"SQFT_TO_SQMX", "SQFT_TO_SQ", " SQFT_TO_SQM", "SQFT TO SQM"}) {
        EXPECT_THROW(ConversionIndex(name), UnknownConversionFailure) << name;
    }
    EXPECT_EQ(ConversionEntries().size(), 64u);
}

TEST_F(ConversionTableTest, CustomUnitsFollowFitSixteenBitsAndGoWithARebuild) {
    AddConversion("A", 64);
    AddConversion("B", 65);
    EXPECT_EQ(ConversionIndex("b"), 65);
    for (const char* name : {"f_to_c", "a", ""}) {
        EXPECT_THROW(AddConversion(name, 66), DuplicateConversionFailure) << name;
    }
    EXPECT_EQ(ConversionIndex("F_TO_C"), 38);
    ASSERT_EQ(ConversionEntries().size(), 66u);
    EXPECT_EQ(ConversionEntries()[65], (std::pair<std::string, std::int16_t>{"B", 65}));
    EXPECT_THROW(AddConversion("big", 32768), OverflowFailure);  // codes fit sixteen bits
    EXPECT_THROW(ConversionIndex("big"), UnknownConversionFailure);
    AddConversion("edge", 32767);
    EXPECT_EQ(ConversionIndex("EDGE"), 32767);

    BuildConversionTable();  // a second control on this thread discards them
    EXPECT_THROW(ConversionIndex("A"), UnknownConversionFailure);
    EXPECT_EQ(ConversionEntries().size(), 64u);
}

TEST_F(ConversionTableTest, ReleaseLeavesEveryUseFailing) {
    ReleaseConversionTable();  // any control on this thread ends
    EXPECT_FALSE(HasConversionTable());
    EXPECT_THROW(ConversionIndex(""), ConversionTableAbsentFailure);
    EXPECT_THROW(AddConversion("A", 64), ConversionTableAbsentFailure);
    EXPECT_TRUE(ConversionEntries().empty());
    ReleaseConversionTable();  // twice is harmless
    BuildConversionTable();
    EXPECT_EQ(ConversionIndex("SQFT_TO_SQM"), 1);
}

TEST_F(ConversionTableTest, EachThreadHasItsOwnTable) {
    AddConversion("A", 64);
    bool hadTable = true;
    bool sawA = true;
    std::int16_t otherCode = 0;
    std::thread other([&] {
        hadTable = HasConversionTable();
        BuildConversionTable();
        AddConversion("B", 64);
        try {
            ConversionIndex("A");
        } catch (const UnknownConversionFailure&) {
            sawA = false;
        }
        otherCode = ConversionIndex("B");
        ReleaseConversionTable();
    });
    other.join();
    EXPECT_FALSE(hadTable);
    EXPECT_FALSE(sawA);
    EXPECT_EQ(otherCode, 64);
    EXPECT_TRUE(HasConversionTable());  // the other thread's release did not touch ours
    EXPECT_EQ(ConversionIndex("A"), 64);
    EXPECT_THROW(ConversionIndex("B"), UnknownConversionFailure);
}

}  // namespace
}  // namespace tabulon

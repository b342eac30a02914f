#include "platform/utils/volume_unit.h"

#include <gtest/gtest.h>

using utils::getVolumeUnit;

TEST(VolumeUnit, IsAHundredForSharesFundsAndIndices)
{
    EXPECT_EQ(getVolumeUnit("SH", "600519"), 100);
    EXPECT_EQ(getVolumeUnit("SH", "688233"), 100);
    EXPECT_EQ(getVolumeUnit("SZ", "300274"), 100);
    EXPECT_EQ(getVolumeUnit("SH", "510300"), 100);
    EXPECT_EQ(getVolumeUnit("SH", "000001"), 100);
    EXPECT_EQ(getVolumeUnit("HK", "00700"), 100);
}

TEST(VolumeUnit, IsTenForBonds)
{
    EXPECT_EQ(getVolumeUnit("SH", "019547"), 10);
    EXPECT_EQ(getVolumeUnit("SH", "113050"), 10);
    EXPECT_EQ(getVolumeUnit("SZ", "128136"), 10);
}

TEST(VolumeUnit, IsTenForACodeOfShenzhensRepurchasesOnAnyMarket)
{
    EXPECT_EQ(getVolumeUnit("SZ", "131810"), 10);
    EXPECT_EQ(getVolumeUnit("HK", "131810"), 10);
    EXPECT_EQ(getVolumeUnit("", "131810"), 10);
}

TEST(VolumeUnit, IsTenForShanghaisRepurchasesOnExactlyThatMarket)
{
    EXPECT_EQ(getVolumeUnit("SH", "204001"), 10);
    EXPECT_EQ(getVolumeUnit("SZ", "204001"), 100);
    EXPECT_EQ(getVolumeUnit("HKSH", "204001"), 100);
    EXPECT_EQ(getVolumeUnit("SHX", "204001"), 100);
}

TEST(VolumeUnit, IsAHundredForWhatIsNotKnown)
{
    EXPECT_EQ(getVolumeUnit("", ""), 100);
    EXPECT_EQ(getVolumeUnit("SH", "999999"), 100);
}

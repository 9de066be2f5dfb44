// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/Names.h"

#include <gtest/gtest.h>

namespace {

using namespace qor::tool;

TEST(MeasurementTypeName, NamesADeclaredType) { EXPECT_EQ(MeasurementTypeName(DB_MeasurementIsODS_FRF), "ODS_FRF"); }

TEST(MeasurementTypeName, ShowsTheCodeOfAnUndeclaredOne) { EXPECT_EQ(MeasurementTypeName(-3), "code -3"); }

TEST(MeasurementTypeOf, KnowsEveryNameThatIsShown)
{
    int named = 0;
    for (std::int32_t type = 0; type <= 40; ++type) {
        const std::string name = MeasurementTypeName(type);
        if (name.starts_with("code")) continue;
        ++named;
        EXPECT_EQ(MeasurementTypeOf(name), type) << name;
    }
    EXPECT_EQ(named, 25);
}

TEST(MeasurementTypeOf, IgnoresLetterCaseBlanksAndDashes)
{
    EXPECT_EQ(MeasurementTypeOf("time response"), DB_MeasurementIsTimeResponse);
    EXPECT_EQ(MeasurementTypeOf("ODS-frf"), DB_MeasurementIsODS_FRF);
}

TEST(MeasurementTypeOf, KnowsNoOtherName) { EXPECT_EQ(MeasurementTypeOf("FRFs"), std::nullopt); }

TEST(XaxisUnitsCodeOf, KnowsCommonUnits)
{
    EXPECT_EQ(XaxisUnitsCodeOf("s"), XAxislIsSec);
    EXPECT_EQ(XaxisUnitsCodeOf("hz"), XAxisIsHz);
    EXPECT_EQ(XaxisUnitsCodeOf("µs"), XAxisIsMicrosec);
    EXPECT_EQ(XaxisUnitsCodeOf("Orders"), XAxisIsOrder);
    EXPECT_EQ(XaxisUnitsCodeOf("mm"), NullX_AxisLabel);
}

} // namespace

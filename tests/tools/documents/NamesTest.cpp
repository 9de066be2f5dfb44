// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/Names.h"

#include <gtest/gtest.h>

#include <vector>

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

TEST(ShapeMeasurementTypeName, HasThreeMoreThanThoseOfTraces)
{
    EXPECT_EQ(ShapeMeasurementTypeName(ST_MeasurementIsODS), "ODS");
    EXPECT_EQ(ShapeMeasurementTypeName(ST_MeasurementIsResidue), "Residue");
    EXPECT_EQ(ShapeMeasurementTypeName(ST_MeasurementIsUnitModalMass), "UnitModalMass");
    EXPECT_EQ(ShapeMeasurementTypeName(ST_MeasurementIsODS_FRF), "ODS_FRF");
    EXPECT_EQ(ShapeMeasurementTypeName(ST_MeasurementIsTemperature), "Temperature");
    EXPECT_EQ(ShapeMeasurementTypeName(19), "code 19");
}

TEST(Names, CoverEveryDeclaredCode)
{
    const auto named = [](auto nameOf) {
        std::vector<std::int32_t> codes;
        for (std::int32_t code = -1; code <= 40; ++code) {
            if (!nameOf(code).starts_with("code")) codes.push_back(code);
        }
        return codes;
    };
    EXPECT_EQ(named(DataSVTName), (std::vector<std::int32_t>{3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(named(PointTypeName), (std::vector<std::int32_t>{0, 1, 2, 3}));
    EXPECT_EQ(named(AxisName), (std::vector<std::int32_t>{0, 1, 2}));
    EXPECT_EQ(named(ShapeMeasurementTypeName).size(), 28U);
    EXPECT_EQ(DataSVTName(DataIsTensor), "Tensor");
    EXPECT_EQ(PointTypeName(Spherical), "Spherical");
    EXPECT_EQ(AxisName(Yaxis), "Y");
}

TEST(XaxisUnitsCodeOf, KnowsCommonUnits)
{
    EXPECT_EQ(XaxisUnitsCodeOf("s"), XAxislIsSec);
    EXPECT_EQ(XaxisUnitsCodeOf("hz"), XAxisIsHz);
    EXPECT_EQ(XaxisUnitsCodeOf("µs"), XAxisIsMicrosec);
    EXPECT_EQ(XaxisUnitsCodeOf("Orders"), XAxisIsOrder);
    EXPECT_EQ(XaxisUnitsCodeOf("mm"), NullX_AxisLabel);
}

} // namespace

// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/ShapeStatistics.h"

#include "datablock/Conversion.h"

#include <cmath>

namespace qor::tool {

ShapeStatistics StatisticsOf(const ShapeTableDocument& document, std::size_t shape)
{
    ShapeStatistics result;
    for (std::size_t dof = 0; dof < document.dofs.size(); ++dof) {
        const auto& [real, imaginary] = document.At(shape, dof);
        if (std::isnan(real) || std::isnan(imaginary)) {
            ++result.notNumbers;
            continue;
        }
        const double magnitude = std::hypot(double{real}, double{imaginary});
        if (result.dof && magnitude <= result.magnitude) continue;
        result.dof = dof;
        result.magnitude = magnitude;
        result.phase = PhaseOf(real, imaginary, false);
    }
    return result;
}

} // namespace qor::tool

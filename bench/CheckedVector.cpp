// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "CheckedVector.h"

#include <stdexcept>

namespace qor::bench {

template <Format format>
ReturnStatus ReadChecked(const Traces<format>& traces, std::int32_t trace, std::int32_t sample, float& first,
                         float& second)
try {
    Part<format>(traces.at(static_cast<std::size_t>(trace - 1)).at(static_cast<std::size_t>(sample - 1)), first,
                 second);
    return Success;
} catch (const std::out_of_range&) {
    return Failure;
}

template <Format format>
ReturnStatus WriteChecked(Traces<format>& traces, std::int32_t trace, std::int32_t sample, float first, float second)
try {
    traces.at(static_cast<std::size_t>(trace - 1)).at(static_cast<std::size_t>(sample - 1)) =
        Joined<format>(first, second);
    return Success;
} catch (const std::out_of_range&) {
    return Failure;
}

#define QOR_CHECKED(format)                                                                                            \
    template ReturnStatus ReadChecked<format>(const Traces<format>&, std::int32_t, std::int32_t, float&, float&);      \
    template ReturnStatus WriteChecked<format>(Traces<format>&, std::int32_t, std::int32_t, float, float);
QOR_CHECKED(DataFormat_Real)
QOR_CHECKED(DataFormat_RealImaginary)
QOR_CHECKED(DataFormat_MgnitudePhase)

} // namespace qor::bench

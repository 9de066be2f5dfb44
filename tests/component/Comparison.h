// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Runs calls on the component and on a model of it, side by side.
#pragma once

#include "component/DataBlockAccess.h"
#include "component/DataBlockModel.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace qor::test {

// Both perform the calls of the sequence, behind each those that after(its index) gives, and now and then those that
// read out all. Empty when they show the same throughout; else the first difference.
template <class Component, class Model, class Call, class After>
std::string FirstDifferenceOf(const std::vector<Call>& sequence, const std::vector<Call>& readOut, After after)
{
    std::ostringstream difference;
    OnAThreadOfItsOwn([&] {
        Component component;
        Model model;
        const auto same = [&](const Call& call) {
            const Seen seen = component.Perform(call);
            const Seen expected = model.Perform(call);
            if (seen != expected) difference << call << ": " << seen << " instead of " << expected;
            return seen == expected;
        };
        for (std::size_t i = 0; i < sequence.size(); ++i) {
            if (!same(sequence[i]) || !std::ranges::all_of(after(i), same)) return;
            const bool readsOut = i % 16 == 15 || i + 1 == sequence.size();
            if (readsOut && !std::ranges::all_of(readOut, same)) return;
        }
    });
    return difference.str();
}

template <class Component, class Model, class Call>
std::string FirstDifferenceOf(const std::vector<Call>& sequence, const std::vector<Call>& readOut)
{
    return FirstDifferenceOf<Component, Model>(sequence, readOut, [](std::size_t) { return std::vector<Call>(); });
}

} // namespace qor::test

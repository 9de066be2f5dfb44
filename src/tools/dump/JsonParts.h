// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Parts of JSON documents of millions of values, written without making a tree of them first.
#pragma once

#include "platform/Unicode.h"
#include "tools/console/Console.h"
#include "tools/console/Json.h"
#include "tools/console/Text.h"
#include "tools/documents/DocumentFile.h"

#include <cmath>
#include <string>

namespace qor::tool {

inline std::string JsonQuoted(std::string_view text) { return JsonText(text, -1); }
inline std::string JsonQuoted(std::u16string_view text) { return JsonQuoted(platform::ToUtf8(text)); }

// The same as JsonNumber gives.
template <class Value>
std::string JsonValue(Value value)
{
    return std::isfinite(value) ? fmt::format("{}", value) : JsonText(JsonNumber(value), -1);
}

// The beginning of a document's object.
inline void WriteJsonHead(Output& output, const DocumentFile& file, std::u16string_view label)
{
    output.Print("{{\n  \"file\": {},\n", JsonQuoted(Shown(file.Path())));
    output.Print("  \"kind\": {},\n", JsonQuoted(NameOf(file.Kind())));
    output.Print("  \"label\": {},\n", JsonQuoted(label));
}

// "name": [...], eight values a line.
template <class ValueOf>
void WriteJsonArray(Output& output, std::string_view indent, std::string_view name, std::int32_t count,
                    const ValueOf& valueOf)
{
    output.Print("{}\"{}\": [", indent, name);
    for (std::int32_t row = 1; row <= count; ++row) {
        if (row > 1) output.Write(row % 8 == 1 ? "," : ", ");
        if (row % 8 == 1 && row > 1) output.Print("\n{}  ", indent);
        output.Write(valueOf(row));
    }
    output.Write("]");
}

} // namespace qor::tool

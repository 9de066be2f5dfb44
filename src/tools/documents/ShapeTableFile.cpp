// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/ShapeTableFile.h"

#include "fileio/Framing.h"

namespace qor::tool {
namespace {

// Reads what the layout names.
class FlatReader
{
public:
    explicit FlatReader(RecordReader& file) : file_(file) {}

    bool IsCutOff() const { return cutOff_; }

    void Int32(std::int32_t& value) { value = Got(file_.GetInt32()); }
    void Float(float& value) { value = Got(file_.GetFloat()); }
    void Text(std::u16string& text) { text = Got(LoadString(file_, TextForm::Counted)); }
    void TrimmedText(std::u16string& text) { Text(text); }
    void MeasurementType(DOF& dof)
    {
        dof.MeasurementType = Got(file_.GetInt16());
        dof.DataSVT = Got(file_.GetInt16());
    }
    // Constants are read past whatever they are; another program may have put something there.
    void Constant16(std::int16_t, int times)
    {
        for (int i = 0; i < times; ++i) Got(file_.GetInt16());
    }
    void ConstantFloat(float) { Got(file_.GetFloat()); }
    void ConstantText(std::u16string_view) { Got(LoadString(file_, TextForm::Counted)); }

private:
    template <class Value>
    Value Got(Value value)
    {
        cutOff_ = cutOff_ || file_.AtEnd();
        return value;
    }

    RecordReader& file_;
    bool cutOff_ = false;
};

// Bytes of a record whose texts are all empty.
constexpr std::int64_t LeastShape = 24;
constexpr std::int64_t LeastDOF = 28;
constexpr std::int64_t ValueBytes = 8;

bool HasRoomFor(const RecordReader& file, const ShapeTableCounts& counts)
{
    const std::int64_t shapes = counts.NumberOfShapes;
    const std::int64_t dofs = counts.NumberOfDOFs;
    return shapes >= 0 && dofs >= 0 && shapes * LeastShape + dofs * LeastDOF <= file.BytesLeft() &&
           shapes * dofs <= file.BytesLeft() / ValueBytes;
}

} // namespace

bool Load_ShapeTable(RecordReader& file, ShapeTableDocument& document)
{
    SkipReservedWords(file);
    FlatReader reader(file);
    ShapeTableCounts counts;
    Visit_Header(reader, counts, document.texts);
    if (reader.IsCutOff() || !HasRoomFor(file, counts)) return false;

    document.shapes.resize(static_cast<std::size_t>(counts.NumberOfShapes));
    for (Shape& shape : document.shapes) Visit_Shape(reader, shape);
    document.dofs.resize(static_cast<std::size_t>(counts.NumberOfDOFs));
    for (DOF& dof : document.dofs) Visit_DOF(reader, dof);

    const std::size_t count = document.shapes.size() * document.dofs.size();
    if (reader.IsCutOff() || count > static_cast<std::size_t>(file.BytesLeft() / ValueBytes)) return false;
    document.values.resize(count);
    for (auto& [real, imaginary] : document.values) {
        reader.Float(real);
        reader.Float(imaginary);
    }
    return true;
}

} // namespace qor::tool

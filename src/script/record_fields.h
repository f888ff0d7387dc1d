#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "record/design_record.h"

namespace torvale {

// Where a field stands in the record, by its type.
using FieldMember = std::variant<
    bool DesignRecord::*, std::int16_t DesignRecord::*, float DesignRecord::*, FreeValue DesignRecord::*,
    std::string DesignRecord::*, RowArray<unsigned char> DesignRecord::*, RowArray<std::int16_t> DesignRecord::*,
    RowArray<float> DesignRecord::*, RowArray<double> DesignRecord::*, RowArray<std::string> DesignRecord::*,
    BoundedArray<std::string, kHoleSizes + 1> DesignRecord::*, BoundedArray<float, kHoleSizes + 1> DesignRecord::*,
    BoundedArray<std::string, kHoleSizes> DesignRecord::*, BoundedArray<float, kHoleSizes> DesignRecord::*>;

struct RecordField {
  std::string_view name;
  FieldMember member;
};

// Every field of the record by its name, in the record's order.
std::span<const RecordField> RecordFields();

// The field of that name, or nullptr.
const RecordField* FindRecordField(std::string_view name);

}  // namespace torvale

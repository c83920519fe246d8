#include "apps/import/CanOpenDataType.h"

#include <algorithm>
#include <iterator>

namespace {

using eForm = CanOpenDataType::eForm;

constexpr quint16 BooleanCode = 0x0001;

// The object dictionary does not say how long a text may become: the widest type holds it.
constexpr CanOpenDataType Types[] = {
    {BooleanCode, "BOOLEAN", eForm::Unsigned, 1, "UINT8", true},
    {0x0002, "INTEGER8", eForm::Signed, 8, "INT8", false},
    {0x0003, "INTEGER16", eForm::Signed, 16, "INT16", false},
    {0x0004, "INTEGER32", eForm::Signed, 32, "INT32", false},
    {0x0005, "UNSIGNED8", eForm::Unsigned, 8, "UINT8", false},
    {0x0006, "UNSIGNED16", eForm::Unsigned, 16, "UINT16", false},
    {0x0007, "UNSIGNED32", eForm::Unsigned, 32, "UINT32", false},
    {0x0008, "REAL32", eForm::Real, 32, "REAL32", false},
    {0x0009, "VISIBLE_STRING", eForm::Text, 255, "STRING255", false},
    {0x000A, "OCTET_STRING", eForm::Bytes, 64, "BYTES64", false},
    {0x000B, "UNICODE_STRING", eForm::Text, 255, "STRING255", false},
    {0x000C, "TIME_OF_DAY", eForm::NoValue, 0, nullptr, false},
    {0x000D, "TIME_DIFFERENCE", eForm::NoValue, 0, nullptr, false},
    {0x000E, "BIT_STRING", eForm::NoValue, 0, nullptr, false},
    {0x000F, "DOMAIN", eForm::NoValue, 0, nullptr, false},
    {0x0010, "INTEGER24", eForm::Signed, 24, "INT32", true},
    {0x0011, "REAL64", eForm::Real, 64, "REAL64", false},
    {0x0012, "INTEGER40", eForm::Signed, 40, "INT64", true},
    {0x0013, "INTEGER48", eForm::Signed, 48, "INT64", true},
    {0x0014, "INTEGER56", eForm::Signed, 56, "INT64", true},
    {0x0015, "INTEGER64", eForm::Signed, 64, "INT64", false},
    {0x0016, "UNSIGNED24", eForm::Unsigned, 24, "UINT32", true},
    {0x0018, "UNSIGNED40", eForm::Unsigned, 40, "UINT64", true},
    {0x0019, "UNSIGNED48", eForm::Unsigned, 48, "UINT64", true},
    {0x001A, "UNSIGNED56", eForm::Unsigned, 56, "UINT64", true},
    {0x001B, "UNSIGNED64", eForm::Unsigned, 64, "UINT64", false},
};

} // namespace

bool CanOpenDataType::isBoolean() const
{
    return code == BooleanCode;
}

const CanOpenDataType *CanOpenDataType::find(quint32 code)
{
    const auto type = std::find_if(std::begin(Types), std::end(Types),
        [code](const CanOpenDataType &candidate) { return candidate.code == code; });
    return type == std::end(Types) ? nullptr : type;
}

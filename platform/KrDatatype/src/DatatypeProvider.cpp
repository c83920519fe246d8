#include <KrDatatype/DatatypeProvider.h>

#include <algorithm>
#include <array>

namespace {

constexpr quint8 NoType = 0xFF;
/// Ids are below this one.
constexpr size_t IdEnd = 32;

/// Ascending by id.
constexpr std::array Types {
    SimpleType(1, SimpleType::SignedInteger, 1, "Signed 8 bit", "INT8"),
    SimpleType(2, SimpleType::SignedInteger, 2, "Signed 16 bit", "INT16"),
    SimpleType(3, SimpleType::SignedInteger, 4, "Signed 32 bit", "INT32"),
    SimpleType(4, SimpleType::SignedInteger, 8, "Signed 64 bit", "INT64"),
    SimpleType(5, SimpleType::UnsignedInteger, 1, "Unsigned 8 bit", "UINT8"),
    SimpleType(6, SimpleType::UnsignedInteger, 2, "Unsigned 16 bit", "UINT16"),
    SimpleType(7, SimpleType::UnsignedInteger, 4, "Unsigned 32 bit", "UINT32"),
    SimpleType(8, SimpleType::UnsignedInteger, 8, "Unsigned 64 bit", "UINT64"),
    SimpleType(9, SimpleType::FloatingPoint, 4, "Floating point 32 bit", "REAL32"),
    SimpleType(10, SimpleType::FloatingPoint, 8, "Floating point 64 bit", "REAL64"),
    SimpleType(11, SimpleType::CharacterString, 8, "Character string of 8 bytes", "STRING8"),
    SimpleType(12, SimpleType::CharacterString, 16, "Character string of 16 bytes", "STRING16"),
    SimpleType(13, SimpleType::CharacterString, 32, "Character string of 32 bytes", "STRING32"),
    SimpleType(14, SimpleType::CharacterString, 64, "Character string of 64 bytes", "STRING64"),
    SimpleType(15, SimpleType::CharacterString, 128, "Character string of 128 bytes", "STRING128"),
    SimpleType(16, SimpleType::CharacterString, 255, "Character string of 255 bytes", "STRING255"),
    SimpleType(17, SimpleType::ByteString, 4, "Byte string of 4 bytes", "BYTES4"),
    SimpleType(18, SimpleType::ByteString, 8, "Byte string of 8 bytes", "BYTES8"),
    SimpleType(19, SimpleType::ByteString, 16, "Byte string of 16 bytes", "BYTES16"),
    SimpleType(20, SimpleType::ByteString, 32, "Byte string of 32 bytes", "BYTES32"),
    SimpleType(21, SimpleType::ByteString, 64, "Byte string of 64 bytes", "BYTES64"),
    SimpleType(DatatypeProvider::UnformattedId, SimpleType::CharacterString, 255,
        "Unformatted character string", "RAW"),
};

/// Id to position in Types, NoType where there is none.
constexpr std::array<quint8, IdEnd> positionsById()
{
    std::array<quint8, IdEnd> positions {};
    positions.fill(NoType);
    for (size_t position = 0; position < Types.size(); ++position)
        positions[Types[position].id()] = quint8(position);
    return positions;
}

constexpr std::array<quint8, IdEnd> Positions = positionsById();

} // namespace

const DatatypeProvider *DatatypeProvider::instance()
{
    static const DatatypeProvider provider;
    return &provider;
}

const SimpleType *DatatypeProvider::simpleType(quint8 id) const
{
    if (id >= IdEnd || Positions[id] == NoType)
        return nullptr;
    return &Types[Positions[id]];
}

const SimpleType *DatatypeProvider::simpleType(const QString &shortName) const
{
    const auto type = std::find_if(Types.begin(), Types.end(),
        [&shortName](const SimpleType &known) { return known.shortName() == shortName; });
    return type == Types.end() ? nullptr : &*type;
}

QList<const SimpleType *> DatatypeProvider::simpleTypes() const
{
    QList<const SimpleType *> types;
    types.reserve(qsizetype(Types.size()));
    for (const SimpleType &type : Types)
        types.append(&type);
    return types;
}

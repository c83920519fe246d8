#pragma once

#include <KrDatatype/KrDatatypeExport.h>

#include <QtCore/QString>

/// One data type of the drive.
class KrDatatype_EXPORT SimpleType {
public:
    enum eKind : quint32 {
        SignedInteger = 0,
        UnsignedInteger = 1,
        FloatingPoint = 2,
        CharacterString = 3,
        ByteString = 4,
    };

    constexpr SimpleType(
        quint8 id, eKind kind, quint32 size, const char *name, const char *shortName)
        : m_id(id)
        , m_kind(kind)
        , m_size(size)
        , m_name(name)
        , m_shortName(shortName)
    {
    }

    constexpr quint8 id() const { return m_id; }
    constexpr eKind kind() const { return m_kind; }
    /// **Unit** bytes; of a string its field size.
    constexpr quint32 sizeInBytes() const { return m_size; }
    QString name() const { return QString::fromLatin1(m_name); }
    /// As descriptions write it ("UINT16").
    QString shortName() const { return QString::fromLatin1(m_shortName); }

private:
    quint8 m_id;
    eKind m_kind;
    quint32 m_size;
    const char *m_name;
    const char *m_shortName;
};

#pragma once

#include <QtCore/QString>

/// What a section's name says about its content.
///
///     name  = index / index "sub" subIndex / index list / other
///     index = [ "0x" ] 4 hex digits
///     list  = "Name" / "Default" / "Value" / "Denotation" / "ObjectLinks"
struct EdsSectionName {
    enum class eKind {
        /// Known to the standard and without objects.
        Administration,
        ObjectList,
        Object,
        SubObject,
        NameList,
        DefaultList,
        ValueList,
        /// Belongs to an object and says nothing of its values.
        Accessory,
        Unknown,
    };

    eKind kind = eKind::Unknown;
    quint16 index = 0;
    quint8 subIndex = 0;

    static EdsSectionName parse(const QString &name);
};

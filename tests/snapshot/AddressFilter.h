#pragma once

#include <KrFilter/Filter.h>
#include <KrFilter/FilterElement.h>

#include <QtCore/QStringList>

/// Rejects the sortable addresses in its list and keeps those it was asked for.
class AddressFilter final : public Filter {
public:
    explicit AddressFilter(const QStringList &rejected)
        : rejected(rejected)
    {
    }

    bool testElement(const FilterElement &element) const override
    {
        const QString address = element.stringProperty(QStringLiteral("Address"));
        asked.append(address);
        return !rejected.contains(address);
    }

    QStringList rejected;
    mutable QStringList asked;
};

#pragma once

#include "tests/instance/InstanceStand.h"
#include "value/ParameterInstanceData.h"

#include <KrParameterDefinition/ParameterException.h>
#include <LmUtilities/IniSection.h>

inline ParameterInstanceData *recordOf(
    const CoordinateInstanceSet *set, eLivingSpace livingSpace = eLivingSpace::Axis1)
{
    return set->record(livingSpace);
}

/// Of the exception that the call ends with; -1 where it ends without.
template <typename Call>
int reasonOf(Call call)
{
    try {
        call();
    } catch (const ParameterException &exception) {
        return int(exception.reason());
    }
    return -1;
}

/// "key=text", in the order of the section.
inline QStringList linesOf(const LmIniParser::IniSection &section)
{
    QStringList lines;
    for (const QByteArray &key : section.keys()) {
        lines.append(
            QString::fromLatin1(key) + u'=' + QString::fromLatin1(section.read(key).toByteArray()));
    }
    return lines;
}

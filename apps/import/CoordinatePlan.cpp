#include "apps/import/CoordinatePlan.h"

namespace {

constexpr quint16 group(char letter)
{
    return quint16(letter - 'A' + 1);
}

/// Indices from `first` on, line by line from `group`, `line` on and through the groups that
/// follow.
struct Range {
    quint16 first;
    quint16 count;
    quint16 group;
    quint16 line;
};

constexpr Range Ranges[] = {
    // Communication: device, server and client; PDOs of the first 200; synchronisation; program.
    {0x1000, 1000, group('C'), 0},
    {0x1400, 200, group('D'), 0},
    {0x1600, 200, group('D'), 200},
    {0x1800, 200, group('D'), 400},
    {0x1A00, 200, group('D'), 600},
    {0x1C00, 100, group('D'), 800},
    {0x1F50, 100, group('D'), 900},
    // Manufacturer.
    {0x2000, 4000, group('F'), 0},
    {0x3000, 2000, group('J'), 0},
    {0x4000, 1000, group('L'), 0},
    {0x5000, 1000, group('M'), 0},
    // Device profile: eight axes, 0x800 indices each.
    {0x6000, 512, group('P'), 0},
    {0x6400, 488, group('P'), 512},
    {0x6800, 512, group('R'), 0},
    {0x6C00, 488, group('R'), 512},
    {0x7000, 512, group('S'), 0},
    {0x7400, 488, group('S'), 512},
    {0x7800, 512, group('T'), 0},
    {0x7C00, 488, group('T'), 512},
    {0x8000, 512, group('U'), 0},
    {0x8400, 488, group('U'), 512},
    {0x8800, 512, group('V'), 0},
    {0x8C00, 488, group('V'), 512},
    {0x9000, 512, group('W'), 0},
    {0x9400, 488, group('W'), 512},
    {0x9800, 512, group('X'), 0},
    {0x9C00, 488, group('X'), 512},
    // Network variables; device information.
    {0xA000, 1000, group('N'), 0},
    {0xF000, 1000, group('O'), 0},
};

constexpr quint16 LinesPerGroup = ParameterCoordinate::LastLine + 1;
constexpr char SharedGroups[] = {'A', 'B', 'Y', 'Z'};
static_assert(sizeof SharedGroups * LinesPerGroup == CoordinatePlan::SharedCount);

// Other parts of the system look up the active axis here.
constexpr quint16 ActiveAxisGroup = group('E');
constexpr quint16 ActiveAxisLine = 84;

} // namespace

bool CoordinatePlan::isUsable(ParameterCoordinate coordinate)
{
    return coordinate.isValid() && !coordinate.isMoveable()
        && coordinate != ParameterCoordinate(ActiveAxisGroup, ActiveAxisLine);
}

ParameterCoordinate CoordinatePlan::ownPlace(quint16 index)
{
    for (const Range &range : Ranges) {
        if (index < range.first || index - range.first >= range.count)
            continue;
        const int line = range.line + index - range.first;
        return {quint16(range.group + line / LinesPerGroup), quint16(line % LinesPerGroup)};
    }
    return {};
}

ParameterCoordinate CoordinatePlan::sharedPlace(int position)
{
    Q_ASSERT(position >= 0 && position < SharedCount);
    return {group(SharedGroups[position / LinesPerGroup]), quint16(position % LinesPerGroup)};
}

#include "container/ComparisonSelection.h"

#include "snapshot/ParameterFilterElement.h"

#include <KrFilter/NumberFilterConstraint.h>
#include <KrFilter/TextFilterConstraint.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrSystem/System.h>

#include <algorithm>
#include <array>

namespace {

/// Change tags of values that the suite and the drive set themselves.
constexpr std::array<const char *, 5> SkippedTags {"dt_", "da_", "facility", "fw_", "checksum"};

} // namespace

ComparisonSelection::ComparisonSelection(eLivingSpace livingSpace)
    : m_livingSpaces {eLivingSpace::Global}
    , m_filter(FilterCombination::eMethod::AllOf)
{
    if (livingSpace != eLivingSpace::Global)
        m_livingSpaces.append(livingSpace);

    auto spaces = std::make_unique<FilterCombination>(FilterCombination::eMethod::AnyOf);
    for (const eLivingSpace each : std::as_const(m_livingSpaces)) {
        spaces->append(std::make_unique<TextFilterConstraint>(QStringLiteral("LivingSpace"),
            TextFilterConstraint::RegularExpression, QString::number(qint32(each))));
    }
    auto tags = std::make_unique<FilterCombination>(FilterCombination::eMethod::AllOf);
    for (const char *tag : SkippedTags) {
        tags->append(std::make_unique<TextFilterConstraint>(QStringLiteral("ChangeTagValue"),
            TextFilterConstraint::Contains, QLatin1String(tag), true));
    }
    m_filter.append(std::move(spaces));
    m_filter.append(std::make_unique<NumberFilterConstraint>(QStringLiteral("WriteLevel"),
        NumberFilterConstraint::LessOrEqual, System::information()->userAccessLevel()));
    m_filter.append(std::make_unique<NumberFilterConstraint>(
        QStringLiteral("MemoryAllocation"), NumberFilterConstraint::Equal, 0));
    m_filter.append(std::move(tags));
}

bool ComparisonSelection::accepts(const ParameterInformation *information) const
{
    ParameterFilterElement tested;
    const QList<quint16> elements = information->elementList();
    for (const eLivingSpace livingSpace : information->livingSpaces()) {
        if (!m_livingSpaces.contains(livingSpace))
            continue;
        const bool isAccepted = std::any_of(elements.begin(), elements.end(), [&](quint16 element) {
            tested.load(information, livingSpace, element);
            return m_filter.testElement(tested);
        });
        if (isAccepted)
            return true;
    }
    return false;
}

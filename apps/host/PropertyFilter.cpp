#include "apps/host/PropertyFilter.h"

#include <KrFilter/FilterCombination.h>
#include <KrFilter/TextFilterConstraint.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <QtCore/QMap>

namespace {

QString propertyOf(const QString &condition)
{
    return condition.section(u'=', 0, 0);
}

} // namespace

std::unique_ptr<Filter> PropertyFilter::of(const QStringList &conditions, QString &error)
{
    QMap<QString, QStringList> values;
    for (const QString &condition : conditions) {
        if (condition.indexOf(u'=') < 1) {
            error = tr("\"%1\" ist keine Bedingung der Form EIGENSCHAFT=WERT").arg(condition);
            return nullptr;
        }
        values[propertyOf(condition)].append(condition.section(u'=', 1));
    }
    auto all = std::make_unique<FilterCombination>(FilterCombination::eMethod::AllOf);
    for (auto property = values.cbegin(); property != values.cend(); ++property) {
        auto any = std::make_unique<FilterCombination>(FilterCombination::eMethod::AnyOf);
        for (const QString &value : *property) {
            any->append(std::make_unique<TextFilterConstraint>(
                property.key(), TextFilterConstraint::Equals, value));
        }
        all->append(std::move(any));
    }
    return all;
}

QStringList PropertyFilter::unknownProperties(const QStringList &conditions)
{
    const QStringList known = ParameterValueSnapshot::filterPropertyNames();
    QStringList unknown;
    for (const QString &condition : conditions) {
        const QString property = propertyOf(condition);
        if (!known.contains(property) && !unknown.contains(property))
            unknown.append(property);
    }
    return unknown;
}

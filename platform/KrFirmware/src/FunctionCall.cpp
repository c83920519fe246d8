#include "FunctionCall.h"

#include "FindingText.h"

#include <KrParameterDefinition/ParameterException.h>
#include <KrParameterInstance/ParameterData.h>

namespace {

using enum eParameterProperty;

QLatin1StringView kindName(eParameterProperty kind)
{
    switch (kind) {
    case LimitFunctionIndex:
        return QLatin1StringView("limit");
    case ScalingFunctionIndex:
        return QLatin1StringView("scaling");
    case HidingFunctionIndex:
        return QLatin1StringView("hiding");
    case PrereadFunctionIndex:
        return QLatin1StringView("pre-read");
    case PrewriteFunctionIndex:
        return QLatin1StringView("pre-write");
    case PostreadFunctionIndex:
        return QLatin1StringView("post-read");
    default:
        return QLatin1StringView("post-write");
    }
}

} // namespace

FunctionCall::FunctionCall(
    eParameterProperty kind, quint16 index, const ParameterData &data, quint16 element)
    : m_kind(kind)
    , m_index(index)
    , m_element(element)
    , m_data(&data)
{
}

bool FunctionCall::mayAct() const
{
    return m_kind != LimitFunctionIndex && m_kind != ScalingFunctionIndex
        && m_kind != HidingFunctionIndex;
}

ParameterAddress FunctionCall::address()
{
    return place().address;
}

int FunctionCall::livingSpace()
{
    const Place &at = place();
    return at.isGlobal ? 0 : at.address.axis() + 1;
}

void FunctionCall::releaseData()
{
    if (m_data)
        place();
    m_data = nullptr;
}

QString FunctionCall::name()
{
    QString coordinate;
    try {
        coordinate = address().coordinate().toText();
    } catch (const ParameterException &) {
        coordinate = FindingText::tr("unknown");
    }
    return FindingText::tr("%1 function %2 of parameter %3, element %4")
        .arg(kindName(m_kind))
        .arg(m_index)
        .arg(coordinate)
        .arg(m_element);
}

const FunctionCall::Place &FunctionCall::place()
{
    if (!m_place)
        m_place =
            Place {ParameterAddress(m_data->addressNumber(m_element)), m_data->isGlobalParameter()};
    return *m_place;
}
